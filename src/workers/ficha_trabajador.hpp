// The fields of the worker screen as the record they show: values put into and taken out of the controls by index.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "frame/sesion.hpp"
#include "platform/form/form.hpp"
#include "workers/campos_trabajador.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// The arrays that share the index space; the screen owns them.
class FichaTrabajador {
 public:
  FichaTrabajador(const Sesion& sesion, ControlArray<TextBox>& text1, ControlArray<ComboBox>& combo1,
                  ControlArray<CheckBox>& check1, ControlArray<Grid>& grid1)
      : sesion_(sesion), Text1(text1), Combo1(combo1), Check1(check1), Grid1(grid1) {}

  // Adds the controls of the table, with labels and lengths, and the two grids.
  void CreaControles();

  // A column's value in its field or cell; Null is the empty text. A list keeps its entry when the value is blank, and
  // takes a value that is none of its codes as one more, so that saving does not lose it. Error 380 for a mark that is
  // not 0 to 2.
  void Pon(int indice, const Value& valor);
  // The other way: what the column takes of a field or cell. Texts of fields are trimmed, an empty date is Null, and one
  // that nobody changed is as it is stored, with its century.
  Value Valor(int indice) const;
  // What stands in a field or cell, to the letter.
  std::string Texto(int indice) const;

  // The row in the fields from the first index to the last; nothing changes when it cannot be read.
  void Muestra(Recordset& fila, int desde, int hasta);
  // Whether the field shows that text of a row and has not been emptied since.
  bool Mostro(int indice, std::string_view texto) const;
  // Stores the fields in the row that is being added or edited: all of them or, of a row that was shown, those whose
  // text is not the one that showing put there. Answers the fields in which the row had neither what was shown nor what
  // is stored now: somebody else has changed them too.
  std::vector<int> Guarda(Recordset& fila, int desde, int hasta, bool solo_cambiados);

  // Empties fields by index, which show no row then; cells are passed over.
  void LimpiarCampos(int desde, int hasta);
  // Both grids anew, with headers and row labels.
  void PreparaGrids();
  void LimpiarGrid();

  // The field of that index, of whatever kind; nullptr for a cell or no field.
  Control* Campo(int indice) const;
  // What two-digit years mean in that field.
  YearWindow Ventana(int indice) const;
  // A date as it is edited: its six digits.
  static std::string SeisDigitos(const std::string& fecha);

 private:
  // A column of the row that is shown.
  struct Mostrado {
    std::string texto;
    Value valor;
  };

  void PonEntrada(ComboBox& lista, const std::string& codigo);
  // As it stands there, but that a date which is being edited is the same as at rest.
  std::string TextoLlano(int indice) const;

  const Sesion& sesion_;
  ControlArray<TextBox>& Text1;
  ControlArray<ComboBox>& Combo1;
  ControlArray<CheckBox>& Check1;
  ControlArray<Grid>& Grid1;
  std::map<int, Mostrado> mostrado_;
};

}  // namespace zendara
