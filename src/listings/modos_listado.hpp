// The three listings that the request screen of incidents gives: what it asks in each, and what it prints.
#pragma once

#include <string>
#include <string_view>

#include "common/listas.hpp"
#include "listings/mesa_listado.hpp"

namespace zendara {

struct ModoListado {
  std::string_view formulario;  // the screen that asks for it
  int ranura;
  std::string_view primero;  // captions of the first and second field
  int largo_primero;
  std::string_view segundo;
  bool pide_mes;  // first, and a third field
  const Lista* lista;
  std::string_view sin_trabajador;  // said of a worker without incidents
  std::string_view tabla;           // as its query names it
  std::string_view (*texto_tipo)(std::string_view codigo);
  const DescripcionListado* descripcion;
  bool datos_de_programa;  // the viewer gets the path below the program's folder, not DirDatos
};

// nullptr for a screen that has no listing.
const ModoListado* ModoDe(std::string_view formulario);

// As the listings print the types; empty for another code.
std::string_view TextoIncidenciaIT(std::string_view codigo);
std::string_view TextoIncidenciaESP(std::string_view codigo);

}  // namespace zendara
