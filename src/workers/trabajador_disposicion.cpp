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
  kGrupoNacimiento,
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
  kGrupoSituaciones,
  kGrupoContratos,
  kGrupoContrato1,
  kGrupoContrato2,
  kGrupoContrato3,
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
    {kGrupoNacimiento, "Nacimiento"},
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
    {kGrupoSituaciones, "Situaciones del trabajador"},
    {kGrupoContratos, "Contratos"},
    {kGrupoContrato1, "Primer contrato"},
    {kGrupoContrato2, "Segundo contrato"},
    {kGrupoContrato3, "Tercer contrato"},
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
constexpr int kPuntosImporte = 3;  // between its thousands
constexpr int kLineasFamilia = 3;  // of the longest family situación

constexpr const char* kPaginasTab1[] = {"Datos Trabajador", "I.R.P.F.", "I.R.P.F. (2)", "Cuenta Bancaria", "Situación"};
constexpr const char* kPaginasTab2[] = {"Descripción", "Contrato", "Parcial/Formación", "%  I.R.P.F.",
                                        "Centro Trabajo"};

}  // namespace

void Trabajadores::PonRotulos() {
  Tab1.SetTitles({std::begin(kPaginasTab1), std::end(kPaginasTab1)});
  Tab2.SetTitles({std::begin(kPaginasTab2), std::end(kPaginasTab2)});
  for (const auto& [indice, titulo] : kGrupos) Grupo.Add(indice).SetCaption(titulo);
  Frame2.SetCaption("Regularización");
  Situaciones.SetCaption("Situaciones del trabajador");
  for (const CampoRegularizacion& campo : kRegularizacion) {
    TextBox& texto = Text2.Add(campo.indice);
    texto.SetCaption(campo.rotulo);
    texto.SetMaxLength(kLargoImporte);
    texto.SetWidth(kLargoImporte + kPuntosImporte);
    texto.SetAlignment(Alignment::kRight);
    texto.SetGrouped(true);
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
  // A code with what it stands for, which needs no words of its own, and the fields behind it.
  const auto codigo = [&](IndiceCampo indice, IndiceCampo hasta) {
    std::vector<Layout> lugares = campos(indice, hasta);
    lugares[1].labelled = false;
    lugares.push_back(Space());
    return Row(std::move(lugares));
  };
  // A list with the words of its code.
  const auto lista = [&](CampoTrabajador indice) { return Place(Combo1(indice), {&Image1(indice), &lbTexto(indice)}); };
  const auto grupo = [this](IndiceGrupo indice, std::vector<Layout> lugares) {
    return Framed(Grupo(indice), std::move(lugares));
  };
  const auto hoja = [](Frame& marco, std::vector<Layout> lugares) {
    lugares.push_back(Space());
    return Scrolled(Framed(marco, std::move(lugares)));
  };
  const auto botones = [](std::initializer_list<Button*> mandos) {
    std::vector<Layout> lugares;
    for (Button* mando : mandos) lugares.push_back(Place(*mando));
    return lugares;
  };

  Layout datos = hoja(
      FrameTrabajador,
      {grupo(kGrupoIdentificacion, {Place(Combo1(kTipoIdentificacion), {&Image1(kTipoIdentificacion), &lbDescripcion}),
                                    campo(kIdentificacion)}),
       grupo(kGrupoSeguridadSocial, {fila(kProvinciaSS, kControlSS)}),
       grupo(kGrupoDomicilio, {fila(kSiglas, kNumeroCalle), fila(kEscalera, kPuerta), fila(kMunicipio, kProvincia),
                               fila(kCodigoPostal, kTelefono)}),
       grupo(kGrupoNacimiento, {campo(kFechaNacimiento)})});
  Layout irpf = hoja(
      FrameIRPF,
      {Row({grupo(kGrupoPerceptor,
                  {lista(kSituacionPerceptor), lista(kClaseContrato), campo(kSituacionFamiliar),
                   Words(lbTexto(kSituacionFamiliar), kLineasFamilia), campo(kNifConyuge), lista(kMinusvalia)}),
            grupo(kGrupoHijos, {Place(Grid1(kHijos))}), grupo(kGrupoAscendientes, {Place(Grid1(kAscendientes))})})});
  Layout irpf2 = hoja(Frame16, {grupo(kGrupoRetribuciones, campos(kRetribuciones, kCeuta)),
                                Framed(Frame2, campos(kRetribucionesAcumuladas, kRetencionInicial))});
  Layout cuenta = hoja(FrameCuenta, {grupo(kGrupoBanco, {fila(kEntidad, kCuenta)}),
                                     grupo(kGrupoFormaPago, {codigo(kFormaPago, kDescripcionFormaPago)})});

  Layout descripcion = hoja(
      FrameDescripcion,
      {Row(
          {Column({grupo(kGrupoSituacion, {fila(kSituacion, kDescripcionSituacion), fila(kFechaInicio, kFechaFin)}),
                   grupo(kGrupoAlta,
                         {fila(kFechaAlta, kFechaBaja), campo(kMotivoBaja), fila(kFechaAntiguedad, kLibroMatricula)}),
                   grupo(kGrupoConvenio, {codigo(kConvenio, kDescripcionConvenio), codigo(kCategoria, kPuestoTrabajo)}),
                   grupo(kGrupoCotizacion,
                         {codigo(kEpigrafe, kDescripcionEpigrafe), codigo(kGrupoTarifa, kDescripcionGrupoTarifa)})}),
           grupo(kGrupoSituaciones, {Place(Situaciones)})})});
  const auto contrato = [&](IndiceGrupo marco, CampoTrabajador tipo) {
    return grupo(marco, campos(tipo, tipo + (kFinBonificacion1 - kTipo1)));
  };
  Layout contratos = hoja(
      FrameContrato, {grupo(kGrupoContratos,
                            {campo(kNumeroContrato),
                             Table({"Tipo", "Modalidad", "Disposición", "% bonificación", "Fecha inicio", "Fecha fin"},
                                   {contrato(kGrupoContrato1, kTipo1), contrato(kGrupoContrato2, kTipo2),
                                    contrato(kGrupoContrato3, kTipo3)})})});
  Layout parcial = hoja(FrameParcial, {grupo(kGrupoParcial, campos(kDiasParcial, kHorasComplementarias)),
                                       grupo(kGrupoFormacion, campos(kFormacionPresencial, kFormacionDistancia))});
  std::vector<Layout> cifras;
  for (const auto& [indice, texto] : Text2) cifras.push_back(Place(*texto));
  Layout por_irpf =
      hoja(FramePorIRPF,
           {Row({grupo(kGrupoIRPF, {Place(Text1(kPorcentajeIRPF), {&CmdCalcular, &Regulariza}), campo(kPluriempleo),
                                    campo(kOcupacion), campo(kAutonomo), campo(kAsimilado), campo(kPrestaciones)}),
                 Framed(Regularizacion, {grupo(kGrupoRegularizacion, std::move(cifras)), Place(CalcularRegula)}),
                 Space()})});
  Layout centro = hoja(
      FrameCentro, {grupo(kGrupoCentro, {codigo(kCentro, kDescripcionCentro), codigo(kSeccion, kDescripcionSeccion)})});

  Layout situacion = Pages(
      Tab2, {std::move(descripcion), std::move(contratos), std::move(parcial), std::move(por_irpf), std::move(centro)});

  return Row({Place(Picture25),
              Column({Cabecera(), Flow(campos(kNumero, kNombre)),
                      Pages(Tab1, {std::move(datos), std::move(irpf), std::move(irpf2), std::move(cuenta),
                                   std::move(situacion)}),
                      Flow({Joined(botones({&Inicio, &Anterior, &Siguiente, &Fin})), Space(),
                            Row(botones({&CmdIncidenciasIT, &CmdIncidenciasESP, &CmdIncidenciasVar, &Pendientes}))}),
                      // What removes stands away from what saves.
                      Flow({MainButton(Grabar), Row(botones({&Cancela, &CmdNuevo})), Space(),
                            Row(botones({&Borrar, &CmdBorrar})), Space(), Row(botones({&Calculadora, &Salir}))}),
                      TiraAnuncio()})});
}

}  // namespace zendara
