// Words and places of the worker screen: captions of what is no field, and the layout. The tab order of the fields is
// that of the layout, which goes by their indexes.
#include <utility>
#include <vector>

#include "workers/trabajadores.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;

// Titled groups of fields.
enum IndiceGrupo {
  kGrupoIdentificacion,
  kGrupoSeguridadSocial,
  kGrupoDomicilio,
  kGrupoPerceptor,
  kGrupoHijos,
  kGrupoAscendientes,
  kGrupoRetribuciones,
  kGrupoBanco,
  kGrupoFormaPago,
  kGrupoSituacion,
  kGrupoAlta,
  kGrupoConvenio,
  kGrupoCotizacion,
  kGrupoContrato1,
  kGrupoBonificacion1,
  kGrupoContrato2,
  kGrupoBonificacion2,
  kGrupoContrato3,
  kGrupoBonificacion3,
  kGrupoParcial,
  kGrupoFormacion,
  kGrupoIRPF,
  kGrupoRegularizacion,
  kGrupoCentro,
};

constexpr std::pair<IndiceGrupo, std::string_view> kGrupos[] = {
    {kGrupoIdentificacion, "Identificación"},
    {kGrupoSeguridadSocial, "Seguridad Social"},
    {kGrupoDomicilio, "Domicilio"},
    {kGrupoPerceptor, "Perceptor"},
    {kGrupoHijos, "Hijos"},
    {kGrupoAscendientes, "Ascendientes"},
    {kGrupoRetribuciones, "Retribuciones"},
    {kGrupoBanco, "Cuenta Bancaria"},
    {kGrupoFormaPago, "Forma de Pago"},
    {kGrupoSituacion, "Situación"},
    {kGrupoAlta, "Alta y Baja"},
    {kGrupoConvenio, "Convenio y Categoría"},
    {kGrupoCotizacion, "Cotización"},
    {kGrupoContrato1, "Primer contrato"},
    {kGrupoBonificacion1, "Bonificación"},
    {kGrupoContrato2, "Segundo contrato"},
    {kGrupoBonificacion2, "Bonificación"},
    {kGrupoContrato3, "Tercer contrato"},
    {kGrupoBonificacion3, "Bonificación"},
    {kGrupoParcial, "Tiempo parcial"},
    {kGrupoFormacion, "Formación"},
    {kGrupoIRPF, "Porcentaje y cotización"},
    {kGrupoRegularizacion, "Regularización"},
    {kGrupoCentro, "Centro de trabajo"},
};

// The figures of a regularisation; the last two are only shown.
struct CampoRegularizacion {
  int indice;
  std::string_view rotulo;
  bool bloqueado;
};
constexpr CampoRegularizacion kRegularizacion[] = {
    {1, "Retribuciones Anuales:", false},
    {2, "Reducción Rentas Irregulares (Art 17.2)..........:", false},
    {3, "Gastos Anuales ( art 17.3 a, b  y  c  ) ...............................:", false},
    {4, "Retribuciones acumuladas:", false},
    {5, "Retención acumulada e ingresos a cuenta:", false},
    {6, "Retribuciones anuales iniciales:", true},
    {7, "Ret. anual inicial:", true},
};
constexpr int kLargoImporte = 10;

constexpr const char* kPaginasTab1[] = {"Datos Trabajador", "I.R.P.F.", "I.R.P.F. (2)", "Cuenta Bancaria", "Situación"};
constexpr const char* kPaginasTab2[] = {"Descripción", "Contrato", "Parcial/Formación", "%  I.R.P.F.",
                                        "Centro Trabajo"};

}  // namespace

