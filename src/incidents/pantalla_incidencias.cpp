#include "incidents/pantalla_incidencias.hpp"

#include <algorithm>
#include <memory>
#include <utility>

#include "common/ayuda.hpp"
#include "common/busqueda.hpp"
#include "common/consulta.hpp"
#include "common/seleccion_trabajador.hpp"
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "frame/parametros.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/nombres.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

constexpr std::string_view kPantallaTrabajadores = "Trabajadores";
constexpr std::string_view kPantallaListado = "Imprgast";
constexpr int kGrupoAno = 2;  // of the slots

Marco MarcoDe(const DisenoIncidencias& diseno) {
  return {std::string(diseno.pantalla),
          std::string(diseno.leyenda),
          diseno.contexto_ayuda,
          {
              {"Inicio", " Registro inicial "},
              {"Anterior", " Registro anterior "},
              {"Siguiente", " Registro siguiente "},
              {"Fin", " Registro Final "},
              {"Grabar", std::string(diseno.pista_grabar)},
              {"Borrar", std::string(diseno.pista_borrar)},
              {"Pendientes", " Relación de Incidencias "},
          }};
}

}  // namespace

PantallaIncidencias::PantallaIncidencias(Sesion& sesion, RegistroPantallas& pantallas, const DisenoIncidencias& diseno)
    : PantallaBase(sesion, pantallas, MarcoDe(diseno)), diseno_(diseno) {
  const std::pair<Button*, std::string_view> botones[] = {
      {&Inicio, "&Inicio"}, {&Anterior, "&Anterior"}, {&Siguiente, "Sig&uiente"}, {&Fin, "&Fin"},
      {&Grabar, "&Grabar"}, {&Borrar, "B&orrar"},     {&Cancela, "&Cancelar"},    {&Pendientes, "&Listado"},
  };
  for (const auto& [boton, rotulo] : botones) boton->SetCaption(rotulo);
}

void PantallaIncidencias::CreaTexto(const Campo& campo) {
  TextBox& texto = Text1.Add(campo.indice);
  ficha_.Anade(campo, texto);
  if (campo.Tiene(kNumerico)) texto.SetAlignment(Alignment::kRight);
  if (campo.Tiene(kVista)) texto.SetEnabled(false);
}

void PantallaIncidencias::Conecta() {
  grabar_ = &Grabar;
  inicio_ = &Inicio;
  anterior_ = &Anterior;
  siguiente_ = &Siguiente;
  fin_ = &Fin;
  PonNumeroTrabajador(Text1(diseno_.trabajador));
  PonPantalla(Pendientes, kPantallaListado);

  const std::pair<Button*, void (PantallaIncidencias::*)()> ordenes[] = {
      {&Grabar, &PantallaIncidencias::GrabaFicha},
      {&Borrar, &PantallaIncidencias::BorraFicha},
      {&Cancela, &PantallaIncidencias::CancelaFicha},
      {&Pendientes, &PantallaIncidencias::AbreListado},
  };
  for (const auto& [boton, rutina] : ordenes) {
    boton->On().click = [this, rutina](int) { Guarda([&] { (this->*rutina)(); }); };
  }
  const std::pair<Button*, bool (Navegacion::*)()> pasos[] = {
      {&Inicio, &Navegacion::AlInicio},
      {&Anterior, &Navegacion::AlAnterior},
      {&Siguiente, &Navegacion::AlSiguiente},
      {&Fin, &Navegacion::AlFin},
  };
  for (const auto& [boton, paso] : pasos) {
    boton->On().click = [this, paso](int) { Guarda([&] { Recorre(paso); }); };
  }
  ConectaMarco();
}

Layout PantallaIncidencias::Disposicion(std::vector<Layout> campos) {
  campos.push_back(Space());
  return Row({Place(Picture25), Column({Cabecera(), calendario_.Junto(Scrolled(Column(std::move(campos)))),
                                        Flow({Joined({Place(Inicio), Place(Anterior), Place(Siguiente), Place(Fin)}),
                                              Space(), Place(Pendientes)}),
                                        // What removes stands away from what saves.
                                        Flow({MainButton(Grabar), Place(Cancela), Space(), Place(Borrar), Space(),
                                              Row({Place(Calculadora), Place(Salir)})}),
                                        TiraAnuncio()})});
}

