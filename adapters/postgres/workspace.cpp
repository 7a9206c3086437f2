#include "adapters/postgres/workspace.hpp"

#include <utility>

#include "adapters/postgres/catalogue.hpp"
#include "adapters/postgres/new_files.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

// A server without a catalogue has no files.
template <typename Ask>
Answer AskCatalogue(Ask ask) try {
  return ask();
} catch (const RuntimeError& error) {
  if (error.number() != kInputTableNotFound) throw;
  return {};
}

}  // namespace

std::shared_ptr<OpenFile> ServerWorkspace::FindOpen(const std::string& file) {
  const auto found = open_.find(file);
  return found == open_.end() ? nullptr : found->second.lock();
}

std::shared_ptr<Database> ServerWorkspace::OpenDatabase(std::string_view path) {
  const std::string file = FileOf(path);
  if (auto open = FindOpen(file)) return MakeDatabase(std::move(open), path);
  Link& link = server_->main();
  static const std::string question =
      "SELECT array_to_string(tables, ','), (SELECT keys FROM zendara_store), pg_try_advisory_lock_shared(" +
      Server::LockOf("$1") + ") FROM zendara_files WHERE zendara_file = $1";
  const Answer stored = AskCatalogue([&] { return link.Run(question, Parameters().Text(file)); });
  if (!stored || stored.Rows() == 0) throw RuntimeError(kDatabaseNotFound, {std::string(path)});
  if (stored.Integer(0, 2) == 0) throw RuntimeError(kFileInUse, {std::string(path)});
  if (const std::string_view keys = stored.Bytes(0, 1); keys != server_->order().KeyVersion()) {
    throw RuntimeError(kCannotOpenFile, {std::string(path)},
                       "its sort keys are of version " + std::string(keys) + ", this program's of version " +
                           server_->order().KeyVersion());
  }
  const std::vector<int> tables = ReadNumbers(stored.Bytes(0, 0));
  server_->ReadTables(link, tables);
  auto open = std::make_shared<OpenFile>(server_, file, tables);
  open_[file] = open;
  return MakeDatabase(std::move(open), path);
}

std::shared_ptr<Database> ServerWorkspace::CreateDatabase(std::string_view path, const std::vector<TableDef>& tables) {
  const std::string file = FileOf(path);
  if (Exists(path)) throw RuntimeError(kObjectExists, {std::string(path)});
  const std::vector<int> numbers = server_->EnsureTables(tables);
  AddFile(server_->main(), NameOf(path), numbers);
  return OpenDatabase(path);
}

std::unique_ptr<NewFiles> ServerWorkspace::CreateFiles(std::string_view) { return MakeNewFiles(server_); }

bool ServerWorkspace::Exists(std::string_view path) {
  const Answer found = AskCatalogue([&] {
    return server_->main().Run(
        "SELECT 1 FROM zendara_files WHERE zendara_file = $1 UNION ALL "
        "SELECT 1 FROM zendara_beside WHERE zendara_file = $1",
        Parameters().Text(FileOf(path)));
  });
  return found && found.Rows() > 0;
}

std::string ServerWorkspace::ReadFile(std::string_view path) {
  const Answer found = AskCatalogue([&] {
    return server_->main().Run("SELECT bytes FROM zendara_beside WHERE zendara_file = $1",
                               Parameters().Text(FileOf(path)));
  });
  if (!found || found.Rows() == 0) throw RuntimeError(kDatabaseNotFound, {std::string(path)});
  return std::string(found.Bytes(0, 0));
}

std::vector<std::string> ServerWorkspace::Databases(std::string_view) {
  const Answer found =
      AskCatalogue([&] { return server_->main().Run("SELECT name FROM zendara_files ORDER BY name COLLATE \"C\""); });
  std::vector<std::string> names;
  for (int row = 0; found && row < found.Rows(); ++row) names.emplace_back(found.Bytes(row, 0));
  return names;
}

void ServerWorkspace::Rename(std::string_view from, std::string_view to) {
  server_->RequireWrites();
  const std::string file = FileOf(from);
  const std::string renamed = FileOf(to);
  if (!Exists(from)) throw RuntimeError(kDatabaseNotFound, {std::string(from)});
  if (Exists(to)) throw RuntimeError(kObjectExists, {std::string(to)});
  if (FindOpen(file)) throw RuntimeError(kFileInUse, {std::string(from)});
  auto link = server_->Take();
  link->Begin();
  try {
    const Parameters names = Parameters().Text(file).Text(renamed).Text(NameOf(to));
    const Parameters files = Parameters().Text(file).Text(renamed);
    static const std::string lock = "SELECT pg_try_advisory_xact_lock(" + Server::LockOf("$1") + ")";
    if (link->Run(lock, Parameters().Text(file)).Integer(0, 0) == 0)
      throw RuntimeError(kFileInUse, {std::string(from)});
    const Answer changed = link->Run(
        "UPDATE zendara_files SET zendara_file = $2, name = $3 WHERE zendara_file = $1 "
        "RETURNING array_to_string(tables, ',')",
        names);
    if (changed.Rows() == 0) throw RuntimeError(kDatabaseNotFound, {std::string(from)});
    link->Run("UPDATE zendara_queries SET zendara_file = $2 WHERE zendara_file = $1", files);
    const std::vector<int> tables = ReadNumbers(changed.Bytes(0, 0));
    server_->ReadTables(*link, tables);
    for (const int table : tables) {
      link->Run("UPDATE " + server_->Table(table).name + " SET zendara_file = $2 WHERE zendara_file = $1", files);
    }
    link->Commit();
  } catch (const RuntimeError& error) {
    if (link->InTransaction()) link->Rollback();
    if (error.number() == kDuplicateKey) throw RuntimeError(kObjectExists, {std::string(to)}, error.detail());
    throw;
  }
  server_->GiveBack(std::move(link));
}

void ServerWorkspace::Idle() {
  server_->Changed();
  server_->main().Settle();
  for (const auto& [name, file] : open_) {
    if (const auto open = file.lock()) open->Settle();
  }
}

}  // namespace zendara::postgres
