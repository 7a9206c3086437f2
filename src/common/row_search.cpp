#include "common/row_search.hpp"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/plain_text.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kCodeKind = 1;
constexpr int kDateKind = 2;
constexpr char kColumnEnd = '\0';  // comes before every letter

// In the order of letters ñ comes after n; its first byte is that of every letter that is left with a mark.
unsigned RankOf(char c) {
  constexpr unsigned kMarked = 0xC3;
  const auto byte = static_cast<unsigned char>(c);
  if (byte == kMarked) return 'n' + 1;
  return byte > 'n' && byte < kMarked ? byte + 1 : byte;
}

bool IsLess(std::string_view a, std::string_view b) {
  const auto [of_a, of_b] = std::ranges::mismatch(a, b);
  return of_b != b.end() && (of_a == a.end() || RankOf(*of_a) < RankOf(*of_b));
}

// Texts stand in the order of these numbers, as far as they differ.
std::uint64_t FirstLetters(std::string_view text) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i) number = number << 8 | (i < text.size() ? RankOf(text[i]) : 0);
  return number;
}

bool IsNumber(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); }

std::string_view WithoutZeros(std::string_view number) {
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

// What is stored there and is no value of the column is an error for who comes to see it.
std::string CellOf(const RowList& rows, std::size_t row, std::size_t column) try {
  return rows.Cell(row, column);
} catch (const RuntimeError& error) {
  if (error.number() != kDataConversion) throw;
  return {};
}

}  // namespace

RowSearch::RowSearch(RowList& rows) : rows_(rows), foremost_(rows.View().foremost) {
  if (const auto column = rows.View().sorted_by) {
    const auto turn = std::ranges::find(rows.Reading(), *column);
    sorted_turn_ = static_cast<std::size_t>(turn - rows.Reading().begin());
  }
}

// Reading.

void RowSearch::ReadOn(std::size_t rows) {
  const std::size_t from = Read();
  rows_.Reach(from + rows - 1);
  std::vector<Row> taken;
  for (std::size_t row = from; row < std::min(from + rows, rows_.Reached()); ++row) {
    TakeIn(row);
    taken.push_back(static_cast<Row>(row));
  }
  Insert(all_, taken);
  if (!Looking()) {
    shown_ = all_;
    return;
  }
  std::erase_if(taken, [this](Row row) { return !HoldsTheWords(row); });
  Insert(shown_, std::move(taken));
}

void RowSearch::TakeIn(std::size_t row) {
  std::string plain;
  for (const std::size_t column : rows_.Reading()) (plain += PlainText(CellOf(rows_, row, column))) += kColumnEnd;
  starts_.push_back(static_cast<std::uint32_t>(text_.size()));
  text_ += plain;
  if (sorted_turn_) keys_.push_back(KeyOf(static_cast<Row>(row)));
  if (present_texts_ == rows_.View().present.size()) return;
  const std::size_t texts = rows_.PresentIn(row);
  if (texts <= present_texts_) return;
  present_texts_ = texts;
  present_ = row;
}

std::uint32_t RowSearch::EndOf(Row row) const {
  return row + 1 < starts_.size() ? starts_[row + 1] : static_cast<std::uint32_t>(text_.size());
}

std::string_view RowSearch::TextFrom(std::uint32_t start, Row row) const {
  return std::string_view(text_).substr(start, EndOf(row) - start);
}

std::uint32_t RowSearch::StartOf(Row row, std::size_t turn) const {
  std::size_t start = starts_[row];
  for (; turn > 0; --turn) start = text_.find(kColumnEnd, start) + 1;
  return static_cast<std::uint32_t>(start);
}

// Searching.

void RowSearch::Look(std::string_view typed) {
  words_.clear();
  const std::string plain = PlainText(typed);
  for (std::string_view rest = plain; !rest.empty();) {
    const std::string_view word = rest.substr(0, rest.find(' '));
    if (!word.empty()) words_.emplace_back(word);
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
  }
  Filter();
}

// The texts are looked through as they lie in memory.
void RowSearch::Filter() {
  std::vector<bool> holds(Read());
  for (Row row = 0; row < holds.size(); ++row) holds[row] = HoldsTheWords(row);
  shown_.clear();
  std::ranges::copy_if(all_, std::back_inserter(shown_), [&](Row row) { return holds[row]; });
}

bool RowSearch::HoldsTheWords(Row row) const {
  const std::string_view text = TextFrom(starts_[row], row);
  return std::ranges::all_of(words_, [&](const std::string& word) { return text.find(word) != std::string::npos; });
}

