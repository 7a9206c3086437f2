#include "apps/demo/demo_company.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <set>
#include <span>

#include "apps/demo/people.hpp"
#include "apps/demo/worker.hpp"
#include "frame/stored_tables.hpp"
#include "platform/record/conversion.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "support/errors.hpp"
#include "support/print_value.hpp"
#include "support/temp_folder.hpp"
#include "withholding/entradas_irpf.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using Row = std::vector<Value>;
using Rows = std::vector<Row>;
using Set = std::set<std::string>;
using testing::ElementsAre;
using testing::IsSupersetOf;

constexpr const char* kYears[] = {"00", "01", "02"};

// A written company, open for reading.
struct Company {
  Company(int workers, std::uint64_t seed) {
    WriteDemoCompany(*engine, {.folder = folder.path().string(), .workers = workers, .seed = seed});
  }
  std::shared_ptr<Database> Open(FileKind kind, std::string_view year = "01") const {
    return engine->Workspaces(0)->OpenDatabase(folder / "DATOS/" + FileName(kind, "00001", year));
  }
  Rows Table(std::string_view table, std::string_view year = "01") const {
    const auto set = Open(FileWithTable(table)->kind, year)->OpenRecordset(table, RecordsetType::kTable);
    Rows rows;
    for (; !set->Eof(); set->MoveNext()) {
      Row& row = rows.emplace_back();
      for (int i = 0; i < static_cast<int>(set->Columns().size()); ++i) row.push_back(set->Fields(i).Get());
    }
    return rows;
  }

  TempFolder folder;
  std::unique_ptr<Engine> engine = MakeSqliteEngine();
};

std::string T(const Value& value) { return value.IsNull() ? "" : CStr(value); }
// What is not ended ends after everything.
double Serial(const Value& date) { return date.IsNull() ? 1e9 : date.AsDate().serial; }

// What stands in these columns, the texts of a row one after the other.
Set Texts(const Rows& rows, std::initializer_list<std::size_t> columns) {
  Set texts;
  for (const Row& row : rows) {
    std::string text;
    for (const std::size_t column : columns) text += (text.empty() ? "" : "|") + T(row[column]);
    texts.insert(text);
  }
  return texts;
}

class DemoCompany : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    company = std::make_unique<Company>(DemoOptions().workers, 1);
    fijo = company->Table("TrabajadoresFijo");
    var = company->Table("TrabajadoresVar");
  }
  static void TearDownTestSuite() { company.reset(); }

  DesgloseIRPF Rate(std::string_view worker, std::string_view year = "01") const {
    const auto rows = company->Open(FileKind::kCompany)->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
    rows->SetIndex("Icampo0");
    rows->Seek({Value(worker)});
    const auto irpf = company->Open(FileKind::kOfficial, year)->OpenRecordset("IRPF", RecordsetType::kTable);
    return CalculaTipoIRPF(LeeDatosRegistro(*rows, year), LeeParametrosIRPF(*irpf),
                           {.ano = std::string(year), .pesetas = year != "02"});
  }

  inline static std::unique_ptr<Company> company;
  inline static Rows fijo, var;
};

TEST_F(DemoCompany, FieldsOfAWorkerGoTogether) {
  EXPECT_EQ(Nif(12345678), "12345678Z");
  EXPECT_EQ(Nie(1234567), "X1234567L");
  EXPECT_EQ(ControlAfiliacion("28", "12345678"), "40");
  EXPECT_EQ(Texts(fijo, {5}).size(), fijo.size()) << "an identification is of one worker";
  for (const Row& row : fijo) {
    EXPECT_TRUE(row[19].IsDate());
    EXPECT_EQ(T(row[17]).substr(0, 2), T(row[6])) << "post code and number of one province";
    EXPECT_EQ(T(row[23]).empty(), T(row[22]) != "2") << "a spouse";
    for (const std::size_t i : {75, 76, 77, 78, 79, 81, 82, 83, 84})
      EXPECT_TRUE(T(row[i]).empty() || IsNumeric(row[i])) << T(row[i]);
  }
}

TEST_F(DemoCompany, CodesStandInTheirTables) {
  const Rows agreements = company->Table("ConEmpresaConceptos");
  EXPECT_THAT(Texts(agreements, {0, 1, 2, 3}), IsSupersetOf(Texts(var, {10, 11, 12, 13})));
  EXPECT_THAT(Texts(agreements, {0}), IsSupersetOf(Texts(company->Table("EmpresasNom"), {2})));
  EXPECT_THAT(Texts(company->Table("Epigrafes"), {0, 1}), IsSupersetOf(Texts(var, {15, 16})));
  EXPECT_THAT(Texts(company->Table("Centros", "02"), {0, 1}), IsSupersetOf(Texts(var, {49, 50})));
  EXPECT_THAT(Texts(company->Table("Secciones"), {0, 1}), IsSupersetOf(Texts(var, {51, 52})));
  EXPECT_THAT(Texts(company->Table("Calles"), {0}), IsSupersetOf(Texts(fijo, {9})));
  EXPECT_THAT(Texts(company->Table("FPago"), {0, 1}), IsSupersetOf(Texts(fijo, {89, 90})));
  for (const std::size_t c : {20, 26, 32}) {
    Rows with = var;
    if (c > 20) std::erase_if(with, [&](const Row& row) { return row[c] == Value(""); });
    EXPECT_THAT(Texts(company->Table("Contratos"), {0, 1, 2, 3, 4}),
                IsSupersetOf(Texts(with, {19, c, c + 1, c + 2, c + 3})));
  }
}

