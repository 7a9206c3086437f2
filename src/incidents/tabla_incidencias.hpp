// The two tables of incidents with dates, and the words of their types.
#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zendara {

enum class TablaIncidencias { kIT, kESP };

struct TipoIncidencia {
  TablaIncidencias tabla;
  std::string_view codigo;  // as it is stored
  std::string_view texto;

  friend constexpr bool operator==(const TipoIncidencia&, const TipoIncidencia&) = default;
};

inline constexpr TipoIncidencia kTiposIncidencia[] = {
    {TablaIncidencias::kIT, "1", "Enfermedad"},
    {TablaIncidencias::kIT, "2", "Maternidad"},
    {TablaIncidencias::kIT, "3", "Accidente"},
    {TablaIncidencias::kIT, "4", "Recaida de Enfermedad"},
    {TablaIncidencias::kIT, "5", "Recaidad de Accidente"},
    {TablaIncidencias::kESP, "1", "Vacaciones"},
    {TablaIncidencias::kESP, "2", "Huelga"},
};

// Empty for a code that is no type of the table.
constexpr std::string_view TextoTipo(TablaIncidencias tabla, std::string_view codigo) {
  const auto* tipo = std::ranges::find_if(
      kTiposIncidencia, [&](const TipoIncidencia& t) { return t.tabla == tabla && t.codigo == codigo; });
  return tipo == std::end(kTiposIncidencia) ? std::string_view() : tipo->texto;
}

}  // namespace zendara
