// The surroundings that a host gives to the component, once, before its first call.
#pragma once

#include <string>

#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class FormHost;

// Nothing is owned; all outlive the component's use. What a host's own object throws ends the user's action and is
// shown: a RuntimeError by its number, anything else as error 51 with its words on standard error. A screen needs the
// banner to load.
struct Platform {
  Engine* engine = nullptr;
  Dialogs* dialogs = nullptr;
  Files* files = nullptr;
  std::string application_folder;          // holds DATOS; without a separator at its end
  FormHost* forms = nullptr;               // shows the screens; windows or automation fill it in
  Shell* shell = nullptr;                  // programs beside; null: the calculator is error 429
  const Components* components = nullptr;  // pick list, banner, listing viewer; null: none, 429 where one is needed
};

}  // namespace zendara
