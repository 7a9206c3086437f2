#include "adapters/postgres/table_cursor.hpp"

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "adapters/postgres/row_block.hpp"
#include "adapters/postgres/sort_key.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

using Clock = std::chrono::steady_clock;

// Moves that follow each other read ahead, each time more.
constexpr int kFirstBatch = 1;
constexpr int kMostRows = 256;  // of 60 columns half of what a socket holds, so that the server goes on meanwhile
constexpr int kGrowth = 4;
// From so many on, rows are read with those columns alone that were asked for on the way, and the next ones are under
// way while these are used.
constexpr int kLongWalk = 64;
// What was read ahead counts as the present for so long.
constexpr auto kPresent = std::chrono::milliseconds(100);

// That of the row as it was read: also one that this transaction itself has changed is another one.
constexpr std::string_view kVersion = "xmin::text || ctid::text";

class Cursor final : public TableCursor, private Reader {
 public:
  Cursor(std::shared_ptr<OpenFile> file, const Relation& relation) : file_(std::move(file)), relation_(relation) {
    asked_.resize(relation_.columns.size());
    ChooseIndex(-1);
  }
  ~Cursor() override { DropAhead(); }
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;

  const TableDef& Table() const override { return relation_.definition; }
  std::unique_ptr<TableCursor> Fork() const override { return std::make_unique<Cursor>(file_, relation_); }

  void UseIndex(int index) override {
    DropAhead();
    ChooseIndex(index);
  }

  bool First() override { return End(false); }
  bool Last() override { return End(true); }
  bool Next() override { return Move(false); }
  bool Previous() override { return Move(true); }

  bool Find(std::span<const Value> keys) override {
    BeginWalk();
    Parameters parameters = OfFile();
    for (const Value& key : keys) parameters.Bytes(SortKey(key, file_->server().order()));
    const std::string& text = Text(1, static_cast<int>(keys.size()), [&] {
      std::string conditions;
      for (std::size_t i = 0; i < keys.size(); ++i) conditions += " AND " + order_[i] + " = $" + std::to_string(i + 2);
      return Select(whole_, false) + conditions + OrderBy(false) + " LIMIT 1";
    });
    return Take(file_->Reach().Run(text, parameters), whole_);
  }

  bool GoTo(zendara::Bookmark row) override {
    BeginWalk();
    return ReadRow(row);
  }

  bool Refresh() override {
    DropAhead();
    return ReadVersion(row_.Number());
  }

  Value Column(int ordinal) const override {
    const auto i = static_cast<std::size_t>(ordinal);
    if (!asked_[i]) asked_[i] = true;
    if (!row_.Has(ordinal)) ReadRest();
    return row_.Column(ordinal, relation_.definition.columns[i].type);
  }

  zendara::Bookmark Row() const override { return row_.Number(); }

  void Insert(const std::vector<Value>& row) override;
  void Replace(const std::vector<Value>& row) override;
  bool Erase() override;

  std::int64_t Count() const override {
    const std::string& text = Text(2, 0, [&] { return "SELECT count(*) FROM " + FromFile(); });
    return file_->Reach().Run(text, OfFile()).Integer(0, 0);
  }

  bool HasRows() const override {
    const std::string& text = Text(2, 1, [&] { return "SELECT EXISTS (SELECT 1 FROM " + FromFile() + ")"; });
    return file_->Reach().Run(text, OfFile()).Integer(0, 0) != 0;
  }

 private:
  // Which columns of the table a statement reads.
  struct Columns {
    std::string list;
    std::shared_ptr<std::vector<int>> places;
  };

  // Rows ahead of the current one in a walk.
  struct Ahead {
    std::shared_ptr<const RowBlock> block;
    int next = 0;  // of the block
    int size = 0;  // that was asked for
    Clock::time_point read;
    std::uint64_t tick = 0;

    int Rows() const { return block ? block->answer.Rows() : 0; }
  };

  // Statements.

  Parameters OfFile() const { return Parameters().Text(file_->name()); }

  // Texts of statements are made once for a cursor; `kind` and `number` tell them apart.
  const std::string& Text(int kind, int number, const std::function<std::string()>& make) const {
    std::string& text = texts_[kind * 4096 + number];
    if (text.empty()) text = make();
    return text;
  }

  std::string FromFile() const { return relation_.name + " WHERE " + std::string(kFileColumn) + " = $1"; }

