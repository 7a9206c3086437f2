#include "apps/demo/company_files.hpp"

#include "frame/parametros.hpp"

namespace zendara {

CompanyFiles::CompanyFiles(Engine& engine, const std::string& folder, std::string_view code,
                           std::span<const std::string_view> years)
    : code_(code), files_(engine.Workspaces(0)->CreateFiles(folder + "/DATOS")) {
  for (const ParameterFile& file : kParameterFiles) files_->Put(file.name, std::string(file.length, ' '));
  for (const StoredFile& file : StoredFiles()) {
    if (file.kind == FileKind::kCompany) continue;
    for (const std::string_view year : years) Create(file, year);
  }
  // A company shows by its own file, which comes last.
  Create(FileOf(FileKind::kCompany), {});
}

void CompanyFiles::Create(const StoredFile& file, std::string_view year) {
  std::string name = FileName(file.kind, code_, year);
  if (open_.contains(name)) return;
  auto database = files_->Create(name, file.tables);
  open_.emplace(std::move(name), std::move(database));
}

Database& CompanyFiles::Of(FileKind kind, std::string_view year) { return *open_.at(FileName(kind, code_, year)); }

void CompanyFiles::Finish() {
  open_.clear();
  files_->Publish();
}

}  // namespace zendara
