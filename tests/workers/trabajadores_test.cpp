// The worker screen on the demonstration company.
#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "values/valor_numero.hpp"
#include "workers/trabajador_consultas.hpp"
#include "workers/trabajadores_fixture.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// An incident screen: it notes what it is handed.
struct FakeIncidencias : Pantalla {
  FakeIncidencias(RegistroPantallas& p, std::vector<std::string>& n) : pantallas(p), notas(n) {}
  void Mostrar() override {
    const auto& seleccion = dynamic_cast<const SeleccionTrabajador&>(*pantallas.Objeto(kPantallaTrabajadores));
    notas.push_back(seleccion.TrabajadorElegido + "/" + seleccion.SituacionElegida);
  }
  RegistroPantallas& pantallas;
  std::vector<std::string>& notas;
};

// The column's text as a clerk reads it; a mark is a number.
std::string TextoDeColumna(const CampoTrabajador* campo, const Value& valor) {
  const std::string texto = TextoNoNulo(valor);
  return campo && campo->tipo == TipoCampo::kMarca && texto.empty() ? "0" : texto;
}

TEST_F(TrabajadoresTest, EveryColumnOfEveryWorkerIsShown) {
  // By a walk of its own over the tables: the worker's row, and of his situaciones the one that starts last.
  using Fila = std::map<int, std::string>;
  std::map<std::string, Fila> esperado;
  Recordset& fijo = sesion.Tabla(kTrabajadoresFijo);
  for (; !fijo.Eof(); fijo.MoveNext()) {
    Fila& fila = esperado[fijo.Fields(0).Get().Text()];
    for (int i = 1; i <= 91; ++i) fila[i] = TextoDeColumna(CampoDe(i), fijo.Fields(i - 1).Get());
  }
  std::map<std::string, double> ultima;
  Recordset& var = sesion.Tabla(kTrabajadoresVar);
  for (; !var.Eof(); var.MoveNext()) {
    const std::string numero = var.Fields(0).Get().Text();
    const double inicio = var.Fields(3).Get().AsDate().serial;
    if (ultima.contains(numero) && inicio < ultima[numero]) continue;
    ultima[numero] = inicio;
    for (int i = 92; i <= 144; ++i) esperado[numero][i] = TextoDeColumna(CampoDe(i), var.Fields(i - 91).Get());
  }
  ASSERT_EQ(esperado.size(), static_cast<std::size_t>(kTrabajadoresDemo));

  Abre();
  Pulsa("Inicio");
  for (const auto& [numero, fila] : esperado) {
    for (const auto& [indice, texto] : fila) EXPECT_EQ(Mostrado(indice), texto) << numero << ", " << indice;
    EXPECT_EQ(El<Label>("lbDescripcion").Caption(), TextoIdentificacion(fila.at(campo::kTipoIdentificacion)));
    Pulsa("Siguiente");
  }
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, TheLoadSetsTitlesDefaultsAndGrids) {
  Abre();
  EXPECT_EQ(El<TextBox>("Titulo(1)").Text() + El<TextBox>("Titulo(2)").Text() + El<TextBox>("Titulo(3)").Text(),
            "00001Compañía01");
  EXPECT_EQ(pantalla->HelpContext, 20004);
  EXPECT_EQ(sesion.FormActivo, pantalla.get());
  EXPECT_EQ(pantalla->Pointer(), MousePointer::kDefault);
  EXPECT_FALSE(El<Frame>("Regularizacion").Visible());
  EXPECT_EQ(Foco() + " " + Paginas(), "Text1(1) 0/0");
  const std::map<int, std::string> defectos = {{5, "1"},  {21, "A"},   {22, "G"},        {23, ""},
                                               {25, "0"}, {92, "001"}, {101, "0000101"}, {144, "1"}};
  for (int i = 1; i <= 144; ++i) {
    const bool marca = i == campo::kCeuta || i == campo::kAutonomo || i == campo::kAsimilado;
    EXPECT_EQ(Mostrado(i), defectos.contains(i) ? defectos.at(i) : marca ? "0" : "") << i;
  }
  const Grid& hijos = El<Grid>("Grid1(0)");
  const Grid& ascendientes = El<Grid>("Grid1(1)");
  EXPECT_EQ(hijos.Cell(0, 4) + ascendientes.Cell(0, 3), "G.MinusvaliaG.Minusvalía");
  EXPECT_EQ(hijos.Cell(10, 1) + ascendientes.Cell(1, 1), "Hijo 10Ascendiente 1");
  EXPECT_EQ(hijos.ColumnAt(2).width, 1000);
  EXPECT_EQ(hijos.Row() * 10 + hijos.Col(), 12);
  // The labels of the rows are skipped.
  pantalla->TurnTo(El<Tabs>("Tab1"), 1);
  pantalla->PointTo(El<Grid>("Grid1(0)"), 3, 1);
  EXPECT_EQ(hijos.Row() * 10 + hijos.Col(), 32);
}