  std::string Select(const Columns& columns, bool version) const {
    std::string text = "SELECT " + std::string(kRowColumn);
    if (version) text += ", " + std::string(kVersion);
    return text + KeyList() + columns.list + " FROM " + FromFile();
  }

  std::string KeyList() const {
    std::string list;
    for (int i = 0; i < keys_; ++i) list += ", " + order_[static_cast<std::size_t>(i)];
    return list;
  }

  std::string OrderBy(bool descending) const {
    std::string text;
    for (const std::string& column : order_) {
      text += (text.empty() ? " ORDER BY " : ", ") + column + (descending ? " DESC" : "");
    }
    return text;
  }

  Columns Choose(const std::function<bool(std::size_t)>& wanted, int first) const {
    Columns columns;
    columns.places = std::make_shared<std::vector<int>>(relation_.columns.size(), -1);
    for (std::size_t i = 0; i < relation_.columns.size(); ++i) {
      if (!wanted(i)) continue;
      columns.list += ", " + relation_.columns[i];
      (*columns.places)[i] = first++;
    }
    return columns;
  }

  void ChooseIndex(int index) {
    const TableDef& table = relation_.definition;
    const IndexDef* chosen = index < 0 ? table.Primary() : &table.indexes[static_cast<std::size_t>(index)];
    order_ = chosen ? relation_.OrderOf(*chosen) : std::vector{std::string(kRowColumn)};
    keys_ = chosen ? static_cast<int>(chosen->columns.size()) : 0;
    const auto all = [](std::size_t) { return true; };
    whole_ = Choose(all, 1 + keys_);
    versioned_ = Choose(all, 2 + keys_);
    texts_.clear();
    row_ = {};
    BeginWalk();
  }

  // The current row.

  bool Take(Answer answer, const Columns& columns, int first_key = 1) const {
    if (answer.Rows() == 0) return false;
    row_ = {std::make_shared<RowBlock>(RowBlock{std::move(answer), first_key, keys_, columns.places}), 0};
    return true;
  }

  bool ReadRow(std::int64_t number) const {
    const std::string& text = Text(2, 2, [&] { return Select(whole_, false) + OfRow(); });
    return Take(file_->Reach().Run(text, OfFile().Integer(number)), whole_);
  }

  bool ReadVersion(std::int64_t number) {
    const std::string& text = Text(2, 3, [&] { return Select(versioned_, true) + OfRow(); });
    if (!Take(file_->Reach().Run(text, OfFile().Integer(number)), versioned_, 2)) return false;
    version_ = row_.block->answer.Bytes(0, 1);
    return true;
  }

  static std::string OfRow() { return " AND " + std::string(kRowColumn) + " = $2"; }

  // A column that the walk did not read: the row as it is stored now, and more columns from here on.
  void ReadRest() const {
    ahead_ = {};
    if (!ReadRow(row_.Number())) throw RuntimeError(kRecordDeleted);
  }

  bool SameAs(const postgres::Row& kept) const {
    for (std::size_t i = 0; i < relation_.columns.size(); ++i) {
      const ColumnType type = relation_.definition.columns[i].type;
      const int ordinal = static_cast<int>(i);
      if (row_.Column(ordinal, type) != kept.Column(ordinal, type)) return false;
    }
    return true;
  }

