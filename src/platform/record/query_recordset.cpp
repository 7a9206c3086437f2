// A query's rows: read as they come to be asked for, kept once read, never changed.
#include <deque>
#include <utility>

#include "platform/record/packed_row.hpp"
#include "platform/record/read_only_recordset.hpp"

namespace zendara {
namespace {

// Rows reached so far, shared by a recordset and its clones. The last one is the query's until it goes on.
class Result {
 public:
  explicit Result(std::unique_ptr<QueryCursor> query) : query_(std::move(query)) {
    query_->WhenEnded([this] { ReachAll(); });
  }

  const std::vector<ColumnDef>& Columns() const { return query_->Columns(); }
  std::size_t Reached() const { return kept_.size() + (on_row_ ? 1 : 0); }
  Value Cell(std::size_t row, int column) const {
    return row < kept_.size() ? kept_[row].Read(column) : query_->Column(column);
  }

  // True if there is such a row; reads up to it.
  bool Reach(std::size_t row) {
    while (!complete_ && Reached() <= row) Advance();
    return row < Reached();
  }

  void ReachAll() {
    while (!complete_) Advance();
  }

 private:
  void Advance() {
    if (on_row_) kept_.emplace_back(*query_);
    on_row_ = false;
    on_row_ = query_->Step();
    complete_ = !on_row_;
  }

  std::unique_ptr<QueryCursor> query_;
  std::deque<PackedRow> kept_;
  bool on_row_ = false;
  bool complete_ = false;
};

class QueryRecordset final : public ReadOnlyRecordset {
 public:
  QueryRecordset(std::shared_ptr<Result> result, bool at_first)
      : result_(std::move(result)), place_(at_first && result_->Reach(0) ? Place::kRow : Place::kNone) {}

  const std::vector<ColumnDef>& Columns() const override { return Rows().Columns(); }

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

  void RequireOpen() const override { Rows(); }

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

  std::shared_ptr<Result> result_;  // none once closed
  std::size_t row_ = 0;
  Place place_;
};

}  // namespace

std::shared_ptr<Recordset> MakeQueryRecordset(std::unique_ptr<QueryCursor> query) {
  return std::make_shared<QueryRecordset>(std::make_shared<Result>(std::move(query)), true);
}

}  // namespace zendara
