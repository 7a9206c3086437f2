// A query's rows: read as they come to be asked for, kept once read, never changed.
#include <utility>

#include "platform/record/cursor.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// Rows reached so far, shared by a recordset and its clones.
class Result {
 public:
  explicit Result(std::unique_ptr<QueryCursor> query) : columns_(query->Columns()), query_(std::move(query)) {}

  const std::vector<ColumnDef>& Columns() const { return columns_; }
  std::size_t Reached() const { return cells_.size() / columns_.size(); }
  const Value& Cell(std::size_t row, int column) const {
    return cells_[row * columns_.size() + static_cast<std::size_t>(column)];
  }

  // True if there is such a row; reads up to it.
  bool Reach(std::size_t row) {
    while (query_ && Reached() <= row) {
      if (!query_->Step()) {
        query_.reset();
        break;
      }
      for (std::size_t c = 0; c < columns_.size(); ++c) cells_.push_back(query_->Column(static_cast<int>(c)));
    }
    return row < Reached();
  }

  void ReachAll() {
    while (query_) Reach(Reached());
  }

 private:
  std::vector<ColumnDef> columns_;
  std::unique_ptr<QueryCursor> query_;  // none once all rows are read
  std::vector<Value> cells_;
};

class QueryRecordset final : public Recordset {
 public:
  QueryRecordset(std::shared_ptr<Result> result, bool at_first)
      : result_(std::move(result)), place_(at_first && result_->Reach(0) ? Place::kRow : Place::kNone) {}

  const std::vector<ColumnDef>& Columns() const override { return Rows().Columns(); }

  std::string Index() const override { return Rows(), std::string(); }
  void SetIndex(std::string_view) override { throw RuntimeError(kNoActiveIndex); }
  void Seek(const std::vector<Value>&) override { throw RuntimeError(kNoActiveIndex); }
  bool NoMatch() const override { return Rows(), false; }

  bool Bof() const override { return place_ == Place::kBeforeFirst || Rows().Reached() == 0; }
  bool Eof() const override { return place_ == Place::kAfterLast || Rows().Reached() == 0; }
  std::int64_t RecordCount() const override { return static_cast<std::int64_t>(Rows().Reached()); }

  void MoveFirst() override {
    RequireRows();
    Stand(0);
  }

  void MoveLast() override {
    RequireRows();
    result_->ReachAll();
    Stand(result_->Reached() - 1);
  }

  void MoveNext() override {
    RequireRows();
    if (place_ == Place::kBeforeFirst) return Stand(0);
    RequireRow();
    if (result_->Reach(row_ + 1)) return Stand(row_ + 1);
    place_ = Place::kAfterLast;
  }

  void MovePrevious() override {
    RequireRows();
    if (place_ == Place::kAfterLast) return Stand(result_->Reached() - 1);
    RequireRow();
    if (row_ > 0) return Stand(row_ - 1);
    place_ = Place::kBeforeFirst;
  }

  void AddNew() override { throw RuntimeError(kReadOnly); }
  void Edit() override { throw RuntimeError(kReadOnly); }
  void Update() override { throw RuntimeError(kUpdateWithoutEdit); }
  void CancelUpdate() override {}
  void Delete() override { throw RuntimeError(kReadOnly); }

  std::shared_ptr<Recordset> Clone() override {
    Rows();
    return std::make_shared<QueryRecordset>(result_, false);
  }

  zendara::Bookmark Bookmark() const override {
    RequireRow();
    return static_cast<zendara::Bookmark>(row_);
  }

  void GoTo(zendara::Bookmark bookmark) override {
    if (bookmark < 0 || !Rows().Reach(static_cast<std::size_t>(bookmark))) throw RuntimeError(kNoCurrentRecord);
    Stand(static_cast<std::size_t>(bookmark));
  }

  void Close() override { result_.reset(); }

 private:
  enum class Place { kRow, kBeforeFirst, kAfterLast, kNone };

  Result& Rows() const {
    if (!result_) throw RuntimeError(kObjectClosed);
    return *result_;
  }

  void RequireRows() const {
    if (Rows().Reached() == 0) throw RuntimeError(kNoCurrentRecord);
  }

  void RequireRow() const {
    Rows();
    if (place_ != Place::kRow) throw RuntimeError(kNoCurrentRecord);
  }

  void Stand(std::size_t row) {
    row_ = row;
    place_ = Place::kRow;
  }

  Value GetColumn(int ordinal) const override {
    RequireRow();
    return result_->Cell(row_, ordinal);
  }

  void SetColumn(int, const Value&) override { throw RuntimeError(kUpdateWithoutEdit); }

  std::shared_ptr<Result> result_;  // none once closed
  std::size_t row_ = 0;
  Place place_;
};

}  // namespace

std::shared_ptr<Recordset> MakeQueryRecordset(std::unique_ptr<QueryCursor> query) {
  return std::make_shared<QueryRecordset>(std::make_shared<Result>(std::move(query)), true);
}

}  // namespace zendara
