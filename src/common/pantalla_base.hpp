// The frame that every screen has: title row, keys, focus shown by colour, overtyping, hints, calculator, help, banner,
// side caption, leaving. A screen derives from it and adds what is its own.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "frame/registro_pantallas.hpp"
#include "frame/sesion.hpp"
#include "platform/form/screen_parts.hpp"
#include "zendara/neighbours.hpp"

namespace zendara {

// What differs from screen to screen in the frame.
struct Marco {
  std::string nombre;   // of the form
  std::string leyenda;  // caption of the side band
  int contexto_ayuda = 0;
  // Hints of the buttons by name; a button that is not here takes the default of its name.
  std::map<std::string, std::string> pistas;
  bool de_otra = false;  // works for the screen in FormActivo, which stays there when this one is left
};

// Default hint of a button by its name, or nothing. On the form "MConGeneral" `Borrar` has its own.
std::string_view PistaPorDefecto(std::string_view control, std::string_view formulario);

class PantallaBase : public Form, public Pantalla {
 public:
  PantallaBase(Sesion& sesion, RegistroPantallas& pantallas, Marco marco);

  std::string DraftScope() const override;
  std::string DraftPlace() const override;
  void Mostrar() override { Show(); }

  // A mouse movement over a button: the text, or with an empty one the default of its name.
  void PonPista(std::string_view texto, Control& control);

 protected:
  // Steps of the load, in the order that each screen needs. A missing banner class is error 429 and ends the load
  // there.
  void CreaAnuncio();  // banner, placed on SSPanel1(25)
  void PintaLeyenda();
  void PonAyuda();
  void PonTitulos();
  void PonTamano() { SetSize(9600, 7200); }

  // The first line of the layout: heading and company.
  Layout Cabecera();
  // The banner's panel in the layout.
  Layout TiraAnuncio();

  // A routine that guards itself: an error, whatever exception it came as, is shown and ends it. The pointer stays as
  // it is.
  void Guarda(const std::function<void()>& rutina);
  // A plain box, or one with an icon.
  void Mensaje(const std::string& texto, BoxIcon icono = BoxIcon::kNone);
  // About a control to which the focus goes only afterwards.
  void Mensaje(const std::string& texto, const Control& control, BoxIcon icono = BoxIcon::kNone);
  // A character typed into a field: the filter of amounts, and going over the text while Insert is off.
  void TeclaDeTexto(TextBox& campo, int& caracter);
  // The record on the screen was stored whole. To be called before the screen is emptied.
  void RegistroGrabado() { Saved(); }
  // Copies Text1 and Image1 handlers onto the frame's rules, and puts the stops in order; call it once all controls
  // stand.
  void ConectaMarco();
  // A button that opens another screen: while that one cannot be opened it is disabled, and its hint says why.
  void PonPantalla(Button& boton, std::string_view pantalla);

  // The field of the worker's number, if the screen has one: Ctrl+F finds a worker for it and, where new ones are
  // entered, Ctrl+N gives it the next free number.
  void PonNumeroTrabajador(TextBox& campo, bool da_altas = false) {
    numero_trabajador_ = &campo;
    da_altas_ = da_altas;
  }
  // A worker is shown: the next search has him among the first.
  void ApuntaTrabajador(const std::string& numero);

  // What is the screen's own.
  virtual void EntradaCampo(int /*indice*/) {}   // before the caret goes to the end
  virtual void SalidaCampo(int /*indice*/) {}    // after the field is grey again
  virtual void AbreLista(int /*indice*/) {}      // look-up image or F2
  virtual bool EscSale() const { return true; }  // otherwise Esc presses Grabar
  virtual void AntesDeSalir() {}                 // click of Salir, before the screen unloads whatever it does

  void OnKeyDown(int& code, int shift) override;
  void OnKeyPress(int& character) override;
  void OnClose() override { Click(Salir); }
  void OnUnload() override;  // the banner hears of it

  Sesion& sesion_;
  RegistroPantallas& pantallas_;
  Marco marco_;
  int CampoActivo = 0;  // index of the Text1 that last had the focus

  ControlArray<Label> SSPanel1{*this, "SSPanel1"};
  ControlArray<TextBox> Titulo{*this, "Titulo"};
  Picture Picture25{*this, "Picture25"};
  ControlArray<TextBox> Text1{*this, "Text1"};
  ControlArray<Image> Image1{*this, "Image1"};
  Label Informa{*this, "Informa"};
  Button Salir{*this, "Salir"};
  Button Calculadora{*this, "Calculadora"};
  // Set by screens that have them; Esc and the Alt keys reach them through here.
  Button* grabar_ = nullptr;
  Button* inicio_ = nullptr;
  Button* anterior_ = nullptr;
  Button* siguiente_ = nullptr;
  Button* fin_ = nullptr;

 private:
  void OrdenaParadas();
  void BuscaTrabajador();
  void NuevoTrabajador();
  // Into its field as by the user's hand, and out of it.
  void EntraTrabajador(const std::string& numero);
  void AbreCalculadora();
  void AlSalir();

  TextBox* numero_trabajador_ = nullptr;
  bool da_altas_ = false;
  std::unique_ptr<Banner> anuncio_;
  std::int32_t ventana_anuncio_ = 0;  // that it was given
};

}  // namespace zendara
