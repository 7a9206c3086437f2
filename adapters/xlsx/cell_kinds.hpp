// What the texts of a listing are in a spreadsheet: a number or a date only where no sign of the text is lost by it but
// blanks around it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "print/listing.hpp"
#include "zendara/value.hpp"

namespace zendara {

struct PlainNumber {
  double value = 0;
  int decimals = 0;

  friend bool operator==(const PlainNumber&, const PlainNumber&) = default;
};

// Digits with a decimal comma or without, a minus before them: 15 digits at most, no zero that leads, nothing else.
std::optional<PlainNumber> ReadPlainNumber(std::string_view cell);

struct PlainDate {
  double serial = 0;  // days since 30/12/1899
  bool full_year = false;

  friend bool operator==(const PlainDate&, const PlainDate&) = default;
};

// dd/mm/yy or dd/mm/yyyy, from 01/03/1900 on, where all spreadsheets count the days alike.
std::optional<PlainDate> ReadPlainDate(std::string_view cell, YearWindow years);

enum class CellKind { kText, kNumber, kDate };

// Takes in all cells of a column. It has dates when all that are not empty are dates, and numbers when it is one of
// numbers and none is a code, digits with a zero that leads.
class ColumnKind {
 public:
  ColumnKind(print::CellSide side, YearWindow years) : years_(years), numbers_(side == print::CellSide::kNumber) {}

  void TakeIn(std::string_view text);
  CellKind Kind() const;
  // Characters of the widest cell.
  std::size_t Width() const { return width_; }

 private:
  YearWindow years_;
  bool numbers_;
  bool dates_ = true;
  bool filled_ = false;
  std::size_t width_ = 0;
};

}  // namespace zendara
