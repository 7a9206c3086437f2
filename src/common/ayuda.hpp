// The pages of the help, in the folder help/ of the project: what a help viewer shows for a screen's context.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "zendara/forms/control.hpp"

namespace zendara {

struct PaginaAyuda {
  int contexto;              // the form's help context; 0: reached by links only
  std::string_view fichero;  // Markdown
  std::string_view titulo;   // its first heading
};

// All pages, the start page first.
std::span<const PaginaAyuda> PaginasAyuda();

// The start page for a context that no page has.
const PaginaAyuda& PaginaDeContexto(int contexto);

// The caption of a control as one reads it: without the mark of its access key, and the dots and the colon behind it.
std::string PalabrasDe(const Control& control);

}  // namespace zendara
