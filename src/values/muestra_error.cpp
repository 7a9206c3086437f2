#include "values/muestra_error.hpp"

#include "runtime/failure.hpp"

namespace zendara {

void MuestraError(int numero, Dialogs& dialogs) {
  dialogs.Show({.text = std::to_string(numero) + "  " + ErrorText(numero)});
}

void MuestraError(const RuntimeError& error, Dialogs& dialogs) {
  LogDetail(error);
  dialogs.Show({.text = error.what()});
}

}  // namespace zendara
