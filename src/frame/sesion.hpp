// The session globals in one structure. The component holds one instance and hands it down by reference.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/text.hpp"
#include "zendara/platform.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

class Form;

inline constexpr int kSlots = 500;

struct Sesion {
  explicit Sesion(Platform surroundings) : platform(std::move(surroundings)) {}

  Platform platform;

  // Handles shared with the host. BDEmpresa is the database opened last, not always the company's.
  std::shared_ptr<Database> BDEmpresa;
  std::shared_ptr<Database> BDSegunda;
  std::array<std::shared_ptr<Recordset>, kSlots + 1> Tablas;  // slots 1 to 500
  std::shared_ptr<Workspace> WsTrabajo;
  std::shared_ptr<QueryDef> ConsultaQD;
  std::shared_ptr<Recordset> TablaListados;  // staging table, of the last listing

  // From the session object at entry.
  FixedText<5> CodEmpresa;
  FixedText<53> NomEmpresa;
  FixedText<2> AnoTrabajo;
  FixedText<7> CambioEuro;
  FixedText<8> ValorSesion8;
  FixedText<1> ValorSesion1;
  std::int16_t ValorSesionEntero = 0;
  std::string CodPrograma;
  std::string TextoRetorno;  // "P" pesetas, anything else the other currency
  Date FechaSesion;
  YearWindow VentanaFechas;       // what two-digit years mean
  YearWindow VentanaNacimientos;  // and in dates of birth

  // Folders, with a backslash at their end; set by CargaParametros.
  std::string DirPrograma;
  std::string DirDatos;

  // First records of the three parameter files, raw.
  std::string ParametrosListado;    // IMPM1600.DAT, 256 bytes
  std::string ParametrosImpresion;  // IMPM0999.DAT, 300 bytes
  std::string ParametrosNomina;     // NOM00997.DAT, 256 bytes

  // The form that opened a listing, or the worker screen; nullptr once a screen has been left.
  Form* FormActivo = nullptr;

  // 0 if the last mouse movement over a look-up image was with the right button alone held, and before the first one;
  // otherwise 1.
  std::int16_t MarcaBoton = 0;

  // Workers that screens have shown, the latest one first, each once: the company's code and their number.
  std::vector<std::pair<std::string, std::string>> TrabajadoresVistos;

  // Scratch that every screen uses; nothing reads it after the operation that set it.
  std::string SqlTexto;
  std::shared_ptr<Recordset> RsTrabajo;
  std::shared_ptr<Recordset> RsAuxiliar;

  // The recordset of a slot; error 91 when the host filled nothing in, 9 when there is no such slot.
  Recordset& Tabla(int ranura) const;
  // AnoTrabajo takes the last two characters; the windows are those of that year if they are a number.
  void PonEjercicio(std::string_view ejercicio);
  // That number.
  std::optional<int> Ejercicio() const;
};

}  // namespace zendara