std::optional<std::size_t> RowSearch::PlaceOf(std::size_t row) const {
  const auto found = std::ranges::find(shown_, static_cast<Row>(row));
  if (found == shown_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - shown_.begin());
}

std::size_t RowSearch::Best() const {
  if (words_.size() != 1 || !IsNumber(words_.front())) return 0;
  const std::string_view wanted = WithoutZeros(words_.front());
  const std::vector<std::size_t>& reading = rows_.Reading();
  for (std::size_t turn = 0; turn < reading.size(); ++turn) {
    if (rows_.Kind(reading[turn]) != kCodeKind) continue;
    const auto is_it = [&](Row row) {
      const std::string_view text = std::string_view(text_).substr(StartOf(row, turn));
      return WithoutZeros(text.substr(0, text.find(kColumnEnd))) == wanted;
    };
    const auto found = std::ranges::find_if(shown_, is_it);
    if (found != shown_.end()) return static_cast<std::size_t>(found - shown_.begin());
  }
  return 0;
}

std::vector<TextRange> RowSearch::Hits(std::string_view text) const {
  const std::string plain = PlainText(text);
  std::string is_hit(plain.size(), '\0');
  for (const std::string& word : words_) {
    for (std::size_t at = plain.find(word); at != std::string::npos; at = plain.find(word, at + 1)) {
      std::fill_n(is_hit.begin() + static_cast<std::ptrdiff_t>(at), word.size(), '\1');
    }
  }
  std::vector<TextRange> hits;
  for (std::size_t at = is_hit.find('\1'); at != std::string::npos;) {
    const std::size_t end = std::min(is_hit.find('\0', at), is_hit.size());
    const std::string_view all = plain;
    hits.push_back({static_cast<int>(Len(all.substr(0, at))), static_cast<int>(Len(all.substr(at, end - at)))});
    at = is_hit.find('\1', end);
  }
  return hits;
}

// Order.

void RowSearch::Sort(std::optional<std::size_t> column, bool descending) {
  constexpr std::size_t kSlice = 4096;
  while (!Complete()) ReadOn(kSlice);
  foremost_ = 0;
  sorted_turn_.reset();
  descending_ = descending;
  keys_.clear();
  all_.resize(Read());
  std::iota(all_.begin(), all_.end(), Row{0});
  if (column) {
    const auto turn = std::ranges::find(rows_.Reading(), *column);
    sorted_turn_ = static_cast<std::size_t>(turn - rows_.Reading().begin());
    for (const Row row : all_) keys_.push_back(KeyOf(row));
    std::ranges::sort(all_, [this](Row a, Row b) { return Before(a, b); });
  }
  Filter();
}

// Rows that stay on top have no text to compare. Dates are counted, an empty one comes first.
RowSearch::Key RowSearch::KeyOf(Row row) const {
  if (row < foremost_) return {0, EndOf(row)};
  const std::size_t column = rows_.Reading()[*sorted_turn_];
  const std::uint32_t start = StartOf(row, *sorted_turn_);
  if (rows_.Kind(column) != kDateKind) return {FirstLetters(TextFrom(start, row)), start};
  const auto date = ReadDateStrict(CellOf(rows_, row, column), rows_.View().years);
  return {date ? static_cast<std::uint64_t>(std::max(date->serial, 0.0)) + 1 : 0, start};
}

bool RowSearch::Before(Row a, Row b) const {
  const Key& of_a = keys_[a];
  const Key& of_b = keys_[b];
  if (of_a.number != of_b.number) return (of_a.number < of_b.number) != descending_;
  const std::string_view text_a = TextFrom(of_a.start, a);
  const std::string_view text_b = TextFrom(of_b.start, b);
  if (text_a == text_b) return a < b;
  return IsLess(text_a, text_b) != descending_;
}

// They are few among many.
void RowSearch::Insert(std::vector<Row>& ordered, std::vector<Row> rows) const {
  if (!sorted_turn_) {
    ordered.insert(ordered.end(), rows.begin(), rows.end());
    return;
  }
  const auto before = [this](Row a, Row b) { return Before(a, b); };
  std::ranges::sort(rows, before);
  std::vector<Row> merged;
  merged.reserve(ordered.size() + rows.size());
  auto rest = ordered.begin();
  for (const Row row : rows) {
    const auto place = std::upper_bound(rest, ordered.end(), row, before);
    merged.insert(merged.end(), rest, place);
    merged.push_back(row);
    rest = place;
  }
  merged.insert(merged.end(), rest, ordered.end());
  ordered = std::move(merged);
}

}  // namespace zendara
