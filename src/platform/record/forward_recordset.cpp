// A query's rows one after the other, for long listings: one row is kept, whatever their number.
#include <optional>
#include <utility>

#include "platform/record/packed_row.hpp"
#include "platform/record/read_only_recordset.hpp"

namespace zendara {
namespace {

class ForwardRecordset final : public ReadOnlyRecordset {
 public:
  explicit ForwardRecordset(std::unique_ptr<QueryCursor> query) : query_(std::move(query)) {
    query_->WhenEnded([this] {
      if (on_row_ && !kept_) kept_.emplace(*query_);
    });
    Advance();
  }

  const std::vector<ColumnDef>& Columns() const override { return Query().Columns(); }

  bool Bof() const override { return Query(), reached_ == 0; }
  bool Eof() const override { return Query(), !on_row_; }
  std::int64_t RecordCount() const override { return Query(), reached_; }

  void MoveFirst() override {
    RequireRow();
    if (reached_ > 1) Refuse(kInvalidCall);
  }

  void MoveNext() override {
    RequireRow();
    Advance();
  }

  void MoveLast() override { Refuse(kInvalidCall); }
  void MovePrevious() override { Refuse(kInvalidCall); }
  std::shared_ptr<Recordset> Clone() override { Refuse(kInvalidCall); }
  zendara::Bookmark Bookmark() const override { Refuse(kInvalidCall); }
  void GoTo(zendara::Bookmark) override { Refuse(kInvalidCall); }

  void Close() override { query_.reset(); }

 private:
  QueryCursor& Query() const {
    if (!query_) throw RuntimeError(kObjectClosed);
    return *query_;
  }

  void RequireOpen() const override { Query(); }

  void RequireRow() const {
    Query();
    if (!on_row_) throw RuntimeError(kNoCurrentRecord);
  }

  // A fault leaves no current row.
  void Advance() {
    kept_.reset();
    on_row_ = false;
    on_row_ = query_->Step();
    if (on_row_) ++reached_;
  }

  Value GetColumn(int ordinal) const override {
    RequireRow();
    return kept_ ? kept_->Read(ordinal) : query_->Column(ordinal);
  }

  std::unique_ptr<QueryCursor> query_;  // none once closed
  std::optional<PackedRow> kept_;       // the current row, once the query does not hold it any more
  bool on_row_ = false;
  std::int64_t reached_ = 0;
};

}  // namespace

std::shared_ptr<Recordset> MakeForwardRecordset(std::unique_ptr<QueryCursor> query) {
  return std::make_shared<ForwardRecordset>(std::move(query));
}

}  // namespace zendara
