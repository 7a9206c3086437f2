// What a form says, without how it looks: its fields and grids in reading order, under the titles of its pages and
// frames. Every page of its tabs is there, not only the one in front; hidden controls, buttons and pictures are not.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "print/page_flow.hpp"
#include "print/table.hpp"
#include "zendara/forms/form.hpp"

namespace zendara::print {

using Part = std::variant<Entry, Table>;

struct Section {
  std::vector<std::string> pages;   // of tabs that it stands on, the outermost first
  std::vector<std::string> frames;  // on that page
  std::vector<Part> parts;
};

struct Outline {
  std::vector<Entry> setting;  // what the form begins with and nobody can change
  std::vector<Section> sections;
};

// Captions without access keys and the dots that lead to a field. Values as they are shown, with the description that
// stands behind them; Sí and No for check boxes and options. An empty one is an empty text. Of a grid the rows that
// nobody has filled in are left out.
Outline OutlineOf(const Form& form);

}  // namespace zendara::print
