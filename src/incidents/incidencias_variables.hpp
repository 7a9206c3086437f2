// The screen of variable concepts: for a month, what a worker earned or lost by a concept of one of his situaciones.
// The month is typed once and stays while one entry after the other is saved.
#pragma once

#include <string>
#include <string_view>

#include "incidents/pantalla_incidencias.hpp"

namespace zendara {

// Text1. Each stands for the column one below it.
enum class CampoVariable {
  kMes = 1,
  kTrabajador = 2,
  kNombre = 3,
  kSituacion = 4,
  kConcepto = 5,
  kDescripcion = 6,
  kImporteConcepto = 7,
  kUnidades = 8,
};

class MIncidenciasVAR : public PantallaIncidencias {
 public:
  MIncidenciasVAR(Sesion& sesion, RegistroPantallas& pantallas);

  std::string Position() const override;
  std::string Expected() const override;

 protected:
  void PonElegido(const std::string& trabajador, const std::string& situacion) override;
  void MuestraRegistro() override;
  void AsignaCampos() override;
  void Poneregistro() override;
  bool CompruebaDatos() override;
  void GrabaComprobado() override;
  void CancelaFicha() override;
  std::string Resumen() const override;

  void EntradaCampo(int indice) override;
  void SalidaCampo(int indice) override;
  void AbreLista(int indice) override;
  bool EscSale() const override;

 private:
  void OlvidaClaves();
  void FiltraMes(int& caracter);
  void SalidaMes();
  void SalidaTrabajador();
  void ProponeSituacion();
  void SalidaSituacion();
  void SalidaConcepto();
  void ProponeConcepto();
  // What is said of a field's text; the field is emptied and keeps the focus.
  void Rechaza(CampoVariable campo, const std::string& texto);
  void DejaVacio(CampoVariable campo);

  // What the fields of the key held when they were left last.
  std::string MesAnterior;
  std::string SituacionAnterior;
  std::string ConceptoAnterior;

  Label lbMes{*this, "lbMes"};  // its name
};

}  // namespace zendara
