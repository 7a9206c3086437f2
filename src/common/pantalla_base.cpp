#include "common/pantalla_base.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "common/buscador.hpp"
#include "common/vertical.hpp"
#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "values/filtro_tecla.hpp"
#include "values/muestra_error.hpp"

namespace zendara {
namespace {

constexpr std::string_view kAyuda = "\\Quelvat.hlp";
constexpr std::string_view kColorInicial = "16744576";
constexpr std::string_view kColorFinal = "12632319";

constexpr int kTeclaBuscar = 'F';
constexpr int kTeclaNuevo = 'N';

// Panels of the title row and of the banner.
enum Panel { kPanelCodigo = 6, kPanelNombre = 7, kPanelAno = 8, kPanelAnuncio = 25 };
enum CampoTitulo { kTituloCodigo = 1, kTituloNombre = 2, kTituloAno = 3 };

// Design place of the banner's panel on the form, and of the picture box in it: as far from every edge. In twips.
constexpr ControlPlace kSitioPanel = {60, 6480, 9420, 600};
constexpr int kMargenAniGIF1 = 60;

}  // namespace

PantallaBase::PantallaBase(Sesion& sesion, RegistroPantallas& pantallas, Marco marco)
    : Form(*sesion.platform.forms, *sesion.platform.dialogs, marco.nombre),
      sesion_(sesion),
      pantallas_(pantallas),
      marco_(std::move(marco)) {
  SetTitle(marco_.leyenda);
  const struct {
    Panel panel;
    CampoTitulo campo;
    std::string_view rotulo;
    int ancho;
  } titulos[] = {{kPanelCodigo, kTituloCodigo, "Código", 5},
                 {kPanelNombre, kTituloNombre, "Nombre Empresa", 30},
                 {kPanelAno, kTituloAno, "Año", 2}};
  for (const auto& titulo : titulos) {
    SSPanel1.Add(titulo.panel).SetCaption(titulo.rotulo);
    TextBox& campo = Titulo.Add(titulo.campo);
    campo.SetCaption(titulo.rotulo);
    campo.SetWidth(titulo.ancho);
    campo.SetEnabled(false);
  }
  SSPanel1.Add(kPanelAnuncio);
  Salir.SetCaption("&Salir");
  Calculadora.SetCaption("Calculadora");
  Salir.On().click = [this](int) { Guarda([this] { AlSalir(); }); };
  Calculadora.On().click = [this](int) { Guarda([this] { AbreCalculadora(); }); };
}

// Load.

Layout PantallaBase::Cabecera() {
  std::vector<Layout> empresa;
  for (const auto& [indice, titulo] : Titulo) empresa.push_back(Place(*titulo));
  return Flow({Heading(), Space(), Row(std::move(empresa))});
}

Layout PantallaBase::TiraAnuncio() { return Strip(SSPanel1(kPanelAnuncio), kSitioPanel.height); }

void PantallaBase::CreaAnuncio() {
  anuncio_ = CreateBanner(sesion_.platform.components);
  Label& panel = SSPanel1(kPanelAnuncio);
  ventana_anuncio_ = Host().WindowHandle(*this);
  const ControlPlace lugar = Host().PlaceOf(panel).value_or(kSitioPanel);
  BannerPlace sitio = {lugar.left + kMargenAniGIF1, lugar.top + kMargenAniGIF1, lugar.width - 2 * kMargenAniGIF1,
                       lugar.height - 2 * kMargenAniGIF1};
  anuncio_->PosicionBanner(ventana_anuncio_, sitio);
  panel.SetVisible(sitio.width > 0 && sitio.height > 0);
}

void PantallaBase::PintaLeyenda() {
  Picture25.SetPainter([this](const Screen& screen, DrawingSurface& surface) {
    PintaVertical(screen, surface, marco_.leyenda, kColorInicial, kColorFinal);
  });
}

void PantallaBase::PonAyuda() {
  HelpFile = sesion_.platform.application_folder + std::string(kAyuda);
  HelpContext = marco_.contexto_ayuda;
}

// Companies of another folder have the same codes.
std::string PantallaBase::DraftScope() const {
  return sesion_.platform.application_folder + " " + sesion_.CodEmpresa.str() + " " + sesion_.AnoTrabajo.str();
}

std::string PantallaBase::DraftPlace() const {
  const std::string nombre = Trim(sesion_.NomEmpresa.str());
  return sesion_.CodEmpresa.str() + ", año " + sesion_.AnoTrabajo.str() + (nombre.empty() ? "" : ", " + nombre);
}

void PantallaBase::PonTitulos() {
  Titulo(kTituloCodigo).SetText(sesion_.CodEmpresa.str());
  Titulo(kTituloNombre).SetText(Trim(sesion_.NomEmpresa.str()));
  Titulo(kTituloNombre).SetToolTipText(Titulo(kTituloNombre).Text());  // whole, where the field is too short
  Titulo(kTituloAno).SetText(sesion_.AnoTrabajo.str());
}

void PantallaBase::ConectaMarco() {
  for (const auto& [indice, campo] : Text1) campo->SetBackColor(kGrey);
  Text1.On().got_focus = [this](int indice) {
    CampoActivo = indice;
    TextBox& campo = Text1(indice);
    campo.SetBackColor(kWhite);
    EntradaCampo(indice);
    campo.Select(static_cast<int>(Len(campo.Text())), 0);
  };
  Text1.On().lost_focus = [this](int indice) {
    Text1(indice).SetBackColor(kGrey);
    SalidaCampo(indice);
  };
  Text1.On().key_press = [this](int indice, int& caracter) { TeclaDeTexto(Text1(indice), caracter); };
  Text1.On().key_down = [this](int indice, int& code, int /*shift*/) {
    if (code == key::kF2 && Image1.Find(indice)) AbreLista(indice);
  };
  Image1.On().click = [this](int indice) { AbreLista(indice); };
  Image1.On().mouse_move = [this](int) { sesion_.MarcaBoton = static_cast<std::int16_t>(ImageButtonMark()); };
  for (Control* control : Controls()) {
    if (!dynamic_cast<Button*>(control)) continue;
    control->On().mouse_move = [this, control](int) {
      const auto pista = marco_.pistas.find(control->Name());
      PonPista(pista == marco_.pistas.end() ? std::string() : pista->second, *control);
    };
  }
  OrdenaParadas();
}

// The pages and fields as they are laid out, then Grabar, the other buttons of the screen, those that leave the record.
void PantallaBase::OrdenaParadas() {
  const auto orden = [this](const Control* control) {
    if (!dynamic_cast<const Button*>(control) || control->PagesAround()) return 0;
    if (control == grabar_) return 1;
    return control == inicio_ || control == anterior_ || control == siguiente_ || control == fin_ ? 3 : 2;
  };
  std::vector<Control*> paradas = TabOrder();
  std::ranges::stable_sort(paradas, {}, orden);
  SetTabOrder(std::move(paradas));
}

void PantallaBase::PonPantalla(Button& boton, std::string_view pantalla) {
  const std::string_view motivo = pantallas_.PorQueNo(pantalla);
  if (motivo.empty()) return;
  boton.SetEnabled(false);
  boton.SetToolTipText(motivo);
  marco_.pistas[boton.Name()] = motivo;
}

void PantallaBase::Guarda(const std::function<void()>& rutina) {
  try {
    rutina();
  } catch (...) {
    MuestraError(CurrentError(), Boxes());
  }
}

void PantallaBase::Mensaje(const std::string& texto, BoxIcon icono) { Boxes().Show({.text = texto, .icon = icono}); }

void PantallaBase::Mensaje(const std::string& texto, const Control& control, BoxIcon icono) {
  const struct Mientras {
    Form& pantalla;
    ~Mientras() { pantalla.SetConcerned(nullptr); }
  } mientras{*this};
  SetConcerned(&control);
  Mensaje(texto, icono);
}

// Keys.

void PantallaBase::OnKeyDown(int& code, int shift) {
  if (code == key::kUp || code == key::kDown) {
    const bool atras = code == key::kUp;
    code = 0;
    auto* filas = dynamic_cast<RowPicker*>(Focus());
    if (!filas || !filas->Step(atras ? -1 : 1)) FocusNext(atras);
    return;
  }
  if (shift == key::kControl && numero_trabajador_ && numero_trabajador_->CanFocus()) {
    if (code == kTeclaBuscar) {
      code = 0;
      Guarda([this] { BuscaTrabajador(); });
    } else if (code == kTeclaNuevo && da_altas_) {
      code = 0;
      Guarda([this] { NuevoTrabajador(); });
    }
    return;
  }
  if (shift != key::kAlt) return;
  const std::pair<int, Button*> ciclo[] = {
      {key::kEnd, fin_}, {key::kHome, inicio_}, {key::kLeft, anterior_}, {key::kRight, siguiente_}};
  for (const auto& [tecla, boton] : ciclo) {
    if (code != tecla || !boton) continue;
    code = 0;
    boton->On().click(boton->Index());
    return;
  }
}

void PantallaBase::OnKeyPress(int& character) {
  if (character == key::kEnter) {
    character = 0;
    FocusNextField();
  } else if (character == key::kEsc) {
    character = 0;
    Click(EscSale() || !grabar_ ? Salir : *grabar_);
  }
}

void PantallaBase::TeclaDeTexto(TextBox& campo, int& caracter) {
  if (campo.Alignment() == Alignment::kRight) FiltroTecla(caracter, campo);
  if (caracter < key::kSpace || Host().insert_on || campo.SelLength() != 0) return;
  if (campo.SelStart() < static_cast<int>(Len(campo.Text()))) campo.Select(campo.SelStart(), 1);
}

// Workers.

void PantallaBase::ApuntaTrabajador(const std::string& numero) { ApuntaVisto(sesion_, numero); }

void PantallaBase::BuscaTrabajador() {
  const std::string numero = EligeTrabajador(sesion_, Trim(numero_trabajador_->Text()));
  if (!numero.empty()) EntraTrabajador(numero);
}

void PantallaBase::NuevoTrabajador() {
  const std::string numero = NumeroLibre(sesion_);
  if (numero.empty()) return Mensaje("No queda libre ningún número de trabajador");
  EntraTrabajador(numero);
}

// What is left first may keep the focus.
void PantallaBase::EntraTrabajador(const std::string& numero) {
  TextBox& campo = *numero_trabajador_;
  const Control* dejado = Focus();
  campo.SetFocus();
  // One that sends the focus on has been left all the same.
  if (Focus() != &campo && Focus() != dejado) campo.SetFocus();
  if (Focus() != &campo) return;
  campo.Select(0, static_cast<int>(Len(campo.Text())));
  Paste(numero);
  FocusNextField();
}

// The calculator is asked for by a class name that no window has, so as a rule it is started anew.
void PantallaBase::AbreCalculadora() {
  SetPointer(MousePointer::kHourglass);
  if (!sesion_.platform.shell) throw RuntimeError(kCannotCreateObject);
  Shell& shell = *sesion_.platform.shell;
  const int ventana = shell.FindWindow("0", "Calculadora");
  Text1(CampoActivo).SetFocus();
  if (ventana == 0) {
    shell.Activate(shell.Start("Calc.exe"));
  } else {
    shell.Activate("calculadora");
  }
  SetPointer(MousePointer::kDefault);
}

// Leaving.

void PantallaBase::AlSalir() {
  Host().DoEvents();
  AntesDeSalir();
  Unload();
  if (!marco_.de_otra) sesion_.FormActivo = nullptr;
}

void PantallaBase::OnUnload() {
  // However it closes, and whatever the banner does, nobody may reach it any more.
  if (sesion_.FormActivo == this) sesion_.FormActivo = nullptr;
  Run([this] {
    if (anuncio_) anuncio_->AvisoCierre(ventana_anuncio_);
  });
  pantallas_.Descarga(Name());
}

}  // namespace zendara
