#include "incidents/tira_calendario.hpp"

#include <string_view>
#include <utility>

#include "incidents/lectura_incidencias.hpp"
#include "runtime/date.hpp"
#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "values/formato_fecha.hpp"

namespace zendara {
namespace {

// In twips: a screen is 7200 high.
constexpr int kAncho = 5400;
constexpr int kAlto = 6900;

constexpr std::string_view kSinTrabajador = "No hay trabajador en la pantalla.";
constexpr std::string_view kSinLectura = "No se han podido leer las incidencias.";

// Nothing while the date is not whole.
std::optional<Date> FechaTecleada(const std::string& campo, YearWindow ventana) {
  const std::string texto = ConBarras(Trim(campo));
  return texto.size() == 8 ? ReadDateStrict(texto, ventana) : std::nullopt;
}

int AnoDe(const Sesion& sesion) {
  const std::optional<int> ejercicio = sesion.Ejercicio();
  return ejercicio ? FullYear(*ejercicio, sesion.VentanaFechas) : PartsOf(sesion.FechaSesion).year;
}

}  // namespace

TiraCalendario::TiraCalendario(Form& formulario, const Sesion& sesion)
    : sesion_(sesion), imagen_(formulario, "Calendario") {
  imagen_.SetCaption("Calendario de incidencias");
  imagen_.SetPainter(
      [this](const Screen& screen, DrawingSurface& superficie) { PintaCalendario(screen, superficie, calendario_); });
  Relee();
}

Layout TiraCalendario::Junto(Layout pantalla) { return Beside(std::move(pantalla), imagen_, kAncho, kAlto); }

void TiraCalendario::PonTrabajador(const std::string& numero) {
  std::string trabajador = Trim(numero);
  if (trabajador == trabajador_) return;
  trabajador_ = std::move(trabajador);
  Relee();
}

void TiraCalendario::Relee() {
  calendario_.ano = AnoDe(sesion_);
  calendario_.hoy = sesion_.FechaSesion;
  Lee();
  Muestra();
}

void TiraCalendario::Lee() try {
  calendario_.filas.clear();
  calendario_.aviso = trabajador_.empty() ? kSinTrabajador : std::string_view();
  if (!trabajador_.empty()) calendario_.filas = LeeIncidencias(sesion_, trabajador_);
} catch (...) {
  calendario_.aviso = kSinLectura;
  LogCurrentError();
}

void TiraCalendario::PonTecleado(TablaIncidencias tabla, const std::string& inicio, const std::string& fin) {
  std::optional<IntervaloTecleado> tecleado;
  if (const auto desde = FechaTecleada(inicio, sesion_.VentanaFechas)) {
    tecleado = {.tabla = tabla, .inicio = *desde, .fin = FechaTecleada(fin, sesion_.VentanaFechas)};
  }
  if (tecleado == calendario_.tecleado) return;
  calendario_.tecleado = tecleado;
  Muestra();
}

void TiraCalendario::Muestra() { imagen_.SetDescription(DescribeCalendario(calendario_)); }

}  // namespace zendara
