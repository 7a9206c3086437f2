// What the screens of incidents with dates are made of: fields, columns, and every difference between the two.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "incidents/pantalla_incidencias.hpp"
#include "incidents/tabla_incidencias.hpp"

namespace zendara {

// Text1, but for the type, which is Combo1. Each stands for the column one below it.
enum class CampoFechas { kTrabajador = 1, kNombre = 2, kTipo = 3, kInicio = 4, kFin = 5 };

// How the dates of a row that was called up come into their fields.
enum class TratoFechas {
  kTexto,    // a Null is an empty text
  kFormato,  // a Null is error 94
  kAmbos,    // the end as a text first, so that its Null is none; the start by its format
};

struct DisenoFechas {
  DisenoIncidencias comun;
  TablaIncidencias tabla;
  std::string_view nombre_tabla;
  const Lista* tipos;
  const Lista* fechas;
  std::string_view falta_inicio;  // said when there is no start
  std::string_view hay_abierta;   // the second line of what is said when another incident is open
  bool reabre_al_grabar;          // the company's file is opened anew before the check
  TratoFechas al_salir;           // by leaving the start
  TratoFechas de_lista;           // by the list of starts
};

const DisenoFechas& DisenoDe(TablaIncidencias tabla);

std::span<const Campo> CamposFechas();

// Columns of both tables, and of their queries.
enum ColumnaFechas { kColumnaTrabajador, kColumnaNombre, kColumnaTipo, kColumnaInicio, kColumnaFin };

inline constexpr int kImagenTipo = 0;  // of Combo1; the other images have the index of their field

}  // namespace zendara
