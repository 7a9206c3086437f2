// The screens of incidents with dates, I.T. and E.S.P.: a worker, a type, a start and, once it is over, an end. One
// design; where the two differ is a table.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "incidents/diseno_fechas.hpp"
#include "incidents/pantalla_incidencias.hpp"
#include "incidents/tabla_incidencias.hpp"

namespace zendara {

class IncidenciasFechas : public PantallaIncidencias {
 public:
  std::string Position() const override;
  std::string Expected() const override;

  // Fills the staging table with the rows of a slot and shows them as a listing of epigraphs. Errors go to the caller.
  void GeneraPendientes(int ranura);

 protected:
  IncidenciasFechas(Sesion& sesion, RegistroPantallas& pantallas, TablaIncidencias tabla);

  void PonElegido(const std::string& trabajador, const std::string& situacion) override;
  void LimpiaCampos(IndiceCampo desde, IndiceCampo hasta) override;
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
  void CreaCampos();
  void ConectaTipo();

  // What the codes stand for; another code leaves what stands there.
  void MuestraTipo(const std::string& codigo);
  // Whether the dates may be saved; the answer that says no has been shown.
  bool CompruebaSolape();
  // With which closed incidents the dates on the screen meet, in words.
  std::string Coincidencias() const;
  // False after an error, which is said.
  bool GrabarRegistro();
  void SalidaTrabajador();
  void SalidaInicio();
  void SalidaFin();
  void MuestraFila(Recordset& fila, TratoFechas trato);
  void PonFecha(CampoFechas campo, const Value& valor);
  void AvisaSiExiste();
  void EligeFecha();
  void EligeTipo();

  const DisenoFechas& diseno_fechas_;

  ComboBox Combo1{*this, "Combo1"};
  TextBox Text2{*this, "Text2"};
  Frame Frame1{*this, "Frame1"};
};

class MIncidencias : public IncidenciasFechas {
 public:
  MIncidencias(Sesion& sesion, RegistroPantallas& pantallas)
      : IncidenciasFechas(sesion, pantallas, TablaIncidencias::kIT) {}
};

class MIncidenciasESP : public IncidenciasFechas {
 public:
  MIncidenciasESP(Sesion& sesion, RegistroPantallas& pantallas)
      : IncidenciasFechas(sesion, pantallas, TablaIncidencias::kESP) {}
};

}  // namespace zendara
