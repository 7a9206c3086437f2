// The worker screen: one worker, and of his situaciones the one with the latest start, or another one by its number.
// Slots 402 and 442 are the tables, by key; the situaciones of a worker are read from the company's file.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/ficha.hpp"
#include "common/navegacion.hpp"
#include "common/pantalla_base.hpp"
#include "common/seleccion_trabajador.hpp"
#include "withholding/entradas_irpf.hpp"
#include "workers/conceptos.hpp"
#include "workers/reglas_trabajador.hpp"

namespace zendara {

inline constexpr std::string_view kPantallaTrabajadores = "Trabajadores";
inline constexpr int kColumnasSituacion = 4;  // number, description, start, end

class Trabajadores : public PantallaBase, public SeleccionTrabajador, public PantallaIRPF {
 public:
  Trabajadores(Sesion& sesion, RegistroPantallas& pantallas);

  std::string Subject() const override;
  std::string Position() const override;
  std::string Expected() const override;
  std::string TextoColumna(int ordinal) const override;
  std::string TextoCifra(CifraRegularizacion cifra) const override;
  HelpPlace HelpOnFocus() const override;
  std::string DraftNote() const override;
  void RestoreNote(std::string_view note) override;

 protected:
  void OnLoad() override;
  void OnKeyPress(int& character) override;
  void EntradaCampo(int indice) override;
  void SalidaCampo(int indice) override;
  void AbreLista(int indice) override;
  bool EscSale() const override;
  void AntesDeSalir() override;

 private:
  // Construction.
  void CreaCampos();
  void PonRotulos();
  void Conecta();
  Layout Disposicion();

  // Display.
  void ValoresIniciales();
  void PonListasIniciales();
  void PreparaGrids();       // empty
  void MostrarTrabajador();  // the row on which slot 402 stands
  void MostrarSituacion();   // the row on which slot 442 stands
  void Olvida();             // what belongs to the worker who was shown
  void PonDescripcionIdentificacion();
  void PonTextoDeCodigo(int indice);                     // beside its list
  std::string QuienEs(const std::string& numero) const;  // with the name on the screen
  void CuentaTrabajadores();

  // Navigation.
  void IrAInicio();
  void IrAAnterior();
  void IrASiguiente();
  void IrAFin();
  void MuestraActual();
  bool VerificarTrabajador();
  bool VerificarSituacion();
  void AbreIncidencias(std::string_view pantalla, bool con_situacion);

  // Leaving fields.
  void SalidaNumero();
  void SalidaSituacion();
  void CompletaOtrosCampos(CampoTrabajador campo);
  bool RechazaValor(CampoTrabajador campo);  // shown, and the routine of leaving ends there
  bool RechazaDias();
  void CompruebaFechaFin();
  void BuscaCodigo(CampoTrabajador campo);
  void BuscaCategoria();
  void BuscarContrato(CampoTrabajador campo);
  std::string BuscarDescripcion(const DescripcionCampo& descripcion);

  // Situaciones.
  // The rows as their table, from the first on.
  void LeeSituaciones(Recordset& filas);
  void PonSituaciones();
  void QuitaSituacion(const std::string& numero);
  void MarcaSituacion();  // the one that is shown
  void EligeSituacion();  // the current one of the table, as if its number had been typed
  // Number of the worker's situación with the latest start; error 3021 when he has none.
  std::string UltimaSituacion(const std::string& trabajador);
  void NuevaSituacionEnPantalla();
  void BorraSituacion();
  // One that was numbered on the screen for the worker shown.
  bool EsSituacionNueva() const;
  bool ValidarFechasContratos();
  bool ValidarIntervaloSituacion();

  // Saving.
  bool ValidarTrabajador();
  bool EstanRellenos(CampoTrabajador desde, CampoTrabajador hasta);
  bool TieneFechaBonificacion();
  bool CompruebaGrids();
  void GrabaFicha();
  void CopiaConceptos();
  void GrabarTrabajador();
  // In the table of TablaActiva: the row under these keys changed, or a new one. `mostrada`: the screen showed it.
  void GrabaFila(std::string_view indice, const std::vector<Value>& claves, bool mostrada);
  // Adds to the status line.
  void Avisa(const std::string& texto);
  // A field or cell for the user, with the group that it stands in.
  std::string NombreDe(IndiceCampo indice) const;
  void BorraTrabajador();
  void CancelaFicha();

