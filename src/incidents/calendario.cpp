#include "incidents/calendario.hpp"

#include <algorithm>
#include <limits>

#include "runtime/date.hpp"
#include "runtime/text.hpp"
#include "values/nombres.hpp"

namespace zendara {
namespace {

struct Dias {
  double desde;
  double hasta;
};

Dias DiasDe(Date inicio, const std::optional<Date>& fin) {
  return {inicio.serial, fin ? fin->serial : std::numeric_limits<double>::infinity()};
}

bool Coinciden(Dias a, Dias b) { return a.desde <= b.hasta && b.desde <= a.hasta; }

bool EsIntervalo(Dias dias) { return dias.desde <= dias.hasta; }

// By start, IT first.
std::vector<const IncidenciaVista*> EnOrden(const Calendario& calendario) {
  std::vector<const IncidenciaVista*> filas;
  for (const IncidenciaVista& fila : calendario.filas) {
    if (EsDibujable(fila)) filas.push_back(&fila);
  }
  std::ranges::stable_sort(filas, {}, [](const IncidenciaVista* f) { return std::pair(*f->inicio, f->tabla); });
  return filas;
}

// Words.

std::string Fecha(Date fecha) {
  const DateParts partes = PartsOf(fecha);
  return std::to_string(partes.day) + " de " + LCase(NombreMes(static_cast<std::int16_t>(partes.month))) + " de " +
         std::to_string(partes.year);
}

std::string Periodo(Date inicio, const std::optional<Date>& fin) {
  if (!fin) return "desde el " + Fecha(inicio) + ", sin final";
  if (*fin == inicio) return "el " + Fecha(inicio);
  return "del " + Fecha(inicio) + " al " + Fecha(*fin);
}

std::string Nombrada(const IncidenciaVista& fila) {
  return std::string(TextoTipo(fila.tabla, fila.tipo)) + ", " + Periodo(*fila.inicio, fila.fin);
}

std::string Cuantas(std::size_t cuantas, std::string_view una, std::string_view varias) {
  return cuantas == 1 ? std::string(una) : std::to_string(cuantas) + std::string(varias);
}

std::string DelTecleado(const Calendario& calendario) {
  const IntervaloTecleado& tecleado = *calendario.tecleado;
  if (!EsIntervalo(DiasDe(tecleado.inicio, tecleado.fin))) return " El intervalo tecleado termina antes de empezar.";
  std::string texto = " El intervalo tecleado, " + Periodo(tecleado.inicio, tecleado.fin) + ", ";
  const auto coincidencias = Coincidencias(calendario);
  if (coincidencias.empty()) return texto + "no coincide con ninguna incidencia.";
  texto += "coincide con " + Cuantas(coincidencias.size(), "una incidencia", " incidencias");
  for (std::size_t i = 0; i < coincidencias.size(); ++i) texto += (i == 0 ? ": " : "; ") + Nombrada(*coincidencias[i]);
  return texto + ".";
}

std::string SinDibujar(const IncidenciaVista& fila) {
  std::string texto =
      " No se dibuja una incidencia de " + std::string(fila.tabla == TablaIncidencias::kIT ? "I.T." : "E.S.P.");
  if (fila.ilegible) return texto + " con una fecha que no se entiende.";
  if (!fila.inicio) return texto + " sin fecha de inicio.";
  if (!EsIntervalo(DiasDe(*fila.inicio, fila.fin))) {
    return texto + " que empieza el " + Fecha(*fila.inicio) + " y termina antes, el " + Fecha(*fila.fin) + ".";
  }
  return texto + " de tipo desconocido, «" + fila.tipo + "», " + Periodo(*fila.inicio, fila.fin) + ".";
}

}  // namespace

bool EsDibujable(const IncidenciaVista& fila) {
  return !fila.ilegible && fila.inicio && EsIntervalo(DiasDe(*fila.inicio, fila.fin)) &&
         !TextoTipo(fila.tabla, fila.tipo).empty();
}

std::vector<const IncidenciaVista*> Coincidencias(const Calendario& calendario) {
  if (!calendario.tecleado) return {};
  const IntervaloTecleado& tecleado = *calendario.tecleado;
  const Dias dias = DiasDe(tecleado.inicio, tecleado.fin);
  auto filas = EnOrden(calendario);
  std::erase_if(filas, [&](const IncidenciaVista* fila) {
    const bool la_misma = fila->tabla == tecleado.tabla && fila->inicio == tecleado.inicio;
    return la_misma || !EsIntervalo(dias) || !Coinciden(DiasDe(*fila->inicio, fila->fin), dias);
  });
  return filas;
}

std::string DescribeCalendario(const Calendario& calendario) {
  std::string texto = "Calendario de " + std::to_string(calendario.ano) + ". Hoy es " + Fecha(calendario.hoy) + ".";
  if (calendario.tecleado) texto += DelTecleado(calendario);
  if (!calendario.aviso.empty()) return texto + " " + calendario.aviso;
  const auto filas = EnOrden(calendario);
  texto +=
      filas.empty() ? " No hay incidencias." : " Hay " + Cuantas(filas.size(), "una incidencia", " incidencias") + ".";
  std::vector<double> empiezan;
  std::vector<double> terminan;
  for (const IncidenciaVista* fila : filas) {
    const Dias dias = DiasDe(*fila->inicio, fila->fin);
    empiezan.push_back(dias.desde);
    terminan.push_back(dias.hasta);
  }
  std::ranges::sort(terminan);
  for (const IncidenciaVista* fila : filas) {
    const Dias dias = DiasDe(*fila->inicio, fila->fin);
    // Those that have begun when it ends, but for those that were over before it begins, and itself.
    const auto otras = (std::ranges::upper_bound(empiezan, dias.hasta) - empiezan.begin()) -
                       (std::ranges::lower_bound(terminan, dias.desde) - terminan.begin()) - 1;
    texto += " " + Nombrada(*fila);
    if (otras > 0) texto += "; coincide con " + Cuantas(static_cast<std::size_t>(otras), "otra", " más");
    texto += ".";
  }
  for (const IncidenciaVista& fila : calendario.filas) {
    if (!EsDibujable(fila)) texto += SinDibujar(fila);
  }
  return texto;
}

}  // namespace zendara
