// The worker screen on the demonstration company: what the scenarios do not tell.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "values/valor_numero.hpp"
#include "workers/trabajadores_fixture.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

struct FakeIncidencias : Pantalla {
  explicit FakeIncidencias(std::function<void()> f) : al_mostrar(std::move(f)) {}
  void Mostrar() override { al_mostrar(); }
  std::function<void()> al_mostrar;
};

TEST_F(TrabajadoresTest, EveryColumnOfEveryWorkerIsShown) {
  const auto base = engine->Workspaces(0)->OpenDatabase(PathOf("Nom00001.MDB"));
  // Without benefits, and with a class of contract that the list does not have.
  for (const auto& [nombre, columna, valor] :
       {std::tuple("TrabajadoresVar", 53, "0"),
        {"TrabajadoresFijo", kTramoFijo.ColumnaDe(CampoTrabajador::kClaseContrato), "X"}}) {
    const auto tabla = base->OpenRecordset(nombre, RecordsetType::kTable);
    tabla->Edit();
    tabla->Fields(columna).Set(valor);
    tabla->Update();
  }
  Abre();
  Pulsa("Inicio");
  int vistos = 0;
  const auto fijo = base->OpenRecordset("select * from TrabajadoresFijo order by campo0");
  for (; !fijo->Eof(); fijo->MoveNext(), ++vistos) {
    const std::string numero = fijo->Fields(0).Get().Text();
    const auto var =
        base->OpenRecordset("select * from TrabajadoresVar where campo0='" + numero + "' order by campo3 desc");
    for (int i = 1; i <= kTramoVar.hasta; ++i) {
      const bool es_fijo = i <= kTramoFijo.hasta;
      std::string texto = TextoNoNulo((es_fijo ? fijo : var)->Fields(es_fijo ? i - 1 : i - 91).Get());
      if (texto.empty() && pantalla->Find("Check1(" + std::to_string(i) + ")")) texto = "0";
      EXPECT_EQ(Mostrado(i), texto) << numero << ", " << i;
    }
    EXPECT_EQ(El<Label>("lbDescripcion").Caption(),
              TextoIdentificacion(Mostrado(CampoTrabajador::kTipoIdentificacion)));
    Pulsa("Siguiente");
  }
  EXPECT_EQ(vistos, kTrabajadoresDemo);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, ShowsWhatThereIsOfEmptyTables) {
  VaciaTabla(kTrabajadoresVar);
  Abre();
  Pulsa("Inicio");
  EXPECT_NE(Texto(2), "");
  for (int i = 92; i <= 143; ++i) EXPECT_THAT(Mostrado(i), testing::AnyOf("", "0")) << i;
  EXPECT_EQ(Mostrado(144), "1") << "left alone";
  pantalla->Close();

  VaciaTabla(kTrabajadoresFijo);
  Abre();
  for (const char* boton : {"Inicio", "Anterior", "Siguiente", "Fin"}) Pulsa(boton);
  pantalla->Click(El<Image>("Image1(1)"));
  EXPECT_EQ(picking.titulo, "") << "no list";
  EXPECT_EQ(Foco() + Texto(1) + Texto(92), "Text1(1)001");
  EXPECT_EQ(pantalla->Pointer(), MousePointer::kDefault);
  Rellena(1, "3");
  EXPECT_EQ(Texto(1), "00003");
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, EnterWalksTheFieldsByTheirIndexes) {
  Abre();
  std::vector<int> recorrido;
  for (int paso = 0; paso < 144 && Foco() != "Grabar"; ++paso) {
    if (pantalla->Focus()->Kind() != ControlKind::kGrid) recorrido.push_back(pantalla->Focus()->Index());
    Tecla(key::kEnter);
  }
  // Only the last mark stands on an earlier page than its index says.
  std::vector<int> esperado;
  for (const Campo& c : CamposTrabajador()) {
    if (!c.Tiene(kVista)) esperado.push_back(c.indice);
  }
  const int prestaciones = IndiceCampo(CampoTrabajador::kPrestaciones);
  std::erase(esperado, prestaciones);
  const int centro = IndiceCampo(CampoTrabajador::kCentro);
  esperado.insert(std::ranges::find(esperado, centro), prestaciones);
  EXPECT_EQ(recorrido, esperado);
}

