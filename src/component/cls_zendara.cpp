#include <algorithm>
#include <functional>
#include <string>
#include <thread>
#include <utility>

#include "component/componente.hpp"
#include "runtime/date.hpp"
#include "runtime/failure.hpp"
#include "runtime/number.hpp"
#include "runtime/surroundings.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/version.h"
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

// Plain memory, as what has a destructor would keep the library loaded until the thread ends.
struct UltimaLlamada {
  CallStatus estado;
  char motivo[200];
  int numero;
};
thread_local UltimaLlamada ultima_llamada{};

void Apunta(CallStatus estado, const std::string& motivo = {}, int numero = 0) noexcept {
  ultima_llamada.estado = estado;
  ultima_llamada.numero = numero;
  std::size_t largo = std::min(motivo.size(), sizeof ultima_llamada.motivo - 1);
  // Never a part of a character.
  while (largo < motivo.size() && largo > 0 && (static_cast<unsigned char>(motivo[largo]) & 0xC0) == 0x80) --largo;
  motivo.copy(ultima_llamada.motivo, largo);
  ultima_llamada.motivo[largo] = '\0';
  if (estado != CallStatus::kDone && estado != CallStatus::kNoSuchScreen) LogLine(motivo);
}

// The component for the length of one call. Nothing of it may be touched while it has another one, or from another
// thread.
class Turno {
 public:
  Turno(Componente& componente, const std::string& llamada, bool de_cualquier_hilo) : componente_(componente) {
    const std::thread::id hilo = componente.hilo;
    if (!de_cualquier_hilo && hilo != std::thread::id() && hilo != std::this_thread::get_id()) {
      Apunta(CallStatus::kWrongThread, llamada + " comes from another thread than the installation");
    } else if (componente.ocupado.exchange(true)) {
      Apunta(CallStatus::kBusy, llamada + " comes while a screen is shown");
    } else {
      tiene_ = true;
    }
  }
  ~Turno() {
    if (tiene_) componente_.ocupado = false;
  }
  Turno(const Turno&) = delete;
  Turno& operator=(const Turno&) = delete;
  explicit operator bool() const { return tiene_; }

 private:
  Componente& componente_;
  bool tiene_ = false;
};

void MuestraPantalla(Componente& componente, const std::string& nombre) {
  if (std::ranges::find(kPantallasPublicas, nombre) == kPantallasPublicas.end()) {
    return Apunta(CallStatus::kNoSuchScreen, "no screen is called " + nombre);
  }
  const Platform& platform = componente.sesion.platform;
  if (const std::string faltan = Faltan(platform); !faltan.empty()) {
    Apunta(CallStatus::kNotInstalled, "screen " + nombre + " is not shown: the host has installed no " + faltan);
    if (platform.dialogs) {
      platform.dialogs->Show({.text = "La pantalla '" + nombre + "' no se puede mostrar:\nel programa no tiene dónde.",
                              .icon = BoxIcon::kCritical});
    }
    return;
  }
  try {
    componente.pantallas.Muestra(nombre);
    Apunta(CallStatus::kDone);
  } catch (...) {
    const RuntimeError error = CurrentError();
    Apunta(CallStatus::kFailed, "screen " + nombre + " is not shown: " + OneLine(error), error.number());
  }
}

}  // namespace

Componente& ElComponente() {
  static Componente componente;
  return componente;
}

const char* Version() noexcept { return ZENDARA_VERSION; }

CallReport LastCall() { return {ultima_llamada.estado, ultima_llamada.motivo, ultima_llamada.numero}; }

SessionFacts CurrentSession() {
  const Sesion& sesion = ElComponente().sesion;
  return {.company = Trim(sesion.CodEmpresa.str()),
          .name = Trim(sesion.NomEmpresa.str()),
          .date = sesion.FechaSesion,
          .years = sesion.VentanaFechas,
          .engine = sesion.platform.engine};
}

void InstallPlatform(Platform platform) {
  Componente& componente = ElComponente();
  const Turno turno(componente, "InstallPlatform", true);
  if (!turno) return;
  componente.hilo = std::this_thread::get_id();
  // A screen that was only asked about was made for the surroundings of before.
  componente.pantallas.Descarga();
  const auto clock = [reloj = platform.clock] { return reloj->Now(); };
  SetClock(platform.clock ? std::function<Date()>(clock) : nullptr);
  const auto log = [diario = platform.log](std::string_view line) { diario->Line(line); };
  SetLog(platform.log ? std::function<void(std::string_view)>(log) : nullptr);
  componente.sesion.platform = std::move(platform);
  Apunta(CallStatus::kDone);
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
  const Turno turno(componente, "Carga_Formulario", false);
  if (!turno) return;
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
