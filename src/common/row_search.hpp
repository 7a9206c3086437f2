// What the window of a pick list shows of its rows: those that hold every word that was typed, in the order asked for.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/row_list.hpp"
#include "common/text_block.hpp"

namespace zendara {

// Characters of a text, from 0.
struct TextRange {
  int start = 0;
  int length = 0;

  friend bool operator==(const TextRange&, const TextRange&) = default;
};

// Rows count as in the list, places as they are shown, both from 0. Each row is kept once as it is searched, all of
// them in one block; only what is shown is put into order. Errors of the store go to the caller, from the operations
// that read.
class RowSearch {
 public:
  // In the order of the view that the list was given. `rows` outlives it.
  explicit RowSearch(RowList& rows);

  // Takes in that many more rows at most. What belongs there of them waits to be shown.
  void ReadOn(std::size_t rows);
  std::size_t Waiting() const { return waiting_.size(); }
  void ShowRead();
  std::size_t Read() const { return texts_.Size(); }
  bool Complete() const { return rows_.Complete() && Read() == rows_.Reached(); }

  // Shows the rows read that hold each word in some column, whatever case and accents; all for the empty text.
  void Look(std::string_view typed);
  bool Looking() const { return !words_.empty(); }
  // In the order of that column and those that are read after it, or as they stand in the list; rows that are alike
  // stay as they stand there. Takes in all rows.
  void Sort(std::optional<std::size_t> column, bool descending);

  std::size_t Shown() const { return shown_.size(); }
  std::size_t RowAt(std::size_t place) const { return shown_[place]; }
  std::optional<std::size_t> PlaceOf(std::size_t row) const;

  // The row that has what the fields hold which the list fills; nothing while it was not read.
  std::optional<std::size_t> Present() const { return present_; }
  // Whether a row that is read later may be more like it.
  bool PresentMayCome() const { return !Complete() && present_texts_ < rows_.View().present.size(); }
  // The place of the row whose code is the number that was typed, or else the first one. REQUIRES: a row is shown.
  std::size_t Best() const;

  // What of a text the words are, in order and apart.
  std::vector<TextRange> Hits(std::string_view text) const;

 private:
  using Row = std::uint32_t;
  // Where a row stands in the order of a column: by numbers, of a date or of the first letters, then by its text from
  // there on.
  struct Key {
    std::array<std::uint64_t, 2> numbers{};
    std::uint32_t start = 0;
    Row row = 0;
  };

  void TakeIn(std::size_t row);
  // Of a column in the row, by its turn in reading.
  std::uint32_t StartOf(Row row, std::size_t turn) const;
  Key KeyOf(Row row) const;
  bool Before(const Key& a, const Key& b) const;
  std::vector<Row> Sorted(const std::vector<Row>& rows) const;
  bool HoldsTheWords(Row row) const;
  // Puts those that were read since to their places.
  void Arrange();
  // Puts rows to their places; in the list they follow those that are there.
  void Insert(std::vector<Row>& ordered, std::vector<Row> rows) const;
  void Filter();

  RowList& rows_;
  TextBlock texts_;  // of each row, a zero behind each column, in the order of reading
  std::vector<std::string> words_;
  std::vector<Row> all_;      // in the order asked for, but for those that were read since
  std::vector<Row> shown_;    // those that hold the words
  std::vector<Row> waiting_;  // the same, as they were read

  std::optional<std::size_t> sorted_turn_;  // of the column, in reading
  bool descending_ = false;
  std::size_t foremost_ = 0;
  std::vector<Key> keys_;  // of each row, while sorted

  std::optional<std::size_t> present_;
  std::size_t present_texts_ = 0;  // that it has
};

}  // namespace zendara
