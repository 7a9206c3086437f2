// A prepared statement and the translation of the store's errors.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "zendara/record_engine.hpp"

struct sqlite3;
struct sqlite3_stmt;

namespace zendara::sqlite {

// The run-time error that a result code of the store means; `name` stands for the file in its text.
[[noreturn]] void Fail(int code, const std::string& name, const std::string& detail);

class Statement {
 public:
  Statement() = default;
  // `file` is the name for errors.
  Statement(sqlite3* database, const std::string& file, std::string_view sql);

  explicit operator bool() const { return statement_ != nullptr; }
  sqlite3_stmt* get() const { return statement_.get(); }

  // Parameters from 1. Texts are copied. Throws when there is no room for one.
  void Bind(int parameter, const Value& value);
  void Bind(int parameter, std::int64_t number);
  // As it stands in that column of the other statement's row.
  void BindColumn(int parameter, const Statement& row, int column);
  // True while there are rows. After a failure the statement is reset.
  bool Step();
  void Reset();
  // Runs a statement that gives no rows, or whose rows do not matter.
  void Run();

  bool IsNull(int column) const;
  std::int64_t Integer(int column) const;
  std::string_view Text(int column) const;
  // As a value of that column type; 3421 when what is stored is none.
  Value Read(int column, ColumnType type) const;

 private:
  void BindText(int parameter, std::string_view text);
  void Check(int code) const;

  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };

  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  const std::string* file_ = nullptr;
};

// A stored date; 3421 when the text is none.
Date ReadDate(std::string_view text);

}  // namespace zendara::sqlite
