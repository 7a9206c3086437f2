// The record of a screen, which is its fields: values put into and taken out of controls by index, and rows of a table
// shown and stored.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/campos.hpp"
#include "frame/sesion.hpp"
#include "zendara/forms/control.hpp"

namespace zendara {

class Ficha {
 public:
  // `campos` in the order of their indexes. Nothing is owned.
  Ficha(const Sesion& sesion, std::span<const Campo> campos) : sesion_(sesion), campos_(campos) {}

  // A control takes its place as a field, with caption, length and alignment of the table; a list with its entries.
  void Anade(const Campo& campo, Control& control);
  // A cell of a grid is a field of plain text that the table does not have.
  void AnadeCelda(IndiceCampo indice, Grid& rejilla, int fila, int columna);

  // nullptr for a cell or no field.
  const Campo* CampoDe(IndiceCampo indice) const;
  Control* ControlDe(IndiceCampo indice) const;

  // A column's value in its field; Null is the empty text. A list keeps its entry when the value is blank, and takes a
  // value that is none of its codes as one more, so that saving does not lose it. Error 380 for a mark that is not 0
  // to 2.
  void Pon(IndiceCampo indice, const Value& valor);
  // The other way: what the column takes of a field. Texts are trimmed but those of cells, an empty date is Null, and
  // one that nobody changed is as it is stored, with its century.
  Value Valor(IndiceCampo indice) const;
  // What stands in a field, to the letter, and without the blanks around it.
  std::string Texto(IndiceCampo indice) const;
  std::string TextoRecortado(IndiceCampo indice) const;
  bool Vacio(IndiceCampo indice) const { return TextoRecortado(indice).empty(); }

  // The row in the fields; nothing changes when it cannot be read.
  void Muestra(Recordset& fila, const Tramo& tramo);
  // The screen has put the row into these fields by itself: what stands there is what it shows.
  void Anota(Recordset& fila, const Tramo& tramo);
  // Whether the field shows no row, or something else than what showing put there.
  bool Cambiado(IndiceCampo indice) const;
  // Whether `hay`, which is stored now, is neither what was shown nor what stands in the field.
  bool CambioAjeno(IndiceCampo indice, const Value& hay) const;
  // Whether the field shows that text of a row and has not been emptied since.
  bool Mostro(IndiceCampo indice, std::string_view texto) const;
  // Stores the fields in the row that is being added or edited: all of them or, of a row that was shown, those whose
  // text is not the one that showing put there. Answers the fields in which the row had neither what was shown nor what
  // is stored now: somebody else has changed them too.
  std::vector<int> Guarda(Recordset& fila, const Tramo& tramo, bool solo_cambiados);
  // The screen has stored by itself, in the row that is shown, what stands in the field.
  void Escrito(IndiceCampo indice);

  // Empties the fields from one index to another; cells are passed over.
  void Vacia(IndiceCampo desde, IndiceCampo hasta);
  // The same, and they show no row any more.
  void Limpia(IndiceCampo desde, IndiceCampo hasta);
  // Zeros on the left, up to the length of the field; an empty one stays.
  void RellenaCeros(IndiceCampo indice);
  // A date goes to the six digits in which it is edited; other fields stay.
  void Edita(IndiceCampo indice);
  // What two-digit years mean in that field.
  YearWindow Ventana(IndiceCampo indice) const;

 private:
  struct Celda {
    Grid* rejilla;
    int fila;
    int columna;
  };
  // A column of the row that is shown.
  struct Mostrado {
    std::string texto;
    Value valor;
  };

  // Of the fields and cells between them: what is put there now is not the user's.
  void Asienta(IndiceCampo desde, IndiceCampo hasta);
  TextBox& CajaDe(IndiceCampo indice) const;
  bool Tiene(IndiceCampo indice, unsigned regla) const;
  void PonEntrada(ComboBox& lista, int indice, const std::string& codigo);
  // As it stands there, but that a date which is being edited is the same as at rest.
  std::string TextoLlano(IndiceCampo indice) const;

  const Sesion& sesion_;
  std::span<const Campo> campos_;
  std::map<int, Control*> controles_;
  std::map<int, Celda> celdas_;
  std::map<int, std::vector<std::string>> codigos_;  // of the lists, without what showing has added
  std::map<int, Mostrado> mostrado_;
};

}  // namespace zendara
