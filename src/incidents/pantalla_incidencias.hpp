// What the three screens of incidents share: a run of fields over one table, whose rows are shown, saved as a removed
// and a new row, removed, and walked through. The fields are the record: nothing else remembers it.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/ficha.hpp"
#include "common/listas.hpp"
#include "common/navegacion.hpp"
#include "common/pantalla_base.hpp"
#include "frame/stored_tables.hpp"
#include "incidents/tira_calendario.hpp"

namespace zendara {

// A rule of fields: numbers, on the right.
inline constexpr unsigned kNumerico = kReglaPropia;

// What differs in what they share.
struct DisenoIncidencias {
  std::string_view pantalla;  // name of the form, and in the register
  std::string_view leyenda;
  int contexto_ayuda;
  std::string_view pista_grabar;
  std::string_view pista_borrar;
  int ranura;
  FileKind fichero;                    // that has the table
  std::string_view indice;             // by which the rows are told apart
  std::span<const IndiceCampo> clave;  // fields of its columns, in their order
  std::span<const Campo> campos;       // each stands for the column one below its index
  IndiceCampo trabajador;
  IndiceCampo nombre;
  bool lista_sin_filas;  // Pendientes opens the listing of an empty table too
};

class PantallaIncidencias : public PantallaBase {
 public:
  std::string Subject() const override;
  HelpPlace HelpOnFocus() const override;

 protected:
  PantallaIncidencias(Sesion& sesion, RegistroPantallas& pantallas, const DisenoIncidencias& diseno);

  // A text of the table, in Text1.
  void CreaTexto(const Campo& campo);
  // The buttons and the frame; once the fields stand.
  void Conecta();
  // `campos`: what stands between the heading and the buttons.
  Layout Disposicion(std::vector<Layout> campos);
  void OnLoad() override;

  // The steps of the load that are the screen's own, with what the worker screen has chosen.
  virtual void PonElegido(const std::string& trabajador, const std::string& situacion) = 0;
  virtual void LimpiaCampos(IndiceCampo desde, IndiceCampo hasta);
  virtual void MuestraRegistro() = 0;  // the row on which the slot stands
  virtual void AsignaCampos() = 0;     // to the row that is being added
  // The worker of the list is in his field.
  virtual void Poneregistro() = 0;
  // True when something is missing, which was said.
  virtual bool CompruebaDatos() = 0;
  virtual void GrabaComprobado() = 0;  // once nothing is missing
  virtual void CancelaFicha() = 0;
  // The incident on the screen in a few words.
  virtual std::string Resumen() const = 0;

  // What is said when a field is missing; true.
  bool Falta(std::string_view texto, Control& control);
  // The same of a code that is zero or shorter than its field; otherwise false.
  bool FaltaCodigo(IndiceCampo indice, std::string_view texto);
  // Stores the fields in the place of the row of their key, or as a new one. Both rows or none: errors go to the caller
  // and leave the table as it was.
  void GrabarRegistro();
  // The record was stored and the screen emptied.
  void DiGrabado(const std::string& resumen);
  void GrabaFicha();
  void BorraFicha();

  Recordset& Tabla() const { return sesion_.Tabla(diseno_.ranura); }
  std::string Texto(IndiceCampo indice) const { return ficha_.Texto(indice); }
  void Pon(IndiceCampo indice, const std::string& texto) { Text1(indice).SetText(texto); }
  // The number of the text in a mask, in its place.
  void Formatea(IndiceCampo indice, std::string_view mascara);
  // The fields show that row now, however it came there.
  void Anota(Recordset& fila, IndiceCampo desde, IndiceCampo hasta);
  // What the column of a field takes: `propio`, but that a field of a row that is shown, which nobody has changed,
  // keeps what is stored.
  Value Queda(IndiceCampo indice, const Value& propio);
  // The name of the worker whose number was typed. False when there is none: all from his field on is emptied, and it
  // keeps the focus.
  bool LlamaTrabajador();
  // A query on BDEmpresa as it stands, in the place of the last one.
  Recordset& Lee(const std::string& sql);
  // A list for a field: `toma` gets the pieces of the chosen row.
  void Elige(Control& campo, const Lista& lista, const std::vector<std::string>& parametros,
             const std::vector<std::string>& actuales,
             const std::function<void(const std::vector<std::string>& cortes)>& toma);
  void EligeTrabajadorDeLista();

  const DisenoIncidencias& diseno_;
  Ficha ficha_{sesion_, diseno_.campos};
  Navegacion navegacion_{sesion_, diseno_.ranura};
  TiraCalendario calendario_{*this, sesion_};
  std::string CodigoAlEntrar;  // worker when his field gained the focus

  Button Inicio{*this, "Inicio"};
  Button Anterior{*this, "Anterior"};
  Button Siguiente{*this, "Siguiente"};
  Button Fin{*this, "Fin"};
  Button Grabar{*this, "Grabar"};
  Button Borrar{*this, "Borrar"};
  Button Cancela{*this, "Cancela"};
  Button Pendientes{*this, "Pendientes"};

 private:
  std::vector<Value> Clave() const;
  void Recorre(bool (Navegacion::*paso)());
  void AbreListado();
  // He is in his field: the next search has him among the first, and the calendar is his.
  void VeTrabajador();

  std::optional<std::vector<Value>> previa_;  // columns of the row that is saved anew, when it is shown
  std::vector<int> sustituidos_;              // fields in which somebody else had changed it
};

}  // namespace zendara