  // Withholding rate.
  void ConectaRegularizacion();
  void CalculaTipo();
  void MuestraRegularizacion();
  void CierraRegularizacion();
  void SumaHistorico(Recordset& fila);
  void CalculaRegularizacion();
  void GrabaRegularizacion(const std::string& tipo);
  // Asks whether to apply a rate, which it works out.
  std::optional<std::string> TipoAceptado(bool regularizacion);
  TextBox& Cifra(CifraRegularizacion cifra) const { return Text2(cifra); }

  // The families' grids.
  void ConectaRejillas();

  std::string Texto(CampoTrabajador campo) const { return ficha_.Texto(campo); }
  std::string TextoRecortado(CampoTrabajador campo) const { return ficha_.TextoRecortado(campo); }
  bool Vacio(CampoTrabajador campo) const { return ficha_.Vacio(campo); }

  ControlArray<ComboBox> Combo1{*this, "Combo1"};
  ControlArray<CheckBox> Check1{*this, "Check1"};
  ControlArray<Grid> Grid1{*this, "Grid1"};
  ControlArray<TextBox> Text2{*this, "Text2"};  // figures of a regularisation
  Ficha ficha_{sesion_, CamposTrabajador()};
  Navegacion navegacion_;
  Label lbDescripcion{*this, "lbDescripcion"};
  ControlArray<Label> lbTexto{*this, "lbTexto"};  // what the code of that list stands for
  RowPicker Situaciones{*this, "Situaciones"};    // of the worker, by their starts

  Tabs Tab1{*this, "Tab1"};
  Tabs Tab2{*this, "Tab2"};
  Frame FrameTrabajador{*this, "FrameTrabajador"};
  Frame FrameIRPF{*this, "FrameIRPF"};
  Frame Frame16{*this, "Frame16"};
  Frame FrameCuenta{*this, "FrameCuenta"};
  Frame FrameDescripcion{*this, "FrameDescripcion"};
  Frame FrameContrato{*this, "FrameContrato"};
  Frame FrameParcial{*this, "FrameParcial"};
  Frame FramePorIRPF{*this, "FramePorIRPF"};
  Frame FrameCentro{*this, "FrameCentro"};
  Frame Frame2{*this, "Frame2"};                  // lasting result of a regularisation
  Frame Regularizacion{*this, "Regularizacion"};  // figures while one is worked out
  ControlArray<Frame> Grupo{*this, "Grupo"};      // the other titled groups of fields

  Button Inicio{*this, "Inicio"};
  Button Anterior{*this, "Anterior"};
  Button Siguiente{*this, "Siguiente"};
  Button Fin{*this, "Fin"};
  Button CmdIncidenciasIT{*this, "CmdIncidenciasIT"};
  Button CmdIncidenciasESP{*this, "CmdIncidenciasESP"};
  Button CmdIncidenciasVar{*this, "CmdIncidenciasVar"};
  Button Pendientes{*this, "Pendientes"};
  Button Grabar{*this, "Grabar"};
  Button Borrar{*this, "Borrar"};
  Button Cancela{*this, "Cancela"};
  Button CmdNuevo{*this, "CmdNuevo"};
  Button CmdBorrar{*this, "CmdBorrar"};
  Button CmdCalcular{*this, "CmdCalcular"};
  Button Regulariza{*this, "Regulariza"};
  Button CalcularRegula{*this, "CalcularRegula"};

  std::optional<BoxAnswer> RespuestaNueva;  // a new situación awaits saving while it is Yes
  CopiaPendiente copia_;                    // of its concepts, that an error ended
  std::string TrabajadorAnterior;           // number when its field gained the focus, or when he was shown
  std::string SituacionAnterior;
  std::vector<std::array<std::string, kColumnasSituacion>> situaciones_;  // rows of their table
  std::string posicion_;                                                  // of the worker among all
  std::string ConvenioEmpresa;                                            // the company's own agreement
  int TablaActiva = 0;                                                    // slot that is written: 402 or 442
};

}  // namespace zendara
