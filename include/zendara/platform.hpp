// The surroundings that a host gives to the component, once, before its first call.
#pragma once

#include <string>

#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class FormHost;

// No pointer is owned; what they point to outlives the component's use. What a host's own object throws ends the user's
// action and is shown: a RuntimeError by its number, anything else as error 51 with its words in the log. A screen
// needs the banner to load.
struct Platform {
  Engine* engine = nullptr;
  Dialogs* dialogs = nullptr;
  Files* files = nullptr;
  std::string application_folder;  // holds DATOS; without a separator at its end
  FormHost* forms = nullptr;       // shows the screens: see zendara/forms.hpp
  Shell* shell = nullptr;          // programs beside; null: the calculator is error 429
  Components components{};         // pick list, banner, listing viewer
  Clock* clock = nullptr;          // null: the machine's
  Log* log = nullptr;              // null: standard error
};

// A ready-made place for screens: the windows of zendara/windows.hpp, the automation of zendara/automation.hpp.
class FrontEnd {
 public:
  virtual ~FrontEnd() = default;

  // Takes `forms`, and fills in what the host has left empty of dialogs, shell and source of classes; offers its own
  // pick list, banner and listing viewer. So each object of the host's own stands in for that one alone, whether it is
  // set before or afterwards. What is filled in lives as long as this object.
  virtual void Install(Platform& platform) = 0;
};

}  // namespace zendara
