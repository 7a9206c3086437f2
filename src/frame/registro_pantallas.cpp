#include "frame/registro_pantallas.hpp"

#include <utility>

namespace zendara {

void RegistroPantallas::Registra(std::string nombre, Fabrica fabrica) {
  pantallas_.insert_or_assign(std::move(nombre), Ficha{std::move(fabrica), nullptr});
}

std::string_view RegistroPantallas::PorQueNo(std::string_view nombre) const {
  return pantallas_.contains(nombre) ? "" : "La pantalla no está instalada.";
}

std::shared_ptr<Pantalla> RegistroPantallas::Objeto(std::string_view nombre) {
  const auto ficha = pantallas_.find(nombre);
  if (ficha == pantallas_.end()) return nullptr;
  if (!ficha->second.objeto) ficha->second.objeto = ficha->second.fabrica();
  return ficha->second.objeto;
}

bool RegistroPantallas::Muestra(std::string_view nombre) {
  // Held here, so that a screen that unloads while it is shown ends only when it has returned.
  const std::shared_ptr<Pantalla> pantalla = Objeto(nombre);
  if (!pantalla) return false;
  pantalla->Mostrar();
  return true;
}

void RegistroPantallas::Descarga(std::string_view nombre) {
  if (const auto ficha = pantallas_.find(nombre); ficha != pantallas_.end()) ficha->second.objeto.reset();
}

void RegistroPantallas::Descarga() {
  for (auto& [nombre, ficha] : pantallas_) ficha.objeto.reset();
}

}  // namespace zendara
