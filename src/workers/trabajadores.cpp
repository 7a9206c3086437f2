#include "workers/trabajadores.hpp"

#include <algorithm>

#include "frame/catalogo.hpp"
#include "frame/parametros.hpp"
#include "workers/familia.hpp"
#include "workers/reglas_trabajador.hpp"
#include "workers/trabajador_consultas.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;

constexpr std::string_view kPantallaListado = "ListadoTrabajador";
constexpr std::string_view kProgramaSinIncidencias = "05";
constexpr int kContextoAyuda = 20004;

// Where the focus goes when a page is turned, by page; kNoIndex: nowhere.
constexpr IndiceCampo kFocoDeTab1[] = {kNoIndex, kSituacionPerceptor, kRetribuciones, kEntidad, kNoIndex};
constexpr IndiceCampo kFocoDeTab2[] = {kSituacion, kNumeroContrato, kDiasParcial, kPorcentajeIRPF, kCentro};

constexpr int kAnchoVista = 25;  // characters of a field that shows what a code stands for
constexpr int kAnchoPorcentaje = 6;

bool EsPorcentaje(int indice) {
  const auto campo = static_cast<CampoTrabajador>(indice);
  return campo == kBonificacion1 || campo == kBonificacion2 || campo == kBonificacion3;
}

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
    : PantallaBase(sesion, pantallas, MarcoTrabajadores()), navegacion_(sesion, kTrabajadoresFijo) {
  CreaCampos();
  for (const ConsultaTrabajador& consulta : ConsultasTrabajador()) {
    Image1.Add(IndiceCampo(consulta.campo));
    if (consulta.lista->Fija() && Combo1.Find(IndiceCampo(consulta.campo))) lbTexto.Add(IndiceCampo(consulta.campo));
  }
  PonRotulos();
  SetLayout(Disposicion());
  Conecta();
  ConectaMarco();
}

void Trabajadores::CreaCampos() {
  for (const Campo& campo : CamposTrabajador()) {
    switch (campo.tipo) {
      case TipoCampo::kTexto: {
        TextBox& texto = Text1.Add(campo.indice);
        if (campo.Tiene(kVista)) {
          texto.SetWidth(EsPorcentaje(campo.indice) ? kAnchoPorcentaje : kAnchoVista);
          texto.SetLocked(true);
        }
        ficha_.Anade(campo, texto);
        break;
      }
      case TipoCampo::kLista: {
        const auto codigos = CodigosDe(campo.indice);
        ComboBox& lista = Combo1.Add(campo.indice);
        lista.SetItems({codigos.begin(), codigos.end()});
        ficha_.Anade(campo, lista);
        break;
      }
      case TipoCampo::kMarca:
        ficha_.Anade(campo, Check1.Add(campo.indice));
        break;
    }
  }
  Grid1.Add(kHijos);
  Grid1.Add(kAscendientes);
  for (const CampoObligatorio& obligatorio : CamposObligatorios()) {
    ficha_.ControlDe(obligatorio.campo)->SetRequired(true);
  }
  PreparaGrids();
  PonSituaciones();
  for (int indice = IndiceCampo(kPrimeraCelda); indice <= IndiceCampo(kUltimaCelda); ++indice) {
    const auto [rejilla, fila, columna] = CeldaDe(indice);
    ficha_.AnadeCelda(indice, Grid1(rejilla), fila, columna);
  }
}

