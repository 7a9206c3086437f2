// The known cases; demo_company.hpp says what each is for.
#include <array>
#include <initializer_list>

#include "apps/demo/code_tables.hpp"
#include "apps/demo/demo_company.hpp"
#include "apps/demo/people.hpp"
#include "apps/demo/worker.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

Date Day(int year, int month, int day) { return MakeDate(year, month, day).value(); }

// All that the withholding, the dates and the history depend on, from one plain worker.
void Plain(TrabajadorDemo& t) {
  SituacionDemo s;
  s.periodo = {Day(1998, 3, 2), std::nullopt};
  s.description = "Contrato inicial";
  s.categoria = 4;
  s.epigrafe = 2;
  s.puesto = "Administración";
  s.contratos[0] = ContratoNumero("001");
  t.situaciones = {s};
  t.alta = t.antiguedad = s.periodo.start;
  t.baja.reset();
  t.motivo_baja = "";
  t.birth = Day(1962, 4, 23);
  t.situacion = "A";
  t.clase = "G";
  t.situacion_familiar = "3";
  t.conyuge.clear();
  t.grado = "0";
  t.hijos.clear();
  t.ascendientes.clear();
  t.euros = false;
  t.anual = 1'800'000;
  t.irregulares = t.compensatoria = t.anualidades = 0;
  t.ceuta = false;
  t.incidencias_it.clear();
  t.incidencias_esp.clear();
}

void Contract(TrabajadorDemo& t, std::string_view clase, std::string_view number) {
  t.clase = clase;
  t.situaciones[0].contratos[0] = ContratoNumero(number);
}

void PartTime(TrabajadorDemo& t) {
  SituacionDemo& s = t.situaciones[0];
  s.contratos[0] = ContratoNumero("001") + 1;
  s.dias = "LMXJV";
  s.horas = "4";
  s.porcentaje = "50";
}

void FourSituations(TrabajadorDemo& t) {
  const SituacionDemo first = t.situaciones[0];
  t.situaciones.assign(4, first);
  t.situaciones[0].periodo.end = Day(1999, 6, 30);
  t.situaciones[1].periodo = {Day(1999, 7, 1), Day(2000, 12, 31)};
  t.situaciones[1].description = "Traslado de centro";
  t.situaciones[1].centro = 2;
  t.situaciones[2].periodo = {Day(2001, 1, 1), Day(2001, 4, 30)};
  t.situaciones[2].description = "Reducción de jornada";
  t.situaciones[2].contratos[0] = ContratoNumero("001") + 1;
  t.situaciones[2].dias = "15";
  t.situaciones[2].porcentaje = "50";
  SituacionDemo& last = t.situaciones[3];
  last.periodo = {Day(2001, 5, 1), std::nullopt};
  last.description = "Ascenso de categoría";
  last.categoria = 3;
  const std::size_t fomento = ContratoNumero("002");
  last.contratos = {fomento, fomento + 1, fomento + 2};
  last.bonificaciones = {Day(2001, 5, 1),  Day(2001, 10, 31), Day(2001, 11, 1),
                         Day(2002, 4, 30), Day(2002, 5, 1),   std::nullopt};
}

void SickLeaves(TrabajadorDemo& t) {
  t.incidencias_it = {{"1", {Day(2000, 1, 10), Day(2000, 1, 28)}}, {"4", {Day(2000, 10, 2), Day(2000, 10, 20)}},
                      {"2", {Day(2001, 1, 8), Day(2001, 4, 29)}},  {"3", {Day(2001, 10, 1), Day(2001, 10, 31)}},
                      {"5", {Day(2002, 2, 4), Day(2002, 2, 15)}},  {"1", {Day(2002, 12, 2), std::nullopt}}};
  t.incidencias_esp = {{"1", {Day(2000, 8, 1), Day(2000, 8, 31)}}, {"2", {Day(2002, 6, 20), Day(2002, 6, 20)}}};
}

void LargeFamily(TrabajadorDemo& t, std::initializer_list<int> births, std::string_view grado) {
  t.anual = 3'400'000;
  t.birth = Day(1956, 2, 29);
  t.grado = grado;
  for (const int year : births) t.hijos.push_back({year, 'N', '0'});
}

