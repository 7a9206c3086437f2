// The surroundings that a host gives to the component, once, before its first call.
#pragma once

#include <string>

#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class FormHost;

// Nothing is owned; all outlive the component's use.
struct Platform {
  Engine* engine = nullptr;
  Dialogs* dialogs = nullptr;
  Files* files = nullptr;
  std::string application_folder;          // holds DATOS; without a separator at its end
  FormHost* forms = nullptr;               // shows the screens; windows or automation fill it in
  Shell* shell = nullptr;                  // programs beside
  const Components* components = nullptr;  // pick list, banner, listing viewer; null: none of them is there
};

}  // namespace zendara
