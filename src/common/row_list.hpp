// The rows of an open pick list, for every front end: read as they are needed, laid out into the text that the list
// returns.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/text_block.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Rows and columns count from 0. Errors of the store go to the caller, from any operation that reads.
class RowList {
 public:
  static constexpr char kTextEnd = '\0';

  // The arguments of PickList::ConsultaLista. Error 5 for a code that is none, or places that do not follow each other,
  // one a column; 3265 for a column that the query does not have.
  RowList(Engine& engine, const std::string& base, const std::string& sql, const std::vector<std::string>& columns,
          const std::vector<RowPlace>& places);
  // The arguments of PickList::ConsultaFilas; `rows` outlives the list. Error 5 as above.
  RowList(PickRows& rows, const std::vector<std::string>& columns, const std::vector<RowPlace>& places);
  // Fixed rows: one column, each line as it is.
  explicit RowList(const std::vector<std::string>& lines);

  // What PickList::Presenta was given; headings and order are those of the row's columns until then.
  void Present(PickView view);
  const PickView& View() const { return view_; }
  // The columns in the order in which people read them.
  const std::vector<std::size_t>& Reading() const { return view_.reading; }

  std::size_t Columns() const { return columns_.size(); }
  // The third digit of the code: 0 text, 1 code, 2 date.
  int Kind(std::size_t column) const { return columns_[column].kind; }

  // True if there is such a row; reads up to it.
  bool Reach(std::size_t row);
  // Rows reached so far, and whether there are no more.
  std::size_t Reached() const { return rs_ ? reached_.size() : lines_.Size(); }
  bool Complete() const { return complete_; }
  // Reads all rows.
  std::size_t Total();

  // Text of a column in full, for showing. REQUIRES: the row was reached.
  std::string Cell(std::size_t row, std::size_t column) const;
  // The texts of all columns in the order of reading, a zero behind each; empty for what is stored and is no value of
  // the column, which is an error for who comes to see it. Good until the next call that reads. REQUIRES: the row was
  // reached.
  std::string_view Line(std::size_t row);
  // The row as the list returns it. REQUIRES: the row was reached.
  std::string Row(std::size_t row) const;
  // How many of the texts of PickView::present the row has, from the first on; zeros on the left do not count.
  // REQUIRES: it was reached.
  std::size_t PresentIn(std::size_t row) const;

 private:
  struct Column {
    int kind = 0;
    int ordinal = 0;  // in the query
  };

  void TakeColumns(const std::vector<std::string>& columns, const std::vector<RowPlace>& places);
  Value Stored(std::size_t row, std::size_t column) const;

  std::shared_ptr<Recordset> rs_;   // of a query
  PickRows* made_ = nullptr;        // rows that the caller makes
  std::vector<Column> columns_;     // in the row
  std::vector<RowPlace> places_;    // theirs; none of fixed rows
  std::vector<Bookmark> reached_;   // of the rows of the query
  TextBlock lines_;                 // the other rows; of those that are made the texts, each with its end
  std::vector<std::string> texts_;  // of the row that is being made
  std::string line_;                // the last one that was put together
  bool complete_ = false;
  PickView view_;
  bool reads_as_made_ = false;  // the columns are read in the order in which they are made
};

}  // namespace zendara
