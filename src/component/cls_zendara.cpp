#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <utility>

#include "component/componente.hpp"
#include "runtime/date.hpp"
#include "runtime/failure.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

// One step of the entry: whatever it throws, the next one runs.
template <typename Step>
void Paso(Step step) noexcept {
  try {
    step();
  } catch (...) {
    LogCurrentError();
  }
}

void LeeSesion(Sesion& sesion, Morlane& morlane) noexcept {
  Paso([&] { sesion.CodEmpresa = morlane.CodigoEmpresa(); });
  Paso([&] { sesion.NomEmpresa = Trim(CStr(morlane.NombreEmpresa())); });
  // Before the session's date, whose year may have two digits.
  Paso([&] { sesion.PonEjercicio(CStr(morlane.Ejercicio())); });
  Paso([&] { sesion.CambioEuro = CStr(morlane.Cambio()); });
  Paso([&] { sesion.ValorSesion8 = CStr(morlane.Valor8()); });
  Paso([&] { sesion.ValorSesion1 = CStr(morlane.Valor1()); });
  Paso([&] { sesion.ValorSesionEntero = morlane.ValorEntero(); });
  Paso([&] { sesion.CodPrograma = morlane.Programa(); });
  Paso([&] { sesion.TextoRetorno = morlane.Retorno(); });
  Paso([&] { sesion.FechaSesion = CDate(morlane.FechaTrabajo(), sesion.VentanaFechas); });
}

// What the host opened reads dates as the session does.
void PonVentana(Sesion& sesion) noexcept {
  for (const auto& base : {sesion.BDEmpresa, sesion.BDSegunda}) {
    if (base) Paso([&] { base->SetYearWindow(sesion.VentanaFechas); });
  }
  for (const auto& tabla : sesion.Tablas) {
    if (tabla) Paso([&] { tabla->SetYearWindow(sesion.VentanaFechas); });
  }
}

// The parts of the surroundings that no screen can do without and that the host has not given.
std::string Faltan(const Platform& platform) {
  const std::pair<std::string_view, bool> partes[] = {
      {"engine", platform.engine}, {"dialogs", platform.dialogs}, {"files", platform.files}, {"forms", platform.forms}};
  std::string faltan;
  for (const auto& [parte, esta] : partes) {
    if (!esta) faltan += (faltan.empty() ? "" : ", ") + std::string(parte);
  }
  return faltan;
}

void MuestraPantalla(Componente& componente, std::string_view nombre) {
  if (std::ranges::find(kPantallasPublicas, nombre) == kPantallasPublicas.end()) return;
  const Platform& platform = componente.sesion.platform;
  if (const std::string faltan = Faltan(platform); !faltan.empty()) {
    const std::string pantalla(nombre);
    std::cerr << "zendara: screen " + pantalla + " is not shown: the host has installed no " + faltan + "\n"
              << std::flush;
    if (platform.dialogs) {
      platform.dialogs->Show(
          {.text = "La pantalla '" + pantalla + "' no se puede mostrar:\nel programa no tiene dónde.",
           .icon = BoxIcon::kCritical});
    }
    return;
  }
  componente.pantallas.Muestra(nombre);
}

// The session goes back to the screen below. That screen may have gone meanwhile, so FormActivo is what it is now.
void Devuelve(Sesion&& de_la_pantalla, Sesion& sesion) noexcept {
  de_la_pantalla.FormActivo = sesion.FormActivo;
  sesion = std::move(de_la_pantalla);
  PonVentana(sesion);
}

}  // namespace

Componente& ElComponente() {
  static Componente componente;
  return componente;
}

// A screen that was only asked about was made for the surroundings of before.
void InstallPlatform(Platform platform) {
  ElComponente().pantallas.Descarga();
  ElComponente().sesion.platform = std::move(platform);
}

const std::shared_ptr<Recordset>& RecordsetArray::At(int index) const {
  const std::int64_t place = std::int64_t{index} - lower_bound;
  if (place < 0 || place >= static_cast<std::int64_t>(items.size())) throw RuntimeError(kSubscriptOutOfRange);
  return items[static_cast<std::size_t>(place)];
}

void ClsZendara::Carga_Formulario(const std::string& NombreForm, const std::shared_ptr<Database>& MiBD,
                                  const std::shared_ptr<Database>& MiBE, const RecordsetArray& MiT,
                                  Morlane& ObjMorlane) noexcept {
  Componente& componente = ElComponente();
  if (componente.pantallas.EnPantalla(NombreForm)) return;
  Sesion& sesion = componente.sesion;
  std::optional<Sesion> de_la_pantalla;
  if (componente.pantallas.EnPantalla()) Paso([&] { de_la_pantalla = sesion; });
  Paso([&] { sesion.BDEmpresa = MiBD; });
  Paso([&] { sesion.BDSegunda = MiBE; });
  for (int slot = 1; slot <= kSlots; ++slot) {
    Paso([&] { sesion.Tablas[static_cast<std::size_t>(slot)] = MiT.At(slot); });
  }
  LeeSesion(sesion, ObjMorlane);
  PonVentana(sesion);
  Paso([&] { MuestraPantalla(componente, NombreForm); });
  Paso([&] { ObjMorlane.Retorno(sesion.TextoRetorno); });
  if (de_la_pantalla) Devuelve(std::move(*de_la_pantalla), sesion);
}

void ClsZendara::NumBas(std::int16_t valor) noexcept { ElComponente().numero_bas = valor; }

std::int16_t ClsZendara::fich2() const noexcept { return ElComponente().numero_bas; }

std::string ClsZendara::Fch() const { return {}; }

}  // namespace zendara
