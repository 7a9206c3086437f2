// The rules of the current record of a table-type recordset, the same for every engine.
#include <utility>

#include "platform/record/conversion.hpp"
#include "platform/record/cursor.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

class TableRecordset final : public Recordset {
 public:
  TableRecordset(std::unique_ptr<TableCursor> cursor, bool at_first)
      : cursor_(std::move(cursor)), place_(at_first ? Place::kFirstUnread : Place::kNone) {}

  const std::vector<ColumnDef>& Columns() const override { return Cursor().Table().columns; }

  std::string Index() const override {
    return index_ < 0 ? std::string() : Cursor().Table().indexes[static_cast<std::size_t>(index_)].name;
  }

  void SetIndex(std::string_view name) override {
    const int index = Cursor().Table().IndexOrdinal(name);
    if (index < 0) throw RuntimeError(kNotAnIndex, {std::string(name)});
    DropChange();
    index_ = index;
    cursor_->UseIndex(index);
    place_ = Place::kFirstUnread;
    bof_ = eof_ = false;
  }

  void Seek(const std::vector<Value>& keys) override {
    const TableDef& table = Cursor().Table();
    if (index_ < 0) throw RuntimeError(kNoActiveIndex);
    const auto& columns = table.indexes[static_cast<std::size_t>(index_)].columns;
    if (keys.empty() || keys.size() > columns.size()) throw RuntimeError(kInvalidCall);
    keys_.clear();
    for (std::size_t i = 0; i < keys.size(); ++i) {
      ColumnDef column = table.columns[static_cast<std::size_t>(columns[i])];
      column.width = 0;  // a key that is too long finds nothing
      keys_.push_back(ConvertForColumn(keys[i], column, Years()));
    }
    DropChange();
    place_ = Place::kNone;
    no_match_ = true;
    if (!cursor_->Find(keys_)) return;
    no_match_ = false;
    StandOnRow();
  }

  bool NoMatch() const override { return Cursor(), no_match_; }

  bool Bof() const override { return bof_ || WithoutRows(); }
  bool Eof() const override { return eof_ || WithoutRows(); }

  std::int64_t RecordCount() const override { return Cursor().Count(); }
  bool IsEmpty() const override { return !Cursor().HasRows(); }

  void MoveFirst() override {
    DropChange();
    MoveTo(cursor_->First());
  }

  void MoveLast() override {
    DropChange();
    MoveTo(cursor_->Last());
  }

  void MoveNext() override {
    DropChange();
    ReadFirst();
    if (place_ == Place::kBeforeFirst) return MoveTo(cursor_->First());
    RequirePlace(Place::kAfterLast);
    if (cursor_->Next()) return StandOnRow();
    place_ = Place::kAfterLast;
    eof_ = true;
  }

  void MovePrevious() override {
    DropChange();
    ReadFirst();
    if (place_ == Place::kAfterLast) return MoveTo(cursor_->Last());
    RequirePlace(Place::kBeforeFirst);
    if (cursor_->Previous()) return StandOnRow();
    place_ = Place::kBeforeFirst;
    bof_ = true;
  }

  void AddNew() override {
    row_.assign(Cursor().Table().columns.size(), Value());
    pending_ = Pending::kAdd;
  }

  void Edit() override {
    DropChange();
    RequireRow();
    if (!cursor_->Refresh()) {
      place_ = Place::kDeleted;
      throw RuntimeError(kRecordDeleted);
    }
    row_.clear();
    for (std::size_t i = 0; i < Columns().size(); ++i) row_.push_back(cursor_->Column(static_cast<int>(i)));
    pending_ = Pending::kEdit;
  }

  void Update() override {
    TableCursor& cursor = Cursor();
    if (pending_ == Pending::kNothing) throw RuntimeError(kUpdateWithoutEdit);
    if (const IndexDef* primary = cursor.Table().Primary()) {
      for (const int column : primary->columns) {
        if (row_[static_cast<std::size_t>(column)].IsNull()) throw RuntimeError(kNullInKey);
      }
    }
    if (pending_ == Pending::kAdd) {
      cursor.Insert(row_);
    } else {
      cursor.Replace(row_);
    }
    pending_ = Pending::kNothing;
  }

