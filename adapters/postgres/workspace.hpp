// The files of a server: opened once, created, renamed.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/postgres/open_file.hpp"
#include "adapters/postgres/server.hpp"
#include "zendara/record_engine.hpp"

namespace zendara::postgres {

// A handle on an open file; `name` is the path as it was asked for.
std::shared_ptr<Database> MakeDatabase(std::shared_ptr<OpenFile> file, std::string_view name);

class ServerWorkspace final : public Workspace {
 public:
  explicit ServerWorkspace(std::shared_ptr<Server> server) : server_(std::move(server)) {}

  std::shared_ptr<Database> OpenDatabase(std::string_view path) override;
  std::shared_ptr<Database> CreateDatabase(std::string_view path, const std::vector<TableDef>& tables) override;
  std::unique_ptr<NewFiles> CreateFiles(std::string_view folder) override;
  bool Exists(std::string_view path) override;
  std::string ReadFile(std::string_view path) override;
  std::vector<std::string> Databases(std::string_view folder) override;
  void Rename(std::string_view from, std::string_view to) override;

  void Idle();

 private:
  std::shared_ptr<OpenFile> FindOpen(const std::string& file);

  std::shared_ptr<Server> server_;
  std::map<std::string, std::weak_ptr<OpenFile>> open_;  // by file
};

}  // namespace zendara::postgres
