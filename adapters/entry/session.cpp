#include "adapters/entry/session.hpp"

#include "adapters/entry/failure.hpp"
#include "adapters/entry/variant.hpp"
#include "adapters/plain_c/outside_call.hpp"
#include "runtime/number.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

Value ReadSession::ValueOf(const Operation& operation) {
  Variant value;
  Read(operation, value);
  try {
    return ToValue(value);
  } catch (const Refusal& refusal) {
    throw RuntimeError(kTypeMismatch, {}, std::string(operation.name) + " of the session: " + refusal.why);
  }
}

std::string ReadSession::TextOf(const Operation& operation) { return CStr(ValueOf(operation)); }

std::string ReadSession::CodigoEmpresa() { return TextOf({"CodigoEmpresa", &zendara_session::CodigoEmpresa}); }
Value ReadSession::NombreEmpresa() { return ValueOf({"NombreEmpresa", &zendara_session::NombreEmpresa}); }
std::string ReadSession::Retorno() { return TextOf({"Retorno", &zendara_session::Retorno}); }
Value ReadSession::Ejercicio() { return ValueOf({"Ejercicio", &zendara_session::Ejercicio}); }
Value ReadSession::Valor8() { return ValueOf({"Valor8", &zendara_session::Valor8}); }
Value ReadSession::Valor1() { return ValueOf({"Valor1", &zendara_session::Valor1}); }
Value ReadSession::Cambio() { return ValueOf({"Cambio", &zendara_session::Cambio}); }
Value ReadSession::FechaTrabajo() { return ValueOf({"FechaTrabajo", &zendara_session::FechaTrabajo}); }
std::string ReadSession::Programa() { return TextOf({"Programa", &zendara_session::Programa}); }
std::int16_t ReadSession::ValorEntero() { return CInt(CDbl(ValueOf({"ValorEntero", &zendara_session::ValorEntero}))); }

void TableSession::Read(const Operation& operation, zendara_variant& value) {
  // Deliberately left out: that is no line of the log.
  if (!(table_.*operation.getter)) throw RuntimeError(kNoSuchMember);
  CallOutside(operation.name, table_.*operation.getter, table_.self, &value);
}

void TableSession::Write(const std::string& text) {
  if (table_.PonRetorno) CallOutside("PonRetorno", table_.PonRetorno, table_.self, text.c_str());
}

void NamedSession::Read(const Operation& operation, zendara_variant& value) {
  if (!object_.Call(operation.name, ZENDARA_METHOD | ZENDARA_GET, nullptr, 0, value)) ThrowNotServed(operation.name);
}

void NamedSession::Write(const std::string& text) {
  Variant argument, nothing;
  Put(argument, text);
  if (!object_.Call("Retorno", ZENDARA_PUT, &argument, 1, nothing)) ThrowNotServed("Retorno");
}

}  // namespace zendara
