// What controls are called where their place cannot be seen: by screen readers, and in boxes.
#pragma once

#include <QString>

#include "zendara/forms/control.hpp"

namespace zendara {

// The caption and the titled groups around, from the innermost out: "Fecha Inicio, Bonificación, Primer contrato". The
// groups alone where there is no caption. Pages of tabs are called by the page that they stand on.
QString NameOf(const Control& control);
// Row and column by their headings, otherwise by their numbers: "Hijo 2, Año Nacim.". REQUIRES: the cell exists.
QString NameOfCell(const Grid& grid, int row, int column);
// The caption, for a grid the current cell, and where it stands, pages first: "«Piso», en Datos Trabajador, Domicilio".
QString NameAndPlace(const Control& control);

}  // namespace zendara
