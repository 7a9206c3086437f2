// The grids of children and ascendants: their shape, what typing in a cell does, and which rows are half filled. Keys
// outside of the rules change nothing.
#pragma once

#include <string_view>

#include "zendara/forms/control.hpp"

namespace zendara {

// Columns with data.
namespace columna_hijo {
enum Columna : int { kAnoNacimiento = 2, kPorEntero = 3, kGrado = 4 };
}
namespace columna_ascendiente {
enum Columna : int { kConvivencia = 2, kGrado = 3 };
}

// Empties Grid1(kHijos) or Grid1(kAscendientes), with headers and the labels of its rows.
void PreparaRejilla(Grid& rejilla);

// A character typed into the current cell of Grid1(kHijos) or Grid1(kAscendientes).
void EscribeFamilia(Grid& rejilla, int caracter);
// A key let go: Delete empties the current cell, Backspace takes its last character. REQUIRES: a cell with data, as the
// screen keeps it.
void BorraFamilia(Grid& rejilla, int tecla);

// Enter in the current cell: true when it moved the current cell; otherwise it leaves the grid.
bool PulsaIntro(Grid& rejilla);

// What the current cell takes, in few words.
std::string_view EsperaFamilia(const Grid& rejilla);

// The first row that is neither filled nor empty; 0 if there is none.
int FilaIncompleta(const Grid& rejilla);

}  // namespace zendara
