// The withholding calculation: a pure function of a worker's figures and the year's parameter row.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "zendara/value.hpp"

namespace zendara {

// Amounts are texts with a decimal comma, as columns and fields hold them.
struct Hijo {
  double edad = 0;         // year of the working year's end less the year of birth
  std::string por_entero;  // "N" weighs 1, anything else 2
  std::string grado;       // disability, "0" to "2"
};

struct Ascendiente {
  std::string convivencia;  // persons who share the ascendant's minimum, "1" to "9"; empty: none
  std::string grado;
};

inline constexpr int kFilasFamilia = 10;

struct EntradasIRPF {
  std::string SituacionPerceptor;  // "A", "D", "P"
  std::string TipoContrato;        // "G", "I", "R"; empty for "D" and "P"
  std::string SituacionFamiliar;   // "1", "2", "3"
  std::string GradoMinusvalia;     // "0" to "3"
  std::string CeutaMelilla;        // only "S" has an effect
  Value FechaNacimiento;           // Null or empty: no age; two digits of a year end with the working year
  std::string RetribucionesAnuales;
  std::string RentasIrregulares;
  std::string GastosAnuales;
  std::string Anualidades;
  std::string RetribucionesAcumuladas;  // regularisation only
  std::string RetencionAcumulada;       // regularisation only
  std::array<Hijo, kFilasFamilia> Hijos;
  std::array<Ascendiente, kFilasFamilia> Ascendientes;
};

// The year's row of table IRPF, Campo0 to Campo74 as numbers.
using ParametrosIRPF = std::array<double, 75>;

struct CondicionesIRPF {
  std::string ano;  // working year, two digits: the year's end is 31/12/20 followed by it
  bool pesetas = true;
  bool regularizacion = false;
};

// Every step of one calculation, each figure as the text that the calculation holds at that point; for the clerk who
// asks where a rate comes from. A zero may stand as the empty text; a base below zero is "0".
struct DesgloseIRPF {
  std::string rendimiento_neto;
  std::string reduccion_trabajo;
  std::string minimo_personal;
  std::string minimo_familiar;
  std::string deduccion_pensionista;
  std::string deduccion_desempleado;
  std::string deduccion_familia_numerosa;
  std::string base_retencion;
  int edad = -1;  // -1: no date of birth
  int cuenta_hijos = 0;
  int hijos_primeros = 0;
  int hijos_siguientes = 0;
  int hijos_escolares = 0;
  int hijos_menores = 0;
  int hijos_minusvalia1 = 0;
  int hijos_minusvalia2 = 0;
  int hijos_limite = 0;
  int ascendientes = 0;
  int tramo = -1;  // row of the scale from 0; -1: none was taken
  std::string tramo_desde;
  std::string tramo_cuota;
  std::string tramo_tipo;
  std::string tramo_resto;         // what of the base exceeds the bracket's start
  std::string cuota_escala;        // amount that the scale gives
  std::string limite_sin_aumento;  // from this one the cap is measured
  std::string limite;              // no-withholding limit with its increase
  bool bajo_limite = false;        // the remuneration does not exceed the limit
  std::string tope;                // the cap, empty when there is none for this remuneration
  bool tope_aplicado = false;
  std::string cuota_retencion;  // amount after the cap
  std::string tipo_sin_ceuta;   // rate before the halving of Ceuta and Melilla; empty for zero
  std::string tipo_calculado;   // rate before the minimum rates; empty for zero
  std::string tipo_minimo;      // minimum rate of the contract class that was applied, empty if none
  std::string tipo;             // the result
};

// Year in which the working year ends, that of the date 31/12/20 followed by `ano`. Error 13 when that is no date.
int AnoFin(std::string_view ano);

// `tipo` is the rate: decimal comma, at most two decimals, "0" when nothing is to be withheld. Run-time errors of the
// calculation go to the caller: 3265 when the scale does not start at 0 and the base lies below it, 6 on overflow, 13
// when the date of birth is no date.
DesgloseIRPF CalculaTipoIRPF(const EntradasIRPF& entradas, const ParametrosIRPF& parametros,
                             const CondicionesIRPF& condiciones);

}  // namespace zendara
