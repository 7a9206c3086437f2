#include "values/muestra_error.hpp"

#include <algorithm>
#include <iostream>

namespace zendara {

void MuestraError(int numero, Dialogs& dialogs) {
  dialogs.Show({.text = std::to_string(numero) + "  " + ErrorText(numero)});
}

void MuestraError(const RuntimeError& error, Dialogs& dialogs) {
  if (!error.detail().empty()) {
    std::string line = "zendara: error " + std::to_string(error.number()) + ": " + error.detail();
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    std::cerr << line + "\n" << std::flush;
  }
  dialogs.Show({.text = error.what()});
}

}  // namespace zendara
