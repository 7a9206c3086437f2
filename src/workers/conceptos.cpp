#include "workers/conceptos.hpp"

#include <memory>
#include <string_view>
#include <utility>

#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

constexpr int kTodosLosGrupos = 0;
constexpr int kGrupoAno = 2;
constexpr int kColumnaFinSituacion = 4;  // of TrabajadoresVar
constexpr std::string_view kIndiceMes = "Icampo0_1_2";
constexpr std::string_view kIndiceConcepto = "Icampo0_1_2_3";

// Columns of both tables of a month, by ordinal; what follows is copied blindly.
enum ColumnaMes { kMes, kTrabajador, kSituacion, kPrimeraCopiada, kConcepto = kPrimeraCopiada };

struct TablaMes {
  int ranura;
  std::string_view nombre;
  int ultima;  // column copied
};
constexpr TablaMes kConceptos = {kConTrabajadorConceptos, "contrabajadorConceptos", 19};
constexpr TablaMes kPagas = {kConTrabajadorPagas, "contrabajadorPagas", 110};

std::string MesDe(const std::string& fecha) { return Mid(fecha, 4, 2); }
std::string AnoDe(const std::string& fecha) { return Right(fecha, 2); }

class Transferencia {
 public:
  Transferencia(Sesion& sesion, CopiaPendiente& copia)
      : sesion_(sesion),
        nueva_(copia.nueva),
        empezada_(copia.empezada),
        ano_trabajo_(sesion.AnoTrabajo.str()),
        ano_nuevo_(AnoDe(nueva_.inicio)),
        anterior_(FormatText(Val(nueva_.numero) - 1, "000;")) {}

  void Ejecuta() {
    if (ano_nuevo_ != ano_trabajo_ && TieneAno(ano_nuevo_)) CambiaRanuras(ano_nuevo_);
    AbreFichero(sesion_, FileKind::kYear);
    if (LeeAnterior()) {
      if (EnOtroAno()) {
        if (!TieneAno(ano_anterior_)) return;
        AbreFichero(sesion_, FileKind::kYear, ano_anterior_);
      }
      if (empezada_ || FaltaEn(kConceptos)) {
        sesion_.RsTrabajo = FilasAnteriores(kConceptos);
        const bool sigue = std::exchange(empezada_, true);
        for (; !sesion_.RsTrabajo->Eof(); sesion_.RsTrabajo->MoveNext()) {
          if (!sigue || FaltaConcepto(*sesion_.RsTrabajo)) Copia(kConceptos, *sesion_.RsTrabajo);
        }
      }
      if (FaltaEn(kPagas)) {
        sesion_.RsAuxiliar = FilasAnteriores(kPagas);
        if (!sesion_.RsAuxiliar->Eof()) Copia(kPagas, *sesion_.RsAuxiliar);
      }
    }
    if (ano_nuevo_ != ano_trabajo_ && TieneAno(ano_trabajo_)) CambiaRanuras(ano_anterior_);
  }

 private:
  bool EnOtroAno() const { return ano_anterior_ != ano_trabajo_; }

  bool TieneAno(const std::string& ano) const {
    return sesion_.platform.engine->Workspaces(0)->Exists(sesion_.DirDatos +
                                                          FileName(FileKind::kYear, sesion_.CodEmpresa.str(), ano));
  }

  // AbreTablas goes on without the tables that it does not reach, but rows must not go to another year's.
  void CambiaRanuras(const std::string& ano) {
    const auto antes = sesion_.Tablas[kConTrabajadorConceptos];
    AbreTablas(sesion_, kTodosLosGrupos, sesion_.CodEmpresa.str(), ano);
    if (ano.empty() || sesion_.Tablas[kConTrabajadorConceptos] != antes) return;
    AbreFichero(sesion_, FileKind::kYear, ano);
    LlenaRanuras(sesion_, Grupo(kGrupoAno));
  }

  // Where the previous situación ended; an open one gives empty texts.
  bool LeeAnterior() {
    Recordset& situaciones = sesion_.Tabla(kTrabajadoresVar);
    situaciones.SetIndex("ICampo0_1");
    if (situaciones.IsEmpty()) return false;
    situaciones.Seek({nueva_.trabajador, anterior_});
    if (situaciones.NoMatch()) return false;
    const std::string fin =
        TextoNoNulo(FormatDate(situaciones.Fields(kColumnaFinSituacion).Get(), "dd/mm/yy", sesion_.VentanaFechas));
    mes_anterior_ = MesDe(fin);
    ano_anterior_ = AnoDe(fin);
    return true;
  }

  bool FaltaEn(const TablaMes& tabla) {
    Recordset& filas = sesion_.Tabla(tabla.ranura);
    filas.SetIndex(kIndiceMes);
    filas.Seek({MesDe(nueva_.inicio), nueva_.trabajador, nueva_.numero});
    return filas.NoMatch();
  }

  bool FaltaConcepto(Recordset& fila) {
    Recordset& filas = sesion_.Tabla(kConTrabajadorConceptos);
    filas.SetIndex(kIndiceConcepto);
    filas.Seek({MesDe(nueva_.inicio), nueva_.trabajador, nueva_.numero, fila.Fields(kConcepto).Get()});
    return filas.NoMatch();
  }

  // The rows come from the year of the previous situación; from here on the slots are those of the working year.
  std::shared_ptr<Recordset> FilasAnteriores(const TablaMes& tabla) {
    if (EnOtroAno()) AbreFichero(sesion_, FileKind::kYear, ano_anterior_);
    auto filas = sesion_.BDEmpresa->OpenRecordset("Select * from " + std::string(tabla.nombre) + " where campo0='" +
                                                  mes_anterior_ + "'  And campo1='" + SqlText(nueva_.trabajador) +
                                                  "' and campo2 = '" + SqlText(anterior_) + "' ");
    if (EnOtroAno()) CambiaRanuras(ano_trabajo_);
    return filas;
  }

  void Copia(const TablaMes& tabla, Recordset& fila) {
    Recordset& destino = sesion_.Tabla(tabla.ranura);
    destino.AddNew();
    destino.Fields(kMes).Set(MesDe(nueva_.inicio));
    destino.Fields(kTrabajador).Set(fila.Fields(kTrabajador).Get());
    destino.Fields(kSituacion).Set(nueva_.numero);
    for (int columna = kPrimeraCopiada; columna <= tabla.ultima; ++columna) {
      destino.Fields(columna).Set(fila.Fields(columna).Get());
    }
    destino.Update();
  }

  Sesion& sesion_;
  const NuevaSituacion& nueva_;
  bool& empezada_;
  const std::string ano_trabajo_;
  const std::string ano_nuevo_;
  const std::string anterior_;
  std::string mes_anterior_;
  std::string ano_anterior_;
};

}  // namespace

void TransfiereConceptos(Sesion& sesion, CopiaPendiente& copia) { Transferencia(sesion, copia).Ejecuta(); }

}  // namespace zendara
