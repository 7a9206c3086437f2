// A pick list over rows: what is left to a front end is the choice among them.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/row_list.hpp"
#include "zendara/neighbours.hpp"

namespace zendara {

// The row that is taken, nothing to leave without.
using ChooseRow = std::function<std::optional<std::size_t>(const std::string& title, RowList& rows)>;

class RowPickList : public PickList {
 public:
  explicit RowPickList(ChooseRow choose) : choose_(std::move(choose)) {}

  void ConsultaLista(const std::vector<std::string>& columnas, const std::string& sql,
                     const std::vector<RowPlace>& lugares, Engine& motor, const std::string& base,
                     const std::string& titulo, std::int16_t /*marca_boton*/, std::string& resultado) override {
    RowList rows(motor, base, sql, columnas, lugares);
    Take(titulo, rows, resultado);
  }

  void ConsultaFilas(const std::vector<std::string>& columnas, PickRows& filas, const std::vector<RowPlace>& lugares,
                     const std::string& titulo, std::int16_t /*marca_boton*/, std::string& resultado) override {
    RowList rows(filas, columnas, lugares);
    Take(titulo, rows, resultado);
  }

  void ConsultaFija(const std::vector<std::string>& lineas, const std::string& titulo, std::int16_t /*marca_boton*/,
                    std::string& resultado) override {
    RowList rows(lineas);
    Take(titulo, rows, resultado);
  }

  void Presenta(const PickView& vista) override { view_ = vista; }

 private:
  void Take(const std::string& title, RowList& rows, std::string& result) {
    rows.Present(view_);
    const auto row = choose_(title, rows);
    result = row ? rows.Row(*row) : std::string();
  }

  ChooseRow choose_;
  PickView view_;
};

inline Components::Factory<PickList> PickListOver(ChooseRow choose) {
  return [choose = std::move(choose)] { return std::make_unique<RowPickList>(choose); };
}

inline void RegisterPickList(Components& components, ChooseRow choose) {
  components.Register(kPickListClass, PickListOver(std::move(choose)));
}

}  // namespace zendara
