// What stands between the check of a dated incident and its saving: four questions over both tables of incidents.
//
// They are asked as they stand, and see less than they seem to. The comparison with null is never true, so the first
// one finds nothing and an open incident stops no other. The join leaves out a worker who has rows in one of the tables
// only. An end that is Null is between nothing. The row that is saved anew is among those that it is compared with.
#pragma once

#include <string>
#include <string_view>

#include "incidents/tabla_incidencias.hpp"

namespace zendara {

// Each a query on the company's file; a row is a collision.
struct ConsultasSolape {
  std::string abierta;   // the worker has an incident without an end; the row's first column is its start
  std::string inicio;    // the start is within one, its first and last day included
  std::string fin;       // the end is
  std::string encierra;  // one lies between start and end, touching neither
};

// `propia`: the table of the screen. The dates with the month first, as the engine reads them: "mm/dd/yy".
ConsultasSolape ConsultasDeSolape(TablaIncidencias propia, std::string_view trabajador, std::string_view inicio,
                                  std::string_view fin);

}  // namespace zendara
