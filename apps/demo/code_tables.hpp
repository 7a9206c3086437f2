// The demonstration company's code tables, and what workers take from them.
#pragma once

#include <span>
#include <string_view>

namespace zendara {

struct Code {
  std::string_view code;
  std::string_view name;
};

// Tables of two columns.
extern const std::span<const Code> kCalles;
extern const std::span<const Code> kFormasPago;
extern const std::span<const Code> kCentros;
extern const std::span<const Code> kSecciones;
extern const std::span<const Code> kEpigrafes;
extern const std::span<const Code> kGruposTarifa;  // a fixed list of the worker screen, in no table
extern const std::span<const Code> kConceptos;

struct Categoria {
  std::string_view code;
  std::string_view name;
  int grupo_tarifa;  // 1 to 11
};

struct Convenio {
  std::string_view code;
  std::string_view name;
  std::span<const Categoria> categorias;
};

extern const std::span<const Convenio> kConvenios;
inline constexpr std::string_view kConvenioEmpresa = "0000101";  // the company's own, first of kConvenios

// A row of table Contratos. Several types may stand under one contract number.
struct Contrato {
  std::string_view number;
  std::string_view type;
  std::string_view modalidad;
  std::string_view disposicion;
  std::string_view percent;  // of bonus; empty: none
};

extern const std::span<const Contrato> kContratos;
// First row of that number in kContratos.
std::size_t ContratoNumero(std::string_view number);

// Annual pay by tariff group, pesetas.
struct Sueldo {
  int low;
  int high;
};
Sueldo SueldoDeGrupo(int grupo_tarifa);

}  // namespace zendara
