// The slot catalogue: which table, with which index, a slot of `Sesion::Tablas` holds, and the file that it comes from.
#pragma once

#include <span>
#include <string_view>

#include "frame/stored_tables.hpp"

namespace zendara {

// Slots that the code names.
inline constexpr int kTiposVia = 2;  // street types; filled by the host, no group has it
inline constexpr int kTrabajadoresFijo = 402;
inline constexpr int kIRPF = 404;
inline constexpr int kContratos = 406;
inline constexpr int kConTrabajadorPagas = 417;
inline constexpr int kConTrabajadorConceptos = 418;
inline constexpr int kTincidenciasIT = 419;
inline constexpr int kTincidenciasESP = 420;
inline constexpr int kTIncidenciasVar = 421;
inline constexpr int kEpigrafes = 422;
inline constexpr int kFPago = 424;
inline constexpr int kSecciones = 426;
inline constexpr int kCentros = 428;
inline constexpr int kConEmpresaConceptos = 433;
inline constexpr int kTrabajadoresVar = 442;

struct EntradaCatalogo {
  int ranura;
  std::string_view tabla;
  std::string_view indice;
};

// The tables of one file, in the order in which they are opened.
struct GrupoCatalogo {
  int numero;
  FileKind fichero;
  std::string_view nombre;  // as AbreTablas opens it, with the marks of FillFileName
  std::span<const EntradaCatalogo> entradas;
};

// Groups 1 to 6 in that order. The slots 406 and 414 stand in two groups: the one opened last fills them.
std::span<const GrupoCatalogo> Catalogo();
// REQUIRES: 1 to 6.
const GrupoCatalogo& Grupo(int numero);

}  // namespace zendara
