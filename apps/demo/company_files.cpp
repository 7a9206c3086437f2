#include "apps/demo/company_files.hpp"

#include <algorithm>
#include <ranges>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "adapters/host/host_files.hpp"
#include "adapters/host/new_file.hpp"
#include "frame/parametros.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

// Errors of the machine in one line for the user.
template <typename Work>
void InWords(const fs::path& folder, Work work) {
  try {
    work();
  } catch (const std::system_error& error) {
    throw std::runtime_error("cannot write in " + folder.string() + ": " + error.code().message());
  }
}

fs::path Find(const fs::path& path) {
  std::error_code error;
  return FindPath(path.string(), error).value_or(path);
}

[[noreturn]] void RefuseTaken(const fs::path& path) {
  throw std::runtime_error("there is a company already: " + path.string() + " exists, nothing was written");
}

}  // namespace

CompanyFiles::CompanyFiles(Engine& engine, const std::string& folder, std::string_view code,
                           std::span<const std::string_view> years)
    : code_(code), folder_(folder), data_(Find(folder_ / "DATOS")) {
  for (const ParameterFile& file : kParameterFiles) names_.emplace_back(file.name);
  for (const StoredFile& file : StoredFiles()) {
    for (const std::string_view year : years) {
      std::string name = FileName(file.kind, code_, year);
      if (std::ranges::find(names_, name) == names_.end()) names_.push_back(std::move(name));
    }
  }
  // A company shows by its own file, which comes last.
  std::ranges::rotate(names_, std::ranges::find(names_, FileName(FileKind::kCompany, code_, {})) + 1);
  try {
    InWords(folder_, [&] {
      MakeFolders();
      staging_.emplace(data_);
      RefuseExisting();
      CreateAll(engine, years);
    });
  } catch (...) {
    Remove();
    throw;
  }
}

CompanyFiles::~CompanyFiles() { Remove(); }

void CompanyFiles::MakeFolders() {
  for (fs::path missing = fs::absolute(data_); !missing.empty() && !fs::exists(missing);
       missing = missing.parent_path()) {
    made_folders_.insert(made_folders_.begin(), missing);
  }
  fs::create_directories(data_);
}

void CompanyFiles::RefuseExisting() const {
  for (const std::string& name : names_) {
    const fs::path path = Find(data_ / name);
    if (fs::exists(fs::symlink_status(path))) RefuseTaken(path);
  }
}

void CompanyFiles::CreateAll(Engine& engine, std::span<const std::string_view> years) {
  const std::shared_ptr<Workspace> workspace = engine.Workspaces(0);
  for (const StoredFile& file : StoredFiles()) {
    for (const std::string_view year : years) {
      const std::string name = FileName(file.kind, code_, year);
      if (open_.contains(name)) continue;
      open_[name] = workspace->CreateDatabase((staging_->path() / name).string(), file.tables);
      open_[name]->BeginTrans();
    }
  }
  for (const ParameterFile& file : kParameterFiles) {
    const std::error_code error = WriteNewFile(staging_->path() / file.name, std::string(file.length, ' '));
    if (error) throw std::system_error(error);
  }
}

Database& CompanyFiles::Of(FileKind kind, std::string_view year) { return *open_.at(FileName(kind, code_, year)); }

void CompanyFiles::Finish() {
  for (auto& [name, database] : open_) {
    database->CommitTrans();
    database->Close();
  }
  open_.clear();
  InWords(data_, [&] {
    // Somebody may have been quicker, also with names in other case.
    RefuseExisting();
    if (const auto taken = staging_->Publish(names_)) RefuseTaken(data_ / *taken);
  });
}

void CompanyFiles::Remove() noexcept {
  open_.clear();  // undoes what is pending
  staging_.reset();
  // Those that were made here, unless something has come into them.
  std::error_code none;
  for (const fs::path& folder : std::views::reverse(made_folders_)) fs::remove(folder, none);
}

}  // namespace zendara
