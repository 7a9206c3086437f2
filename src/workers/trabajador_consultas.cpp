#include "workers/trabajador_consultas.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "common/consulta.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {
namespace {

using namespace campo;

constexpr int kCamposNumero[] = {kNumero};
constexpr int kCamposIdentificacion[] = {kTipoIdentificacion};
constexpr int kCamposSiglas[] = {kSiglas};
constexpr int kCamposPerceptor[] = {kSituacionPerceptor};
constexpr int kCamposClase[] = {kClaseContrato};
constexpr int kCamposFamilia[] = {kSituacionFamiliar};
constexpr int kCamposMinusvalia[] = {kMinusvalia};
constexpr int kCamposFormaPago[] = {kFormaPago, kDescripcionFormaPago};
constexpr int kCamposSituacion[] = {kSituacion, kDescripcionSituacion, kFechaInicio};
constexpr int kCamposConvenio[] = {kConvenio, kDescripcionConvenio};
constexpr int kCamposCategoria[] = {kCategoria, kDescripcionCategoria};
constexpr int kCamposEpigrafe[] = {kEpigrafe, kDescripcionEpigrafe};
constexpr int kCamposTarifa[] = {kGrupoTarifa, kDescripcionGrupoTarifa};
constexpr int kCamposContrato[] = {kNumeroContrato, kTipo1};
constexpr int kCamposTipo1[] = {kTipo1, kModalidad1, kDisposicion1, kBonificacion1};
constexpr int kCamposTipo2[] = {kTipo2, kModalidad2, kDisposicion2, kBonificacion2};
constexpr int kCamposTipo3[] = {kTipo3, kModalidad3, kDisposicion3, kBonificacion3};
constexpr int kCamposCentro[] = {kCentro, kDescripcionCentro};
constexpr int kCamposSeccion[] = {kSeccion, kDescripcionSeccion};

constexpr ConsultaTrabajador kConsultas[] = {
    {kNumero, &kListaFichaTrabajadores, kSinParametro, kCamposNumero, true},
    {kTipoIdentificacion, &kListaIdentificaciones, kSinParametro, kCamposIdentificacion},
    {kSiglas, &kListaCalles, kSinParametro, kCamposSiglas},
    {kSituacionPerceptor, &kListaSituacionesIRPF, kSinParametro, kCamposPerceptor},
    {kClaseContrato, &kListaClasesContrato, kSinParametro, kCamposClase},
    {kSituacionFamiliar, &kListaSituacionesFamilia, kSinParametro, kCamposFamilia},
    {kMinusvalia, &kListaMinusvalias, kSinParametro, kCamposMinusvalia},
    {kFormaPago, &kListaFormasPago, kSinParametro, kCamposFormaPago},
    {kSituacion, &kListaSituaciones, kNumero, kCamposSituacion, true},
    {kConvenio, &kListaConvenios, kSinParametro, kCamposConvenio},
    {kCategoria, &kListaCategorias, kConvenio, kCamposCategoria},
    {kEpigrafe, &kListaEpigrafes, kSinParametro, kCamposEpigrafe},
    {kGrupoTarifa, &kListaGruposTarifa, kSinParametro, kCamposTarifa},
    {kNumeroContrato, &kListaContratos, kSinParametro, kCamposContrato},
    {kTipo1, &kListaTiposContrato, kNumeroContrato, kCamposTipo1},
    {kTipo2, &kListaTiposContrato, kNumeroContrato, kCamposTipo2},
    {kTipo3, &kListaTiposContrato, kNumeroContrato, kCamposTipo3},
    {kCentro, &kListaCentros, kSinParametro, kCamposCentro},
    {kSeccion, &kListaSecciones, kSinParametro, kCamposSeccion},
};

}  // namespace

std::span<const ConsultaTrabajador> ConsultasTrabajador() { return kConsultas; }

const ConsultaTrabajador* ConsultaDeCampo(int indice) {
  const auto* encontrada = std::ranges::find(kConsultas, indice, &ConsultaTrabajador::indice);
  return encontrada == std::end(kConsultas) ? nullptr : encontrada;
}

void Trabajadores::AbreLista(int indice) {
  const ConsultaTrabajador* consulta = ConsultaDeCampo(indice);
  if (!consulta) return;
  Guarda([&] {
    SetPointer(MousePointer::kHourglass);
    ficha_.Campo(indice)->SetFocus();
    std::vector<std::string> parametros;
    if (consulta->parametro != kSinParametro) parametros.push_back(TextoRecortado(consulta->parametro));
    const std::string fila = Consulta(sesion_, *consulta->lista, parametros).value_or("");
    if (!fila.empty()) {
      const std::vector<std::string> cortes = CortaFila(*consulta->lista, fila);
      for (std::size_t i = 0; i < cortes.size(); ++i) ficha_.Pon(consulta->campos[i], cortes[i]);
      if (consulta->carga) SalidaCampo(indice);
      // The other texts of a contract are those of its type.
      for (const int campo : consulta->campos) {
        const CampoTrabajador* lleno = CampoDe(campo);
        if (lleno->Tiene(kContrato) && !Vacio(campo)) BuscarContrato(campo);
      }
    }
    Host().DoEvents();
    SetPointer(MousePointer::kDefault);
  });
}

}  // namespace zendara
