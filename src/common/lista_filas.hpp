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
class ListaFilas {
 public:
  // The arguments of PickList::ConsultaLista. Error 5 for a code that is none, or places that do not follow each other,
  // one a column; 3265 for a column that the query does not have.
  ListaFilas(Engine& motor, const std::string& base, const std::string& sql, const std::vector<std::string>& columnas,
             const std::vector<RowPlace>& lugares);
  // Fixed rows: one column, each line as it is.
  explicit ListaFilas(std::vector<std::string> lineas);

  std::size_t Columns() const { return columnas_.size(); }
  // The third digit of the code: 0 text, 1 code, 2 date.
  int Kind(std::size_t columna) const { return columnas_[columna].clase; }

  // True if there is such a row; reads up to it.
  bool Reach(std::size_t fila);
  // Rows reached so far, and whether there are no more.
  std::size_t Reached() const { return rs_ ? leidas_.size() : lineas_.size(); }
  bool Complete() const { return completa_; }
  // Reads all rows.
  std::size_t Total();

  // Text of a column in full, for showing. REQUIRES: the row was reached.
  std::string Cell(std::size_t fila, std::size_t columna) const;
  // The row as the list returns it. REQUIRES: the row was reached.
  std::string Row(std::size_t fila) const;

  // The first row from `desde` on whose column starts with `texto`, without regard to case and accents. Reads no
  // further than that row.
  std::optional<std::size_t> Find(std::size_t columna, std::string_view texto, std::size_t desde);

 private:
  struct Columna {
    int clase = 0;
    int ordinal = 0;  // in the query
    RowPlace lugar;
  };

  Value Celda(std::size_t fila, std::size_t columna) const;

  std::shared_ptr<Recordset> rs_;  // none for fixed rows
  std::vector<Columna> columnas_;
  std::vector<Bookmark> leidas_;  // of the rows reached
  std::vector<std::string> lineas_;
  bool completa_ = false;
};

}  // namespace zendara
