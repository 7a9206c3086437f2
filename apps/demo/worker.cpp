#include "apps/demo/worker.hpp"

#include <algorithm>
#include <cmath>

#include "apps/demo/code_tables.hpp"
#include "apps/demo/demo_company.hpp"
#include "apps/demo/people.hpp"
#include "apps/demo/random.hpp"
#include "apps/demo/tax_year.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

constexpr std::string_view kPuestos[] = {"Administración", "Taller", "Almacén",     "Ventas",       "Reparto",
                                         "Recepción",      "Cocina", "Informática", "Contabilidad", "Señalización"};
constexpr std::string_view kCambios[] = {"Ascenso de categoría", "Traslado de centro", "Cambio de sección",
                                         "Vuelta de excedencia"};
constexpr std::string_view kMotivosBaja[] = {"Fin de contrato", "Baja voluntaria", "Despido", "Jubilación",
                                             "Excedencia voluntaria"};
// Codes without a meaning; the payment orders of several would otherwise look like those of real banks.
constexpr std::string_view kEntidades[] = {"9001", "9002", "9015", "9130"};

Date Day(int year, int month, int day) { return MakeDate(year, month, day).value(); }
Date After(Date date, int days) { return {date.serial + days}; }
int Days(Date from, Date to) { return static_cast<int>(to.serial - from.serial); }
Date LastDay() { return Day(2002, 12, 31); }

Date RandomDay(Random& random, int year) { return After(Day(year, 1, 1), random.Between(0, 364)); }