TEST_F(DemoCompany, SituacionesFollowEachOther) {
  EXPECT_THAT(Texts(var, {1}), ElementsAre("001", "002", "003", "004"));
  const Row none(54);
  for (std::size_t i = 0; i < var.size(); ++i) {
    const Row& row = var[i];
    const Row& before = i > 0 && var[i - 1][0] == row[0] ? var[i - 1] : none;
    const bool first = &before == &none;
    const bool last = i + 1 == var.size() || var[i + 1][0] != row[0];
    SCOPED_TRACE(T(row[0]) + " " + T(row[1]));
    EXPECT_EQ(Val(T(row[1])), first ? 1 : Val(T(before[1])) + 1);
    EXPECT_EQ(Serial(row[3]), first ? Serial(row[5]) : Serial(before[4]) + 1);
    EXPECT_LE(Serial(row[3]), Serial(row[4]));
    EXPECT_EQ(row[5], first ? row[5] : before[5]) << "the day of entering";
    EXPECT_EQ(row[6], last ? row[4] : Value()) << "leaving ends the last one";
    EXPECT_EQ(T(row[7]).empty(), row[6].IsNull());
    EXPECT_TRUE(T(row[23]).empty() || !row[24].IsNull()) << "a bonus starts";
    for (const auto& [a, b] : {std::pair(24U, 25U), {25U, 30U}, {30U, 31U}, {31U, 36U}, {36U, 37U}})
      EXPECT_TRUE(row[b].IsNull() || Serial(row[a]) < Serial(row[b])) << "a chain without gaps " << b;
  }
}

TEST_F(DemoCompany, IncidentsDoNotMeet) {
  Rows incidents = company->Table("TincidenciasIT");
  EXPECT_THAT(Texts(incidents, {2}), ElementsAre("1", "2", "3", "4", "5"));
  EXPECT_THAT(Texts(incidents, {4}), testing::Contains("")) << "an open one";
  std::ranges::copy(company->Table("TincidenciasESP"), std::back_inserter(incidents));
  std::map<std::string, Row> last;
  for (const Row& row : var) last[T(row[0])] = row;
  for (const Row& a : incidents) {
    SCOPED_TRACE(T(a[0]) + " " + T(a[3]));
    EXPECT_LE(Serial(a[3]), Serial(a[4]));
    EXPECT_LE(Serial(last.at(T(a[0]))[5]), Serial(a[3]));
    EXPECT_LE(Serial(a[4]), Serial(last.at(T(a[0]))[6]));
    for (const Row& b : incidents)
      EXPECT_TRUE(&a == &b || a[0] != b[0] || Serial(a[4]) < Serial(b[3]) || Serial(a[3]) > Serial(b[4]));
  }
  for (const char* year : kYears) {
    const Set variable = Texts(company->Table("TIncidenciasVar", year), {0, 1, 3, 4});
    EXPECT_FALSE(variable.empty());
    EXPECT_THAT(Texts(company->Table("ConTrabajadorConceptos", year), {0, 1, 2, 3}), IsSupersetOf(variable));
  }
}

TEST_F(DemoCompany, KnownCasesAreWhatTheyAreCalled) {
  for (const auto& [worker, rate] :
       {std::pair("00003", "0"), {"00004", "1,34"}, {"00005", "2"}, {"00006", "18"}, {"00021", "0"}}) {
    EXPECT_EQ(Rate(worker).tipo, rate) << worker;
  }
  EXPECT_EQ(Rate("00001").hijos_limite, 2);
  EXPECT_TRUE(Rate("00003").bajo_limite);
  EXPECT_TRUE(Rate("00004").tope_aplicado);
  EXPECT_NE(Rate("00007").deduccion_pensionista, "");
  EXPECT_EQ(Rate("00007").minimo_personal, "650000");
  EXPECT_NE(Rate("00008").deduccion_desempleado, "");
  EXPECT_EQ(Rate("00009").tramo, 5);
  EXPECT_EQ(Rate("00010").minimo_personal, "1150000");
  EXPECT_EQ(Rate("00011").cuenta_hijos, 8);
  EXPECT_EQ(Rate("00012").ascendientes, 4);
  EXPECT_EQ(T(fijo[19][80]), "1") << "Ceuta";
  EXPECT_THAT(Texts(fijo, {4}), IsSupersetOf({"1", "2", "3", "4", "6"})) << "identifications of all kinds";
  EXPECT_THAT(Texts(fijo, {24}), ElementsAre("0", "1", "2", "3")) << "disability";
  for (const auto& [column, width] : {std::pair(1U, 20U), {2U, 20U}, {3U, 15U}})
    EXPECT_EQ(Len(T(fijo[16][column])), width) << "a name that fills its field";
  // The same pay in the other currency, which only 02 reads rightly.
  EXPECT_EQ(T(fijo[15][75]), "24040,48");
  EXPECT_NEAR(CDbl(Rate("00016", "02").tipo), 20, 5);
}