void Trabajadores::Conecta() {
  grabar_ = &Grabar;
  inicio_ = &Inicio;
  anterior_ = &Anterior;
  siguiente_ = &Siguiente;
  fin_ = &Fin;
  PonNumeroTrabajador(Text1(kNumero), true);

  const auto guardado = [this](void (Trabajadores::*rutina)()) {
    return [this, rutina](int) { Guarda([&] { (this->*rutina)(); }); };
  };

  const auto incidencias = [this](Button& boton, std::string_view pantalla, bool con_situacion) {
    PonPantalla(boton, pantalla);
    boton.On().click = [this, pantalla, con_situacion](int) {
      Guarda([&] { AbreIncidencias(pantalla, con_situacion); });
    };
  };
  incidencias(CmdIncidenciasIT, "MIncidencias", false);
  incidencias(CmdIncidenciasESP, "MIncidenciasESP", false);
  incidencias(CmdIncidenciasVar, "MIncidenciasVAR", true);
  const std::pair<Button*, void (Trabajadores::*)()> ordenes[] = {
      {&Inicio, &Trabajadores::IrAInicio},         {&Anterior, &Trabajadores::IrAAnterior},
      {&Siguiente, &Trabajadores::IrASiguiente},   {&Fin, &Trabajadores::IrAFin},
      {&Grabar, &Trabajadores::GrabaFicha},        {&Borrar, &Trabajadores::BorraTrabajador},
      {&Cancela, &Trabajadores::CancelaFicha},     {&CmdNuevo, &Trabajadores::NuevaSituacionEnPantalla},
      {&CmdBorrar, &Trabajadores::BorraSituacion},
  };
  for (const auto& [boton, rutina] : ordenes) boton->On().click = guardado(rutina);
  // These three guard themselves against nothing.
  CmdCalcular.On().click = [this](int) { CalculaTipo(); };
  Regulariza.On().click = [this](int) { MuestraRegularizacion(); };
  CalcularRegula.On().click = [this](int) { CalculaRegularizacion(); };

  PonPantalla(Pendientes, kPantallaListado);
  Pendientes.On().click = [this](int) { Guarda([this] { pantallas_.Muestra(kPantallaListado); }); };

  const auto foco = [this](IndiceCampo indice) {
    if (indice != kNoIndex) ficha_.ControlDe(indice)->SetFocus();
  };
  Tab1.On().click = [this, foco](int) { foco(kFocoDeTab1[Tab1.Tab()]); };
  Tab2.On().click = [this, foco](int) { foco(kFocoDeTab2[Tab2.Tab()]); };

  const auto describe = [this](int indice) {
    if (static_cast<CampoTrabajador>(indice) == kTipoIdentificacion) return PonDescripcionIdentificacion();
    PonTextoDeCodigo(indice);
  };
  Combo1.On().click = describe;
  Combo1.On().change = describe;
  Combo1.On().key_down = [this](int indice, int& code, int) {
    if (code == key::kF2) AbreLista(indice);
  };
  Situaciones.On().click = [this](int) { Guarda([this] { EligeSituacion(); }); };
  ConectaRejillas();
  ConectaRegularizacion();
}

void Trabajadores::ConectaRejillas() {
  Grid1.On().key_press = [this](int indice, int& caracter) { EscribeFamilia(Grid1(indice), caracter); };
  Grid1.On().key_up = [this](int indice, int tecla, int) { BorraFamilia(Grid1(indice), tecla); };
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
    PreparaGrids();
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
  Grid* rejilla = Grid1.Focused();
  if (character == key::kEnter && rejilla && PulsaIntro(*rejilla)) {
    character = 0;
    return;
  }
  PantallaBase::OnKeyPress(character);
}

bool Trabajadores::EscSale() const {
  return std::ranges::any_of(CamposObligatorios(), [this](const CampoObligatorio& obligatorio) {
    return ficha_.CampoDe(obligatorio.campo)->tipo == TipoCampo::kTexto && Texto(obligatorio.campo).empty();
  });
}

void Trabajadores::PonTextoDeCodigo(int indice) {
  const ConsultaTrabajador& consulta = *ConsultaDeCampo(static_cast<CampoTrabajador>(indice));
  lbTexto(indice).SetCaption(TextoDeCodigo(*consulta.lista, Combo1(indice).Text()));
}

void Trabajadores::PonDescripcionIdentificacion() {
  lbDescripcion.SetCaption(TextoIdentificacion(Combo1(kTipoIdentificacion).Text()));
}

}  // namespace zendara