  bool Equals(const std::vector<Value>& row) const {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (row_.Column(static_cast<int>(i), relation_.definition.columns[i].type) != Stored(row[i])) return false;
    }
    return true;
  }

  // As it comes back: of a time of day whole seconds are kept.
  static Value Stored(const Value& value) { return value.IsDate() ? Value(DateOf(MomentOf(value.AsDate()))) : value; }

  // Walks.

  void BeginWalk() {
    DropAhead();
    asked_.assign(asked_.size(), false);
  }

  void DropAhead() {
    if (reading_) std::exchange(reading_, nullptr)->Leave(*this);
    ahead_ = {};
    coming_ = {};
  }

  bool End(bool descending) {
    BeginWalk();
    const std::string& text =
        Text(3, descending ? 1 : 0, [&] { return Select(whole_, false) + OrderBy(descending) + " LIMIT 1"; });
    return Take(file_->Reach().Run(text, OfFile()), whole_);
  }

  bool IsPresent(const Ahead& ahead) const {
    return ahead.block && ahead.tick == file_->server().Tick() && Clock::now() - ahead.read < kPresent;
  }

  bool Move(bool descending) {
    if (descending != descending_) {
      DropAhead();
      descending_ = descending;
    }
    const bool follows = ahead_.block && ahead_.block == row_.block && IsPresent(ahead_);
    if (follows && ahead_.next < ahead_.Rows()) {
      row_.at = ahead_.next++;
      return true;
    }
    if (follows && ahead_.Rows() < ahead_.size) return false;  // there were no more
    const int size = follows ? std::min(ahead_.size * kGrowth, kMostRows) : kFirstBatch;
    const postgres::Row from = row_;
    if (!follows || !TakeComing()) {
      DropAhead();
      Ahead fresh = Asked(size);
      Link& link = file_->Reach();
      link.Allow(Link::Plans::kInIndexOrder);
      fresh.block = MakeBlock(link.Run(MoveText(size), Behind(from)));
      fresh.read = Clock::now();
      ahead_ = std::move(fresh);
    }
    if (ahead_.Rows() == 0) return false;
    row_ = {ahead_.block, 0};
    ahead_.next = 1;
    if (ahead_.Rows() == ahead_.size && ahead_.size >= kLongWalk) AskForMore();
    return true;
  }

  Ahead Asked(int size) const {
    return {.block = {}, .next = 0, .size = size, .read = Clock::now(), .tick = file_->server().Tick()};
  }

  std::shared_ptr<const RowBlock> MakeBlock(Answer answer) const {
    return std::make_shared<RowBlock>(RowBlock{std::move(answer), 1, keys_, narrow_.places});
  }

  // The statement that reads so many rows from a place on.
  const std::string& MoveText(int size) {
    if (size >= kLongWalk && !std::ranges::equal(asked_, narrow_for_)) {
      narrow_for_ = asked_;
      narrow_ = Choose([&](std::size_t i) { return asked_[i]; }, 1 + keys_);
      std::erase_if(texts_, [](const auto& text) { return text.first / 4096 == 5; });
    }
    const bool narrow = size >= kLongWalk;
    if (!narrow) {
      narrow_ = whole_;
      narrow_for_.clear();
    }
    return Text(narrow ? 5 : 4, size * 2 + (descending_ ? 1 : 0), [&] {
      std::string columns;
      std::string values;
      for (std::size_t i = 0; i < order_.size(); ++i) {
        columns += (i > 0 ? ", " : "") + order_[i];
        values += (i > 0 ? ", $" : "$") + std::to_string(i + 2);
      }
      return Select(narrow_, false) + " AND (" + columns + ") " + (descending_ ? "<" : ">") + " (" + values + ")" +
             OrderBy(descending_) + " LIMIT " + std::to_string(size);
    });
  }

  Parameters Behind(const postgres::Row& row) const {
    Parameters parameters = OfFile();
    for (int i = 0; i < keys_; ++i) parameters.Bytes(row.Key(i));
    if (order_.back() == kRowColumn) parameters.Integer(row.Number());
    return parameters;
  }

  // The rows behind the last one of the block, under way while this one is used.
  void AskForMore() {
    const int size = std::min(ahead_.size * kGrowth, kMostRows);
    const postgres::Row last = {ahead_.block, ahead_.Rows() - 1};
    coming_ = Asked(size);
    try {
      Link& link = file_->Reach();
      link.Start(MoveText(size), Behind(last), *this, Link::Rows::kTogether);
      reading_ = &link;
    } catch (const RuntimeError&) {
      // The cursor has moved already: the fault belongs to the move that needs these rows, which asks again.
      coming_ = {};
    }
  }

  // They have come and are those behind the current row.
  bool TakeComing() {
    if (coming_.size == 0) return false;
    while (reading_ && reading_->Next(*this)) {
    }
    reading_ = nullptr;
    Ahead coming = std::exchange(coming_, {});
    if (!IsPresent(coming)) return false;
    ahead_ = std::move(coming);
    return true;
  }

  void Arrived(Answer rows) override { coming_.block = MakeBlock(std::move(rows)); }
  void Hurry() override { reading_ = nullptr; }
  void Failed(std::exception_ptr) override { coming_ = {}; }

  // Writes.

  Parameters OfWholeRow(const std::vector<Value>& row) const {
    Parameters parameters = OfFile();
    for (std::size_t i = 0; i < row.size(); ++i) {
      parameters.Stored(row[i], relation_.definition.columns[i].type);
      if (!relation_.keys[i].empty()) BindKey(row[i], file_->server().order(), parameters);
    }
    return parameters;
  }

  // Columns and keys in the order of OfWholeRow, from $2 on.
  template <typename Add>
  void EachStored(Add add) const {
    for (std::size_t i = 0; i < relation_.columns.size(); ++i) {
      add(relation_.columns[i]);
      if (!relation_.keys[i].empty()) add(relation_.keys[i]);
    }
  }

  std::string InsertText(bool numbered, bool in_transaction) const {
    std::string columns(kFileColumn);
    std::string values = "$1";
    int parameter = 1;
    const auto add = [&](std::string_view column) {
      columns.append(", ").append(column);
      values += ", $" + std::to_string(++parameter);
    };
    EachStored(add);
    if (numbered) add(kRowColumn);
    return "INSERT INTO " + relation_.name + " (" + columns + ") VALUES (" + values + ")" +
           (in_transaction ? " ON CONFLICT DO NOTHING" : "");
  }

  std::string ReplaceText() const {
    std::string text = "UPDATE " + relation_.name + " SET ";
    int parameter = 1;
    EachStored([&](const std::string& column) {
      text += (parameter == 1 ? "" : ", ") + column + " = $" + std::to_string(parameter + 1);
      ++parameter;
    });
    const std::string number = "$" + std::to_string(parameter + 1);
    const std::string version = "$" + std::to_string(parameter + 2);
    return text + " WHERE " + std::string(kFileColumn) + " = $1 AND " + std::string(kRowColumn) + " = " + number +
           " AND " + std::string(kVersion) + " = " + version + " RETURNING " + std::string(kRowColumn) + KeyList() +
           whole_.list;
  }

  // A write whose answer was lost.
  enum class Write { kInsert, kReplace, kErase };
  struct Doubt {
    Write write;
    std::int64_t number;  // of the row; 0 for a new one that its key tells
    std::vector<Value> row;
  };

  bool IsDoubted(Write write, std::int64_t number, const std::vector<Value>& row) const {
    return doubt_ && doubt_->write == write && doubt_->number == number && doubt_->row == row;
  }

  // Whether a write is done whose answer was lost is asked at once, since mostly the server is there again. It is not
  // sent a second time here: what it was for may have changed.
  template <typename Send, typename IsDone>
  void OnceOnly(Write write, std::int64_t number, const std::vector<Value>& row, Send send, IsDone is_done) {
    Link& link = file_->Reach();
    try {
      send(link);
    } catch (const RuntimeError& error) {
      file_->server().Changed();
      if (file_->InTransaction() || error.number() != kDiskOrNetwork || !link.AnswerWasLost()) throw;
      doubt_ = {write, number, row};
      bool done = false;
      try {
        done = is_done();
      } catch (const RuntimeError& second) {
        throw RuntimeError(kOutcomeUnknown, {}, second.detail());
      }
      if (!done) throw;
    }
    doubt_.reset();
    file_->server().Changed();
  }

  std::int64_t NewNumber();
  bool FindByPrimaryKey(const std::vector<Value>& row);
  bool WasInserted(const std::vector<Value>& row, std::int64_t number);
  bool TryReplace(const std::vector<Value>& row, std::int64_t number);

  std::shared_ptr<OpenFile> file_;
  const Relation& relation_;
  std::vector<std::string> order_;  // of the index in use, or of writing
  int keys_ = 0;                    // of these, those that are sort keys
  Columns whole_;
  Columns versioned_;
  mutable std::unordered_map<int, std::string> texts_;

  mutable postgres::Row row_;
  std::string version_;  // of the row that Refresh read

  mutable std::vector<bool> asked_;  // in this walk, by column
  std::vector<bool> narrow_for_;     // what narrow_ was made for
  Columns narrow_;
  bool descending_ = false;
  mutable Ahead ahead_;
  Ahead coming_;
  Link* reading_ = nullptr;  // that the coming rows are asked of

  std::optional<Doubt> doubt_;
};