TEST_F(TrabajadoresTest, NavigationStopsAtBothEnds) {
  Abre();
  Pulsa("Fin");
  const std::string ultimo = Texto(1);
  EXPECT_EQ(ultimo, "00025");
  Pulsa("Siguiente");
  EXPECT_EQ(Texto(1), ultimo);
  EXPECT_EQ(Foco(), "Text1(1)");
  Pulsa("Anterior");
  EXPECT_EQ(Texto(1), "00024");
  Tecla(key::kHome, key::kAlt);
  EXPECT_EQ(Texto(1), "00001");
  Tecla(key::kLeft, key::kAlt);
  EXPECT_EQ(Texto(1), "00001");
  Tecla(key::kRight, key::kAlt);
  EXPECT_EQ(Texto(1), "00002");
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, OnAnEmptyTableNothingMovesAndNothingOpens) {
  VaciaTabla(kTrabajadoresFijo);
  Abre();
  for (const char* boton : {"Inicio", "Anterior", "Siguiente", "Fin"}) Pulsa(boton);
  pantalla->Click(El<Image>("Image1(1)"));
  EXPECT_EQ(Texto(1), "");
  EXPECT_EQ(Texto(92), "001");
  EXPECT_EQ(asked.marca, -1);
  EXPECT_EQ(Foco(), "Text1(1)");
  EXPECT_EQ(pantalla->Pointer(), MousePointer::kDefault);
  Rellena(1, "3");
  EXPECT_EQ(Texto(1), "00003");
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, AWorkerWithoutSituacionShowsTheFixedDataAlone) {
  VaciaTabla(kTrabajadoresVar);
  Abre();
  Pulsa("Inicio");
  EXPECT_NE(Texto(2), "");
  for (int i = 92; i <= 143; ++i) EXPECT_THAT(Mostrado(i), testing::AnyOf("", "0")) << i;
  EXPECT_EQ(Mostrado(144), "1") << "left alone";
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, ATypedNumberIsFilledAndItsWorkerShown) {
  Abre();
  Escribe("11");
  Tecla(key::kEnter);
  EXPECT_EQ(Texto(1), "00011");
  const std::string apellido = Texto(2);
  EXPECT_NE(apellido, "");
  EXPECT_NE(Mostrado(campo::kPrimeraCelda), "");
  EXPECT_EQ(Foco(), "Text1(2)");

  // Left unchanged, the worker is not read again.
  Rellena(2, "Otro");
  Rellena(1, "11");
  EXPECT_THAT(Texto(2), StartsWith("Otro"));

  // No such worker: an empty screen, in which a new one starts.
  pantalla->TurnTo(El<Tabs>("Tab1"), 3);
  Rellena(1, "99999");
  EXPECT_EQ(Texto(1), "99999");
  EXPECT_EQ(Texto(2) + Texto(20) + Texto(93) + Mostrado(campo::kPrimeraCelda), "");
  EXPECT_EQ(Texto(92) + Texto(101) + Mostrado(5), "00100001011");
  EXPECT_EQ(Paginas(), "0/0");
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, ASituacionIsCalledUpByItsNumber) {
  Abre();
  Rellena(1, "13");
  EXPECT_EQ(Texto(92), "004");
  const std::string ultima = Texto(94);
  Rellena(92, "2");
  EXPECT_EQ(Texto(92), "002");
  EXPECT_NE(Texto(94), ultima);
  EXPECT_EQ(Texto(1), "00013");
  EXPECT_THAT(host.boxes, IsEmpty());
  Rellena(92, "77");
  EXPECT_THAT(host.boxes, ElementsAre("La situación seleccionada no existe"));
  EXPECT_EQ(Texto(92), "004");
  EXPECT_EQ(Texto(94), ultima);
}