void Trabajadores::PonRotulos() {
  Tab1.SetTitles({std::begin(kPaginasTab1), std::end(kPaginasTab1)});
  Tab2.SetTitles({std::begin(kPaginasTab2), std::end(kPaginasTab2)});
  for (const auto& [indice, titulo] : kGrupos) Grupo.Add(indice).SetCaption(titulo);
  Frame2.SetCaption("Regularización");
  for (const CampoRegularizacion& campo : kRegularizacion) {
    TextBox& texto = Text2.Add(campo.indice);
    texto.SetCaption(campo.rotulo);
    texto.SetMaxLength(kLargoImporte);
    texto.SetAlignment(Alignment::kRight);
    texto.SetLocked(campo.bloqueado);
    texto.SetBackColor(kGrey);
  }
  Regularizacion.SetVisible(false);

  const std::pair<Button*, std::string_view> botones[] = {
      {&Inicio, "&Inicio"},
      {&Anterior, "&Anterior"},
      {&Siguiente, "Sig&uiente"},
      {&Fin, "&Fin"},
      {&CmdIncidenciasIT, "Incidencias I.&T."},
      {&CmdIncidenciasESP, "Incidencias &E.S.P."},
      {&CmdIncidenciasVar, "Incidencias &Variables"},
      {&Pendientes, "&Listado"},
      {&Grabar, "&Grabar"},
      {&Borrar, "B&orrar"},
      {&Cancela, "&Cancelar"},
      {&CmdNuevo, "&Nueva Situación"},
      {&CmdBorrar, "&Borrar Situación "},
      {&CmdCalcular, "Calcula&r"},
      {&Regulariza, "Regulari&zar"},
      {&CalcularRegula, "Calcular nuevo ti&po"},
  };
  for (const auto& [boton, rotulo] : botones) boton->SetCaption(rotulo);
}

