#include <algorithm>

#include "apps/zendara/commands/company_data.hpp"
#include "frame/parametros.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// In the order in which they are made.
std::vector<std::string> MissingFiles(const CompanyData& data) {
  std::vector<std::string> names;
  for (const StoredFile& file : StoredFiles()) names.push_back(data.FileName(file.kind));
  for (const ParameterFile& file : kParameterFiles) names.emplace_back(file.name);
  std::erase_if(names, [&](const std::string& name) { return data.Has(name); });
  return names;
}

void Create(const CompanyData& data, const std::vector<std::string>& names, NewFiles& files) {
  const auto wanted = [&](std::string_view name) { return std::ranges::find(names, name) != names.end(); };
  for (const StoredFile& file : StoredFiles()) {
    if (const std::string name = data.FileName(file.kind); wanted(name)) files.Create(name, file.tables);
  }
  for (const ParameterFile& file : kParameterFiles) {
    if (wanted(file.name)) files.Put(file.name, std::string(file.length, ' '));
  }
  files.Publish();
}

// Nothing when none is missing in a place that may only be read.
std::unique_ptr<NewFiles> Begin(const CompanyData& data) try {
  return data.workspace()->CreateFiles(DataFolder(data.store()));
} catch (const RuntimeError&) {
  if (!MissingFiles(data).empty()) throw;
  return nullptr;
}

// Also when another program makes some of them in the meantime. What one that ended has left behind goes before they
// are looked for, and the names that it had given already with it.
void CreateMissing(const CompanyData& data, Console& console) {
  console.Doing("creating files in " + DataFolder(data.store()));
  for (std::vector<std::string> before;;) {
    const std::unique_ptr<NewFiles> files = Begin(data);
    const std::vector<std::string> names = MissingFiles(data);
    if (names.empty() || !files) return;
    try {
      Create(data, names, *files);
      for (const std::string& name : names) console.Out("created " + name + "\n");
      return;
    } catch (const RuntimeError& error) {
      if (error.number() != kObjectExists || names == before) throw;
    }
    before = names;
  }
}

// The row of the company in a file of general tables; a row that is there stays as it is.
void NameCompany(const CompanyData& data, FileKind kind, const CreateOptions& options, Console& console) {
  const std::shared_ptr<Database> database = data.Open(kind, console);
  const std::shared_ptr<Recordset> companies = database->OpenRecordset("EmpresasNom", RecordsetType::kTable);
  companies->SetIndex("Icampo0");
  companies->Seek({options.company.company});
  const std::string place = data.FileName(kind) + ": EmpresasNom: company " + options.company.company;
  console.Doing("naming the company in " + data.FileName(kind));
  bool there = !companies->NoMatch();
  if (!there) {
    try {
      companies->AddNew();
      companies->Fields(0).Set(options.company.company);
      companies->Fields(1).Set(options.name);
      companies->Update();
    } catch (const RuntimeError& error) {
      if (error.number() != kDuplicateKey) throw;
      there = true;
    }
  }
  console.Out(place + (there ? " is there already\n" : " added\n"));
}

}  // namespace

int DataCreate(const CreateOptions& options, Console& console) {
  const CompanyData data(options.company);
  CreateMissing(data, console);
  if (options.name.empty()) return 0;
  for (const FileKind kind : {FileKind::kEmpresa, FileKind::kEmpresas}) NameCompany(data, kind, options, console);
  return 0;
}

}  // namespace zendara
