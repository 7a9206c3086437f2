#include <system_error>

#include "adapters/host/new_file.hpp"
#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/data_folder.hpp"
#include "frame/parametros.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

void CreateParameterFile(const ParameterFile& file, const std::filesystem::path& path) {
  const std::error_code error = WriteNewFile(path, std::string(file.length, ' '));
  if (error == std::errc::file_exists) throw RuntimeError(kObjectExists);
  if (error) throw CommandError(path.string() + ": " + error.message());
}

// Makes a file unless it is there, also when another program makes it in the meantime.
template <typename Make>
void CreateMissing(const DataFolder& folder, const std::string& name, Console& console, Make make) {
  if (folder.Find(name)) return;
  console.Doing("creating " + name);
  try {
    make(folder.path() / name);
    console.Out("created " + name + "\n");
  } catch (const RuntimeError& error) {
    if (error.number() != kObjectExists) throw;
  }
}

// The row of the company in a file of general tables; a row that is there stays as it is.
void NameCompany(Engine& engine, const DataFolder& folder, FileKind kind, const CreateOptions& options,
                 Console& console) {
  const std::shared_ptr<Database> database = folder.Open(engine, kind, console);
  const std::shared_ptr<Recordset> companies = database->OpenRecordset("EmpresasNom", RecordsetType::kTable);
  companies->SetIndex("Icampo0");
  companies->Seek({options.company.company});
  const std::string place = folder.FileName(kind) + ": EmpresasNom: company " + options.company.company;
  console.Doing("naming the company in " + folder.FileName(kind));
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
  const std::unique_ptr<Engine> engine = MakeEngine();
  DataFolder folder(options.company);
  if (folder.Create()) console.Out("created " + folder.path().string() + "\n");
  for (const StoredFile& file : StoredFiles()) {
    CreateMissing(folder, folder.FileName(file.kind), console, [&](const std::filesystem::path& path) {
      engine->Workspaces(0)->CreateDatabase(path.string(), file.tables);
    });
  }
  for (const ParameterFile& file : kParameterFiles) {
    CreateMissing(folder, std::string(file.name), console,
                  [&](const std::filesystem::path& path) { CreateParameterFile(file, path); });
  }
  if (options.name.empty()) return 0;
  for (const FileKind kind : {FileKind::kEmpresa, FileKind::kEmpresas}) {
    NameCompany(*engine, folder, kind, options, console);
  }
  return 0;
}

}  // namespace zendara
