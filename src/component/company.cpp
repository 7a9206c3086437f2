#include "zendara/company.hpp"

#include <string>

#include "frame/sesion_anfitrion.hpp"

namespace zendara {

OpenedCompany OpenCompany(Engine& engine, std::string_view folder, std::string_view code, std::string_view year) {
  Sesion session({.engine = &engine, .application_folder = std::string(folder)});
  AbreEmpresa(session, code, year);
  return {.company = session.BDEmpresa,
          .general = session.BDSegunda,
          .recordsets = {.lower_bound = 0, .items = {session.Tablas.begin(), session.Tablas.end()}}};
}

}  // namespace zendara
