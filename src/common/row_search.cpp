#include "common/row_search.hpp"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <span>
#include <utility>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/plain_text.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr int kCodeKind = 1;
constexpr int kDateKind = 2;
constexpr char kColumnEnd = RowList::kTextEnd;  // comes before every letter
constexpr std::size_t kFew = 8;                 // the part of all rows

// The bytes of a text as it is searched: small letters, no accents, ñ a letter of its own. Such texts stand in the
// order of their bytes: what begins ñ, and every letter that is left with a mark, comes after n.
constexpr std::array<char, 256> kSearched = [] {
  constexpr int kMarked = 0xC3;
  std::array<char, 256> bytes{};
  for (int c = 0; c < 256; ++c) {
    const int byte = c < 0x80 ? FoldCase(static_cast<char>(c)) : c;
    const int rank = byte == kMarked ? 'n' + 1 : byte > 'n' && byte < kMarked ? byte + 1 : byte;
    bytes[static_cast<std::size_t>(c)] = static_cast<char>(rank);
  }
  return bytes;
}();

// Texts stand in the order of these numbers, as far as they differ.
std::array<std::uint64_t, 2> FirstLetters(std::string_view text) {
  std::array<std::uint64_t, 2> numbers{};
  for (std::size_t i = 0; i < sizeof numbers; ++i) {
    std::uint64_t& number = numbers[i / sizeof number];
    number = number << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
  }
  return numbers;
}

bool IsNumber(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); }

std::string_view WithoutZeros(std::string_view number) {
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  return number;
}

void AddSearched(std::string_view text, std::string& searched) {
  const std::size_t from = searched.size();
  AddUnmarked(text, searched);
  for (char& c : std::span(searched).subspan(from)) c = kSearched[static_cast<unsigned char>(c)];
}

std::string Searched(std::string_view text) {
  std::string searched;
  AddSearched(text, searched);
  return searched;
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
  for (std::size_t row = from; row < std::min(from + rows, rows_.Reached()); ++row) {
    TakeIn(row);
    if (HoldsTheWords(static_cast<Row>(row))) waiting_.push_back(static_cast<Row>(row));
  }
}

void RowSearch::ShowRead() {
  if (Looking()) {
    Insert(shown_, std::move(waiting_));
  } else {
    Arrange();
    shown_ = all_;
  }
  waiting_.clear();
}

void RowSearch::TakeIn(std::size_t row) {
  AddSearched(rows_.Line(row), texts_.Begin());
  if (sorted_turn_) keys_.push_back(KeyOf(static_cast<Row>(row)));
  if (present_texts_ == rows_.View().present.size()) return;
  const std::size_t texts = rows_.PresentIn(row);
  if (texts <= present_texts_) return;
  present_texts_ = texts;
  present_ = row;
}

std::uint32_t RowSearch::StartOf(Row row, std::size_t turn) const {
  std::size_t start = 0;
  for (; turn > 0; --turn) start = texts_[row].find(kColumnEnd, start) + 1;
  return static_cast<std::uint32_t>(start);
}

// Searching.

void RowSearch::Look(std::string_view typed) {
  words_.clear();
  const std::string searched = Searched(typed);
  for (std::string_view rest = searched; !rest.empty();) {
    const std::string_view word = rest.substr(0, rest.find(' '));
    if (!word.empty()) words_.emplace_back(word);
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
  }
  Filter();
}

// The texts are looked through as they lie in memory. Few hits are put into order by themselves; for many it is worth
// while to do so with all rows.
void RowSearch::Filter() {
  shown_.clear();
  waiting_.clear();
  for (Row row = 0; row < Read(); ++row) {
    if (HoldsTheWords(row)) waiting_.push_back(row);
  }
  if (waiting_.size() < Read() / kFew) return ShowRead();
  Arrange();
  std::vector<bool> is_hit(Read());
  for (const Row row : waiting_) is_hit[row] = true;
  waiting_.clear();
  std::ranges::copy_if(all_, std::back_inserter(shown_), [&](Row row) { return is_hit[row]; });
}

bool RowSearch::HoldsTheWords(Row row) const {
  const std::string_view text = texts_[row];
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
      const std::string_view text = texts_[row].substr(StartOf(row, turn));
      return WithoutZeros(text.substr(0, text.find(kColumnEnd))) == wanted;
    };
    const auto found = std::ranges::find_if(shown_, is_it);
    if (found != shown_.end()) return static_cast<std::size_t>(found - shown_.begin());
  }
  return 0;
}

std::vector<TextRange> RowSearch::Hits(std::string_view text) const {
  std::string unmarked;
  AddUnmarked(text, unmarked);
  const std::string searched = Searched(text);
  std::string is_hit(searched.size(), '\0');
  for (const std::string& word : words_) {
    for (std::size_t at = searched.find(word); at != std::string::npos; at = searched.find(word, at + 1)) {
      std::fill_n(is_hit.begin() + static_cast<std::ptrdiff_t>(at), word.size(), '\1');
    }
  }
  std::vector<TextRange> hits;
  for (std::size_t at = is_hit.find('\1'); at != std::string::npos;) {
    const std::size_t end = std::min(is_hit.find('\0', at), is_hit.size());
    const std::string_view all = unmarked;
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
    all_ = Sorted(all_);
  }
  Filter();
}

// Rows that stay on top have no text to compare. Dates are counted, an empty one comes first.
RowSearch::Key RowSearch::KeyOf(Row row) const {
  if (row < foremost_) return {{}, static_cast<std::uint32_t>(texts_[row].size()), row};
  const std::uint32_t start = StartOf(row, *sorted_turn_);
  const std::string_view text = texts_[row].substr(start);
  if (rows_.Kind(rows_.Reading()[*sorted_turn_]) != kDateKind) return {FirstLetters(text), start, row};
  const auto date = ReadDateStrict(text.substr(0, text.find(kColumnEnd)), rows_.View().years);
  const auto day = date ? static_cast<std::uint64_t>(std::max(date->serial, 0.0)) + 1 : 0;
  return {{day}, start, row};
}

bool RowSearch::Before(const Key& a, const Key& b) const {
  if (a.numbers != b.numbers) return (a.numbers < b.numbers) != descending_;
  const int order = texts_[a.row].substr(a.start).compare(texts_[b.row].substr(b.start));
  return order == 0 ? a.row < b.row : (order < 0) != descending_;
}

// The keys lie side by side while they are compared, since there are many.
std::vector<RowSearch::Row> RowSearch::Sorted(const std::vector<Row>& rows) const {
  std::vector<Key> keys;
  keys.reserve(rows.size());
  for (const Row row : rows) keys.push_back(keys_[row]);
  std::ranges::sort(keys, [this](const Key& a, const Key& b) { return Before(a, b); });
  std::vector<Row> sorted;
  sorted.reserve(rows.size());
  for (const Key& key : keys) sorted.push_back(key.row);
  return sorted;
}

void RowSearch::Arrange() {
  std::vector<Row> rows(Read() - all_.size());
  std::iota(rows.begin(), rows.end(), static_cast<Row>(all_.size()));
  Insert(all_, std::move(rows));
}

// The fewer are put among the more.
void RowSearch::Insert(std::vector<Row>& ordered, std::vector<Row> rows) const {
  if (!sorted_turn_) {
    ordered.insert(ordered.end(), rows.begin(), rows.end());
    return;
  }
  const auto before = [this](Row a, Row b) { return Before(keys_[a], keys_[b]); };
  rows = Sorted(rows);
  if (rows.size() > ordered.size()) std::swap(rows, ordered);
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
