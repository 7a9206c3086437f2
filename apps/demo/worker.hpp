// One worker of the demonstration company, as drawn, and the rows that the screens would have stored of him.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/value.hpp"

namespace zendara {

// First and last day of an interval, without an end while it is open.
struct Periodo {
  Date start;
  std::optional<Date> end;

  bool Covers(Date first, Date last) const { return start <= last && (!end || *end >= first); }
};

struct HijoDemo {
  int birth_year;
  char por_entero;  // 'S', 'N'
  char grado;       // '0' to '2'
};

struct AscendienteDemo {
  int convivencia;
  char grado;
};

struct SituacionDemo {
  Periodo periodo;
  std::string_view description;
  std::size_t convenio = 0;  // positions in the code tables
  std::size_t categoria = 0;
  std::size_t epigrafe = 0;
  std::size_t centro = 0;
  std::size_t seccion = 0;
  std::string_view puesto;
  // Rows of kContratos of one contract number; the first is always there.
  std::array<std::optional<std::size_t>, 3> contratos;
  // Start and end of the three bonuses: strictly increasing, without gaps.
  std::array<std::optional<Date>, 6> bonificaciones;
  std::string_view dias, horas, porcentaje, complementarias;  // part-time
  std::string_view presencial, distancia;                     // training hours, one of them at most
  std::string tipo_irpf;
  std::string_view pluriempleo;
  std::string_view ocupacion;
  bool autonomo = false;
  bool asimilado = false;
  bool prestaciones = true;
};

struct IncidenciaDemo {
  std::string_view type;
  Periodo periodo;
};

struct TrabajadorDemo {
  int number = 0;
  std::string apellido1, apellido2, nombre;
  std::string_view id_type = "1";
  std::string id;
  std::size_t lugar = 0;
  std::string afiliacion;  // eight digits
  std::size_t calle = 0;
  std::string domicilio, numero, escalera, piso, puerta, codigo_postal, telefono;
  Date birth;
  std::string_view situacion = "A";
  std::string_view clase = "G";
  std::string_view situacion_familiar = "3";
  std::string conyuge;
  std::string_view grado = "0";
  std::vector<HijoDemo> hijos;
  std::vector<AscendienteDemo> ascendientes;
  bool euros = false;        // currency of his amounts; those below are in pesetas all the same
  std::optional<int> anual;  // annual remuneration; nothing: not entered yet
  int irregulares = 0;
  int compensatoria = 0;
  int anualidades = 0;
  int acumuladas = 0, retencion_acumulada = 0;  // of a regularisation
  int iniciales = 0, retencion_inicial = 0;
  bool ceuta = false;
  std::size_t forma_pago = 0;
  std::string entidad, oficina, cuenta;  // empty: paid otherwise

  Date alta;
  std::optional<Date> baja;
  std::string_view motivo_baja;
  Date antiguedad;
  std::vector<SituacionDemo> situaciones;
  std::vector<IncidenciaDemo> incidencias_it;
  std::vector<IncidenciaDemo> incidencias_esp;
  bool monedas_mezcladas = false;  // history rows of both currencies in 01

  // Text of the key column.
  std::string Codigo() const;
  double TipoAproximado() const;  // percent withheld in the history rows
};

// The worker of that number, with the fixed figures of the known cases.
TrabajadorDemo DibujaTrabajador(std::uint64_t seed, int number);
// Applies the known case of that number, if there is one.
void AplicaCaso(TrabajadorDemo& trabajador);

// An amount of so many pesetas as a clerk types it: whole pesetas, or euros with two decimals.
std::string Importe(double pesetas, bool euros);
// A rate with two decimals unless it is whole.
std::string Porcentaje(double rate);

std::array<Value, 91> FilaFijo(const TrabajadorDemo& trabajador);
std::array<Value, 54> FilaVar(const TrabajadorDemo& trabajador, std::size_t situacion);

}  // namespace zendara
