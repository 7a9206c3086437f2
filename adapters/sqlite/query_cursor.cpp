#include "adapters/sqlite/query_cursor.hpp"

#include <sqlite3.h>

#include <exception>
#include <utility>

#include "adapters/sqlite/rows_aside.hpp"
#include "platform/sql/implied.hpp"
#include "platform/sql/parser.hpp"
#include "platform/sql/printer.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace {

// What the store takes. Its parser has a stack of 100, of which one condition and what stands around them need up
// to 20.
constexpr std::size_t kMaxDepth = 80;
constexpr std::size_t kMaxTables = 64;

class SqliteDialect final : public sql::Dialect {
 public:
  // Two literals are compared as a literal and a column are.
  std::string Literal(const sql::Parameter& literal, sql::Form) override {
    return "?" + std::to_string(literal.number) + (literal.type == ColumnType::kText ? " COLLATE es" : "");
  }

  // min and max give Null when either bound is Null, as the condition must.
  std::string Between(const std::string& value, const std::string& a, const std::string& b, bool) const override {
    return value + " BETWEEN min(" + a + ", " + b + ") AND max(" + a + ", " + b + ")";
  }

  // Null is the least of all here.
  std::string OrderKey(const sql::TableRef& table, int column, bool descending) const override {
    const std::string key =
        column == sql::kOrderOfWriting ? Qualified(table, "rowid") : Column(table, column, sql::Form::kCompared);
    return key + (descending ? " DESC" : "");
  }
};

sql::Catalogue CatalogueOf(Connection& connection) {
  return [&connection](std::string_view name) -> const TableDef* {
    const TableInfo* table = connection.FindTable(name);
    return table ? &table->definition : nullptr;
  };
}

void RequireAtMost(std::size_t count, std::size_t limit, const sql::Tokens& tokens) {
  if (count > limit) sql::FailSyntax(tokens.sql, sql::kTooComplex);
}

// What the store would refuse in words of its own is an error of the text.
void CheckLimits(const Connection& connection, const sql::Tokens& tokens, const sql::Printed& printed) {
  RequireAtMost(static_cast<std::size_t>(printed.depth), kMaxDepth, tokens);
  RequireAtMost(tokens.literals.size(), connection.Limit(SQLITE_LIMIT_VARIABLE_NUMBER), tokens);
}

std::shared_ptr<PreparedQuery> Prepare(Connection& connection, sql::Tokens& tokens) {
  sql::Select select = ParseSelect(tokens, CatalogueOf(connection));
  AddImpliedKeys(select);
  SqliteDialect dialect;
  const sql::Printed printed = Print(select, dialect);
  CheckLimits(connection, tokens, printed);
  for (const std::size_t list : {select.items.size(), select.group_by.size(), select.order_by.size()}) {
    RequireAtMost(list, connection.Limit(SQLITE_LIMIT_COLUMN), tokens);
  }
  RequireAtMost(select.from.size(), kMaxTables, tokens);
  auto query = std::make_shared<PreparedQuery>();
  for (const sql::SelectItem& item : select.items) query->columns.push_back(item.column);
  query->statement = connection.Prepare(printed.text);
  connection.queries().Keep(std::move(tokens.shape), query);
  return query;
}

void Bind(Statement& statement, const std::vector<Value>& literals) {
  for (std::size_t i = 0; i < literals.size(); ++i) statement.Bind(static_cast<int>(i) + 1, literals[i]);
}

// Steps the query's statement to its end, or until it is parked, and then the rows that were put aside.
class Cursor final : public QueryCursor, private Holder {
 public:
  Cursor(std::shared_ptr<Connection> connection, std::shared_ptr<PreparedQuery> query,
         const std::vector<Value>& literals)
      : connection_(std::move(connection)), query_(std::move(query)) {
    connection_->Park();
    Bind(query_->statement, literals);
    connection_->Acquire(this);
    rows_ = &query_->statement;
  }

  ~Cursor() override { Finish(); }

  const std::vector<ColumnDef>& Columns() const override { return query_->columns; }

  bool Step() override {
    if (fault_) std::rethrow_exception(fault_);
    if (!rows_) return false;
    try {
      if (rows_->Step()) return true;
    } catch (...) {
      fault_ = std::current_exception();
      Finish();
      throw;
    }
    Finish();
    return false;
  }

  Value Column(int ordinal) const override {
    if (!rows_) throw RuntimeError(kNoCurrentRecord);
    return rows_->Read(ordinal, query_->columns[static_cast<std::size_t>(ordinal)].type);
  }

 private:
  // Somebody else needs the connection. He is not to suffer from a fault of this reading.
  void Park() override {
    try {
      LetReaderKeep();
      if (rows_ && rows_->Step()) aside_ = std::make_unique<RowsAside>(*rows_, connection_->name());
    } catch (...) {
      fault_ = std::current_exception();
    }
    Finish();
    if (aside_) rows_ = &aside_->Rows();
  }

  void Finish() {
    if (rows_) rows_->Reset();
    rows_ = nullptr;
    connection_->Release(this);
  }

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<PreparedQuery> query_;
  std::unique_ptr<RowsAside> aside_;
  Statement* rows_ = nullptr;  // of the query, or put aside; none at the end
  std::exception_ptr fault_;   // what ended the reading
};

}  // namespace

std::unique_ptr<QueryCursor> MakeQueryCursor(std::shared_ptr<Connection> connection, std::string_view sql,
                                             YearWindow window) {
  sql::Tokens tokens = sql::Tokenize(sql, window);
  auto query = connection->queries().Find(tokens.shape);
  if (!query) query = Prepare(*connection, tokens);
  return std::make_unique<Cursor>(std::move(connection), std::move(query), tokens.literals);
}

void RunDelete(Connection& connection, std::string_view sql, YearWindow window) {
  const sql::Tokens tokens = sql::Tokenize(sql, window);
  const sql::Delete parsed = ParseDelete(tokens, CatalogueOf(connection));
  SqliteDialect dialect;
  const sql::Printed printed = Print(parsed, dialect);
  CheckLimits(connection, tokens, printed);
  connection.Acquire(nullptr);
  Statement statement = connection.Prepare(printed.text);
  Bind(statement, tokens.literals);
  connection.Delete(*connection.FindTable(parsed.table.table->name), statement);
}

}  // namespace zendara::sqlite
