// What the title bar, the heading and the status line say: who is on the screen, where among the others, and what the
// field with the focus takes.
#include <cstdint>

#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "values/valor_numero.hpp"
#include "workers/familia.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using enum CampoTrabajador;

namespace {

constexpr std::string_view kNumeroMedio = "50000";

}  // namespace

std::string Trabajadores::QuienEs(const std::string& numero) const {
  std::string nombre;
  const auto anade = [&](CampoTrabajador campo, std::string_view separador) {
    const std::string texto = TextoRecortado(campo);
    if (!texto.empty()) nombre += (nombre.empty() ? "" : std::string(separador)) + texto;
  };
  anade(kApellido1, "");
  anade(kApellido2, " ");
  anade(kNombre, ", ");
  return nombre.empty() ? numero : numero + " " + nombre;
}

std::string Trabajadores::Subject() const {
  if (TrabajadorAnterior.empty()) return {};
  return QuienEs(TrabajadorAnterior) + (ficha_.Mostro(kNumero, TrabajadorAnterior) ? "" : " (alta nueva)");
}

std::string Trabajadores::Position() const {
  if (posicion_.empty() || situaciones_.empty()) return posicion_;
  const std::string todas = std::to_string(situaciones_.size());
  if (Situaciones.Marked() == RowPicker::kNoRow) return posicion_ + " · " + todas + " situaciones";
  return posicion_ + " · Situación " + std::to_string(Situaciones.Marked()) + " de " + todas;
}

// Counts from the nearer end of the numbers, so that half of them are counted at most. REQUIRES: BDEmpresa is the
// company's file.
void Trabajadores::CuentaTrabajadores() {
  const std::string numero = TextoRecortado(kNumero);
  const bool desde_el_final = numero > kNumeroMedio;
  const std::int64_t todos = sesion_.Tabla(kTrabajadoresFijo).RecordCount();
  const auto cuenta =
      sesion_.BDEmpresa->OpenRecordset("SELECT Count(*) FROM TrabajadoresFijo WHERE Campo0 " +
                                       std::string(desde_el_final ? ">" : "<=") + " '" + SqlText(numero) + "'");
  const auto contados = static_cast<std::int64_t>(CDbl(cuenta->Fields(0).Get()));
  posicion_ = "Trabajador " + GroupThousands(std::to_string(desde_el_final ? todos - contados : contados)) + " de " +
              GroupThousands(std::to_string(todos));
}

std::string Trabajadores::Expected() const {
  const Control* foco = Focus();
  if (!foco) return {};
  if (foco == &Situaciones) return "Flechas: otra situación · Intro: la muestra";
  if (const Grid* rejilla = Grid1.Focused()) return std::string(EsperaFamilia(*rejilla));
  if (Text2.Focused()) return "Importe";
  const Campo* campo = ficha_.CampoDe(foco->Index());
  return campo && ficha_.ControlDe(campo->indice) == foco ? EsperaDe(*campo) : std::string();
}

}  // namespace zendara
