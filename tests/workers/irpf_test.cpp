// The rate on the worker screen: where its figures come from, and what it is written to.
#include <gmock/gmock.h>

#include "values/valor_numero.hpp"
#include "withholding/entradas_irpf.hpp"
#include "workers/trabajadores_fixture.hpp"

namespace zendara {
namespace {

using testing::StartsWith;

class IrpfTest : public TrabajadoresTest {
 protected:
  IrpfTest() {
    host.answer = BoxAnswer::kNo;
    Abre();
  }

  static std::string Pregunta(const std::string& tipo) {
    return "El Tipo Calculado es " + tipo + "\n ¿Quiere aplicarlo? ";
  }
  std::string TipoDe(const EntradasIRPF& entradas, bool regularizacion = false) {
    return CalculaTipoIRPF(entradas, LeeParametrosIRPF(sesion.Tabla(kIRPF)),
                           {.ano = "01", .pesetas = sesion.TextoRetorno == "P", .regularizacion = regularizacion})
        .tipo;
  }
  // Regularises with these figures.
  void Regulariza(const std::vector<std::string>& cifras) {
    Pulsa("Regulariza");
    int i = 0;
    for (const std::string& cifra : cifras) El<TextBox>("Text2(" + std::to_string(++i) + ")").SetText(cifra);
    Pulsa("CalcularRegula");
  }
  // Campo44 of the worker's situación.
  std::string TipoGuardado(const std::string& trabajador, const std::string& situacion) {
    const auto var = sesion.Tabla(kTrabajadoresVar).Clone();
    var->SetIndex("Icampo0_1");
    var->Seek({trabajador, situacion});
    return TextoNoNulo(var->Fields(44).Get());
  }
};

TEST_F(IrpfTest, ComesFromWhatTheScreenShows) {
  // Another screen that stands there changes nothing.
  Form incidencias(host, host, "MIncidencias");
  sesion.FormActivo = &incidencias;
  for (int numero = 1; numero <= kTrabajadoresDemo; ++numero) {
    SCOPED_TRACE(numero);
    Rellena(1, std::to_string(numero));
    EntradasIRPF entradas = LeeDatosRegistro(sesion.Tabla(kTrabajadoresFijo), "01");
    entradas.Anualidades = Texto(CampoTrabajador::kAnualidades);  // the record path reads another column
    Pulsa("CmdCalcular");
    EXPECT_EQ(host.boxes.back(), Pregunta(TipoDe(entradas)));
    ASSERT_FALSE(host.last_box.detail.empty());
    EXPECT_EQ(host.last_box.detail.back().figure, TipoDe(entradas));

    // What is typed counts, saved or not.
    entradas.RetribucionesAnuales = "4321000";
    entradas.Hijos[0].edad = 2001 - 1995;
    Rellena(CampoTrabajador::kRetribuciones, "4321000");
    El<Grid>("Grid1(0)").SetCell(1, 2, "1995");
    Pulsa("CmdCalcular");
    EXPECT_EQ(host.boxes.back(), Pregunta(TipoDe(entradas)));

    entradas.RetribucionesAnuales = "5000000";
    entradas.RentasIrregulares = "100000";
    entradas.GastosAnuales = "200000";
    entradas.RetribucionesAcumuladas = "2000000";
    entradas.RetencionAcumulada = "300000";
    Regulariza({"5000000", "100000", "200000", "2000000", "300000"});
    EXPECT_EQ(host.boxes.back(), Pregunta(TipoDe(entradas, true)));
    EXPECT_FALSE(El<Frame>("Regularizacion").Visible());
  }
}

TEST_F(IrpfTest, IsWrittenToTheSituacionOnTheScreen) {
  host.answer = BoxAnswer::kYes;
  Rellena(1, "13");
  Rellena(92, "2");
  const std::string otra = TipoGuardado("00013", "004");
  Pulsa("CmdCalcular");
  const std::string tipo = Texto(CampoTrabajador::kPorcentajeIRPF);
  EXPECT_EQ(host.boxes.back(), Pregunta(tipo));
  EXPECT_EQ(TipoGuardado("00013", "002"), tipo);
  EXPECT_EQ(TipoGuardado("00013", "004"), otra);

  // The regularisation writes on the rows of the worker shown, however he was called up.
  Pulsa("Inicio");
  Pulsa("Siguiente");
  Regulariza({"6000000"});
  EXPECT_EQ(host.boxes.back(), Pregunta(Texto(CampoTrabajador::kPorcentajeIRPF)));
  EXPECT_EQ(TipoGuardado("00002", "001"), Texto(CampoTrabajador::kPorcentajeIRPF));
  EXPECT_EQ(TipoGuardado("00013", "002"), tipo);

  VaciaTabla(kTrabajadoresVar);
  Pulsa("CmdCalcular");
  EXPECT_EQ(host.boxes.back(), "Para aplicar el tipo calculado antes debe registrar el trabajador");
}

TEST_F(IrpfTest, TheHistoryGivesThePaidAndTheWithheldSum) {
  Recordset& historico = sesion.Tabla(425);
  historico.AddNew();
  int columna = 0;
  for (const char* texto : {"1", "01", "90000", "001", "", "", "", "100000", "20000", "3000", "400", "50"}) {
    historico.Fields(columna++).Set(texto);
  }
  historico.Fields(29).Set("P");
  historico.Update();
  Rellena(1, "90000");
  Pulsa("Regulariza");
  EXPECT_EQ(El<TextBox>("Text2(4)").Text() + " " + El<TextBox>("Text2(5)").Text(), "103000 20450");
}

TEST_F(IrpfTest, ErrorsEndTheButtonAndTheScreenStays) {
  Rellena(1, "15");
  const auto falla = [this](const std::string& boton, const std::string& error) {
    Pulsa(boton);
    EXPECT_THAT(host.boxes.back(), StartsWith("Error en tiempo de ejecución '" + error + "'"));
  };
  sesion.CambioEuro = "";
  falla("Regulariza", "13");
  sesion.CambioEuro = "0";
  falla("Regulariza", "11");
  Caja(CampoTrabajador::kFechaNacimiento).SetText("ayer");
  falla("CmdCalcular", "13");
  sesion.FormActivo = nullptr;
  falla("CmdCalcular", "91");
  EXPECT_TRUE(pantalla->Loaded());
}

}  // namespace
}  // namespace zendara
