// An engine without files: a test says what its databases give; anything else is an invalid call.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zendara/record_engine.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

struct FakeDatabase : Database {
  [[noreturn]] static void Unexpected() { throw RuntimeError(kInvalidCall); }
  const std::string& Name() const override { Unexpected(); }
  void Execute(std::string_view) override { Unexpected(); }
  std::shared_ptr<QueryDef> CreateQueryDef(std::string_view, std::string_view) override { Unexpected(); }
  std::shared_ptr<QueryDef> QueryDefs(std::string_view) override { Unexpected(); }
  std::vector<TableDef> Tables() override { Unexpected(); }
  void CreateTable(const TableDef&) override { Unexpected(); }
  std::vector<std::string> CheckIntegrity() override { Unexpected(); }
  void BeginTrans() override { Unexpected(); }
  void CommitTrans() override { Unexpected(); }
  void Rollback() override { Unexpected(); }
  void Close() override {}
};

struct FakeEngine : Engine, Workspace, std::enable_shared_from_this<FakeEngine> {
  std::shared_ptr<Workspace> Workspaces(int) override { return shared_from_this(); }
  void Idle(int) override {}
  std::shared_ptr<Database> CreateDatabase(std::string_view, const std::vector<TableDef>&) override {
    FakeDatabase::Unexpected();
  }
  bool Exists(std::string_view) override { FakeDatabase::Unexpected(); }
  std::vector<std::string> Databases(std::string_view) override { FakeDatabase::Unexpected(); }
  void Rename(std::string_view, std::string_view) override { FakeDatabase::Unexpected(); }
};

}  // namespace zendara
