// The controls of a form as scripts name and read them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/form/form.hpp"

namespace zendara {

// "Text1(7)", "Grabar". ScriptError for a control that the form does not have.
Control& FindControl(const Form& form, std::string_view id);

// What a control shows. "Grid1(0)[1,2]" is a cell, by row and column. ScriptError for what is not there.
std::string ValueOf(const Form& form, const std::string& id);

// Every value of a control: the cells of a grid that are neither fixed nor empty, otherwise its value.
void ForEachValue(Control& control, const std::function<void(const std::string& id, const std::string& text)>& take);

}  // namespace zendara