TEST_F(DemoCompany, TheAmountDueAtALimitIsWhatTheBracketBeforeItGives) {
  for (const char* year : kYears) {
    const Row row = company->Table("IRPF", year).at(0);
    for (std::size_t k = 4; k < 24; k += 4) {
      const double due = row[k - 3].Number() + (row[k].Number() - row[k - 4].Number()) * row[k - 2].Number() / 100;
      EXPECT_NEAR(row[k + 1].Number(), due, 0.02);
    }
  }
}

TEST(DemoWorkers, FillEveryTextAndFitTheirColumns) {
  const auto check = [](std::string_view table, std::span<const Value> row) {
    const auto& columns = StoredTable(FileKind::kCompany, table)->columns;
    for (std::size_t i = 0; i < row.size(); ++i) {
      ASSERT_EQ(row[i].IsText(), columns[i].type == ColumnType::kText) << table << " " << T(row[0]) << " Campo" << i;
      ASSERT_EQ(ErrorOf([&] { ConvertForColumn(row[i], columns[i], {}); }), 0) << table << " Campo" << i << T(row[i]);
    }
  };
  for (const std::uint64_t seed : {1, 2, 3}) {
    for (int number = 33; number < kMaxDemoWorkers; number += 33) {
      const TrabajadorDemo worker = DibujaTrabajador(seed, number);
      check("TrabajadoresFijo", FilaFijo(worker));
      for (std::size_t i = 0; i < worker.situaciones.size(); ++i) check("TrabajadoresVar", FilaVar(worker, i));
    }
  }
  EXPECT_EQ(DibujaTrabajador(1, kMaxDemoWorkers).Codigo(), "00000");
}

TEST_F(DemoCompany, DependsOnTheSeedAloneAndALargerOneBeginsWithTheSameWorkers) {
  const Company again(DemoOptions().workers, 1), smaller(9, 1), other(9, 2);
  for (const char* table :
       {"TrabajadoresVar", "TincidenciasIT", "TIncidenciasVar", "ConTrabajadorPagas", "Historico"}) {
    EXPECT_TRUE(again.Table(table) == company->Table(table)) << table;
  }
  const Rows nine = smaller.Table("TrabajadoresFijo");
  EXPECT_TRUE(std::ranges::equal(nine, std::span(fijo).first(9)));
  EXPECT_TRUE(nine != other.Table("TrabajadoresFijo"));
}

class DemoFolder : public testing::Test {
 protected:
  // The refusal, if there is one. The folder may be one in this one.
  std::string Write(const std::string& name, int workers, const std::function<void(int, int)>& progress = {}) const {
    try {
      WriteDemoCompany(*MakeSqliteEngine(), {.folder = folder / name, .workers = workers}, progress);
      return "";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }
  // All files and folders.
  std::ptrdiff_t Entries() const { return std::distance(fs::recursive_directory_iterator(folder.path()), {}); }

  TempFolder folder;
};

TEST_F(DemoFolder, LeavesWhatIsThere) {
  fs::create_directory(folder / "Datos");
  for (const std::string name : {"nom00001.mdb", "HACIEN02.MDB", "IMPM0999.DAT"}) {
    std::ofstream(folder / "Datos/" + name) << "mine";
    EXPECT_THAT(Write("", 2), testing::HasSubstr(name));
    EXPECT_EQ(Entries(), 2);
    EXPECT_EQ(fs::file_size(folder / "Datos/" + name), 4U);
    fs::remove(folder / "Datos/" + name);
  }
  std::ofstream(folder / "Datos/readme.txt") << "mine";
  std::vector<std::pair<int, int>> told;
  EXPECT_EQ(Write("", 2, [&](int done, int of) { told.emplace_back(done, of); }), "");
  EXPECT_THAT(told, ElementsAre(std::pair(0, 2), std::pair(2, 2)));
  EXPECT_TRUE(fs::exists(folder / "Datos/readme.txt"));
  EXPECT_TRUE(fs::exists(folder / "Datos/Nom00001.MDB"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1) << "nothing stays beside it";
}

TEST_F(DemoFolder, LeavesNothingHalfWritten) {
  EXPECT_EQ(Write("new/app", 2, [](int, int) { throw std::runtime_error("stopped"); }), "stopped");
  for (const int workers : {0, -1, kMaxDemoWorkers + 1})
    EXPECT_THAT(Write("", workers), testing::HasSubstr("number of workers"));
  EXPECT_EQ(Entries(), 0);
  std::ofstream(folder / "file") << "mine";
  EXPECT_THAT(Write("file", 2), testing::HasSubstr("cannot write in"));
  EXPECT_EQ(Entries(), 1);
}

}  // namespace
}  // namespace zendara