void Cursor::Insert(const std::vector<Value>& row) {
  file_->server().RequireWrites();
  if (file_->Defer(relation_, row)) return;
  const bool keyed = relation_.definition.Primary() != nullptr;
  const bool again = doubt_ && IsDoubted(Write::kInsert, doubt_->number, row);
  if (again && WasInserted(row, doubt_->number)) {
    doubt_.reset();
    return file_->server().Changed();
  }
  // A row without a key is known by its number, which is fetched first.
  const std::int64_t number = keyed ? 0 : again ? doubt_->number : NewNumber();
  OnceOnly(
      Write::kInsert, number, row,
      [&](Link& link) {
        const bool in_transaction = link.InTransaction();
        const std::string& text = Text(6, in_transaction ? 2 : 1, [&] { return InsertText(!keyed, in_transaction); });
        Parameters parameters = OfWholeRow(row);
        if (!keyed) parameters.Integer(number);
        if (link.Run(text, parameters).Affected() == 0) throw RuntimeError(kDuplicateKey);
      },
      [&] { return WasInserted(row, number); });
}

std::int64_t Cursor::NewNumber() {
  const std::string& text =
      Text(6, 0, [] { return "SELECT nextval(pg_get_serial_sequence($1, '" + std::string(kRowColumn) + "'))"; });
  return file_->Reach().Run(text, Parameters().Text(relation_.name)).Integer(0, 0);
}

