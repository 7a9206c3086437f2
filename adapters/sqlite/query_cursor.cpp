#include "adapters/sqlite/query_cursor.hpp"

#include <array>
#include <charconv>
#include <deque>
#include <utility>

#include "adapters/sqlite/row_buffer.hpp"
#include "platform/sql/printer.hpp"
#include "runtime/iso_date.hpp"

namespace zendara::sqlite {
namespace {

class SqliteDialect final : public sql::Dialect {
 public:
  std::string Literal(const Value& value) const override {
    if (value.IsNull()) return "NULL";
    if (value.IsNumber()) {
      std::array<char, 32> buffer;
      return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value.Number()).ptr};
    }
    std::string text = "'";
    for (const char c : value.IsDate() ? IsoDate(value.AsDate()) : value.Text()) text.append(c == '\'' ? 2 : 1, c);
    return text + "'";
  }

  // min and max give Null when either bound is Null, as the condition must.
  std::string Between(const std::string& value, const std::string& a, const std::string& b) const override {
    return value + " BETWEEN min(" + a + ", " + b + ") AND max(" + a + ", " + b + ")";
  }

  std::string OrderOfWriting(const std::string& table) const override { return table + ".rowid"; }
  std::string NullOrder(bool) const override { return {}; }  // Null is the least of all here
};

class Cursor final : public QueryCursor, private Holder {
 public:
  Cursor(std::shared_ptr<Connection> connection, const sql::Select& select) : connection_(std::move(connection)) {
    for (const sql::SelectItem& item : select.items) columns_.push_back(item.column);
    connection_->Acquire(this);
    // The row number column keeps the places of the columns as in a table's rows.
    statement_ =
        connection_->Prepare("SELECT 0, " + Print(select, SqliteDialect()).substr(std::string("SELECT ").size()));
  }

  ~Cursor() override {
    statement_ = Statement();
    connection_->Release(this);
  }

  const std::vector<ColumnDef>& Columns() const override { return columns_; }

  bool Step() override {
    if (statement_) {
      started_ = statement_.Step();
      if (!started_) Finish();
      return started_;
    }
    if (!rest_.empty()) rest_.pop_front();
    return !rest_.empty();
  }

  Value Column(int ordinal) const override {
    const ColumnType type = columns_[static_cast<std::size_t>(ordinal)].type;
    return statement_ ? statement_.Read(ordinal + 1, type) : rest_.front().Read(ordinal, type);
  }

 private:
  // Somebody else needs the connection: the rows that are still to come are read now. The first of `rest_` is the
  // current row, or an empty place before the first row.
  void Park() override {
    if (!statement_) return;
    rest_.emplace_back();
    if (started_) rest_.back().Assign(statement_, Width());
    while (statement_.Step()) rest_.emplace_back().Assign(statement_, Width());
    Finish();
  }

  void Finish() {
    statement_ = Statement();
    connection_->Release(this);
  }

  int Width() const { return static_cast<int>(columns_.size()); }

  std::shared_ptr<Connection> connection_;
  std::vector<ColumnDef> columns_;
  Statement statement_;  // none once all rows are read
  bool started_ = false;
  std::deque<RowBuffer> rest_;
};

}  // namespace

std::unique_ptr<QueryCursor> MakeQueryCursor(std::shared_ptr<Connection> connection, const sql::Select& select) {
  return std::make_unique<Cursor>(std::move(connection), select);
}

void RunDelete(Connection& connection, const sql::Delete& statement) {
  connection.Acquire(nullptr);
  Statement prepared = connection.Prepare(Print(statement, SqliteDialect()));
  connection.Delete(*connection.FindTable(statement.table.table->name), prepared);
}

}  // namespace zendara::sqlite