void PantallaIncidencias::OnLoad() {
  Guarda([this] {
    CargaParametros(sesion_);
    CreaAnuncio();
    PintaLeyenda();
    PonAyuda();
    PonTitulos();
    PonTamano();
    std::string trabajador;
    std::string situacion;
    const std::shared_ptr<Pantalla> quien = pantallas_.Objeto(kPantallaTrabajadores);
    if (const auto* elegido = dynamic_cast<const SeleccionTrabajador*>(quien.get())) {
      trabajador = Trim(elegido->TrabajadorElegido);
      situacion = Trim(elegido->SituacionElegida);
    }
    PonElegido(trabajador, situacion);
    // The worker screen that has copied concepts between years can have left the slots in another one.
    if (!trabajador.empty() && diseno_.fichero == FileKind::kYear) {
      AbreFichero(sesion_, FileKind::kYear);
      LlenaRanuras(sesion_, Grupo(kGrupoAno));
    }
    // Whatever the host has opened last: some queries take the database as it stands.
    AbreFichero(sesion_, FileKind::kCompany);
  });
}

std::string PantallaIncidencias::Subject() const {
  const TextBox& campo = Text1(diseno_.trabajador);
  const std::string numero = Trim(campo.Text());
  if (static_cast<int>(Len(numero)) < campo.MaxLength()) return {};
  return Trim(numero + " " + Text1(diseno_.nombre).Text());
}

HelpPlace PantallaIncidencias::HelpOnFocus() const {
  if (!Focus()) return {};
  return {.link = Focus()->Kind() == ControlKind::kButton ? "#botones" : "#campos", .words = PalabrasDe(*Focus())};
}

// The row.

std::vector<Value> PantallaIncidencias::Clave() const {
  std::vector<Value> clave;
  for (const IndiceCampo indice : diseno_.clave) clave.emplace_back(Texto(indice));
  return clave;
}

void PantallaIncidencias::Anota(Recordset& fila, IndiceCampo desde, IndiceCampo hasta) {
  ficha_.Anota(fila, {desde, hasta, desde - 1});
  VeTrabajador();
}

void PantallaIncidencias::LimpiaCampos(IndiceCampo desde, IndiceCampo hasta) {
  ficha_.Limpia(desde, hasta);
  CodigoAlEntrar.clear();
  if (desde <= diseno_.trabajador) calendario_.PonTrabajador("");
}

Value PantallaIncidencias::Queda(IndiceCampo indice, const Value& propio) {
  if (!previa_) return propio;
  const Value& habia = (*previa_)[static_cast<std::size_t>(indice - 1)];
  if (!ficha_.Cambiado(indice)) return habia;
  if (ficha_.CambioAjeno(indice, habia)) sustituidos_.push_back(indice);
  return propio;
}

bool PantallaIncidencias::Falta(std::string_view texto, Control& control) {
  Mensaje(std::string(texto), control);
  control.SetFocus();
  return true;
}

bool PantallaIncidencias::FaltaCodigo(IndiceCampo indice, std::string_view texto) {
  TextBox& campo = Text1(indice);
  if (Val(campo.Text()) != 0 && static_cast<int>(Len(campo.Text())) == campo.MaxLength()) return false;
  return Falta(texto, campo);
}

void PantallaIncidencias::GrabaFicha() {
  SetPointer(MousePointer::kHourglass);
  Host().DoEvents();
  SetStatus({});
  if (!CompruebaDatos()) GrabaComprobado();
  SetPointer(MousePointer::kDefault);
}

void PantallaIncidencias::GrabarRegistro() {
  Recordset& tabla = Tabla();
  const std::vector<Value> clave = Clave();
  tabla.SetIndex(diseno_.indice);
  const bool existe = !tabla.IsEmpty() && Busca(sesion_, diseno_.ranura, diseno_.indice, clave);
  previa_.reset();
  sustituidos_.clear();
  const std::shared_ptr<Database> base = AbreAparte(sesion_, diseno_.fichero);
  Transaction todo(*base);
  if (existe) {
    tabla.Edit();
    if (std::ranges::none_of(diseno_.clave, [this](IndiceCampo indice) { return ficha_.Cambiado(indice); })) {
      previa_.emplace();
      for (const Campo& campo : diseno_.campos) previa_->push_back(tabla.Fields(campo.indice - 1).Get());
    }
    tabla.Delete();
  }
  tabla.AddNew();
  AsignaCampos();
  std::vector<Value> guardada;  // of the columns' kinds, which the texts are not
  for (const IndiceCampo indice : diseno_.clave) guardada.push_back(tabla.Fields(indice - 1).Get());
  tabla.Update();
  todo.Commit();
  navegacion_.Recuerda(std::move(guardada));
  RegistroGrabado();
  calendario_.Relee();
}

void PantallaIncidencias::DiGrabado(const std::string& resumen) {
  std::string texto = "Grabado: " + resumen;
  for (const int indice : sustituidos_) {
    texto +=
        (indice == sustituidos_.front() ? ". Otro puesto había cambiado también, y queda lo grabado aquí: " : ", ") +
        PalabrasDe(*ficha_.ControlDe(indice));
  }
  SetStatus(texto);
}

