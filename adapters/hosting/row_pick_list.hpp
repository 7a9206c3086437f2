// A pick list over rows: what is left to a front end is the choice among them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "common/lista_filas.hpp"
#include "zendara/neighbours.hpp"

namespace zendara {

class RowPickList : public PickList {
 public:
  void ConsultaLista(const std::vector<std::string>& columnas, const std::string& sql,
                     const std::vector<RowPlace>& lugares, Engine& motor, const std::string& base,
                     const std::string& titulo, std::int16_t /*marca_boton*/, std::string& resultado) final {
    ListaFilas rows(motor, base, sql, columnas, lugares);
    Take(titulo, rows, resultado);
  }

  void ConsultaFija(const std::vector<std::string>& lineas, const std::string& titulo, std::int16_t /*marca_boton*/,
                    std::string& resultado) final {
    ListaFilas rows(lineas);
    Take(titulo, rows, resultado);
  }

 private:
  // The row that is taken, nothing to leave without.
  virtual std::optional<std::size_t> Choose(const std::string& title, ListaFilas& rows) = 0;

  void Take(const std::string& title, ListaFilas& rows, std::string& result) {
    const auto row = Choose(title, rows);
    result = row ? rows.Row(*row) : std::string();
  }
};

}  // namespace zendara
