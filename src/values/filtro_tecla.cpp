#include "values/filtro_tecla.hpp"

#include "runtime/characters.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr int kBackspace = 8;

bool Passes(int tecla, const TextField& control) {
  if (tecla == ',') return control.Text().find(',') == std::string::npos;
  if (tecla == '-') return !LTrim(control.Text()).starts_with('-') && control.SelStart() == 0;
  return tecla == kBackspace || IsDigit(tecla);
}

}  // namespace

int FiltroTecla(int& tecla, const TextField& control) {
  if (tecla == '.') tecla = ',';
  if (!Passes(tecla, control)) tecla = 0;
  return tecla;
}

}  // namespace zendara
