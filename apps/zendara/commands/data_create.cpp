#include <cstdio>

#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/data_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

// A file is made under another name and gets its own when it is whole. A link, unlike a rename, never replaces.
fs::path UnfinishedPath(const fs::path& path) { return path.string() + ".new"; }

void RemoveUnfinished(const fs::path& unfinished) {
  for (const char* companion : {"", "-wal", "-shm", "-journal"}) fs::remove(unfinished.string() + companion);
}

void GiveName(const fs::path& unfinished, const fs::path& path) {
  std::error_code error;
  fs::create_hard_link(unfinished, path, error);
  if (!error) {
    fs::remove(unfinished);
    return;
  }
  // A file system without links.
  if (fs::exists(path)) throw CommandError(path.string() + " was made by another program in the meantime");
  fs::rename(unfinished, path);
}

void CreateDatabaseFile(Engine& engine, const StoredFile& file, const fs::path& path) {
  const fs::path unfinished = UnfinishedPath(path);
  RemoveUnfinished(unfinished);
  std::shared_ptr<Database> database = engine.Workspaces(0)->CreateDatabase(unfinished.string());
  database->BeginTrans();
  for (const TableDef& table : file.tables) database->CreateTable(table);
  database->CommitTrans();
  database->Close();
  database.reset();
  GiveName(unfinished, path);
}

void CreateParameterFile(const ParameterFile& file, const fs::path& path) {
  const fs::path unfinished = UnfinishedPath(path);
  RemoveUnfinished(unfinished);
  const std::string blanks(file.length, ' ');
  std::FILE* out = std::fopen(unfinished.c_str(), "wb");
  const bool written = out && std::fwrite(blanks.data(), 1, blanks.size(), out) == blanks.size();
  const bool closed = out && std::fclose(out) == 0;
  if (!written || !closed) throw CommandError(path.string() + " cannot be written");
  GiveName(unfinished, path);
}

// The row of the company in a file of general tables; a row that is there stays as it is.
void NameCompany(Engine& engine, const DataFolder& folder, FileKind kind, const CreateOptions& options,
                 Console& console) {
  const std::shared_ptr<Database> database = folder.Open(engine, kind, console);
  const std::shared_ptr<Recordset> companies = database->OpenRecordset("EmpresasNom", RecordsetType::kTable);
  companies->SetIndex("Icampo0");
  companies->Seek({options.company.company});
  const std::string place = folder.FileName(kind) + ": EmpresasNom: company " + options.company.company;
  if (!companies->NoMatch()) {
    console.Out(place + " is there already\n");
    return;
  }
  console.Doing("naming the company in " + folder.FileName(kind));
  companies->AddNew();
  companies->Fields(0).Set(options.company.company);
  companies->Fields(1).Set(options.name);
  companies->Update();
  console.Out(place + " added\n");
}

}  // namespace

int DataCreate(const CreateOptions& options, Console& console) {
  const std::unique_ptr<Engine> engine = MakeEngine();
  DataFolder folder(options.company);
  if (folder.Create()) console.Out("created " + folder.path().string() + "\n");
  const auto create = [&](const std::string& name, const auto& make) {
    if (folder.Find(name)) return;
    console.Doing("creating " + name);
    make(folder.path() / name);
    console.Out("created " + name + "\n");
  };
  for (const StoredFile& file : StoredFiles()) {
    create(folder.FileName(file.kind), [&](const fs::path& path) { CreateDatabaseFile(*engine, file, path); });
  }
  for (const ParameterFile& file : kParameterFiles) {
    create(std::string(file.name), [&](const fs::path& path) { CreateParameterFile(file, path); });
  }
  if (options.name.empty()) return 0;
  for (const FileKind kind : {FileKind::kEmpresa, FileKind::kEmpresas}) {
    NameCompany(*engine, folder, kind, options, console);
  }
  return 0;
}

}  // namespace zendara
