// The rows of an open pick list, for every front end: read from the query as they come to sight, laid out into the text
// that the list returns, searched as the user types.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/neighbours.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Rows and columns count from 0. Errors of the store go to the caller, from any operation that reads.
class RowList {
 public:
  // The arguments of PickList::ConsultaLista. Error 5 for a code that is none, or places that do not follow each other,
  // one a column; 3265 for a column that the query does not have.
  RowList(Engine& engine, const std::string& base, const std::string& sql, const std::vector<std::string>& columns,
          const std::vector<RowPlace>& places);
  // Fixed rows: one column, each line as it is.
  explicit RowList(std::vector<std::string> lines);

  std::size_t Columns() const { return columns_.size(); }
  // The third digit of the code: 0 text, 1 code, 2 date.
  int Kind(std::size_t column) const { return columns_[column].kind; }

  // True if there is such a row; reads up to it.
  bool Reach(std::size_t row);
  // Rows reached so far, and whether there are no more.
  std::size_t Reached() const { return rs_ ? reached_.size() : lines_.size(); }
  bool Complete() const { return complete_; }
  // Reads all rows.
  std::size_t Total();

  // Text of a column in full, for showing. REQUIRES: the row was reached.
  std::string Cell(std::size_t row, std::size_t column) const;
  // The row as the list returns it. REQUIRES: the row was reached.
  std::string Row(std::size_t row) const;

  // The first row from `from` on whose column starts with `text`, without regard to case and accents. Reads no
  // further than that row.
  std::optional<std::size_t> Find(std::size_t column, std::string_view text, std::size_t from);

 private:
  struct Column {
    int kind = 0;
    int ordinal = 0;  // in the query
    RowPlace place;
  };

  Value Stored(std::size_t row, std::size_t column) const;

  std::shared_ptr<Recordset> rs_;  // none for fixed rows
  std::vector<Column> columns_;
  std::vector<Bookmark> reached_;  // of the rows reached
  std::vector<std::string> lines_;
  bool complete_ = false;
};

}  // namespace zendara
