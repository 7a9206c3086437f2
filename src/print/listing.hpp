// A listing as what it is made of: its columns and its rows. Preview, printer, files and scripts all begin here.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/neighbours.hpp"
#include "zendara/record_engine.hpp"

namespace zendara::print {

enum class CellSide { kText = 0, kNumber = 1, kCentred = 2 };  // kNumber stands on the right

struct ListingColumn {
  std::string title;
  CellSide side = CellSide::kText;
  int width = 0;  // twips

  friend bool operator==(const ListingColumn&, const ListingColumn&) = default;
};

struct Listing {
  std::string title;
  std::vector<ListingColumn> columns;
  bool pending = false;  // of pending incidents

  friend bool operator==(const Listing&, const Listing&) = default;
};

// Error 13 for an element of another kind, a number that is none and a side that is not known, 9 when there are too few
// elements or no column.
Listing ReadDescription(const ListingDescription& elements);

// What every page and file of it says besides: whose it is and of when.
struct ListingHead {
  std::string company;  // code
  std::string name;
  std::string date;  // of the session, dd/mm/yyyy
};

// The staged rows in the order in which they were written, each read once.
class ListingRows {
 public:
  virtual ~ListingRows() = default;
  // Puts the texts of the next row there, one a column; false behind the last row. A column that the staging left Null
  // or empty is an empty text, a date dd/mm/yy. Errors of the store go to the caller.
  virtual bool Next(std::vector<std::string>& cells) = 0;
};

// The first columns of a table of a database, as many as the listing has. What others write while it is read does not
// come in. Errors of opening go to the caller, 3265 for a table with fewer columns.
std::unique_ptr<ListingRows> StagedRows(Engine& engine, const std::string& file, const std::string& table,
                                        std::size_t columns, YearWindow years);

// A cell as it is shown: on one line, control characters as blanks, none around it.
std::string CellText(std::string_view cell);
// The same, copied to `kept` only where that is needed.
std::string_view CellView(std::string_view cell, std::string& kept);
// "1.234 líneas".
std::string LinesText(std::size_t rows);

}  // namespace zendara::print
