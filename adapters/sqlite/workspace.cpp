#include "adapters/sqlite/workspace.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>

#include "adapters/host/host_files.hpp"
#include "adapters/host/network.hpp"
#include "adapters/host/new_file.hpp"
#include "adapters/sqlite/file_faults.hpp"
#include "adapters/sqlite/new_files.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace fs = std::filesystem;

std::shared_ptr<Database> FileWorkspace::OpenDatabase(std::string_view path) {
  const fs::path file = FindFile(path);
  const FileId id = IdOf(file, path);
  auto connection = connections_[id].lock();
  if (!connection || connection->FileIsGone()) {
    connection = Open(file, path);
    connections_[id] = connection;
  }
  return MakeDatabase(std::move(connection), path);
}

std::shared_ptr<Connection> FileWorkspace::Open(const fs::path& file, std::string_view path) {
  if (access_ == Access::kWrite) {
    RefuseNetwork(file, path);
    return Connection::Open(file, std::string(path), order_);
  }
  if (IsOnNetwork(file)) return Connection::OpenUnchanging(file, std::string(path), order_);
  auto connection = Connection::Open(file, std::string(path), order_);
  connection->RefuseWrites();
  return connection;
}

void FileWorkspace::RequireWrites(std::string_view path) const {
  if (access_ == Access::kRead) throw RuntimeError(kReadOnly, {std::string(path)});
}

std::shared_ptr<Database> FileWorkspace::CreateDatabase(std::string_view path, const std::vector<TableDef>& tables) {
  RequireWrites(path);
  const fs::path file = PathOfNew(path);
  RefuseNetwork(file.parent_path(), path);
  if (const auto error = WriteNewFile(file, Connection::NewFile(tables, order_))) Fail(error, path);
  return OpenDatabase(path);
}

std::unique_ptr<NewFiles> FileWorkspace::CreateFiles(std::string_view folder) {
  RequireWrites(folder);
  return std::make_unique<FilesTogether>(folder, order_);
}

bool FileWorkspace::Exists(std::string_view path) { return Find(path).has_value(); }

std::string FileWorkspace::ReadFile(std::string_view path) {
  const fs::path file = FindFile(path);
  std::ifstream in(file, std::ios::binary);
  if (!in) Fail({errno, std::generic_category()}, path);
  std::string bytes{std::istreambuf_iterator<char>(in), {}};
  if (in.bad()) Fail({errno, std::generic_category()}, path);
  return bytes;
}

std::vector<std::string> FileWorkspace::Databases(std::string_view folder) {
  const auto found = Find(folder);
  if (!found) throw RuntimeError(kFolderNotFound, {std::string(folder)});
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(*found, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code vanished;
    const fs::path& file = entry->path();
    if (!entry->is_regular_file(vanished)) continue;
    if (access(file.c_str(), R_OK) != 0 || Connection::IsDatabase(file)) {
      names.push_back(file.filename().string());
    }
  }
  if (error) Fail(error, folder);
  std::ranges::sort(names);
  return names;
}

void FileWorkspace::Rename(std::string_view from, std::string_view to) {
  RequireWrites(from);
  const fs::path file = FindFile(from);
  const fs::path renamed = PathOfNew(to);
  const auto open = connections_[IdOf(file, from)].lock();
  if (open && !open->FileIsGone()) throw RuntimeError(kFileInUse, {std::string(from)});
  Connection::FoldLog(file, std::string(from), order_);
  if (const auto error = RenameFile(file, renamed)) Fail(error, to);
}

void FileWorkspace::Idle() {
  for (const auto& [id, open] : connections_) {
    if (const auto connection = open.lock()) connection->Park();
  }
}

// The spelling as given counts first; a search for another one is remembered.
std::optional<fs::path> FileWorkspace::Find(std::string_view path) {
  std::error_code error;
  const auto is_there = [&](const fs::path& file) { return fs::exists(file, error); };
  const auto known = found_.find(path);
  if (known != found_.end() && !is_there(MachinePath(path)) && is_there(known->second)) return known->second;
  auto found = FindPath(path, error);
  if (error) Fail(error, path);
  if (found) found_.insert_or_assign(std::string(path), *found);
  return found;
}

// The file that is to be opened.
fs::path FileWorkspace::FindFile(std::string_view path) {
  const auto found = path.empty() ? std::nullopt : Find(path);
  if (!found) FailMissing(path);
  std::error_code error;
  if (!fs::is_regular_file(*found, error)) throw RuntimeError(kCannotOpenFile, {std::string(path)}, "is no file");
  return *found;
}

// Where a file of that name goes, of which there is none.
fs::path FileWorkspace::PathOfNew(std::string_view path) {
  if (!path.empty() && Find(path)) throw RuntimeError(kObjectExists, {std::string(path)});
  const fs::path wanted = MachinePath(path);
  if (wanted.filename().empty()) throw RuntimeError(kBadFileName);
  const std::string folder = wanted.parent_path().string();
  const auto found = Find(folder.empty() ? "." : folder);
  if (!found) throw RuntimeError(kFolderNotFound, {std::string(path)});
  return *found / wanted.filename();
}

void FileWorkspace::FailMissing(std::string_view path) {
  const fs::path wanted = MachinePath(path);
  if (wanted.filename().empty()) throw RuntimeError(kBadFileName);
  const std::string folder = wanted.parent_path().string();
  throw RuntimeError(folder.empty() || Find(folder) ? kDatabaseNotFound : kFolderNotFound, {std::string(path)});
}

FileWorkspace::FileId FileWorkspace::IdOf(const fs::path& file, std::string_view path) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0) Fail({errno, std::generic_category()}, path);
  return {status.st_dev, status.st_ino};
}

}  // namespace zendara::sqlite
