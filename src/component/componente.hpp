// The component's state: one for the process, shared by all instances of ClsZendara.
#pragma once

#include <cstdint>

#include "frame/registro_pantallas.hpp"
#include "frame/sesion.hpp"

namespace zendara {

struct Componente {
  // With all screens registered.
  Componente();
  Componente(const Componente&) = delete;
  Componente& operator=(const Componente&) = delete;

  Sesion sesion{Platform{}};
  RegistroPantallas pantallas;
  std::int16_t numero_bas = 0;
};

Componente& ElComponente();

}  // namespace zendara
