#include "adapters/sqlite/table_cursor.hpp"

#include <utility>
#include <vector>

#include "adapters/sqlite/row_buffer.hpp"
#include "platform/sql/printer.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sqlite {
namespace {

using sql::QuoteName;

// A step of a walk through an index of n columns that starts behind a key ("anchor"): rows that share the first
// `equal` columns with the anchor and lie beyond it in the next one. A walk begins with the most columns equal and goes
// on with one less each time a step has no more rows. With all n equal it is the row number that lies beyond.
struct Step {
  enum Kind : std::uint8_t {
    kWhole,   // every row: no anchor
    kEqual,   // exactly the first `equal` columns
    kBeyond,  // and beyond the anchor in the next one
    kNulls,   // and Null in the next one: what comes last when walking down
  };
  Kind kind = kWhole;
  bool descending = false;
  int equal = 0;
};

class Cursor final : public TableCursor, private Holder {
 public:
  Cursor(std::shared_ptr<Connection> connection, TableInfo& table) : connection_(std::move(connection)), table_(table) {
    ChooseIndex(-1);
  }

  ~Cursor() override {
    if (scan_) scan_->Reset();
    connection_->Release(this);
  }

  const TableDef& Table() const override { return table_.definition; }

  std::unique_ptr<TableCursor> Fork() const override { return std::make_unique<Cursor>(connection_, table_); }

  void UseIndex(int index) override {
    Drop();
    ChooseIndex(index);
  }

  bool First() override { return Whole(false); }
  bool Last() override { return Whole(true); }
  bool Next() override { return Move(false); }
  bool Previous() override { return Move(true); }

  bool Find(std::span<const Value> keys) override {
    Drop();
    anchor_.assign(keys.begin(), keys.end());
    Start({Step::kEqual, false, static_cast<int>(keys.size())});
    if (scan_->Step()) return true;
    Drop();
    return false;
  }

  bool GoTo(zendara::Bookmark row) override {
    Drop();
    return ReadRow(row);
  }

  bool Refresh() override {
    Park();
    return ReadRow(row_.id());
  }

  Value Column(int ordinal) const override {
    const ColumnType type = table_.definition.columns[static_cast<std::size_t>(ordinal)].type;
    return scan_ ? scan_->Read(ordinal + 1, type) : row_.Read(ordinal, type);
  }

  zendara::Bookmark Row() const override { return scan_ ? scan_->Integer(0) : row_.id(); }

  void Insert(const std::vector<Value>& row) override {
    connection_->Acquire(nullptr);
    connection_->PrepareWrite();
    if (!table_.insert) table_.insert = connection_->Prepare(InsertText());
    table_.insert.Bind(1, table_.given);
    table_.insert.Bind(2, Value(table_.definition.name));
    BindRow(table_.insert, 3, row);
    table_.insert.Run();
    table_.given = connection_->LastNumber();
    connection_->AddToCount(table_, 1);
  }

  void Replace(const std::vector<Value>& row) override {
    connection_->AsOne([&] {
      if (!OpenRow(row_.id())) throw RuntimeError(kRecordDeleted);
      const bool same = row_.SameAs(table_.by_row);
      table_.by_row.Reset();
      if (!same) throw RuntimeError(kRowChanged);
      const bool keys = KeysChange(row);
      Statement& replace = keys ? table_.replace_with_keys : table_.replace;
      if (!replace) replace = connection_->Prepare(ReplaceText(keys));
      BindRow(replace, 1, row);
      replace.Bind(static_cast<int>(row.size()) + 1, row_.id());
      replace.Run();
    });
    // Only now: after a failure the row as Refresh read it is what a second try is compared with.
    ReadRow(row_.id());
  }

  bool Erase() override {
    connection_->Acquire(nullptr);
    if (!table_.erase) {
      table_.erase = connection_->Prepare("DELETE FROM " + QuoteName(table_.definition.name) + " WHERE rowid = ?");
    }
    table_.erase.Bind(1, row_.id());
    return connection_->Delete(table_, table_.erase) > 0;
  }

  std::int64_t Count() const override { return connection_->Count(table_); }
  bool HasRows() const override { return Count() > 0; }

