#include "workers/ayuda_trabajador.hpp"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "common/ayuda.hpp"
#include "workers/campos_trabajador.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;

// The sections by the first of their fields.
struct SeccionCampos {
  CampoTrabajador desde;
  std::string_view enlace;
};
constexpr SeccionCampos kSecciones[] = {
    {kNumero, "#cabecera"},
    {kTipoIdentificacion, "#pestaña-datos-trabajador"},
    {kSituacionPerceptor, "#pestaña-irpf"},
    {kRetribuciones, "#pestaña-irpf-2"},
    {kEntidad, "#pestaña-cuenta-bancaria"},
    {kSituacion, "#pestaña-situación-descripción"},
    {kNumeroContrato, "#pestaña-situación-contrato"},
    {kDiasParcial, "#pestaña-situación-parcialformación"},
    {kPorcentajeIRPF, "#pestaña-situación--irpf"},
    {kCentro, "#pestaña-situación-centro-trabajo"},
    {kPrestaciones, "#pestaña-situación--irpf"},
};

HelpPlace AyudaDeCampo(const Control& control) {
  const auto campo = static_cast<CampoTrabajador>(control.Index());
  const auto* detras = std::ranges::upper_bound(kSecciones, campo, {}, &SeccionCampos::desde);
  return {.link = std::string(std::prev(detras)->enlace), .words = PalabrasDe(control)};
}

}  // namespace

HelpPlace AyudaDe(const Control& control) {
  if (control.Name() == "Grid1") {
    return {.link = "#pestaña-irpf", .words = control.Index() == kHijos ? "Hijos." : "Ascendientes."};
  }
  if (control.Name() == "Situaciones") {
    return {.link = "#pestaña-situación-descripción", .words = PalabrasDe(control)};
  }
  if (control.Name() == "Text2") return {.link = "tipo_retencion.md#regularizar", .words = PalabrasDe(control)};
  if (control.Kind() == ControlKind::kButton) {
    return {.link = "#botones", .words = PalabrasDe(control)};
  }
  for (const std::string_view campos : {"Text1", "Combo1", "Check1"}) {
    if (control.Name() == campos) return AyudaDeCampo(control);
  }
  return {};
}

}  // namespace zendara