void PantallaIncidencias::BorraFicha() {
  SetPointer(MousePointer::kHourglass);
  if (Busca(sesion_, diseno_.ranura, diseno_.indice, Clave())) {
    const std::string borrada = "Borrado: " + Resumen();
    Tabla().Delete();
    calendario_.Relee();
    CancelaFicha();
    SetStatus(borrada);
  } else {
    Text1(CampoActivo).SetFocus();
    Host().DoEvents();
    Mensaje("No existe el Registro que se pretende borrar");
  }
  SetPointer(MousePointer::kDefault);
}

// The whole table, not one worker's rows. The last row is that of whatever index was set.
void PantallaIncidencias::Recorre(bool (Navegacion::*paso)()) {
  SetPointer(MousePointer::kHourglass);
  if (paso == &Navegacion::AlInicio) Tabla().SetIndex(diseno_.indice);
  if ((navegacion_.*paso)()) {
    sesion_.platform.engine->Idle(1);
    SetStatus({});
    MuestraRegistro();
  }
  // By a key the focus never left: the field is entered anew with what stands there now.
  TextBox& campo = Text1(CampoActivo);
  campo.HasFocus() ? EntradaCampo(CampoActivo) : campo.SetFocus();
  SetPointer(MousePointer::kDefault);
}

void PantallaIncidencias::AbreListado() {
  SetPointer(MousePointer::kHourglass);
  if (diseno_.lista_sin_filas || !Tabla().IsEmpty()) {
    sesion_.FormActivo = this;
    Host().DoEvents();
    pantallas_.Muestra(kPantallaListado);
  }
  SetPointer(MousePointer::kDefault);
}

// Fields.

void PantallaIncidencias::Formatea(IndiceCampo indice, std::string_view mascara) {
  Pon(indice, FormatText(Val(Texto(indice)), mascara));
}

void PantallaIncidencias::VeTrabajador() {
  const std::string numero = Trim(Texto(diseno_.trabajador));
  ApuntaTrabajador(numero);
  calendario_.PonTrabajador(numero);
}

bool PantallaIncidencias::LlamaTrabajador() {
  TextBox& campo = Text1(diseno_.trabajador);
  if (!Busca(sesion_, kTrabajadoresFijo, "ICampo0", {campo.Text()})) {
    if (!Trim(campo.Text()).empty()) Mensaje("No existe trabajador con ese código", campo);
    LimpiaCampos(diseno_.trabajador, diseno_.campos.back().indice);
    campo.SetFocus();
    return false;
  }
  const auto columna = [this](int ordinal) {
    return TextoNoNulo(sesion_.Tabla(kTrabajadoresFijo).Fields(ordinal).Get());
  };
  std::string apellido1 = columna(1);
  std::string apellido2 = columna(2);
  std::string nombre = columna(3);
  Pon(diseno_.nombre, NombreCompleto(apellido1, apellido2, nombre));
  VeTrabajador();
  return true;
}

Recordset& PantallaIncidencias::Lee(const std::string& sql) {
  sesion_.SqlTexto = sql;
  if (!sesion_.BDEmpresa) throw RuntimeError(kObjectNotSet);
  sesion_.RsTrabajo = sesion_.BDEmpresa->OpenRecordset(sql);
  return *sesion_.RsTrabajo;
}

// Lists.

void PantallaIncidencias::Elige(Control& campo, const Lista& lista, const std::vector<std::string>& parametros,
                                const std::vector<std::string>& actuales,
                                const std::function<void(const std::vector<std::string>& cortes)>& toma) {
  Guarda([&] {
    SetPointer(MousePointer::kHourglass);
    campo.SetFocus();
    const std::string fila = Consulta(sesion_, lista, parametros, actuales).value_or("");
    if (!fila.empty()) toma(CortaFila(lista, fila));
    Host().DoEvents();
    SetPointer(MousePointer::kDefault);
  });
}

void PantallaIncidencias::EligeTrabajadorDeLista() {
  TextBox& campo = Text1(diseno_.trabajador);
  const std::vector<std::string> actuales = {Trim(campo.Text()), "", "", ""};
  Elige(campo, kListaTrabajadores, {}, actuales, [this](std::vector<std::string> cortes) {
    Pon(diseno_.trabajador, cortes[0]);
    Pon(diseno_.nombre, NombreCompleto(cortes[1], cortes[2], cortes[3]));
    VeTrabajador();
    Poneregistro();
  });
}

}  // namespace zendara