TEST_F(TrabajadoresTest, AnErrorIsToldAndTheScreenStays) {
  // No banner: the load ends there.
  components.Register(kBannerClass, Components::Factory<Banner>());
  Abre();
  EXPECT_EQ(El<TextBox>("Titulo(1)").Text() + Texto(92), "");
  EXPECT_FALSE(El<Frame>("Regularizacion").Visible());
  // A company unknown to the general tables has no agreement of its own, which is no error; without them it is one.
  PonAnuncio();
  const auto generales = engine->Workspaces(0)->OpenDatabase(PathOf("Empresas.mdb"));
  generales->OpenRecordset("EmpresasNom", RecordsetType::kTable)->Delete();
  pantalla->Close();
  Abre();
  EXPECT_EQ(Texto(101) + Texto(92), "001");
  pantalla->Close();
  std::filesystem::remove(PathOf("Empresas.mdb"));
  engine->Workspaces(0)->CreateDatabase(PathOf("Empresas.mdb"));
  Abre();
  EXPECT_EQ(pantalla->Pointer(), MousePointer::kHourglass);

  engine->Workspaces(0)->CreateDatabase(PathOf("Nom00009.MDB"));
  sesion.CodEmpresa = "00009";
  Pulsa("Inicio");
  EXPECT_EQ(Texto(1), "00001") << "what was shown before the error stays";
  EXPECT_THAT(host.boxes, ElementsAre(StartsWith("429  "), StartsWith("3078  "), StartsWith("3078  ")));
  EXPECT_TRUE(pantalla->Loaded());
}

TEST_F(TrabajadoresTest, IncidentScreensAreHandedTheWorkerWhileTheyAreOpen) {
  std::vector<std::string> notas;
  const auto anota = [&] { notas.push_back(pantalla->TrabajadorElegido + "/" + pantalla->SituacionElegida); };
  for (const char* nombre : {"MIncidencias", "MIncidenciasESP", "MIncidenciasVAR"}) {
    pantallas.Registra(nombre, [&] { return std::make_shared<FakeIncidencias>(anota); });
  }
  Abre();
  Pulsa("CmdIncidenciasIT");
  Rellena(1, "99999");
  Pulsa("CmdIncidenciasESP");
  Rellena(1, "13");
  for (const char* situacion : {" ", "009", "002"}) {
    Caja(92).SetText(situacion);
    Pulsa("CmdIncidenciasVar");
  }
  EXPECT_THAT(host.boxes,
              ElementsAre("Debe seleccionar antes un trabajador", "El trabajador seleccionado no esta registrado",
                          "Debe seleccionar antes un trabajador", "El trabajador seleccionado no esta registrado"));
  Pulsa("CmdIncidenciasIT");
  EXPECT_THAT(notas, ElementsAre("00013/002", "00013/ 0"));
  EXPECT_EQ(pantalla->TrabajadorElegido + pantalla->SituacionElegida, " 0");
  auto& listado = El<Button>("Pendientes");
  pantalla->MouseOver(listado);
  EXPECT_FALSE(listado.Enabled());
  EXPECT_EQ(listado.ToolTipText(), "La pantalla no está instalada.");
}

TEST_F(TrabajadoresTest, TheFrameGivesHintsAndColoursAndNoAccessKeyTwice) {
  Abre();
  std::set<std::string> teclas;
  for (const Control* control : pantalla->Controls()) {
    const std::size_t marca = control->Caption().find('&');
    if (marca == std::string::npos) continue;
    EXPECT_TRUE(teclas.insert(LCase(control->Caption().substr(marca + 1, 1))).second) << control->Caption();
  }
  for (const auto& [boton, pista] : {std::pair("Grabar", " Graba los datos del trabajador "),
                                     {"Calculadora", " Muestra la calculadora "},
                                     {"CmdNuevo", ""}}) {
    pantalla->MouseOver(El<Button>(boton));
    EXPECT_EQ(El<Button>(boton).ToolTipText(), pista);
  }
  EXPECT_EQ(std::pair(Caja(1).BackColor(), Caja(2).BackColor()), std::pair(kWhite, kGrey));
  Tecla(key::kDown);
  EXPECT_EQ(std::pair(Caja(1).BackColor(), Caja(2).BackColor()), std::pair(kGrey, kWhite));
}

TEST_F(TrabajadoresTest, ANeighbourThatFailsEndsNoMoreThanWhatCalledIt) {
  struct FailingBanner : SilentBanner {
    void AvisoCierre(std::int32_t) override { throw std::runtime_error("of the host"); }
  };
  components.Register(kBannerClass, [] { return std::make_unique<FailingBanner>(); });
  RegisterPickList(components, [](auto&&...) -> std::optional<std::size_t> { throw std::out_of_range("of the host"); });
  Abre();
  pantalla->Click(El<Image>("Image1(1)"));
  EXPECT_EQ(sesion.FormActivo, pantalla.get());
  pantalla->Unload();  // not by its button
  EXPECT_EQ(sesion.FormActivo, nullptr);
  EXPECT_NE(pantallas.Objeto("Trabajadores"), pantalla);
  EXPECT_THAT(host.boxes, ElementsAre("51  Error interno", "Error en tiempo de ejecución '51':\nError interno"));
}

}  // namespace
}  // namespace zendara
