// A worker's incidents of both tables in the working year, as a drawing and in words.
//
// Days count whole, both ends included. An incident without an end is open and lasts from its start on, beyond the year
// too. Two rows collide on the days that both have.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "incidents/tabla_incidencias.hpp"
#include "zendara/forms/drawing.hpp"
#include "zendara/value.hpp"

namespace zendara {

// A row as it is stored. One without a start, with an end before its start, with a date that is none or of an unknown
// type is never drawn and collides with nothing: the words name it.
struct IncidenciaVista {
  TablaIncidencias tabla = TablaIncidencias::kIT;
  std::string tipo;  // code
  std::optional<Date> inicio;
  std::optional<Date> fin;  // none: open
  bool ilegible = false;    // what is stored in one of the dates is no date
};

// The interval in the fields of the screen. The row of its own table that begins on the same day is the one that it
// would be saved on, and so no collision.
struct IntervaloTecleado {
  TablaIncidencias tabla = TablaIncidencias::kIT;
  Date inicio;
  std::optional<Date> fin;  // none: open

  friend bool operator==(const IntervaloTecleado&, const IntervaloTecleado&) = default;
};

struct Calendario {
  int ano = 0;  // four digits
  Date hoy;
  std::vector<IncidenciaVista> filas;
  std::optional<IntervaloTecleado> tecleado;  // nothing comes of one that ends before it begins
  std::string aviso;                          // one sentence in the place of rows: why there are none
};

// Whether it can be drawn, whatever its year.
bool EsDibujable(const IncidenciaVista& fila);
// The rows that the typed interval collides with, by start; those of other years too.
std::vector<const IncidenciaVista*> Coincidencias(const Calendario& calendario);

// A row a month, a cell a day, in it the table IT above and ESP below; incidents by colour, letter and pattern, days
// with two rows, today, and the typed interval as a frame that warns where it meets a row. Fills the surface: a
// small one has no legend, and nothing is painted where it is too small for days.
void PintaCalendario(const Screen& screen, DrawingSurface& superficie, const Calendario& calendario);

// The same for a screen reader, in sentences: the collisions of the typed interval first, then the rows by start, those
// of other years too.
std::string DescribeCalendario(const Calendario& calendario);

}  // namespace zendara