Layout Trabajadores::Disposicion() {
  const auto campo = [this](IndiceCampo indice) {
    Control& control = *ficha_.ControlDe(indice);
    Image* imagen = Image1.Find(indice);
    return imagen ? Place(control, {imagen}) : Place(control);
  };
  const auto campos = [&](IndiceCampo desde, IndiceCampo hasta) {
    std::vector<Layout> lugares;
    for (int indice = desde; indice <= hasta; ++indice) lugares.push_back(campo(indice));
    return lugares;
  };
  const auto fila = [&](IndiceCampo desde, IndiceCampo hasta) {
    std::vector<Layout> lugares = campos(desde, hasta);
    lugares.push_back(Space());
    return Row(std::move(lugares));
  };
  const auto grupo = [this](IndiceGrupo indice, std::vector<Layout> lugares) {
    return Framed(Grupo(indice), std::move(lugares));
  };
  const auto hoja = [](Frame& marco, std::vector<Layout> lugares) {
    lugares.push_back(Space());
    return Framed(marco, std::move(lugares));
  };
  const auto botones = [](std::initializer_list<Button*> izquierda, std::initializer_list<Button*> derecha) {
    std::vector<Layout> lugares;
    for (Button* boton : izquierda) lugares.push_back(Place(*boton));
    lugares.push_back(Space());
    for (Button* boton : derecha) lugares.push_back(Place(*boton));
    return Row(std::move(lugares));
  };
  const auto contrato = [&](IndiceGrupo marco, IndiceGrupo bonificacion, CampoTrabajador tipo) {
    const CampoTrabajador porcentaje = tipo + (kBonificacion1 - kTipo1);
    return grupo(marco, {Row({campo(tipo), campo(tipo + 1), campo(tipo + 2),
                              grupo(bonificacion, {fila(porcentaje, porcentaje + 2)}), Space()})});
  };

  Layout datos = hoja(FrameTrabajador,
                      {grupo(kGrupoIdentificacion,
                             {Row({Place(Combo1(kTipoIdentificacion), {&Image1(kTipoIdentificacion), &lbDescripcion}),
                                   campo(kIdentificacion), Space()})}),
                       grupo(kGrupoSeguridadSocial, {fila(kProvinciaSS, kControlSS)}),
                       grupo(kGrupoDomicilio, {fila(kSiglas, kNumeroCalle), fila(kEscalera, kPuerta),
                                               fila(kMunicipio, kProvincia), fila(kCodigoPostal, kTelefono)}),
                       campo(kFechaNacimiento)});
  Layout irpf = hoja(FrameIRPF, {Row({grupo(kGrupoPerceptor, campos(kSituacionPerceptor, kMinusvalia)),
                                      grupo(kGrupoHijos, {Place(Grid1(kHijos))}),
                                      grupo(kGrupoAscendientes, {Place(Grid1(kAscendientes))}), Space()})});
  Layout irpf2 = hoja(Frame16, {Row({grupo(kGrupoRetribuciones, campos(kRetribuciones, kCeuta)),
                                     Framed(Frame2, campos(kRetribucionesAcumuladas, kRetencionInicial)), Space()})});
  Layout cuenta = hoja(FrameCuenta, {grupo(kGrupoBanco, {fila(kEntidad, kCuenta)}),
                                     grupo(kGrupoFormaPago, campos(kFormaPago, kDescripcionFormaPago))});

  Layout descripcion = hoja(
      FrameDescripcion,
      {grupo(kGrupoSituacion, {fila(kSituacion, kFechaFin)}),
       grupo(kGrupoAlta, {fila(kFechaAlta, kMotivoBaja), fila(kFechaAntiguedad, kLibroMatricula)}),
       grupo(kGrupoConvenio, {fila(kConvenio, kDescripcionConvenio), fila(kCategoria, kPuestoTrabajo)}),
       grupo(kGrupoCotizacion, {fila(kEpigrafe, kDescripcionEpigrafe), fila(kGrupoTarifa, kDescripcionGrupoTarifa)})});
  Layout contratos =
      hoja(FrameContrato, {campo(kNumeroContrato), contrato(kGrupoContrato1, kGrupoBonificacion1, kTipo1),
                           contrato(kGrupoContrato2, kGrupoBonificacion2, kTipo2),
                           contrato(kGrupoContrato3, kGrupoBonificacion3, kTipo3)});
  Layout parcial =
      hoja(FrameParcial, {Row({grupo(kGrupoParcial, campos(kDiasParcial, kHorasComplementarias)),
                               grupo(kGrupoFormacion, campos(kFormacionPresencial, kFormacionDistancia)), Space()})});
  std::vector<Layout> cifras;
  for (const auto& [indice, texto] : Text2) cifras.push_back(Place(*texto));
  Layout por_irpf =
      hoja(FramePorIRPF,
           {Row({grupo(kGrupoIRPF, {Place(Text1(kPorcentajeIRPF), {&CmdCalcular, &Regulariza}), campo(kPluriempleo),
                                    campo(kOcupacion), campo(kAutonomo), campo(kAsimilado), campo(kPrestaciones)}),
                 Framed(Regularizacion, {grupo(kGrupoRegularizacion, std::move(cifras)), Place(CalcularRegula)}),
                 Space()})});
  Layout centro = hoja(FrameCentro,
                       {grupo(kGrupoCentro, {fila(kCentro, kDescripcionCentro), fila(kSeccion, kDescripcionSeccion)})});

  Layout situacion = Pages(
      Tab2, {std::move(descripcion), std::move(contratos), std::move(parcial), std::move(por_irpf), std::move(centro)});
  std::vector<Layout> titulos;
  for (const auto& [indice, titulo] : Titulo) titulos.push_back(Place(*titulo));
  titulos.push_back(Space());

  return Row(
      {Place(Picture25),
       Column(
           {Row(std::move(titulos)), fila(kNumero, kNombre),
            Pages(Tab1, {std::move(datos), std::move(irpf), std::move(irpf2), std::move(cuenta), std::move(situacion)}),
            botones({&Inicio, &Anterior, &Siguiente, &Fin},
                    {&CmdIncidenciasIT, &CmdIncidenciasESP, &CmdIncidenciasVar, &Pendientes}),
            botones({&Grabar, &Borrar, &Cancela, &CmdNuevo, &CmdBorrar}, {&Calculadora, &Salir}), TiraAnuncio()})});
}

}  // namespace zendara