void DrawPerson(Random& random, TrabajadorDemo& t, bool woman) {
  t.apellido1 = random.Pick(kApellidos);
  t.apellido2 = random.Chance(97) ? random.Pick(kApellidos) : std::string_view();
  t.nombre = random.Pick(woman ? kNombresMujer : kNombresHombre);

  // Spread over the numbers so that no two workers share one.
  const int unique = t.number * 599 + random.Between(0, 598);
  t.afiliacion = Digits(10'000'000 + unique, 8);
  t.id = Nif(10'000'000 + unique);
  if (random.Chance(6)) {
    t.id_type = random.Pick(std::to_array<std::string_view>({"2", "3", "4", "6", "6"}));
    t.id = t.id_type == "2" ? "PA" + Digits(unique % 1'000'000, 6) : Nie(unique % 10'000'000);
  }

  t.lugar = static_cast<std::size_t>(random.Between(0, static_cast<int>(kLugares.size()) - 1));
  t.calle = static_cast<std::size_t>(random.Between(0, static_cast<int>(kCalles.size()) - 1));
  t.domicilio = random.Pick(kNombresCalle);
  t.numero = std::to_string(random.Between(1, 250));
  if (random.Chance(20)) t.escalera = random.Pick(std::to_array<std::string_view>({"A", "B", "IZQ", "DCH"}));
  if (random.Chance(75)) t.piso = std::to_string(random.Between(1, 12)) + "º";
  if (!t.piso.empty()) t.puerta = random.Pick(std::to_array<std::string_view>({"A", "B", "C", "D", "IZ", "DR"}));
  t.codigo_postal = std::string(kLugares[t.lugar].codigo) + Digits(random.Between(1, 80), 3);
  if (random.Chance(90)) t.telefono = "555" + Digits(random.Between(0, 999'999), 6);  // a prefix that nobody has
}

void DrawEmployment(Random& random, TrabajadorDemo& t) {
  const int birth_year = random.Between(1936, 1984);
  t.birth = RandomDay(random, birth_year);
  const int first_year = std::max(1975, birth_year + 17);
  const int hired = random.Chance(12) ? 2002 : random.Between(first_year, 2002);
  t.alta = RandomDay(random, hired);
  const int served = Days(t.alta, LastDay());
  if (served > 90 && random.Chance(15)) {
    t.baja = After(t.alta, random.Between(60, served));
    t.motivo_baja = random.Pick(kMotivosBaja);
  }
  t.antiguedad = random.Chance(90) ? t.alta : After(t.alta, -random.Between(30, 700));
  t.euros = hired == 2002;
}

// Bonuses of a promotion contract: one period a year, the next one after the one before.
void DrawBonuses(Random& random, SituacionDemo& s) {
  const std::size_t first = ContratoNumero("002");
  const bool older = random.Chance(25);
  s.contratos[0] = older ? first + 2 : first;
  s.bonificaciones[0] = s.periodo.start;
  const Date last = s.periodo.end.value_or(LastDay());
  if (Days(s.periodo.start, last) < 800) return;
  s.bonificaciones[1] = After(s.periodo.start, 364);
  if (older) return;
  s.contratos[1] = first + 1;
  s.bonificaciones[2] = After(s.periodo.start, 365);
  if (random.Chance(50)) s.bonificaciones[3] = After(s.periodo.start, 729);
}

void DrawContract(Random& random, const TrabajadorDemo& t, SituacionDemo& s) {
  const bool apprentice = kConvenios[s.convenio].categorias[s.categoria].grupo_tarifa == 11;
  const bool part_time = !apprentice && random.Chance(12);
  if (part_time) {
    const bool days = random.Chance(50);
    s.dias = days ? "LMX" : "15";
    s.horas = random.Pick(std::to_array<std::string_view>({"4", "5", "3,5"}));
    s.porcentaje = random.Pick(std::to_array<std::string_view>({"50", "62,5", "40"}));
    if (random.Chance(30)) s.complementarias = "20";
  }
  if (apprentice) {
    s.contratos[0] = ContratoNumero("004");
    (random.Chance(50) ? s.presencial : s.distancia) = "240";
  } else if (t.clase == "R") {
    s.contratos[0] = ContratoNumero("006");
  } else if (t.clase == "I") {
    s.contratos[0] = part_time ? ContratoNumero("005") : ContratoNumero("003") + (random.Chance(50) ? 1 : 0);
  } else if (part_time) {
    s.contratos[0] = ContratoNumero("001") + 1;
  } else if (random.Chance(25)) {
    DrawBonuses(random, s);
  } else {
    s.contratos[0] = ContratoNumero("001");
  }
}

// `count` intervals that follow each other without a gap from `alta` on; the last ends with `baja`, if there is one.
std::vector<Periodo> Split(Random& random, Date alta, std::optional<Date> baja, int count) {
  const int total = Days(alta, baja.value_or(LastDay()));
  count = std::clamp(total / 60, 1, count);
  std::vector<Periodo> periods(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const int jitter = i == 0 ? 0 : random.Between(-total / (4 * count), total / (4 * count));
    periods[static_cast<std::size_t>(i)].start = After(alta, total * i / count + jitter);
    if (i > 0) periods[static_cast<std::size_t>(i - 1)].end = After(periods[static_cast<std::size_t>(i)].start, -1);
  }
  periods.back().end = baja;
  return periods;
}

void DrawSituations(Random& random, TrabajadorDemo& t) {
  const int draw = random.Between(1, 100);
  const int count = draw <= 45 ? 1 : draw <= 75 ? 2 : draw <= 90 ? 3 : 4;
  const bool minor = t.birth >= Day(1984, 1, 1);
  const std::size_t convenio = random.Chance(60) ? 0 : static_cast<std::size_t>(random.Between(1, 2));
  const auto& categorias = kConvenios[convenio].categorias;
  std::size_t categoria = minor ? categorias.size() - 1
                                : static_cast<std::size_t>(random.Between(0, static_cast<int>(categorias.size()) - 2));
  for (const Periodo& periodo : Split(random, t.alta, t.baja, count)) {
    SituacionDemo s;
    s.periodo = periodo;
    s.convenio = convenio;
    s.categoria = categoria;
    s.description = t.situaciones.empty() ? "Contrato inicial" : random.Pick(kCambios);
    s.epigrafe = static_cast<std::size_t>(random.Between(0, static_cast<int>(kEpigrafes.size()) - 1));
    s.centro = static_cast<std::size_t>(random.Between(0, static_cast<int>(kCentros.size()) - 1));
    s.seccion = static_cast<std::size_t>(random.Between(0, static_cast<int>(kSecciones.size()) - 1));
    s.puesto = random.Pick(kPuestos);
    if (random.Chance(3)) s.pluriempleo = "50";
    if (random.Chance(40)) s.ocupacion = random.Pick(std::to_array<std::string_view>({"000010", "000021", "000145"}));
    s.autonomo = random.Chance(1);
    s.asimilado = random.Chance(2);
    s.prestaciones = random.Chance(97);
    DrawContract(random, t, s);
    t.situaciones.push_back(std::move(s));
    if (categoria > 0 && !minor && random.Chance(40)) --categoria;
  }
}

void DrawFamily(Random& random, TrabajadorDemo& t) {
  const int birth_year = PartsOf(t.birth).year;
  if (random.Chance(55)) {
    int born = birth_year + random.Between(19, 33);
    const int count = random.Chance(3) ? random.Between(4, 10) : random.Between(1, 3);
    for (int i = 0; i < count && born <= 2002; ++i, born += random.Between(1, 4))
      t.hijos.push_back({born, 'N', random.Chance(5) ? (random.Chance(70) ? '1' : '2') : '0'});
  }
  const bool young = std::ranges::any_of(t.hijos, [](const HijoDemo& h) { return h.birth_year > 1984; });
  if (young && random.Chance(12)) {
    t.situacion_familiar = "1";
    for (HijoDemo& h : t.hijos) h.por_entero = 'S';
  } else if (random.Chance(25)) {
    t.situacion_familiar = "2";
    t.conyuge = Nif(70'000'000 + t.number * 7);
  }
  if (random.Chance(8)) {
    const int count = random.Between(1, 2);
    for (int i = 0; i < count; ++i)
      t.ascendientes.push_back(
          {random.Between(1, 4), random.Chance(70) ? '0' : static_cast<char>('0' + random.Between(1, 2))});
  }
}

void DrawPay(Random& random, TrabajadorDemo& t) {
  const SituacionDemo& current = t.situaciones.back();
  const Sueldo range = SueldoDeGrupo(kConvenios[current.convenio].categorias[current.categoria].grupo_tarifa);
  const double u = random.Between(0, 1000) / 1000.0;
  double annual = range.low + (range.high - range.low) * u * u;  // more low pays than high ones
  if (current.porcentaje == "50") annual *= 0.5;
  if (current.porcentaje == "62,5") annual *= 0.625;
  if (current.porcentaje == "40") annual *= 0.4;
  t.anual = static_cast<int>(annual / 1000) * 1000;
  if (random.Chance(2)) t.irregulares = *t.anual / 10;
  if (random.Chance(2)) t.compensatoria = 240'000;
  if (random.Chance(2)) t.anualidades = 360'000;
  t.ceuta = kLugares[t.lugar].provincia == "Ceuta";
  if (t.number > kDemoCases && random.Chance(2)) {
    t.iniciales = *t.anual / 10 * 9;
    t.retencion_inicial = static_cast<int>(t.iniciales * t.TipoAproximado() / 100);
    t.acumuladas = *t.anual / 2;
    t.retencion_acumulada = t.retencion_inicial / 2;
  }

  t.forma_pago = random.Chance(85) ? (random.Chance(90) ? 0 : 3) : (random.Chance(50) ? 1 : 2);
  if (t.forma_pago == 0 || t.forma_pago == 3) {
    t.entidad = random.Pick(kEntidades);
    t.oficina = Digits(random.Between(1, 9999), 4);
    t.cuenta = Digits(random.Between(0, 99'999), 5) + Digits(random.Between(0, 99'999), 5);
  }
}

// At most one incident in each of four seasons of a year, so that none meets another.
void DrawIncidents(Random& random, TrabajadorDemo& t, bool woman) {
  const auto add = [&](std::vector<IncidenciaDemo>& list, std::string_view type, Date start, int days) {
    const Date end = After(start, days - 1);
    if (start > t.alta && end < t.baja.value_or(LastDay())) list.push_back({type, {start, end}});
  };
  for (int year = 2000; year <= 2002; ++year) {
    if (random.Chance(7)) {
      const bool birth = woman && random.Chance(25);
      add(t.incidencias_it,
          birth               ? "2"
          : random.Chance(70) ? "1"
                              : "3",
          Day(year, 1, random.Between(3, 14)), birth ? 112 : random.Between(3, 40));
    }
    if (random.Chance(5)) add(t.incidencias_esp, "2", Day(year, 5, 15), random.Between(1, 3));
    if (random.Chance(30)) add(t.incidencias_esp, "1", Day(year, 8, random.Between(1, 5)), random.Between(10, 25));
    if (random.Chance(4))
      add(t.incidencias_it, random.Chance(60) ? "4" : "5", Day(year, 10, random.Between(3, 14)), random.Between(3, 40));
  }
  if (!t.baja && random.Chance(1) && t.alta < Day(2002, 12, 2)) {
    t.incidencias_it.push_back({"1", {Day(2002, 12, 2), std::nullopt}});
  }
}

}  // namespace

TrabajadorDemo DibujaTrabajador(std::uint64_t seed, int number) {
  Random random(seed, static_cast<std::uint64_t>(number));
  TrabajadorDemo t;
  t.number = number;
  const bool woman = random.Chance(48);
  DrawPerson(random, t, woman);
  DrawEmployment(random, t);
  const int classes = random.Between(1, 100);
  t.clase = classes <= 12 ? "I" : classes <= 15 ? "R" : "G";
  if (random.Chance(3)) t.situacion = "D";
  if (PartsOf(t.birth).year < 1942 && random.Chance(30)) t.situacion = "P";
  if (random.Chance(5)) t.grado = random.Pick(std::to_array<std::string_view>({"1", "2", "3"}));
  DrawSituations(random, t);
  DrawFamily(random, t);
  DrawPay(random, t);
  DrawIncidents(random, t, woman);
  AplicaCaso(t);
  // The rate of the current situación is left to the clerk; past ones carry what was withheld then.
  for (SituacionDemo& s : t.situaciones)
    if (s.periodo.end) s.tipo_irpf = Porcentaje(t.TipoAproximado());
  return t;
}

std::string TrabajadorDemo::Codigo() const { return Digits(number % kMaxDemoWorkers, 5); }

double TrabajadorDemo::TipoAproximado() const {
  const int pay = anual.value_or(0);
  return pay < 1'300'000 ? 0 : pay < 2'000'000 ? 6.5 : pay < 3'000'000 ? 12.25 : pay < 5'000'000 ? 18 : 29.75;
}

std::string Importe(double pesetas, bool euros) {
  if (!euros) return std::to_string(std::llround(pesetas));
  const long long cents = std::llround(Euros(pesetas) * 100);
  return std::to_string(cents / 100) + "," + Digits(static_cast<int>(cents % 100), 2);
}

std::string Porcentaje(double rate) {
  const int hundredths = static_cast<int>(std::lround(rate * 100));
  std::string text = std::to_string(hundredths / 100);
  if (hundredths % 100 != 0) text += "," + Digits(hundredths % 100, 2);
  return text;
}

}  // namespace zendara
