#include <algorithm>
#include <utility>

#include "component/componente.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

// The screens that a host can name; the register has more, which open from within these.
constexpr std::string_view kPantallasPublicas[] = {"Trabajadores", "MIncidencias", "MIncidenciasESP",
                                                   "MIncidenciasVAR"};

// One step of the entry: whatever it throws, the next one runs.
template <typename Step>
void Paso(Step step) noexcept {
  try {
    step();
  } catch (...) {
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
    if (base) base->SetYearWindow(sesion.VentanaFechas);
  }
  for (const auto& tabla : sesion.Tablas) {
    if (tabla) tabla->SetYearWindow(sesion.VentanaFechas);
  }
}

void MuestraPantalla(Componente& componente, std::string_view nombre) {
  if (std::ranges::find(kPantallasPublicas, nombre) == std::end(kPantallasPublicas)) return;
  const Platform& platform = componente.sesion.platform;
  if (!platform.engine || !platform.dialogs || !platform.files) throw RuntimeError(kObjectNotSet);
  componente.pantallas.Muestra(nombre);
}

}  // namespace

Componente& ElComponente() {
  static Componente componente;
  return componente;
}

void InstallPlatform(Platform platform) { ElComponente().sesion.platform = std::move(platform); }

const std::shared_ptr<Recordset>& RecordsetArray::At(int index) const {
  const std::int64_t place = std::int64_t{index} - lower_bound;
  if (place < 0 || place >= static_cast<std::int64_t>(items.size())) throw RuntimeError(kSubscriptOutOfRange);
  return items[static_cast<std::size_t>(place)];
}

void ClsZendara::Carga_Formulario(const std::string& NombreForm, const std::shared_ptr<Database>& MiBD,
                                  const std::shared_ptr<Database>& MiBE, const RecordsetArray& MiT,
                                  Morlane& ObjMorlane) noexcept {
  Componente& componente = ElComponente();
  Sesion& sesion = componente.sesion;
  Paso([&] { sesion.BDEmpresa = MiBD; });
  Paso([&] { sesion.BDSegunda = MiBE; });
  for (int slot = 1; slot <= kSlots; ++slot) {
    Paso([&] { sesion.Tablas[static_cast<std::size_t>(slot)] = MiT.At(slot); });
  }
  LeeSesion(sesion, ObjMorlane);
  PonVentana(sesion);
  Paso([&] { MuestraPantalla(componente, NombreForm); });
  Paso([&] { ObjMorlane.Retorno(sesion.TextoRetorno); });
}

void ClsZendara::NumBas(std::int16_t valor) noexcept { ElComponente().numero_bas = valor; }

std::int16_t ClsZendara::fich2() const noexcept { return ElComponente().numero_bas; }

std::string ClsZendara::Fch() const { return {}; }

}  // namespace zendara
