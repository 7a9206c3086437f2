#include "adapters/sqlite/new_files.hpp"

#include <ranges>
#include <system_error>
#include <utility>

#include "adapters/host/host_files.hpp"
#include "adapters/host/new_file.hpp"
#include "adapters/sqlite/file_faults.hpp"
#include "adapters/sqlite/workspace.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace {

namespace fs = std::filesystem;

fs::path Find(const fs::path& path) {
  std::error_code error;
  return FindPath(path.string(), error).value_or(path);
}

[[noreturn]] void FailTaken(const fs::path& path) { throw RuntimeError(kObjectExists, {path.string()}, path.string()); }

// The machine's refusals as errors of the store.
template <typename Work>
auto AsStore(const fs::path& path, Work work) try {
  return work();
} catch (const fs::filesystem_error& error) {
  Fail(error.code(), error.path1().string());
} catch (const std::system_error& error) {
  Fail(error.code(), path.string());
}

}  // namespace

FilesTogether::FilesTogether(std::string_view folder, std::shared_ptr<const SpanishOrder> order)
    : folder_(Find(MachinePath(folder))), order_(std::move(order)) {
  try {
    AsStore(folder_, [&] {
      MakeFolders();
      RefuseNetwork(folder_, folder);
      staging_.emplace(folder_);
    });
  } catch (...) {
    Remove();
    throw;
  }
}

FilesTogether::~FilesTogether() { Remove(); }

void FilesTogether::MakeFolders() {
  for (fs::path missing = fs::absolute(folder_); !missing.empty() && !fs::exists(missing);
       missing = missing.parent_path()) {
    made_folders_.insert(made_folders_.begin(), missing);
  }
  fs::create_directories(folder_);
}

void FilesTogether::RefuseTaken(std::string_view name) const {
  const fs::path path = Find(folder_ / name);
  if (fs::exists(fs::symlink_status(path))) FailTaken(path);
}

std::shared_ptr<Database> FilesTogether::Create(std::string_view name, const std::vector<TableDef>& tables) {
  Put(name, Connection::NewFile(tables, order_));
  const std::string named = (folder_ / name).string();
  const auto connection = Connection::Open(staging_->path() / name, named, order_);
  connection->Begin();
  return made_.emplace_back(MakeNewDatabase(connection, named), connection).database;
}

void FilesTogether::Put(std::string_view name, std::string_view bytes) {
  AsStore(folder_, [&] { RefuseTaken(name); });
  if (const auto error = WriteNewFile(staging_->path() / name, bytes)) Fail(error, (folder_ / name).string());
  names_.emplace_back(name);
}

void FilesTogether::Publish() {
  for (const Made& made : made_) {
    made.connection->Commit();
    made.database->Close();
  }
  made_.clear();
  AsStore(folder_, [&] {
    // Somebody may have been quicker, also with names in other case.
    for (const std::string& name : names_) RefuseTaken(name);
    if (const auto taken = staging_->Publish(names_)) FailTaken(folder_ / *taken);
  });
}

void FilesTogether::Remove() noexcept {
  made_.clear();  // undoes what is pending
  staging_.reset();
  // Those that were made here, unless something has come into them.
  std::error_code none;
  for (const fs::path& folder : std::views::reverse(made_folders_)) fs::remove(folder, none);
}

}  // namespace zendara::sqlite
