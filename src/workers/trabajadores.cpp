#include "workers/trabajadores.hpp"

#include <algorithm>

#include "frame/catalogo.hpp"
#include "frame/parametros.hpp"
#include "runtime/text.hpp"
#include "workers/trabajador_consultas.hpp"

namespace zendara {
namespace {

using namespace campo;

constexpr std::string_view kProgramaSinIncidencias = "05";
constexpr int kContextoAyuda = 20004;

// Esc leaves the screen while one of these is empty.
constexpr int kObligatorios[] = {kNumero,   kIdentificacion, kSituacion,      kFechaInicio, kFechaAlta,
                                 kConvenio, kEpigrafe,       kNumeroContrato, kTipo1,       kCentro};

// Where the focus goes when a page is turned, by page; kNoIndex: nowhere.
constexpr int kFocoDeTab1[] = {kNoIndex, kSituacionPerceptor, kRetribuciones, kEntidad, kNoIndex};
constexpr int kFocoDeTab2[] = {kSituacion, kNumeroContrato, kDiasParcial, kPorcentajeIRPF, kCentro};

Marco MarcoTrabajadores() {
  return {std::string(kPantallaTrabajadores),
          "Trabajadores",
          kContextoAyuda,
          {
              {"Anterior", " Registro anterior "},
              {"Siguiente", " Registro siguiente "},
              {"Inicio", " Registro inicial "},
              {"Fin", " Registro Final "},
              {"Grabar", " Graba los datos del trabajador "},
              {"Pendientes", " Relación de trabajadores "},
              {"CmdIncidenciasIT", " Dar de alta una Incidencias de situaciones IT "},
              {"CmdIncidenciasESP", " Dar de alta una Incidencias de situaciones especial "},
              {"CmdIncidenciasVar", " Dar de alta una Incidencias de situaciones variables "},
          }};
}

}  // namespace

Trabajadores::Trabajadores(Sesion& sesion, RegistroPantallas& pantallas)
    : PantallaBase(sesion, pantallas, MarcoTrabajadores()) {
  ficha_.CreaControles();
  for (const ConsultaTrabajador& consulta : ConsultasTrabajador()) Image1.Add(consulta.indice);
  PonRotulos();
  ficha_.PreparaGrids();
  SetLayout(Disposicion());
  Conecta();
  ConectaMarco();
}

void Trabajadores::Conecta() {
  grabar_ = &Grabar;
  inicio_ = &Inicio;
  anterior_ = &Anterior;
  siguiente_ = &Siguiente;
  fin_ = &Fin;

  const auto guardado = [this](void (Trabajadores::*rutina)()) {
    return [this, rutina](int) { Guarda([&] { (this->*rutina)(); }); };
  };
  Inicio.On().click = guardado(&Trabajadores::IrAInicio);
  Anterior.On().click = guardado(&Trabajadores::IrAAnterior);
  Siguiente.On().click = guardado(&Trabajadores::IrASiguiente);
  Fin.On().click = guardado(&Trabajadores::IrAFin);

  const auto incidencias = [this](std::string_view pantalla, bool con_situacion) {
    return [this, pantalla, con_situacion](int) { Guarda([&] { AbreIncidencias(pantalla, con_situacion); }); };
  };
  CmdIncidenciasIT.On().click = incidencias("MIncidencias", false);
  CmdIncidenciasESP.On().click = incidencias("MIncidenciasESP", false);
  CmdIncidenciasVar.On().click = incidencias("MIncidenciasVAR", true);
  Pendientes.On().click = [this](int) { Guarda([this] { pantallas_.Muestra("ListadoTrabajador"); }); };

  const auto foco = [this](int indice) {
    if (indice != kNoIndex) ficha_.Campo(indice)->SetFocus();
  };
  Tab1.On().click = [this, foco](int) { foco(kFocoDeTab1[Tab1.Tab()]); };
  Tab2.On().click = [this, foco](int) { foco(kFocoDeTab2[Tab2.Tab()]); };

  const auto describe = [this](int indice) {
    if (indice == kTipoIdentificacion) PonDescripcionIdentificacion();
  };
  Combo1.On().click = describe;
  Combo1.On().change = describe;
  Combo1.On().key_down = [this](int indice, int& code, int) {
    if (code == key::kF2) AbreLista(indice);
  };
  // The labels of the rows cannot be the current cell.
  Grid1.On().selection = [this](int indice) {
    if (Grid1(indice).Col() == kColumnaRotulo) Grid1(indice).SetCol(kPrimeraColumna);
  };
}

void Trabajadores::OnLoad() {
  Guarda([this] {
    SetPointer(MousePointer::kHourglass);
    if (sesion_.CodPrograma == kProgramaSinIncidencias) {
      for (Button* boton : {&CmdIncidenciasVar, &CmdIncidenciasESP, &CmdIncidenciasIT}) boton->SetVisible(false);
    }
    PonTamano();
    CreaAnuncio();
    PintaLeyenda();
    PonAyuda();
    PonTitulos();
    Tab1.SetTab(0);
    RespuestaNueva.reset();
    TrabajadorAnterior.clear();
    SituacionAnterior.clear();
    ficha_.PreparaGrids();
    sesion_.FormActivo = this;
    TablaActiva = kTrabajadoresFijo;
    Regularizacion.SetVisible(false);
    CargaParametros(sesion_);
    ValoresIniciales();
    SetPointer(MousePointer::kDefault);
  });
}

// The codes of the two arrows count as characters too.
void Trabajadores::OnKeyPress(int& character) {
  if (character == key::kDown || character == key::kUp) {
    const bool atras = character == key::kUp;
    character = 0;
    FocusNext(atras);
    return;
  }
  PantallaBase::OnKeyPress(character);
}

bool Trabajadores::EscSale() const {
  return std::ranges::any_of(kObligatorios, [this](int indice) { return Texto(indice).empty(); });
}

std::string Trabajadores::TextoRecortado(int indice) const { return Trim(Texto(indice)); }

void Trabajadores::PonDescripcionIdentificacion() {
  lbDescripcion.SetCaption(TextoIdentificacion(Combo1(kTipoIdentificacion).Text()));
}

}  // namespace zendara