bool Cursor::FindByPrimaryKey(const std::vector<Value>& row) {
  const IndexDef& primary = *relation_.definition.Primary();
  Parameters parameters = OfFile();
  std::string conditions;
  for (std::size_t i = 0; i < primary.columns.size(); ++i) {
    const auto column = static_cast<std::size_t>(primary.columns[i]);
    parameters.Bytes(SortKey(row[column], file_->server().order()));
    conditions += " AND " + relation_.keys[column] + " = $" + std::to_string(i + 2);
  }
  return Take(file_->Reach().Run(Select(whole_, false) + conditions, parameters), whole_);
}

// The row on which the cursor stands stays.
bool Cursor::WasInserted(const std::vector<Value>& row, std::int64_t number) {
  const postgres::Row current = row_;
  const bool found = number != 0 ? ReadRow(number) : FindByPrimaryKey(row);
  const bool same = found && Equals(row);
  row_ = current;
  return same;
}

void Cursor::Replace(const std::vector<Value>& row) {
  file_->server().RequireWrites();
  DropAhead();
  const std::int64_t number = row_.Number();
  const postgres::Row kept = row_;
  const bool again = IsDoubted(Write::kReplace, number, row);
  const auto replace = [&] {
    if (TryReplace(row, number)) return;
    // Another version with the same values, as a restored backup has, is no change.
    const std::string version = version_;
    const bool there = ReadVersion(number);
    if (there && again && Equals(row)) return;
    const bool same = there && SameAs(kept);
    row_ = kept;
    if (same && TryReplace(row, number)) return;
    version_ = version;
    throw RuntimeError(there ? kRowChanged : kRecordDeleted);
  };
  OnceOnly(
      Write::kReplace, number, row, [&](Link& link) { link.AsOne(replace); },
      [&] {
        const bool done = ReadRow(number) && Equals(row);
        if (!done) row_ = kept;
        return done;
      });
}

bool Cursor::TryReplace(const std::vector<Value>& row, std::int64_t number) {
  const std::string& text = Text(6, 3, [&] { return ReplaceText(); });
  return Take(file_->Reach().Run(text, OfWholeRow(row).Integer(number).Text(version_)), whole_);
}

bool Cursor::Erase() {
  file_->server().RequireWrites();
  DropAhead();
  const std::int64_t number = row_.Number();
  const postgres::Row kept = row_;
  bool erased = IsDoubted(Write::kErase, number, {});
  const auto erase = [&](Link& link) {
    const std::string& text = Text(6, 4, [&] { return "DELETE FROM " + FromFile() + OfRow(); });
    erased = link.Run(text, OfFile().Integer(number)).Affected() > 0 || erased;
  };
  OnceOnly(
      Write::kErase, number, {}, [&](Link& link) { link.AsOne([&] { erase(link); }); },
      [&] {
        erased = !ReadRow(number);
        row_ = kept;
        return erased;
      });
  return erased;
}

}  // namespace

std::unique_ptr<TableCursor> MakeTableCursor(std::shared_ptr<OpenFile> file, const Relation& relation) {
  return std::make_unique<Cursor>(std::move(file), relation);
}

}  // namespace zendara::postgres
