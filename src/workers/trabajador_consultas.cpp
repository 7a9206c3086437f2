#include "workers/trabajador_consultas.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "common/consulta.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;

constexpr CampoTrabajador kCamposNumero[] = {kNumero};
constexpr CampoTrabajador kCamposIdentificacion[] = {kTipoIdentificacion};
constexpr CampoTrabajador kCamposSiglas[] = {kSiglas};
constexpr CampoTrabajador kCamposPerceptor[] = {kSituacionPerceptor};
constexpr CampoTrabajador kCamposClase[] = {kClaseContrato};
constexpr CampoTrabajador kCamposFamilia[] = {kSituacionFamiliar};
constexpr CampoTrabajador kCamposMinusvalia[] = {kMinusvalia};
constexpr CampoTrabajador kCamposFormaPago[] = {kFormaPago, kDescripcionFormaPago};
constexpr CampoTrabajador kCamposSituacion[] = {kSituacion, kDescripcionSituacion, kFechaInicio};
constexpr CampoTrabajador kCamposConvenio[] = {kConvenio, kDescripcionConvenio};
constexpr CampoTrabajador kCamposCategoria[] = {kCategoria, kDescripcionCategoria};
constexpr CampoTrabajador kCamposEpigrafe[] = {kEpigrafe, kDescripcionEpigrafe};
constexpr CampoTrabajador kCamposTarifa[] = {kGrupoTarifa, kDescripcionGrupoTarifa};
constexpr CampoTrabajador kCamposContrato[] = {kNumeroContrato, kTipo1};
constexpr CampoTrabajador kCamposTipo1[] = {kTipo1, kModalidad1, kDisposicion1, kBonificacion1};
constexpr CampoTrabajador kCamposTipo2[] = {kTipo2, kModalidad2, kDisposicion2, kBonificacion2};
constexpr CampoTrabajador kCamposTipo3[] = {kTipo3, kModalidad3, kDisposicion3, kBonificacion3};
constexpr CampoTrabajador kCamposCentro[] = {kCentro, kDescripcionCentro};
constexpr CampoTrabajador kCamposSeccion[] = {kSeccion, kDescripcionSeccion};

constexpr ConsultaTrabajador kConsultas[] = {
    {kNumero, &kListaFichaTrabajadores, kCamposNumero, {}, true},
    {kTipoIdentificacion, &kListaIdentificaciones, kCamposIdentificacion},
    {kSiglas, &kListaCalles, kCamposSiglas},
    {kSituacionPerceptor, &kListaSituacionesIRPF, kCamposPerceptor},
    {kClaseContrato, &kListaClasesContrato, kCamposClase},
    {kSituacionFamiliar, &kListaSituacionesFamilia, kCamposFamilia},
    {kMinusvalia, &kListaMinusvalias, kCamposMinusvalia},
    {kFormaPago, &kListaFormasPago, kCamposFormaPago},
    {kSituacion, &kListaSituaciones, kCamposSituacion, kNumero, true},
    {kConvenio, &kListaConvenios, kCamposConvenio},
    {kCategoria, &kListaCategorias, kCamposCategoria, kConvenio},
    {kEpigrafe, &kListaEpigrafes, kCamposEpigrafe},
    {kGrupoTarifa, &kListaGruposTarifa, kCamposTarifa},
    {kNumeroContrato, &kListaContratos, kCamposContrato},
    {kTipo1, &kListaTiposContrato, kCamposTipo1, kNumeroContrato},
    {kTipo2, &kListaTiposContrato, kCamposTipo2, kNumeroContrato},
    {kTipo3, &kListaTiposContrato, kCamposTipo3, kNumeroContrato},
    {kCentro, &kListaCentros, kCamposCentro},
    {kSeccion, &kListaSecciones, kCamposSeccion},
};

}  // namespace

std::span<const ConsultaTrabajador> ConsultasTrabajador() { return kConsultas; }

const ConsultaTrabajador* ConsultaDeCampo(CampoTrabajador campo) {
  const auto* encontrada = std::ranges::find(kConsultas, campo, &ConsultaTrabajador::campo);
  return encontrada == std::end(kConsultas) ? nullptr : encontrada;
}

void Trabajadores::AbreLista(int indice) {
  const auto campo = static_cast<CampoTrabajador>(indice);
  const ConsultaTrabajador* consulta = ConsultaDeCampo(campo);
  if (!consulta) return;
  Guarda([&] {
    SetPointer(MousePointer::kHourglass);
    ficha_.ControlDe(campo)->SetFocus();
    std::vector<std::string> parametros;
    if (consulta->parametro) parametros.push_back(ficha_.TextoRecortado(*consulta->parametro));
    std::vector<std::string> actuales;
    for (const CampoTrabajador lleno : consulta->llena) actuales.push_back(ficha_.TextoRecortado(lleno));
    const std::string fila = Consulta(sesion_, *consulta->lista, parametros, actuales).value_or("");
    if (!fila.empty()) {
      const std::vector<std::string> cortes = CortaFila(*consulta->lista, fila);
      for (std::size_t i = 0; i < cortes.size(); ++i) ficha_.Pon(consulta->llena[i], cortes[i]);
      if (consulta->carga) SalidaCampo(indice);
      // The other texts of a contract are those of its type.
      for (const CampoTrabajador lleno : consulta->llena) {
        if (ficha_.CampoDe(lleno)->Tiene(kContrato) && !ficha_.Vacio(lleno)) BuscarContrato(lleno);
      }
    }
    Host().DoEvents();
    SetPointer(MousePointer::kDefault);
  });
}

}  // namespace zendara
