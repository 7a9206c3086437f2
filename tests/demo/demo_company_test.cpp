#include "apps/demo/demo_company.hpp"

#include <gmock/gmock.h>

#include <fstream>
#include <span>

#include "frame/stored_tables.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "support/print_value.hpp"
#include "support/temp_folder.hpp"
#include "withholding/entradas_irpf.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using Row = std::vector<Value>;
using Rows = std::vector<Row>;
using testing::ElementsAre;

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
  std::unique_ptr<Engine> engine = MakeEngine();
};

std::string T(const Value& value) { return value.IsNull() ? "" : CStr(value); }
class DemoCompany : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    company = std::make_unique<Company>(DemoOptions().workers, 1);
    fijo = company->Table("TrabajadoresFijo");
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
  inline static Rows fijo;
};

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
  for (const auto& [column, width] : {std::pair(1U, 20U), {2U, 20U}, {3U, 15U}})
    EXPECT_EQ(Len(T(fijo[16][column])), width) << "a name that fills its field";
  // The same pay in the other currency, which only 02 reads rightly.
  EXPECT_EQ(T(fijo[15][75]), "24040,48");
  EXPECT_NEAR(CDbl(Rate("00016", "02").tipo), 20, 5);
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
      WriteDemoCompany(*MakeEngine(), {.folder = folder / name, .workers = workers}, progress);
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
  std::vector<std::pair<int, int>> progress;
  EXPECT_EQ(Write("", 2, [&](int done, int of) { progress.emplace_back(done, of); }), "");
  EXPECT_THAT(progress, ElementsAre(std::pair(0, 2), std::pair(2, 2)));
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