TEST_F(TrabajadoresTest, DatesAreEditedAsSixDigits) {
  Abre();
  Rellena(20, "050360");
  EXPECT_EQ(Texto(20), "05/03/60");
  Campo(20).SetFocus();
  EXPECT_EQ(Texto(20), "050360");
  // A worker that is called up meanwhile has his date in the same form.
  Tecla(key::kHome, key::kAlt);
  const std::string digitos = Texto(20);
  EXPECT_EQ(Len(digitos), 6U);
  Campo(19).SetFocus();
  EXPECT_EQ(Texto(20), Left(digitos, 2) + "/" + Mid(digitos, 3, 2) + "/" + Right(digitos, 2));
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, PagesMoveTheFocusAndTheFocusBringsUpPages) {
  Abre();
  const struct {
    const char* tabs;
    int pagina;
    const char* foco;
  } giros[] = {
      {"Tab1", 1, "Combo1(21)"}, {"Tab1", 2, "Text1(76)"},  {"Tab1", 3, "Text1(86)"},  {"Tab1", 0, "Tab1"},
      {"Tab1", 4, "Tab1"},       {"Tab2", 1, "Text1(110)"}, {"Tab2", 2, "Text1(129)"}, {"Tab2", 3, "Text1(135)"},
      {"Tab2", 4, "Text1(140)"}, {"Tab2", 0, "Text1(92)"},
  };
  for (const auto& giro : giros) {
    pantalla->TurnTo(El<Tabs>(giro.tabs), giro.pagina);
    EXPECT_EQ(Foco(), giro.foco) << giro.tabs << " " << giro.pagina;
  }
  const std::pair<const char*, const char*> entradas[] = {
      {"Combo1(5)", "0/0"},  {"Text1(20)", "0/0"},  {"Combo1(21)", "1/0"}, {"Combo1(25)", "1/0"},
      {"Text1(76)", "2/0"},  {"Check1(81)", "2/0"}, {"Text1(86)", "3/0"},  {"Text1(91)", "3/0"},
      {"Text1(92)", "4/0"},  {"Text1(109)", "4/0"}, {"Text1(110)", "4/1"}, {"Text1(116)", "4/1"},
      {"Text1(129)", "4/2"}, {"Text1(134)", "4/2"}, {"Text1(135)", "4/3"}, {"Check1(139)", "4/3"},
      {"Text1(140)", "4/4"},
  };
  for (const auto& [id, paginas] : entradas) {
    El<Control>(id).SetFocus();
    EXPECT_EQ(Paginas(), paginas) << id;
    El<TextBox>("Text1(1)").SetFocus();
    El<Tabs>("Tab2").SetTab(0);
  }
}

