// The files of the default engine: found, opened once, created, renamed.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/sqlite/connection.hpp"
#include "zendara/engines.hpp"
#include "zendara/record_engine.hpp"

namespace zendara::sqlite {

// A handle on an open file; `name` is the path as it was asked for.
std::shared_ptr<Database> MakeDatabase(std::shared_ptr<Connection> connection, std::string_view name);
// The same with all that is written through it in one transaction, which is the connection's: it has none of its own.
std::shared_ptr<Database> MakeNewDatabase(std::shared_ptr<Connection> connection, std::string_view name);

// Databases that are open on one file share its connection, so they see each other's rows at once and never wait for
// each other.
class FileWorkspace final : public Workspace {
 public:
  explicit FileWorkspace(Access access) : access_(access) {}

  std::shared_ptr<Database> OpenDatabase(std::string_view path) override;
  std::shared_ptr<Database> CreateDatabase(std::string_view path, const std::vector<TableDef>& tables) override;
  std::unique_ptr<NewFiles> CreateFiles(std::string_view folder) override;
  bool Exists(std::string_view path) override;
  std::string ReadFile(std::string_view path) override;
  std::vector<std::string> Databases(std::string_view folder) override;
  void Rename(std::string_view from, std::string_view to) override;

  void Idle();

 private:
  using FileId = std::pair<std::uint64_t, std::uint64_t>;  // device and number of the file on it

  std::optional<std::filesystem::path> Find(std::string_view path);
  std::filesystem::path FindFile(std::string_view path);
  std::filesystem::path PathOfNew(std::string_view path);
  [[noreturn]] void FailMissing(std::string_view path);
  static FileId IdOf(const std::filesystem::path& file, std::string_view path);

  std::shared_ptr<Connection> Open(const std::filesystem::path& file, std::string_view path);
  void RequireWrites(std::string_view path) const;

  const Access access_;
  std::shared_ptr<const SpanishOrder> order_ = std::make_shared<SpanishOrder>();
  std::map<FileId, std::weak_ptr<Connection>> connections_;
  std::map<std::string, std::filesystem::path, std::less<>> found_;  // by a path whose spelling is another one
};

}  // namespace zendara::sqlite