 private:
  // Keeps the current row; the next move finds its place again by key.
  void Park() override {
    if (!scan_) return;
    row_.Assign(*scan_, ColumnCount());
    scan_->Reset();
    scan_ = nullptr;
    connection_->Release(this);
  }

  // Gives the current row up.
  void Drop() {
    if (!scan_) return;
    scan_->Reset();
    scan_ = nullptr;
    connection_->Release(this);
  }

  int ColumnCount() const { return static_cast<int>(table_.definition.columns.size()); }

  void ChooseIndex(int index) {
    index_ = index;
    const TableDef& table = table_.definition;
    const IndexDef* chosen = index < 0 ? table.Primary() : &table.indexes[static_cast<std::size_t>(index)];
    if (chosen) index_ = static_cast<int>(chosen - table.indexes.data());
    order_ = chosen ? chosen->columns : std::vector<int>();
    unique_ = chosen && chosen->primary;
  }

  bool Whole(bool descending) {
    Drop();
    Start({Step::kWhole, descending, 0});
    return Advance();
  }

  bool Move(bool descending) {
    if (scan_ && step_.descending == descending) return Advance();
    Park();
    anchor_.clear();
    for (const int column : order_) anchor_.push_back(Column(column));
    const int columns = static_cast<int>(order_.size());
    Start({Step::kBeyond, descending, unique_ ? columns - 1 : columns});
    return Advance();
  }

  // Steps of a walk.

  void Start(Step step) {
    step_ = step;
    connection_->Acquire(this);
    Open();
  }

  bool Advance() {
    for (;;) {
      if (scan_ && scan_->Step()) return true;
      if (scan_) scan_->Reset();
      scan_ = nullptr;
      if (!NextStep()) break;
      Open();
    }
    connection_->Release(this);
    return false;
  }

  bool NextStep() {
    if (step_.kind == Step::kWhole) return false;
    if (step_.kind == Step::kBeyond && step_.descending && CanBeNull(step_.equal)) {
      step_.kind = Step::kNulls;
      return true;
    }
    if (step_.equal == 0) return false;
    step_ = {Step::kBeyond, step_.descending, step_.equal - 1};
    return true;
  }

  bool CanBeNull(int key) const { return !unique_ && key < static_cast<int>(order_.size()); }
  bool AnchorIsNull(int key) const { return anchor_[static_cast<std::size_t>(key)].IsNull(); }

  // Leaves scan_ empty for a step that cannot have rows: nothing comes before Null.
  void Open() {
    const bool has_next = step_.kind == Step::kBeyond && step_.equal < static_cast<int>(order_.size());
    const bool next_null = has_next && AnchorIsNull(step_.equal);
    if (next_null && step_.descending) {
      step_.kind = Step::kNulls;
      return;
    }
    std::uint64_t nulls = next_null ? std::uint64_t{1} << step_.equal : 0;
    for (int i = 0; i < step_.equal; ++i) nulls |= std::uint64_t{AnchorIsNull(i)} << i;

    const auto key = (nulls << 20) | (static_cast<std::uint64_t>(index_ + 1) << 12) |
                     (static_cast<std::uint64_t>(step_.equal) << 4) | (static_cast<std::uint64_t>(step_.kind) << 1) |
                     (step_.descending ? 1U : 0U);
    Statement& statement = table_.positions[key];
    if (!statement) statement = connection_->Prepare(StepText(nulls));
    int parameter = 0;
    for (int i = 0; i < step_.equal; ++i) {
      if (!AnchorIsNull(i)) statement.Bind(++parameter, anchor_[static_cast<std::size_t>(i)]);
    }
    if (has_next && !next_null) statement.Bind(++parameter, anchor_[static_cast<std::size_t>(step_.equal)]);
    if (step_.kind == Step::kBeyond && !has_next) statement.Bind(++parameter, row_.id());
    scan_ = &statement;
  }

  std::string ColumnName(int key) const {
    const auto column = static_cast<std::size_t>(order_[static_cast<std::size_t>(key)]);
    return QuoteName(table_.definition.columns[column].name);
  }

