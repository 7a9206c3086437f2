// The rows of a worker as the worker screen writes them: every column set, empty fields as empty texts, dates as dates.
#include "apps/demo/code_tables.hpp"
#include "apps/demo/people.hpp"
#include "apps/demo/worker.hpp"
#include "values/comprobar_cuenta.hpp"
#include "values/identificaciones.hpp"

namespace zendara {
namespace {

Value OptionalDate(const std::optional<Date>& date) { return date ? Value(*date) : Value(); }

// An amount that is not there is an empty field.
std::string Amount(const TrabajadorDemo& t, double pesetas) {
  return pesetas == 0 ? std::string() : Importe(pesetas, t.euros);
}

std::string Letter(char c) { return std::string(1, c); }

}  // namespace

std::array<Value, 91> FilaFijo(const TrabajadorDemo& t) {
  std::array<Value, 91> row;
  row.fill("");
  const Lugar& lugar = kLugares[t.lugar];
  const std::string_view head[] = {t.apellido1, t.apellido2, t.nombre, t.id_type, t.id, lugar.codigo, t.afiliacion};
  row[0] = t.Codigo();
  for (std::size_t i = 0; i < std::size(head); ++i) row[1 + i] = head[i];
  row[8] = ControlAfiliacion(lugar.codigo, t.afiliacion);
  const std::string_view address[] = {
      kCalles[t.calle].code, t.domicilio,     t.numero,        t.escalera, t.piso, t.puerta,
      lugar.municipio,       lugar.provincia, t.codigo_postal, t.telefono};
  for (std::size_t i = 0; i < std::size(address); ++i) row[9 + i] = address[i];
  row[19] = t.birth;
  row[20] = t.situacion;
  row[21] = t.clase;
  row[22] = t.situacion_familiar;
  row[23] = t.conyuge;
  row[24] = t.grado;
  for (std::size_t i = 0; i < t.hijos.size(); ++i) {
    row[25 + 3 * i] = std::to_string(t.hijos[i].birth_year);
    row[26 + 3 * i] = Letter(t.hijos[i].por_entero);
    row[27 + 3 * i] = Letter(t.hijos[i].grado);
  }
  for (std::size_t i = 0; i < t.ascendientes.size(); ++i) {
    row[55 + 2 * i] = std::to_string(t.ascendientes[i].convivencia);
    row[56 + 2 * i] = Letter(t.ascendientes[i].grado);
  }
  const double annual = t.anual.value_or(0);
  const double amounts[] = {annual, static_cast<double>(t.irregulares),
                            annual * 0.0635,  // the worker's part of social security
                            static_cast<double>(t.compensatoria), static_cast<double>(t.anualidades)};
  for (std::size_t i = 0; i < std::size(amounts); ++i) row[75 + i] = Amount(t, amounts[i]);
  row[80] = t.ceuta ? "1" : "0";
  const int so_far[] = {t.acumuladas, t.retencion_acumulada, t.iniciales, t.retencion_inicial};
  for (std::size_t i = 0; i < std::size(so_far); ++i) row[81 + i] = Amount(t, so_far[i]);
  row[85] = t.entidad;
  row[86] = t.oficina;
  row[87] = t.cuenta.empty() ? std::string() : ControlCuenta(t.entidad, t.oficina, t.cuenta);
  row[88] = t.cuenta;
  row[89] = kFormasPago[t.forma_pago].code;
  row[90] = kFormasPago[t.forma_pago].name;
  return row;
}

std::array<Value, 54> FilaVar(const TrabajadorDemo& t, std::size_t situacion) {
  const SituacionDemo& s = t.situaciones.at(situacion);
  const bool last = situacion + 1 == t.situaciones.size();
  std::array<Value, 54> row;
  row.fill("");
  row[0] = t.Codigo();
  row[1] = Digits(static_cast<int>(situacion) + 1, 3);
  row[2] = s.description;
  row[3] = s.periodo.start;
  row[4] = OptionalDate(s.periodo.end);
  row[5] = t.alta;
  row[6] = last ? OptionalDate(t.baja) : Value();
  row[7] = last ? t.motivo_baja : "";
  row[8] = t.antiguedad;
  row[9] = Digits((t.number - 1) % 9999 + 1, 4);
  const Convenio& convenio = kConvenios[s.convenio];
  const Categoria& categoria = convenio.categorias[s.categoria];
  const Code& tarifa = kGruposTarifa[static_cast<std::size_t>(categoria.grupo_tarifa - 1)];
  const std::string_view post[] = {convenio.code,
                                   convenio.name,
                                   categoria.code,
                                   categoria.name,
                                   s.puesto,
                                   kEpigrafes[s.epigrafe].code,
                                   kEpigrafes[s.epigrafe].name,
                                   tarifa.code,
                                   tarifa.name,
                                   kContratos[*s.contratos[0]].number};
  for (std::size_t i = 0; i < std::size(post); ++i) row[10 + i] = post[i];
  for (std::size_t i = 0; i < s.contratos.size(); ++i) {
    const std::size_t at = 20 + 6 * i;
    if (s.contratos[i]) {
      const Contrato& c = kContratos[*s.contratos[i]];
      row[at] = c.type;
      row[at + 1] = c.modalidad;
      row[at + 2] = c.disposicion;
      row[at + 3] = c.percent;
    }
    row[at + 4] = OptionalDate(s.bonificaciones[2 * i]);
    row[at + 5] = OptionalDate(s.bonificaciones[2 * i + 1]);
  }
  const std::string_view rest[] = {s.dias,      s.horas,     s.porcentaje,  s.complementarias, s.presencial,
                                   s.distancia, s.tipo_irpf, s.pluriempleo, s.ocupacion};
  for (std::size_t i = 0; i < std::size(rest); ++i) row[38 + i] = rest[i];
  row[47] = s.autonomo ? "1" : "0";
  row[48] = s.asimilado ? "1" : "0";
  row[49] = kCentros[s.centro].code;
  row[50] = kCentros[s.centro].name;
  row[51] = kSecciones[s.seccion].code;
  row[52] = kSecciones[s.seccion].name;
  row[53] = s.prestaciones ? "1" : "0";
  return row;
}

}  // namespace zendara
