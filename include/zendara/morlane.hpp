// The host's session object, as the component reads it at entry and writes it at exit.
#pragma once

#include <cstdint>
#include <string>

#include "zendara/value.hpp"

namespace zendara {

// Implemented by the host. The operations stand in the order of the session library's table of operations. Each is
// called once in a call of Carga_Formulario, in no particular order. Longer texts than the lengths given here are cut,
// shorter ones filled with blanks. An operation may throw: the component goes on with the next one and leaves that
// value as it was.
class Morlane {
 public:
  virtual ~Morlane() = default;

  virtual std::string CodigoEmpresa() = 0;            // company code, five characters
  virtual Value NombreEmpresa() = 0;                  // company name, 53 characters
  virtual std::string Retorno() = 0;                  // currency mark: "P" pesetas, anything else the other currency
  virtual Value Ejercicio() = 0;                      // working year, text or number; its last two characters count
  virtual void Retorno(const std::string& text) = 0;  // receives the currency mark at exit
  virtual Value Valor8() = 0;                         // kept, not used
  virtual Value Valor1() = 0;                         // kept, not used
  virtual Value Cambio() = 0;                         // divisor of amounts not in pesetas, 7 characters: "166,386"
  virtual std::int16_t ValorEntero() = 0;             // kept, not used
  virtual Value FechaTrabajo() = 0;                   // working date, a date or a text such as "15/03/01"
  virtual std::string Programa() = 0;                 // code of the host program; "05" is a host without incidents
};

}  // namespace zendara
