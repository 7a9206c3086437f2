// The request screen of the listings of incidents: a range of workers, in the mode of the screen that opened it.
#pragma once

#include <memory>
#include <string>

#include "common/pantalla_base.hpp"
#include "listings/modos_listado.hpp"

namespace zendara {

// Text1; behind each stands what it means.
enum class CampoRango {
  kPrimero = 1,
  kTextoPrimero = 2,
  kSegundo = 3,
  kTextoSegundo = 4,
  kTercero = 5,
  kTextoTercero = 6,
};

class Imprgast : public PantallaBase {
 public:
  Imprgast(Sesion& sesion, RegistroPantallas& pantallas);

  std::string Expected() const override;
  HelpPlace HelpOnFocus() const override;

  // The lines of the range in the staging table. False when an error, which is shown, ended it.
  bool GeneraTablaPen();
  bool GeneraIncidenciasVar();

 protected:
  void OnLoad() override;
  void OnKeyDown(int& code, int shift) override;
  void SalidaCampo(int indice) override;
  void AbreLista(int indice) override;

 private:
  // Of FormActivo. Error 91 without one, 5 when its screen has no listing.
  const ModoListado& Modo() const;
  void PonRotulos(const ModoListado& modo);
  void PonModo();
  bool CompruebaCampo(CampoRango campo);
  void LimpiaCampo(CampoRango campo);
  void Imprime();
  void Avanza(const MesaListado& mesa);

  void SalidaTrabajador(CampoRango campo);  // with dates
  void SalidaMes();
  void SalidaTrabajadorMes(CampoRango campo);
  // The first or the last row of the table, by the field.
  void PonExtremo(CampoRango campo);
  void Pon(CampoRango campo, const Value& valor, const Value& texto);

  TextBox& Caja(CampoRango campo) const { return Text1(IndiceCampoRango(campo)); }
  std::string Texto(CampoRango campo) const { return Caja(campo).Text(); }
  static int IndiceCampoRango(CampoRango campo) { return static_cast<int>(campo); }
  static CampoRango Detras(CampoRango campo) { return static_cast<CampoRango>(static_cast<int>(campo) + 1); }

  std::shared_ptr<Database> BDAnual;  // the year's file
  std::string TipoPapel;              // "N" or "C"; nothing reads it

  Frame FrameRango{*this, "FrameRango"};
  Frame SSFrame2{*this, "SSFrame2"};
  Frame SSFrame8{*this, "SSFrame8"};
  ControlArray<OptionButton> Papel{*this, "Papel"};
  ControlArray<OptionButton> Desglose{*this, "Desglose"};
  Button Impresora{*this, "Impresora"};
};

}  // namespace zendara