TEST_F(TrabajadoresTest, EnterWalksTheFieldsByTheirIndexes) {
  Abre();
  std::vector<int> recorrido;
  for (int paso = 0; paso < 144 && Foco() != "Inicio"; ++paso) {
    if (pantalla->Focus()->Kind() != ControlKind::kGrid && pantalla->Focus()->Kind() != ControlKind::kButton) {
      recorrido.push_back(pantalla->Focus()->Index());
    }
    Tecla(key::kDown);
  }
  // Only the last mark stands on an earlier page than its index says.
  std::vector<int> esperado;
  for (const CampoTrabajador& c : CamposTrabajador()) esperado.push_back(c.indice);
  std::erase(esperado, campo::kPrestaciones);
  esperado.insert(std::ranges::find(esperado, campo::kCentro), campo::kPrestaciones);
  EXPECT_EQ(recorrido, esperado);
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, LookUpsFillTheirFields) {
  Abre();
  Rellena(1, "13");
  const struct {
    int indice;
    int fila;
    std::string titulo;
    std::map<int, std::string> campos;  // "": as the row has it, not looked at here
  } casos[] = {
      {1, 2, "TrabajadoresFijo", {{1, "00003"}}},
      {1, 12, "TrabajadoresFijo", {{1, "00013"}, {92, "004"}}},
      {92, 2, "Situaciones", {{92, "002"}}},
      {5, 4, "Tipo de identificación", {{5, "6"}}},
      {21, 2, "Situación", {{21, "P"}}},
      {22, 1, "Situación", {{22, "I"}}},
      {23, 0, "Situación Familiar", {{23, "1"}}},
      {25, 3, "Grado de minusvalía", {{25, "3"}}},
      {108, 9, "Tipo de identificación", {{108, "10"}, {109, "Peones"}}},
  };
  for (const auto& caso : casos) {
    elegida = caso.fila;
    pantalla->Click(El<Image>("Image1(" + std::to_string(caso.indice) + ")"));
    EXPECT_EQ(asked.titulo, caso.titulo);
    for (const auto& [indice, texto] : caso.campos) EXPECT_EQ(Mostrado(indice), texto) << caso.indice;
  }
  EXPECT_EQ(El<Label>("lbDescripcion").Caption(), "N.I.E");
  EXPECT_EQ(asked.marca, 0) << "no mouse has moved over an image yet";
  elegida = -1;
  pantalla->MouseOver(El<Image>("Image1(5)"));
  pantalla->Click(El<Image>("Image1(5)"));
  EXPECT_EQ(asked.marca, 1);

  // Those of a query: the field and its neighbours are what stands under that key in the table.
  const struct {
    int indice;
    std::vector<int> campos;
  } consultas[] = {{10, {}},     {90, {91}},   {101, {102}}, {103, {104}}, {106, {107}}, {110, {111}},
                   {111, {112}}, {117, {118}}, {123, {124}}, {140, {141}}, {142, {143}}};
  elegida = 0;
  for (const auto& caso : consultas) {
    for (const int indice : caso.campos) Campo(indice).SetText("");
    Campo(caso.indice).SetFocus();
    Tecla(key::kF2);
    EXPECT_NE(asked.base, "") << caso.indice;
    const std::string fila = asked.filas.at(0);
    EXPECT_NE(InStr(fila, Trim(Texto(caso.indice))), 0) << caso.indice;
    for (const int indice : caso.campos) {
      EXPECT_NE(Trim(Texto(indice)), "") << indice;
      EXPECT_NE(InStr(fila, Trim(Texto(indice))), 0) << indice;
    }
    asked = {};
  }
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, ACancelledListLeavesEverything) {
  Abre();
  Rellena(1, "13");
  elegida = -1;
  for (const ConsultaTrabajador& consulta : ConsultasTrabajador()) {
    std::vector<std::string> antes, despues;
    El<Tabs>("Tab1").SetFocus();  // dates in the form in which they are shown
    for (int i = 1; i <= 144; ++i) antes.push_back(Mostrado(i));
    pantalla->Click(El<Image>("Image1(" + std::to_string(consulta.indice) + ")"));
    El<Tabs>("Tab1").SetFocus();
    for (int i = 1; i <= 144; ++i) despues.push_back(Mostrado(i));
    EXPECT_EQ(antes, despues) << consulta.indice;
  }
}

TEST_F(TrabajadoresTest, AHostWithoutIncidentsHasNoButtonsForThem) {
  sesion.CodPrograma = "05";
  Abre();
  for (const Control* control : pantalla->Controls()) {
    if (control->Kind() != ControlKind::kButton) continue;
    EXPECT_EQ(control->Visible(), !control->Name().starts_with("CmdIncidencias")) << control->Name();
  }
}