  void CancelUpdate() override {
    Cursor();
    if (pending_ == Pending::kNothing) throw RuntimeError(kUpdateWithoutEdit);
    DropChange();
  }

  void Delete() override {
    DropChange();
    RequireRow();
    const bool deleted = cursor_->Erase();
    place_ = Place::kDeleted;
    if (!deleted) throw RuntimeError(kRecordDeleted);
  }

  std::shared_ptr<Recordset> Clone() override {
    auto clone = std::make_shared<TableRecordset>(Cursor().Fork(), false);
    clone->SetYearWindow(Years());
    return clone;
  }

  zendara::Bookmark Bookmark() const override {
    RequireRow();
    return cursor_->Row();
  }

  void GoTo(zendara::Bookmark bookmark) override {
    DropChange();
    place_ = Place::kNone;
    if (!cursor_->GoTo(bookmark)) throw RuntimeError(kRecordDeleted);
    StandOnRow();
  }

  void Close() override { cursor_.reset(); }

 private:
  enum class Place {
    kFirstUnread,  // on the first row, which is read when somebody asks for it
    kRow,
    kDeleted,  // on a row that was deleted; moves start from its place
    kBeforeFirst,
    kAfterLast,
    kNone,
  };
  enum class Pending { kNothing, kAdd, kEdit };

  TableCursor& Cursor() const {
    if (!cursor_) throw RuntimeError(kObjectClosed);
    return *cursor_;
  }

  void DropChange() {
    Cursor();
    pending_ = Pending::kNothing;
  }

  void ReadFirst() const {
    if (place_ == Place::kFirstUnread) place_ = Cursor().First() ? Place::kRow : Place::kNone;
  }

  void RequireRow() const {
    Cursor();
    ReadFirst();
    if (place_ == Place::kDeleted) throw RuntimeError(kRecordDeleted);
    if (place_ != Place::kRow) throw RuntimeError(kNoCurrentRecord);
  }

  // Moving on needs a row or the place of a deleted one.
  void RequirePlace(Place passed_end) const {
    if (place_ == passed_end || place_ == Place::kNone) throw RuntimeError(kNoCurrentRecord);
  }

  void StandOnRow() {
    place_ = Place::kRow;
    bof_ = eof_ = false;
  }

  void MoveTo(bool found) {
    place_ = Place::kNone;
    if (!found) throw RuntimeError(kNoCurrentRecord);
    StandOnRow();
  }

  // An empty table is at both ends. A deleted row leaves both as they were until the next move.
  bool WithoutRows() const {
    Cursor();
    ReadFirst();
    if (place_ == Place::kRow || place_ == Place::kDeleted) return false;
    return IsEmpty();
  }

  Value GetColumn(int ordinal) const override {
    if (pending_ != Pending::kNothing) return Cursor(), row_[static_cast<std::size_t>(ordinal)];
    RequireRow();
    return cursor_->Column(ordinal);
  }

  void SetColumn(int ordinal, const Value& value) override {
    const ColumnDef& column = Columns()[static_cast<std::size_t>(ordinal)];
    if (pending_ == Pending::kNothing) throw RuntimeError(kUpdateWithoutEdit);
    row_[static_cast<std::size_t>(ordinal)] = ConvertForColumn(value, column, Years());
  }

  std::unique_ptr<TableCursor> cursor_;  // none once closed
  int index_ = -1;
  mutable Place place_;
  bool bof_ = false;
  bool eof_ = false;
  bool no_match_ = false;
  Pending pending_ = Pending::kNothing;
  std::vector<Value> row_;  // of the pending change
  std::vector<Value> keys_;
};

}  // namespace

std::shared_ptr<Recordset> MakeTableRecordset(std::unique_ptr<TableCursor> cursor) {
  return std::make_shared<TableRecordset>(std::move(cursor), true);
}

}  // namespace zendara
