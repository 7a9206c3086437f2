#include "withholding/entradas_irpf.hpp"

#include <gtest/gtest.h>

#include "runtime/date.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

ColumnType TypeOf(const Value& value) {
  return value.IsNumber() ? ColumnType::kNumber : value.IsDate() ? ColumnType::kDate : ColumnType::kText;
}

// A table that holds one row.
class EntradasTest : public testing::Test {
 protected:
  EntradasTest() {
    for (std::size_t i = 0; i < worker.size(); ++i) worker[i] = "c" + std::to_string(i);
  }

  std::shared_ptr<Recordset> Stored(const std::vector<Value>& row) const {
    std::filesystem::remove(folder / "fila.mdb");
    const auto database = engine->Workspaces(0)->CreateDatabase(folder / "fila.mdb");
    TableDef table{.name = "Fila", .columns = {}, .indexes = {}};
    for (const Value& value : row) {
      table.columns.push_back({"Campo" + std::to_string(table.columns.size()), TypeOf(value), 30});
    }
    database->CreateTable(table);
    auto rows = database->OpenRecordset("Fila", RecordsetType::kTable);
    rows->AddNew();
    for (std::size_t i = 0; i < row.size(); ++i) rows->Fields(static_cast<int>(i)).Set(row[i]);
    rows->Update();
    rows->MoveFirst();
    return rows;
  }
  EntradasIRPF Read() const { return LeeDatosRegistro(*Stored(worker), "01"); }

  std::vector<Value> worker = std::vector<Value>(91);
  TempFolder folder;
  std::unique_ptr<Engine> engine = MakeEngine();
};

TEST_F(EntradasTest, TakesEachFigureFromItsColumn) {
  worker[19] = *MakeDate(1925, 3, 5);
  worker[81] = Null{};
  worker[24] = 2;
  worker[25] = "1990";
  worker[28] = Null{};
  worker[31] = "2001";
  worker[52] = "1975,5";
  const EntradasIRPF e = Read();

  const std::pair<const std::string*, const char*> figures[] = {
      {&e.SituacionPerceptor, "c20"},   {&e.TipoContrato, "c21"},         {&e.SituacionFamiliar, "c22"},
      {&e.GradoMinusvalia, "2"},        {&e.RetribucionesAnuales, "c75"}, {&e.RentasIrregulares, "c76"},
      {&e.GastosAnuales, "c77"},        {&e.Anualidades, "c48"},          {&e.CeutaMelilla, "c80"},
      {&e.RetribucionesAcumuladas, ""}, {&e.RetencionAcumulada, "c82"}};
  for (const auto& [figure, text] : figures) EXPECT_EQ(*figure, text);
  EXPECT_EQ(e.FechaNacimiento, Value(*MakeDate(1925, 3, 5)));

  const double ages[] = {11, 2001, 0};
  for (std::size_t r = 0; r < std::size(ages); ++r) EXPECT_EQ(e.Hijos[r].edad, ages[r]);
  EXPECT_EQ(e.Hijos[9].edad, 25.5);
  EXPECT_EQ(e.Hijos[0].por_entero + e.Hijos[0].grado, "c26c27");
  EXPECT_EQ(e.Hijos[9].por_entero + e.Hijos[9].grado, "c53c54");
  EXPECT_EQ(e.Ascendientes[0].convivencia + e.Ascendientes[0].grado, "c55c56");
  EXPECT_EQ(e.Ascendientes[9].convivencia + e.Ascendientes[9].grado, "c73c74");
}

TEST_F(EntradasTest, KeepsMinimumRatesFromPensionersAndUnemployed) {
  for (const auto& [perceptor, contrato] : {std::pair{"A", "c21"}, {"P", ""}, {"D", ""}}) {
    worker[20] = perceptor;
    EXPECT_EQ(Read().TipoContrato, contrato) << perceptor;
  }
}

TEST_F(EntradasTest, ReadsParametersFromNumbersAndTextsOfEitherPoint) {
  std::vector<Value> irpf(80);
  irpf[0] = 612000;
  irpf[1] = "28,3";
  irpf[2] = "37.2";
  irpf[3] = 0.1923;
  irpf[74] = "35";
  irpf[75] = "no column of the calculation";
  const ParametrosIRPF p = LeeParametrosIRPF(*Stored(irpf));
  EXPECT_EQ((std::array{p[0], p[1], p[2], p[3], p[4], p[74]}), (std::array{612000.0, 28.3, 37.2, 0.1923, 0.0, 35.0}));
}

}  // namespace
}  // namespace zendara