TEST_F(TrabajadoresTest, ACompanyUnknownToTheGeneralTablesHasNoAgreementOfItsOwn) {
  const auto empresas =
      engine->Workspaces(0)->OpenDatabase(PathOf("Empresas.mdb"))->OpenRecordset("EmpresasNom", RecordsetType::kTable);
  empresas->Delete();
  Abre();
  EXPECT_EQ(Texto(101), "");
  EXPECT_EQ(Texto(92), "001");
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(TrabajadoresTest, AFileWithoutItsTableIsToldAndTheScreenStays) {
  std::filesystem::remove(PathOf("Empresas.mdb"));
  engine->Workspaces(0)->CreateDatabase(PathOf("Empresas.mdb"));
  Abre();
  EXPECT_THAT(host.boxes, ElementsAre(StartsWith("3078  ")));
  EXPECT_EQ(pantalla->Pointer(), MousePointer::kHourglass);

  engine->Workspaces(0)->CreateDatabase(PathOf("Nom00009.MDB"));
  sesion.CodEmpresa = "00009";
  Pulsa("Inicio");
  EXPECT_THAT(host.boxes, ElementsAre(StartsWith("3078  "), StartsWith("3078  ")));
  EXPECT_EQ(Texto(1), "00001") << "what was shown before the error stays";
  EXPECT_TRUE(pantalla->Loaded());
}

TEST_F(TrabajadoresTest, AMissingBannerEndsTheLoadThere) {
  components.Register(kBannerClass, Components::Factory<Banner>());
  Abre();
  EXPECT_THAT(host.boxes, ElementsAre(StartsWith("429  ")));
  EXPECT_THAT(host.shown, ElementsAre("Trabajadores"));
  EXPECT_EQ(pantalla->Width(), 9600);
  EXPECT_EQ(El<TextBox>("Titulo(1)").Text() + Texto(92), "");
  EXPECT_FALSE(El<Frame>("Regularizacion").Visible());
}

TEST_F(TrabajadoresTest, IncidentScreensAreHandedTheWorkerWhileTheyAreOpen) {
  std::vector<std::string> notas;
  for (const char* nombre : {"MIncidencias", "MIncidenciasVAR"}) {
    pantallas.Registra(nombre, [&] { return std::make_shared<FakeIncidencias>(pantallas, notas); });
  }
  Abre();
  Pulsa("CmdIncidenciasIT");
  Rellena(1, "99999");
  Pulsa("CmdIncidenciasESP");
  Rellena(1, "13");
  Campo(92).SetText(" ");
  Pulsa("CmdIncidenciasVar");
  Campo(92).SetText("009");
  Pulsa("CmdIncidenciasVar");
  EXPECT_THAT(host.boxes,
              ElementsAre("Debe seleccionar antes un trabajador", "El trabajador seleccionado no esta registrado",
                          "Debe seleccionar antes un trabajador", "El trabajador seleccionado no esta registrado"));
  EXPECT_THAT(notas, IsEmpty());

  Campo(92).SetText("002");
  Pulsa("CmdIncidenciasIT");
  Pulsa("CmdIncidenciasVar");
  Pulsa("CmdIncidenciasESP");  // no such screen is there
  EXPECT_THAT(notas, ElementsAre("00013/", "00013/002"));
  EXPECT_EQ(pantalla->TrabajadorElegido + pantalla->SituacionElegida, " 0");
  EXPECT_EQ(host.boxes.size(), 4U);
}

TEST_F(TrabajadoresTest, KeysOfItsOwn) {
  Abre();
  Escribe("(");  // the character of the down arrow's code
  EXPECT_EQ(Foco(), "Text1(2)");
  Escribe("&");
  EXPECT_EQ(Foco(), "Text1(1)");
  EXPECT_EQ(Texto(1), "");
  Tecla(key::kEsc);
  EXPECT_FALSE(pantalla->Loaded()) << "a field that must be filled is empty";
  EXPECT_EQ(sesion.FormActivo, nullptr);

  Abre();
  Rellena(1, "1");
  Tecla(key::kEsc);
  EXPECT_TRUE(pantalla->Loaded()) << "all filled: it saves";
  EXPECT_EQ(Foco() + Texto(1), "Text1(1)");

  std::set<std::string> teclas;
  for (const Control* control : pantalla->Controls()) {
    const std::size_t marca = control->Caption().find('&');
    if (marca == std::string::npos) continue;
    EXPECT_TRUE(teclas.insert(LCase(control->Caption().substr(marca + 1, 1))).second) << control->Caption();
  }
  pantalla->MouseOver(El<Button>("Fin"));
  pantalla->MouseOver(El<Button>("Cancela"));
  EXPECT_EQ(El<Button>("Fin").ToolTipText() + El<Button>("Cancela").ToolTipText(),
            " Registro Final  Cancela las modificaciones ");
}

}  // namespace
}  // namespace zendara
