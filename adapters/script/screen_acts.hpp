// What a user does on a form and reads there, by the names of its controls: for the commands of a script and for the
// calls of a host.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "adapters/script/script_driver.hpp"
#include "zendara/forms/form.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

// An act that names what is not there, or that its control does not know: the errors of ShownScreen in
// zendara/automation.hpp, with the reason as the detail. Nothing was done then.
class ActError : public RuntimeError {
 public:
  ActError(int number, const std::string& reason) : RuntimeError(number, {}, reason) {}
};

class ScreenActs {
 public:
  // Nothing is owned.
  ScreenActs(Form& form, ScriptDriver& driver) : form_(form), driver_(driver) {}

  Control& Find(std::string_view id) const;
  // What a control shows, or a cell: "Grid1(0)[1,2]", by row and column, fixed ones too.
  std::string Read(const std::string& id) const;

  void Focus(std::string_view id);
  // Until the form closes, or that becomes true.
  void Type(std::string_view text, const std::function<bool()>& ended);
  void Press(const Key& key);
  void Paste(std::string_view text);
  void Click(std::string_view id);
  void Choose(std::string_view id, std::size_t item);
  void Choose(std::string_view id, std::string_view text);  // blanks at the end do not count
  void Point(std::string_view id, int row, int column);
  void Turn(std::string_view id, int page);

 private:
  template <typename T>
  T& FindKind(std::string_view id, std::string_view kind) const;

  Form& form_;
  ScriptDriver& driver_;
};

// Every value of a control: the cells of a grid that are neither fixed nor empty, otherwise its value.
void ForEachValue(Control& control, const std::function<void(const std::string& id, const std::string& text)>& take);

}  // namespace zendara
