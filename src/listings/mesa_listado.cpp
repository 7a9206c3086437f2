#include "listings/mesa_listado.hpp"

#include "frame/bases_datos.hpp"

namespace zendara {
namespace {

constexpr std::string_view kTabla = "ListadosNOM";
constexpr std::string_view kIndice = "ICampo1";
constexpr std::size_t kLineasDeUnaVez = 1000;

}  // namespace

MesaListado::MesaListado(Sesion& sesion, std::string_view indice) : sesion_(sesion) {
  AbreFichero(sesion_, FileKind::kCompany);
  base_ = sesion_.BDEmpresa;
  sesion_.TablaListados = base_->OpenRecordset(kTabla, RecordsetType::kTable);
  sesion_.TablaListados->SetIndex(indice);
  sesion_.platform.engine->Idle(1);
  if (!sesion_.TablaListados->IsEmpty()) base_->Execute("DELETE * FROM ListadosNom");
}

MesaListado::~MesaListado() {
  try {
    Asienta();
  } catch (...) {
    // Whatever ends the listing has been said, or is on its way.
  }
}

void MesaListado::Anade(const std::vector<Value>& linea) {
  if (!tanda_) tanda_ = std::make_unique<Transaction>(*base_);
  Recordset& tabla = *sesion_.TablaListados;
  tabla.AddNew();
  for (std::size_t columna = 0; columna < linea.size(); ++columna) {
    if (!linea[columna].IsNull()) tabla.Fields(static_cast<int>(columna)).Set(linea[columna]);
  }
  tabla.Update();
  if (++lineas_ % kLineasDeUnaVez == 0) Asienta();
}

void MesaListado::Asienta() {
  if (const auto tanda = std::move(tanda_)) tanda->Commit();
}

void MesaListado::Termina() {
  Asienta();
  if (lineas_ > 0) sesion_.TablaListados->MoveFirst();
  sesion_.TablaListados->SetIndex(kIndice);
}

void VisualizaListado(const Sesion& sesion, const DescripcionListado& descripcion, const std::string& fichero,
                      std::string_view tabla, Form* formulario) {
  ListingDescription elementos = {std::to_string(descripcion.columnas.size())};
  for (const ColumnaListado& columna : descripcion.columnas) {
    elementos.emplace_back(std::string(columna.titulo));
    elementos.emplace_back(columna.alineacion);
    elementos.emplace_back(std::string(columna.ancho));
  }
  elementos.emplace_back(std::string(descripcion.titulo));
  elementos.emplace_back(descripcion.pendientes);
  const std::unique_ptr<ListingViewer> visor = CreateListingViewer(sesion.platform.components);
  visor->FicheroDatos(fichero);
  visor->TablaDatos(std::string(tabla));
  visor->FormularioPadre(formulario);
  visor->Visualiza(elementos);
}

}  // namespace zendara
