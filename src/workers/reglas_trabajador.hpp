// Rules that single fields of the worker screen have, as tables.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "workers/campos_trabajador.hpp"

namespace zendara {

// A worker is not saved while one of these is empty; in the order in which they are looked at.
struct CampoObligatorio {
  CampoTrabajador campo;
  std::string_view mensaje;
};
std::span<const CampoObligatorio> CamposObligatorios();

// Numbers above the maximum are refused when the field is left; the maximum itself passes.
struct MaximoCampo {
  CampoTrabajador campo;
  double maximo;
  std::string_view mensaje;
};
// nullptr when the field has none.
const MaximoCampo* MaximoDe(CampoTrabajador campo);

// What a code of one key stands for: a column of the row that its table has under it, shown in the field after it.
struct DescripcionCampo {
  CampoTrabajador campo;
  int ranura;
  std::string_view indice_tabla;
  int columna;
};
// nullptr for a field that has no such code; a category has two keys, a contract's type is looked up by a query.
const DescripcionCampo* DescripcionDe(CampoTrabajador campo);

// Name of a tariff group, by its two digits; empty for an unknown one.
std::string_view TextoGrupoTarifa(std::string_view codigo);

// What a field takes, in few words, and the keys that matter there: "Fecha: ddmmaa", "3 cifras · F2: lista".
std::string EsperaDe(const Campo& campo);

}  // namespace zendara
