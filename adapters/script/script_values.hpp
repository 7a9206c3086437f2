// The controls of a form as scripts name and read them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/form/form.hpp"

namespace zendara {

// "Text1(7)", "Grabar". ScriptError for a control that the form does not have.
Control& FindControl(const Form& form, std::string_view id);

// The text of a field or list, 0 to 2 of a check box, 0 or 1 of an option, the page in front of tabs, the current cell
// of a grid, the caption of the rest. "Grid1(0)[1,2]" is a cell, by row and column. ScriptError for what is not there.
std::string ValueOf(const Form& form, const std::string& id);

// Every value of a control: the cells of a grid that are neither fixed nor empty, otherwise its value.
void ForEachValue(Control& control, const std::function<void(const std::string& id, const std::string& text)>& tell);

// Of a kind that has the focus at times.
bool TakesFocus(const Control& control);
// Holds what the user enters: a field, list, check box, option or grid.
bool IsEntered(const Control& control);
// An empty text, a box or an option that is not chosen.
bool IsEmptyValue(const Control& control, const std::string& text);

}  // namespace zendara