  std::string StepText(std::uint64_t nulls) const {
    const TableDef& table = table_.definition;
    const int columns = static_cast<int>(order_.size());
    std::string text = "SELECT " + table_.columns + " FROM " + QuoteName(table.name);
    text += index_ < 0
                ? " NOT INDEXED"
                : " INDEXED BY " + QuoteName(table.name + "." + table.indexes[static_cast<std::size_t>(index_)].name);
    std::string conditions;
    const auto add = [&conditions](const std::string& condition) {
      conditions += (conditions.empty() ? " WHERE " : " AND ") + condition;
    };
    for (int i = 0; i < step_.equal; ++i) add(ColumnName(i) + ((nulls >> i & 1) ? " IS NULL" : " = ?"));
    if (step_.kind == Step::kBeyond) {
      const std::string beyond = step_.descending ? " < ?" : " > ?";
      if (step_.equal == columns) {
        add("rowid" + beyond);
      } else {
        add(ColumnName(step_.equal) + ((nulls >> step_.equal & 1) ? " IS NOT NULL" : beyond));
      }
    }
    if (step_.kind == Step::kNulls) add(ColumnName(step_.equal) + " IS NULL");
    const std::string direction = step_.descending ? " DESC" : "";
    text += conditions + " ORDER BY ";
    for (int i = 0; i < columns; ++i) text += ColumnName(i) + direction + ", ";
    return text + "rowid" + direction;
  }

  // Single rows.

  bool OpenRow(std::int64_t row) {
    if (!table_.by_row) {
      table_.by_row = connection_->Prepare("SELECT " + table_.columns + " FROM " + QuoteName(table_.definition.name) +
                                           " WHERE rowid = ?");
    }
    table_.by_row.Bind(1, row);
    if (table_.by_row.Step()) return true;
    table_.by_row.Reset();
    return false;
  }

  bool ReadRow(std::int64_t row) {
    connection_->Acquire(nullptr);
    if (!OpenRow(row)) return false;
    row_.Assign(table_.by_row, ColumnCount());
    table_.by_row.Reset();
    return true;
  }

  static void BindRow(Statement& statement, int first, const std::vector<Value>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) statement.Bind(static_cast<int>(i) + first, row[i]);
  }

  // The new row's number lies behind every one that the table has, has had, or that was given here and undone.
  std::string InsertText() const {
    const std::string table = QuoteName(table_.definition.name);
    std::string places;
    for (int i = 0; i < ColumnCount(); ++i) places += ", ?";
    return "INSERT INTO " + table + " (" + table_.columns + ") VALUES (1 + max(?1, coalesce((SELECT max(rowid) FROM " +
           table + "), 0), coalesce((SELECT last FROM zendara_numbers WHERE name = ?2), 0))" + places + ")";
  }

  // Whether the row differs from the kept one in a column of an index. Setting these makes the store write the indexes
  // too, whatever the values. True also for a table that has no other columns.
  bool KeysChange(const std::vector<Value>& row) const {
    bool only_keys = true;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const ColumnDef& column = table_.definition.columns[i];
      if (!table_.indexed[i]) {
        only_keys = false;
      } else if (row[i] != row_.Read(static_cast<int>(i), column.type)) {
        return true;
      }
    }
    return only_keys;
  }

  std::string ReplaceText(bool with_keys) const {
    const auto& columns = table_.definition.columns;
    std::string text;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (table_.indexed[i] && !with_keys) continue;
      text += (text.empty() ? "" : ", ") + QuoteName(columns[i].name) + " = ?" + std::to_string(i + 1);
    }
    return "UPDATE " + QuoteName(table_.definition.name) + " SET " + text + " WHERE rowid = ?" +
           std::to_string(columns.size() + 1);
  }

  std::shared_ptr<Connection> connection_;
  TableInfo& table_;
  int index_ = -1;          // in use: the chosen index or the primary key; -1: order of writing
  std::vector<int> order_;  // its columns
  bool unique_ = false;

  Statement* scan_ = nullptr;  // open on the current row, or none and row_ holds it
  RowBuffer row_;
  Step step_;
  std::vector<Value> anchor_;
};

}  // namespace

std::unique_ptr<TableCursor> MakeTableCursor(std::shared_ptr<Connection> connection, TableInfo& table) {
  return std::make_unique<Cursor>(std::move(connection), table);
}

}  // namespace zendara::sqlite
