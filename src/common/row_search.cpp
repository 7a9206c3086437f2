#include "common/row_search.hpp"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kCodeKind = 1;
constexpr int kDateKind = 2;
constexpr char kColumnEnd = '\n';

// The characters U+00E0 to U+00FF without their marks; a dot stands for those that stay.
constexpr std::string_view kUnmarked = "aaaaaa.ceeeeiiii..ooooo..uuuuy.y";
constexpr int kFirstMarked = 0xE0;

// In the order of letters ñ comes after n; its first byte is that of every letter that is left with a mark.
int RankOf(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte == 0xC3 ? 2 * 'n' + 1 : 2 * byte;
}

int Compare(std::string_view a, std::string_view b) {
  const auto [in_a, in_b] = std::ranges::mismatch(a, b);
  if (in_a == a.end() || in_b == b.end()) return (in_a != a.end()) - (in_b != b.end());
  return RankOf(*in_a) - RankOf(*in_b);
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

std::string PlainText(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  while (!text.empty()) {
    if (static_cast<unsigned char>(text.front()) < 0x80) {
      plain += FoldCase(text.front());
      text.remove_prefix(1);
      continue;
    }
    const std::string small = LCase(TakeCharacter(text));
    const int marked = CodePoint(small) - kFirstMarked;
    const bool known = marked >= 0 && marked < static_cast<int>(kUnmarked.size());
    const char letter = known ? kUnmarked[static_cast<std::size_t>(marked)] : '.';
    letter == '.' ? plain += small : plain += letter;
  }
  return plain;
}

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
  std::erase_if(taken, [this](Row row) { return !HoldsTheWords(row); });
  Insert(shown_, taken);
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

std::string_view RowSearch::TextOf(Row row) const {
  return std::string_view(text_).substr(starts_[row], EndOf(row) - starts_[row]);
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
  shown_.clear();
  std::ranges::copy_if(all_, std::back_inserter(shown_), [this](Row row) { return HoldsTheWords(row); });
}

bool RowSearch::HoldsTheWords(Row row) const {
  const std::string_view text = TextOf(row);
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
  shown_.clear();
  std::ranges::copy_if(all_, std::back_inserter(shown_), [this](Row row) { return HoldsTheWords(row); });
}

// Rows that stay on top have no text to compare. Dates are counted, an empty one comes first.
RowSearch::Key RowSearch::KeyOf(Row row) const {
  if (row < foremost_) return {0, EndOf(row)};
  const std::size_t column = rows_.Reading()[*sorted_turn_];
  std::uint32_t number = 1;
  if (rows_.Kind(column) == kDateKind) {
    const auto date = ReadDateStrict(CellOf(rows_, row, column), rows_.View().years);
    if (date) number = static_cast<std::uint32_t>(std::max(date->serial, 0.0)) + 2;
  }
  return {number, StartOf(row, *sorted_turn_)};
}

bool RowSearch::Before(Row a, Row b) const {
  const Key& of_a = keys_[a];
  const Key& of_b = keys_[b];
  int order = of_a.number < of_b.number ? -1 : of_a.number > of_b.number ? 1 : 0;
  if (order == 0) {
    const std::string_view text = text_;
    order = Compare(text.substr(of_a.start, EndOf(a) - of_a.start), text.substr(of_b.start, EndOf(b) - of_b.start));
  }
  if (order == 0) return a < b;
  return (order < 0) != descending_;
}

void RowSearch::Insert(std::vector<Row>& ordered, const std::vector<Row>& rows) const {
  const auto middle = static_cast<std::ptrdiff_t>(ordered.size());
  ordered.insert(ordered.end(), rows.begin(), rows.end());
  if (!sorted_turn_) return;
  const auto before = [this](Row a, Row b) { return Before(a, b); };
  std::sort(ordered.begin() + middle, ordered.end(), before);
  std::inplace_merge(ordered.begin(), ordered.begin() + middle, ordered.end(), before);
}

}  // namespace zendara
