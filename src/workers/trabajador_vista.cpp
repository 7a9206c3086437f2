// What the worker screen shows.
#include "frame/bases_datos.hpp"
#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"
#include "workers/familia.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {

using enum CampoTrabajador;

void Trabajadores::PonListasIniciales() {
  for (const CampoTrabajador lista : {kTipoIdentificacion, kSituacionPerceptor, kClaseContrato, kMinusvalia}) {
    Combo1(lista).SetListIndex(0);
  }
}

void Trabajadores::ValoresIniciales() {
  Tab1.SetTab(0);
  PonListasIniciales();
  Check1(kPrestaciones).SetValue(1);
  Grid1(kHijos).SetCurrent(1, kPrimeraColumna);
  Text1(kSituacion).SetText("001");

  AbreFichero(sesion_, FileKind::kEmpresas);
  const auto empresas = sesion_.BDEmpresa->OpenRecordset("SELECT Campo2 FROM EMPRESASNOM WHERE Campo0 = '" +
                                                         SqlText(sesion_.CodEmpresa.str()) + "' ");
  if (empresas->Eof()) return;
  ConvenioEmpresa = TextoNoNulo(empresas->Fields("Campo2").Get());
  Text1(kConvenio).SetText(ConvenioEmpresa);
}

void Trabajadores::PreparaGrids() {
  for (const auto& [indice, rejilla] : Grid1) PreparaRejilla(*rejilla);
}

void Trabajadores::MostrarTrabajador() {
  Guarda([this] {
    Olvida();
    ficha_.Limpia(kNumero, kUltimoTexto);
    ficha_.Muestra(sesion_.Tabla(kTrabajadoresFijo), kTramoFijo);

    AbreFichero(sesion_, FileKind::kCompany);
    const auto situaciones = sesion_.BDEmpresa->OpenRecordset("SELECT * FROM TRABAJADORESVAR WHERE Campo0 = '" +
                                                              SqlText(TextoRecortado(kNumero)) + "' ORDER BY Campo3 ");
    if (!situaciones->Eof()) {
      LeeSituaciones(*situaciones);
      situaciones->MoveLast();
      ficha_.Muestra(*situaciones, kTramoVar);
    }
    // A number typed over the one shown is another one.
    TrabajadorAnterior = TextoRecortado(kNumero);
    SituacionAnterior = TextoRecortado(kSituacion);
    ApuntaTrabajador(TrabajadorAnterior);
    // What is written later on the situación shown is written where its table stands.
    Recordset& var = sesion_.Tabla(kTrabajadoresVar);
    var.SetIndex("Icampo0_1");
    var.Seek({TextoRecortado(kNumero), TextoRecortado(kSituacion)});
    MarcaSituacion();
    CuentaTrabajadores();
  });
}

void Trabajadores::MostrarSituacion() {
  CierraRegularizacion();
  ficha_.Muestra(sesion_.Tabla(kTrabajadoresVar), kTramoVar);
  SituacionAnterior = TextoRecortado(kSituacion);
  MarcaSituacion();
}

// What belongs to the worker who was shown.
void Trabajadores::Olvida() {
  TrabajadorAnterior.clear();
  SituacionAnterior.clear();
  situaciones_.clear();
  PonSituaciones();
  posicion_.clear();
  SetStatus({});
  CierraRegularizacion();
}

}  // namespace zendara
