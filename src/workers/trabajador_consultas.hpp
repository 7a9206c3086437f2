// The look-ups of the worker screen: which list a field opens and where the chosen row goes.
#pragma once

#include <optional>
#include <span>

#include "common/listas.hpp"
#include "workers/campos_trabajador.hpp"

namespace zendara {

struct ConsultaTrabajador {
  CampoTrabajador campo;  // and its image
  const Lista* lista;
  std::span<const CampoTrabajador> llena;      // with the pieces of the row, in their order
  std::optional<CampoTrabajador> parametro{};  // field whose trimmed text the query asks for
  bool carga = false;                          // the choice loads a record: the leaving of the field runs
};

std::span<const ConsultaTrabajador> ConsultasTrabajador();
// nullptr when the field has no look-up.
const ConsultaTrabajador* ConsultaDeCampo(CampoTrabajador campo);

}  // namespace zendara