using Case = void (*)(TrabajadorDemo&);
constexpr std::array<Case, kDemoCases> kCases = {
    [](TrabajadorDemo& t) {
      t.anual = 3'200'000;
      t.situacion_familiar = "2";
      t.conyuge = Nif(77'000'001);
      t.hijos = {{1990, 'N', '0'}, {1994, 'N', '0'}};
    },
    [](TrabajadorDemo&) {},
    [](TrabajadorDemo& t) {
      t.anual = 900'000;
      PartTime(t);
    },
    [](TrabajadorDemo& t) { t.anual = 1'300'000; },
    [](TrabajadorDemo& t) {
      t.anual = 1'000'000;
      Contract(t, "I", "003");
    },
    [](TrabajadorDemo& t) {
      t.anual = 2'000'000;
      Contract(t, "R", "006");
    },
    [](TrabajadorDemo& t) {
      t.anual = 2'400'000;
      t.birth = Day(1932, 11, 5);
      t.situacion = "P";
    },
    [](TrabajadorDemo& t) { t.situacion = "D"; },
    [](TrabajadorDemo& t) {
      t.anual = 15'000'000;
      t.situaciones[0].categoria = 0;
      t.situaciones[0].puesto = "Dirección";
    },
    [](TrabajadorDemo& t) {
      t.anual = 2'600'000;
      t.grado = "3";
    },
    [](TrabajadorDemo& t) {
      t.anual = 5'200'000;
      t.birth = Day(1955, 9, 14);
      t.situacion_familiar = "1";
      t.hijos = {{1974, 'N', '0'}, {1975, 'S', '1'}, {1976, 'N', '2'}, {1980, 'S', '0'}, {1985, 'N', '1'},
                 {1986, 'S', '0'}, {1997, 'S', '2'}, {1998, 'N', '0'}, {2000, 'S', '0'}, {2001, 'N', '0'}};
    },
    [](TrabajadorDemo& t) {
      t.ascendientes = {{1, '0'}, {2, '1'}, {3, '2'}, {9, '0'}};
    },
    FourSituations,
    [](TrabajadorDemo& t) {
      t.baja = t.situaciones[0].periodo.end = Day(2001, 6, 30);
      t.motivo_baja = "Baja voluntaria";
    },
    [](TrabajadorDemo& t) {
      t.anual = 3'000'000;
      t.acumuladas = 1'400'000;
      t.retencion_acumulada = 196'000;
      t.iniciales = 2'800'000;
      t.retencion_inicial = 392'000;
      t.monedas_mezcladas = true;
    },
    [](TrabajadorDemo& t) {
      t.anual = 4'000'000;
      t.alta = t.antiguedad = t.situaciones[0].periodo.start = Day(2002, 1, 7);
      t.euros = true;
      t.id_type = "4";
      t.id = Nie(1'234'516);
    },
    [](TrabajadorDemo& t) {
      t.apellido1 = "Fernández de Córdoba";
      t.apellido2 = "Ruiz-Castañeda Güell";
      t.nombre = "María Magdalena";
    },
    [](TrabajadorDemo& t) {
      t.apellido1 = "O'Donnell";
      t.id_type = "6";
      t.id = Nie(1'234'567);
    },
    SickLeaves,
    [](TrabajadorDemo& t) {
      t.anual = 3'600'000;
      t.ceuta = true;
      t.lugar = kLugares.size() - 1;
      t.codigo_postal = "51001";
      t.compensatoria = 600'000;
      t.anualidades = 480'000;
    },
    [](TrabajadorDemo& t) {
      t.situacion_familiar = "";
      t.anual.reset();
    },
    [](TrabajadorDemo& t) {
      LargeFamily(t, {1979, 1982, 1984, 1988, 1991, 1993, 1996, 1999}, "1");
      t.id_type = "2";
      t.id = "PA000022";
    },
    [](TrabajadorDemo& t) {
      LargeFamily(t, {1977, 1978, 1981, 1983, 1987, 1989, 1992, 1995}, "2");
      t.id_type = "3";
      t.id = Nie(1'234'523);
    },
};

}  // namespace

void AplicaCaso(TrabajadorDemo& t) {
  if (t.number > kDemoCases) return;
  Plain(t);
  kCases[static_cast<std::size_t>(t.number - 1)](t);
}

}  // namespace zendara
