// Opening database files and the slots of a group.
#pragma once

#include <memory>
#include <string_view>

#include "frame/catalogo.hpp"
#include "frame/sesion.hpp"

namespace zendara {

// Opens a file of the company, by default of the working year, in the place of BDEmpresa. Errors of the engine go to
// the caller and leave BDEmpresa.
void AbreFichero(Sesion& sesion, FileKind fichero);
void AbreFichero(Sesion& sesion, FileKind fichero, std::string_view ano);

// A file of the company, of the working year, by a handle of its own: those of the session stay as they are. Errors of
// the engine go to the caller.
std::shared_ptr<Database> AbreAparte(const Sesion& sesion, FileKind fichero);

// Opens DirDatos + `nombre` into `db`, replacing the handle that stood there; the first workspace goes to WsTrabajo.
// When `nombre` starts with "NOM", in that case, the query "Consulta" of that file goes to ConsultaQD, made if it is
// not there. A failure to open shows MuestraError, leaves `db` and gives false.
bool AbreTabla(Sesion& sesion, std::shared_ptr<Database>& db, std::string_view nombre);

// Fills the slots of group `grupo`, or of all groups but 5 when it is 0, each with its index set. BDEmpresa is the file
// opened last. Does nothing when `codigo` or `ano` is blank. The first failure ends it, and the slots filled so far
// stay: 3420 and 3011 show a box, a file that does not open was shown by AbreTabla, anything else is passed over in
// silence.
void AbreTablas(Sesion& sesion, int grupo, std::string_view codigo, std::string_view ano);

// The slots of a group from BDEmpresa, the group's file. Run-time errors go to the caller.
void LlenaRanuras(Sesion& sesion, const GrupoCatalogo& grupo);

}  // namespace zendara
