// The look-ups of the worker screen: which list a field opens and where the chosen row goes.
#pragma once

#include <span>

#include "common/listas.hpp"
#include "workers/campos_trabajador.hpp"

namespace zendara {

inline constexpr int kSinParametro = 0;

struct ConsultaTrabajador {
  int indice;  // of the field and of its image
  const Lista* lista;
  int parametro;                // field whose trimmed text the query asks for, or kSinParametro
  std::span<const int> campos;  // filled with the pieces of the row, in their order
  bool carga = false;           // the choice loads a record: the leaving of the field runs
};

std::span<const ConsultaTrabajador> ConsultasTrabajador();
// nullptr when the field has no look-up.
const ConsultaTrabajador* ConsultaDeCampo(int indice);

}  // namespace zendara
