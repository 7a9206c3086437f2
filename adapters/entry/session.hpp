// The host's session object, as a table of functions or as an object that answers to calls by name.
#pragma once

#include <string>

#include "adapters/entry/other_object.hpp"
#include "zendara/morlane.hpp"
#include "zendara/zendara.h"

namespace zendara {

// The eleven operations, as one for reading and one for writing.
class ReadSession : public Morlane {
 public:
  std::string CodigoEmpresa() final;
  Value NombreEmpresa() final;
  std::string Retorno() final;
  Value Ejercicio() final;
  void Retorno(const std::string& text) final { Write(text); }
  Value Valor8() final;
  Value Valor1() final;
  Value Cambio() final;
  std::int16_t ValorEntero() final;
  Value FechaTrabajo() final;
  std::string Programa() final;

 protected:
  using Getter = zendara_result (*zendara_session::*)(void* self, zendara_variant* value);
  struct Operation {
    const char* name;
    Getter getter;
  };

 private:
  Value ValueOf(const Operation& operation);
  std::string TextOf(const Operation& operation);
  virtual void Read(const Operation& operation, zendara_variant& value) = 0;
  virtual void Write(const std::string& text) = 0;
};

class TableSession final : public ReadSession {
 public:
  explicit TableSession(const zendara_session& table) : table_(table) {}

 private:
  void Read(const Operation& operation, zendara_variant& value) override;
  void Write(const std::string& text) override;

  zendara_session table_;
};

class NamedSession final : public ReadSession {
 public:
  explicit NamedSession(zendara_unknown& object) : object_(object) {}

 private:
  void Read(const Operation& operation, zendara_variant& value) override;
  void Write(const std::string& text) override;

  OtherObject object_;
};

}  // namespace zendara
