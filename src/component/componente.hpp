// The component's state: one for the process, shared by all instances of ClsZendara, used by one thread.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string_view>
#include <thread>

#include "frame/registro_pantallas.hpp"
#include "frame/sesion.hpp"

namespace zendara {

// The screens that a host can name; the register has more, which open from within these.
inline constexpr std::array<std::string_view, 4> kPantallasPublicas = {"Trabajadores", "MIncidencias",
                                                                       "MIncidenciasESP", "MIncidenciasVAR"};

struct Componente {
  // With all screens registered.
  Componente();
  Componente(const Componente&) = delete;
  Componente& operator=(const Componente&) = delete;

  Sesion sesion{Platform{}};
  // Read from any thread, so that a call from a wrong one is told apart.
  std::atomic<std::thread::id> hilo{};  // that of the last InstallPlatform
  std::atomic<bool> ocupado = false;    // Carga_Formulario runs
  RegistroPantallas pantallas;
  std::int16_t numero_bas = 0;
};

Componente& ElComponente();

}  // namespace zendara
