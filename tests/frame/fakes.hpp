// Surroundings that write down what is asked of them, in order, and fail where a test wants it.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

struct Diary {
  std::vector<std::string> lines;
  std::map<std::string, int> failures;  // line: number of the error that it raises

  void Note(const std::string& line) {
    lines.push_back(line);
    if (const auto failure = failures.find(line); failure != failures.end()) throw RuntimeError(failure->second);
  }
};

// Only what opening needs; anything else is an invalid call.
struct FakeRecordset : Recordset {
  FakeRecordset(Diary& d, std::string_view of) : diary(d), table(of) {}

  [[noreturn]] static void Unexpected() { throw RuntimeError(kInvalidCall); }
  const std::vector<ColumnDef>& Columns() const override { Unexpected(); }
  std::string Index() const override { Unexpected(); }
  void SetIndex(std::string_view name) override { diary.Note("index " + table + " " + std::string(name)); }
  void Seek(const std::vector<Value>&) override { Unexpected(); }
  bool NoMatch() const override { Unexpected(); }
  bool Bof() const override { Unexpected(); }
  bool Eof() const override { Unexpected(); }
  std::int64_t RecordCount() const override { Unexpected(); }
  void MoveFirst() override { Unexpected(); }
  void MoveLast() override { Unexpected(); }
  void MoveNext() override { Unexpected(); }
  void MovePrevious() override { Unexpected(); }
  void AddNew() override { Unexpected(); }
  void Edit() override { Unexpected(); }
  void Update() override { Unexpected(); }
  void CancelUpdate() override { Unexpected(); }
  void Delete() override { Unexpected(); }
  std::shared_ptr<Recordset> Clone() override { Unexpected(); }
  zendara::Bookmark Bookmark() const override { Unexpected(); }
  void GoTo(zendara::Bookmark) override { Unexpected(); }
  void Close() override {}
  Value GetColumn(int) const override { Unexpected(); }
  void SetColumn(int, const Value&) override { Unexpected(); }

  Diary& diary;
  std::string table;
};

struct FakeDatabase : Database {
  FakeDatabase(Diary& d, std::string_view path) : diary(d), name(path) {}

  const std::string& Name() const override { return name; }
  std::shared_ptr<Recordset> OpenRecordset(std::string_view source, RecordsetType type) override {
    diary.Note((type == RecordsetType::kTable ? "table " : "query ") + std::string(source));
    return std::make_shared<FakeRecordset>(diary, source);
  }
  void Execute(std::string_view) override { FakeRecordset::Unexpected(); }
  std::shared_ptr<QueryDef> CreateQueryDef(std::string_view query, std::string_view) override {
    diary.Note("create " + std::string(query));
    return std::make_shared<QueryDef>("created", "");
  }
  std::shared_ptr<QueryDef> QueryDefs(std::string_view) override { FakeRecordset::Unexpected(); }
  std::vector<TableDef> Tables() override { FakeRecordset::Unexpected(); }
  void CreateTable(const TableDef&) override { FakeRecordset::Unexpected(); }
  std::vector<std::string> CheckIntegrity() override { FakeRecordset::Unexpected(); }
  void BeginTrans() override { FakeRecordset::Unexpected(); }
  void CommitTrans() override { FakeRecordset::Unexpected(); }
  void Rollback() override { FakeRecordset::Unexpected(); }
  void Close() override {}

  Diary& diary;
  std::string name;
};

struct FakeEngine : Engine, Workspace, std::enable_shared_from_this<FakeEngine> {
  explicit FakeEngine(Diary& d) : diary(d) {}

  std::shared_ptr<Workspace> Workspaces(int) override { return shared_from_this(); }
  void Idle(int action) override { diary.Note("idle " + std::to_string(action)); }
  std::shared_ptr<Database> OpenDatabase(std::string_view path) override {
    diary.Note("open " + std::string(path));
    return std::make_shared<FakeDatabase>(diary, path);
  }
  std::shared_ptr<Database> CreateDatabase(std::string_view, const std::vector<TableDef>&) override {
    FakeRecordset::Unexpected();
  }
  bool Exists(std::string_view) override { FakeRecordset::Unexpected(); }
  std::vector<std::string> Databases(std::string_view) override { FakeRecordset::Unexpected(); }
  void Rename(std::string_view, std::string_view) override { FakeRecordset::Unexpected(); }

  Diary& diary;
};

struct FakeDialogs : Dialogs {
  BoxAnswer Show(const Box& box) override {
    EXPECT_EQ(box.buttons, BoxButtons::kOk);
    EXPECT_EQ(box.icon, BoxIcon::kNone);
    texts.push_back(box.text);
    return BoxAnswer::kOk;
  }
  void Beep() override {}

  std::vector<std::string> texts;
};

// A record is the file's name and its length.
struct FakeFiles : Files {
  bool Exists(std::string_view) const override { return true; }
  std::string ReadRecord(std::string_view path, std::size_t length) const override {
    if (path == missing) throw RuntimeError(kFileNotFound);
    return std::string(path) + " " + std::to_string(length);
  }

  std::string missing;
};

}  // namespace zendara
