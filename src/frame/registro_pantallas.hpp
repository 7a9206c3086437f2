// The screens by name, so that one opens another without knowing it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace zendara {

class Pantalla {
 public:
  virtual ~Pantalla() = default;
  // Modal: returns when the user has closed it, and at once while it is being shown.
  virtual void Mostrar() = 0;
};

// Names are compared exactly, case included.
class RegistroPantallas {
 public:
  using Fabrica = std::function<std::shared_ptr<Pantalla>()>;

  // A second factory of the same name takes the place of the first.
  void Registra(std::string nombre, Fabrica fabrica);
  // What to say to a user who asks for a screen that cannot be opened; empty for one that can.
  std::string_view PorQueNo(std::string_view nombre) const;

  // The screen's object, created at its first use; it lives until the screen unloads. Nothing for a name that no screen
  // has. Errors of the factory go to the caller.
  std::shared_ptr<Pantalla> Objeto(std::string_view nombre);
  // Shows it modally; false for a name that no screen has.
  bool Muestra(std::string_view nombre);
  // The screen unloaded: its next use creates it anew. A screen may call this itself while it is being shown.
  void Descarga(std::string_view nombre);
  // The same for all. REQUIRES: none is being shown.
  void Descarga();

 private:
  struct Ficha {
    Fabrica fabrica;
    std::shared_ptr<Pantalla> objeto;
  };
  std::map<std::string, Ficha, std::less<>> pantallas_;
};

}  // namespace zendara
