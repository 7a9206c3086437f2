#include "values/valor_numero.hpp"

#include "runtime/number.hpp"

namespace zendara {

double ValorNumero(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return Val(text);
  std::string with_point(text);
  with_point[comma] = '.';
  return Val(with_point);
}

std::string TextoNoNulo(const Value& value) { return value.IsNull() ? std::string() : CStr(value); }

}  // namespace zendara
