#include <array>

#include "common/pantalla_base.hpp"

namespace zendara {
namespace {

struct Pista {
  std::string_view control;
  std::string_view texto;
};

// Some of these buttons stand on the host's screens alone.
constexpr std::array<Pista, 12> kPistas = {{
    {"Salir", " Salir sin grabar los cambios "},
    {"Calculadora", " Muestra la calculadora "},
    {"Impresora", " Impresión del modelo "},
    {"Pendientes", " Modelos pendientes de impresión "},
    {"Borrar", " Borra el periodo seleccionado "},
    {"Cancela", " Cancela las modificaciones "},
    {"Grabar", " Graba los datos del modelo "},
    {"Automatico", " Cambia el modo de calculo "},
    {"SistemaRed", " Genera fichero F.A.N. "},
    {"Eliminar", " Elimina los datos del Sistema Red "},
    {"BorrarTodo", " Elimina todos datos del Sistema Red "},
    {"Mensaje", " General fichero A.F.I. "},
}};

}  // namespace

std::string_view PistaPorDefecto(std::string_view control, std::string_view formulario) {
  if (control == "Borrar" && formulario == "MConGeneral") return " Borra la Categoría Activa ";
  for (const Pista& pista : kPistas) {
    if (pista.control == control) return pista.texto;
  }
  return {};
}

void PantallaBase::PonPista(std::string_view texto, Control& control) {
  if (texto.empty()) texto = PistaPorDefecto(control.Name(), Name());
  if (!texto.empty()) control.SetToolTipText(texto);
}

}  // namespace zendara
