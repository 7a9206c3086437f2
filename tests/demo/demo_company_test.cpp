#include "apps/demo/demo_company.hpp"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <span>

#include "apps/demo/worker.hpp"
#include "frame/stored_tables.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "withholding/entradas_irpf.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using Row = std::vector<Value>;
using testing::Contains;
using testing::IsSupersetOf;

// A folder that goes with the test.
class Folder {
 public:
  Folder() {
    std::string pattern = (fs::temp_directory_path() / "demoXXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~Folder() { fs::remove_all(path_); }
  std::string operator/(std::string_view name) const { return (path_ / name).string(); }
  std::string str() const { return path_.string(); }

 private:
  fs::path path_;
};

std::vector<Row> Rows(Database& database, std::string_view table) {
  const auto set = database.OpenRecordset(table, RecordsetType::kTable);
  std::vector<Row> rows;
  for (; !set->Eof(); set->MoveNext()) {
    Row& row = rows.emplace_back();
    for (int i = 0; i < static_cast<int>(set->Columns().size()); ++i) row.push_back(set->Fields(i).Get());
  }
  return rows;
}

// A written company, open for reading.
class Company {
 public:
  Company(const Folder& folder, int workers, std::uint64_t seed) : folder_(folder.str()) {
    WriteDemoCompany(*engine_, {.folder = folder_, .workers = workers, .seed = seed});
  }
  std::shared_ptr<Database> Open(FileKind kind, std::string_view year = "01") {
    return engine_->Workspaces(0)->OpenDatabase(folder_ + "\\DATOS\\" + FileName(kind, "00001", year));
  }
  std::vector<Row> Table(std::string_view table, std::string_view year = "01") {
    return Rows(*Open(FileWithTable(table)->kind, year), table);
  }

 private:
  std::string folder_;
  std::unique_ptr<Engine> engine_ = MakeSqliteEngine();
};

std::string T(const Value& value) { return value.IsNull() ? "" : CStr(value); }
Date Day(int y, int m, int d) { return MakeDate(y, m, d).value(); }

// The pairs of two columns, as "code=name".
std::set<std::string> Pairs(const std::vector<Row>& rows, std::size_t code, std::size_t name) {
  std::set<std::string> pairs;
  for (const Row& row : rows) pairs.insert(T(row[code]) + "=" + T(row[name]));
  return pairs;
}
std::set<std::string> Texts(const std::vector<Row>& rows, std::size_t column) {
  std::set<std::string> texts;
  for (const Row& row : rows) texts.insert(T(row[column]));
  return texts;
}

class DemoCompany : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder = new Folder;
    company = new Company(*folder, DemoOptions().workers, 1);
    fijo = company->Table("TrabajadoresFijo");
    var = company->Table("TrabajadoresVar");
  }
  static void TearDownTestSuite() {
    delete company;
    delete folder;
  }
  // Situaciones by worker, in the order of their numbers.
  static std::map<std::string, std::vector<Row>> Situations() {
    std::map<std::string, std::vector<Row>> by_worker;
    for (const Row& row : var) by_worker[T(row[0])].push_back(row);
    return by_worker;
  }

  inline static Folder* folder;
  inline static Company* company;
  inline static std::vector<Row> fijo, var;
};

TEST_F(DemoCompany, FilesHoldTheStoredTables) {
  for (const StoredFile& file : StoredFiles())
    for (const char* year : {"00", "01", "02"}) EXPECT_EQ(company->Open(file.kind, year)->Tables(), file.tables);
  for (const auto& [name, size] : {std::pair{"IMPM1600.DAT", 256}, {"IMPM0999.DAT", 300}, {"NOM00997.DAT", 256}})
    EXPECT_EQ(fs::file_size(*folder / ("DATOS/" + std::string(name))), size);
  EXPECT_EQ(std::distance(fs::directory_iterator(*folder / "DATOS"), {}), 1 + 3 + 1 + 3 + 3 + 1 + 1 + 3);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder->str()), {}), 1) << "only DATOS stays";
}

TEST_F(DemoCompany, NumbersCarryTheirCheckCharacters) {
  // Written out anew: weights over entity, branch and account.
  const auto control = [](std::string_view digits) {
    constexpr int kWeights[] = {1, 2, 4, 8, 5, 10, 9, 7, 3, 6};
    int sum = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) sum += (digits[i] - '0') * kWeights[10 - digits.size() + i];
    const int digit = 11 - sum % 11;
    return std::to_string(digit == 11 ? 0 : digit == 10 ? 1 : digit);
  };
  const auto letter = [](std::string_view digits) {
    return "TRWAGMYFPDXBNJZSQVHLCKE"[std::stoi(std::string(digits)) % 23];
  };
  std::set<std::string> ids;
  int accounts = 0;
  for (const Row& row : fijo) {
    const std::string id = T(row[5]);
    EXPECT_TRUE(ids.insert(id).second) << id;
    if (T(row[4]) == "1") {
      ASSERT_EQ(id.size(), 9U);
      EXPECT_EQ(id[8], letter(id.substr(0, 8)));
    } else if (T(row[4]) == "6") {
      EXPECT_EQ(id[8], letter(id.substr(1, 7)));
    }
    if (const std::string spouse = T(row[23]); !spouse.empty()) {
      EXPECT_EQ(spouse[8], letter(spouse.substr(0, 8)));
    }
    EXPECT_EQ(T(row[23]).empty(), T(row[22]) != "2");
    ASSERT_EQ(T(row[6]).size() + T(row[7]).size(), 10U);
    EXPECT_EQ(std::stoll(T(row[6]) + T(row[7])) % 97, std::stoi(T(row[8])));
    const std::string account = T(row[85]) + T(row[86]) + T(row[87]) + T(row[88]);
    if (account.empty()) continue;
    ++accounts;
    ASSERT_EQ(account.size(), 20U);
    EXPECT_EQ(account.substr(8, 2), control(account.substr(0, 8)) + control(account.substr(10)));
  }
  EXPECT_GT(accounts, 30);
}

TEST_F(DemoCompany, WorkersFillEveryColumnAsTheScreenDoes) {
  int number = 0;
  for (const Row& row : fijo) {
    EXPECT_EQ(std::stoi(T(row[0])), ++number);
    for (std::size_t i = 0; i < row.size(); ++i) ASSERT_FALSE(row[i].IsNull()) << T(row[0]) << " Campo" << i;
    EXPECT_TRUE(row[19].IsDate());
    EXPECT_EQ(T(row[17]).substr(0, 2), T(row[6]));  // post code and number of one province
    for (std::size_t r = 25; r < 55; r += 3)
      EXPECT_TRUE(T(row[r]).empty() == T(row[r + 1]).empty() && T(row[r]).empty() == T(row[r + 2]).empty());
    for (std::size_t r = 55; r < 75; r += 2) EXPECT_EQ(T(row[r]).empty(), T(row[r + 1]).empty());
    for (std::size_t i : {75, 76, 77, 78, 79, 81, 82, 83, 84})
      EXPECT_TRUE(T(row[i]).empty() || IsNumeric(row[i])) << T(row[i]);
  }
  EXPECT_EQ(number, 60);
  constexpr std::array kDates = {3, 4, 5, 6, 8, 24, 25, 30, 31, 36, 37};
  for (const Row& row : var)
    for (int i = 0; i < 54; ++i) {
      const bool date = std::ranges::find(kDates, i) != kDates.end();
      const Value& value = row[static_cast<std::size_t>(i)];
      ASSERT_TRUE(date ? value.IsNull() || value.IsDate() : value.IsText()) << T(row[0]) << " Campo" << i;
    }
}

TEST_F(DemoCompany, EveryKindOfWorkerAppears) {
  EXPECT_THAT(Texts(fijo, 4), IsSupersetOf({"1", "2", "3", "4", "6"}));
  EXPECT_EQ(Texts(fijo, 20), (std::set<std::string>{"A", "D", "P"}));
  EXPECT_EQ(Texts(fijo, 21), (std::set<std::string>{"G", "I", "R"}));
  EXPECT_EQ(Texts(fijo, 22), (std::set<std::string>{"", "1", "2", "3"}));
  EXPECT_EQ(Texts(fijo, 24), (std::set<std::string>{"0", "1", "2", "3"}));
  EXPECT_THAT(Texts(fijo, 80), Contains("1"));
  std::set<int> ages;
  std::set<std::string> grades, shared;
  for (const Row& row : fijo) {
    for (std::size_t r = 25; r < 55 && !T(row[r]).empty(); r += 3) {
      ages.insert(2001 - std::stoi(T(row[r])));
      grades.insert(T(row[r + 1]) + T(row[r + 2]));
    }
    for (std::size_t r = 55; r < 75; r += 2) shared.insert(T(row[r]) + T(row[r + 1]));
  }
  for (int age = 0; age <= 27; ++age) EXPECT_TRUE(ages.contains(age)) << age;
  EXPECT_EQ(grades, (std::set<std::string>{"N0", "N1", "N2", "S0", "S1", "S2"}));
  EXPECT_THAT(shared, IsSupersetOf({"10", "21", "32", "90"}));
  std::size_t longest[3] = {};
  for (const Row& row : fijo)
    for (std::size_t i = 0; i < 3; ++i) longest[i] = std::max(longest[i], Len(T(row[1 + i])));
  EXPECT_THAT(longest, testing::ElementsAre(20, 20, 15));
}

TEST_F(DemoCompany, CodesStandInTheirTables) {
  const auto agreements = company->Table("ConEmpresaConceptos");
  std::set<std::string> categories, contracts;
  for (const Row& row : agreements) categories.insert(T(row[0]) + T(row[2]) + "=" + T(row[3]));
  for (const Row& row : company->Table("Contratos"))
    contracts.insert(T(row[0]) + T(row[1]) + "=" + T(row[2]) + T(row[3]) + T(row[4]));
  const auto names = Pairs(agreements, 0, 1), epigraphs = Pairs(company->Table("Epigrafes"), 0, 1),
             centres = Pairs(company->Table("Centros", "02"), 0, 1),
             sections = Pairs(company->Table("Secciones"), 0, 1);
  for (const Row& row : var) {
    EXPECT_TRUE(names.contains(T(row[10]) + "=" + T(row[11])));
    EXPECT_TRUE(categories.contains(T(row[10]) + T(row[12]) + "=" + T(row[13])));
    EXPECT_TRUE(epigraphs.contains(T(row[15]) + "=" + T(row[16])));
    EXPECT_TRUE(centres.contains(T(row[49]) + "=" + T(row[50])));
    EXPECT_TRUE(sections.contains(T(row[51]) + "=" + T(row[52])));
    for (std::size_t c : {20, 26, 32}) {
      if (c > 20 && T(row[c]).empty()) continue;
      EXPECT_TRUE(contracts.contains(T(row[19]) + T(row[c]) + "=" + T(row[c + 1]) + T(row[c + 2]) + T(row[c + 3])));
    }
    EXPECT_TRUE(T(row[42]).empty() || T(row[43]).empty()) << "training hours exclude each other";
  }
  const auto streets = Texts(company->Table("Calles"), 0);
  const auto payments = Pairs(company->Table("FPago"), 0, 1);
  for (const Row& row : fijo) {
    EXPECT_TRUE(streets.contains(T(row[9])));
    EXPECT_TRUE(payments.contains(T(row[89]) + "=" + T(row[90])));
  }
  const Row default_row = Rows(*company->Open(FileKind::kEmpresas), "EmpresasNom").at(0);
  EXPECT_THAT(Texts(agreements, 0), Contains(T(default_row[2])));
}

TEST_F(DemoCompany, SituacionesFollowEachOther) {
  std::set<std::size_t> counts;
  std::size_t chains = 0;
  for (const auto& [worker, rows] : Situations()) {
    counts.insert(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const Row& row = rows[i];
      EXPECT_EQ(T(row[1]), "00" + std::to_string(i + 1));
      const bool last = i + 1 == rows.size();
      if (!last) {
        EXPECT_EQ(row[4].AsDate().serial + 1, rows[i + 1][3].AsDate().serial) << worker;
      }
      EXPECT_TRUE(row[4].IsNull() || row[4].AsDate() >= row[3].AsDate()) << worker;
      EXPECT_EQ(row[6], last ? row[4] : Value()) << "leaving ends the last one: " << worker;
      EXPECT_EQ(row[5], rows[0][3]);
      EXPECT_EQ(T(row[7]).empty(), row[6].IsNull());
      EXPECT_TRUE(T(row[23]).empty() || !row[24].IsNull()) << "a bonus starts: " << worker;
      std::optional<Date> before;
      bool ended = false;
      for (std::size_t c : {24, 25, 30, 31, 36, 37}) {
        ended = ended || row[c].IsNull();
        if (row[c].IsNull()) continue;
        EXPECT_FALSE(ended) << worker << " leaves a gap in the chain";
        EXPECT_TRUE(!before || *before < row[c].AsDate()) << worker;
        before = row[c].AsDate();
        chains += c == 36;
      }
    }
  }
  EXPECT_EQ(counts, (std::set<std::size_t>{1, 2, 3, 4}));
  EXPECT_GT(chains, 0U);
}

TEST_F(DemoCompany, IncidentsDoNotMeet) {
  std::map<std::string, std::vector<std::pair<double, double>>> taken;
  const auto situations = Situations();
  std::set<std::string> types;
  int open = 0;
  for (const char* table : {"TincidenciasIT", "TincidenciasESP"}) {
    for (const Row& row : company->Table(table)) {
      const std::string worker = T(row[0]);
      types.insert(table[12] + T(row[2]));
      open += row[4].IsNull();
      const double start = row[3].AsDate().serial, end = row[4].IsNull() ? 1e9 : row[4].AsDate().serial;
      EXPECT_LE(start, end);
      for (const auto& [a, b] : taken[worker]) EXPECT_TRUE(end < a || start > b) << worker;
      taken[worker].emplace_back(start, end);
      const Row& last = situations.at(worker).back();
      EXPECT_GE(start, last[5].AsDate().serial);
      if (!last[6].IsNull()) {
        EXPECT_LE(end, last[6].AsDate().serial);
      }
    }
  }
  EXPECT_EQ(types, (std::set<std::string>{"I1", "I2", "I3", "I4", "I5", "E1", "E2"}));
  EXPECT_GT(open, 0);
  for (const char* year : {"00", "01", "02"}) {
    std::set<std::string> concepts;
    for (const Row& row : company->Table("ConTrabajadorConceptos", year))
      concepts.insert(T(row[0]) + T(row[1]) + T(row[2]) + T(row[3]));
    const auto incidents = company->Table("TIncidenciasVar", year);
    EXPECT_FALSE(incidents.empty());
    for (const Row& row : incidents) EXPECT_TRUE(concepts.contains(T(row[0]) + T(row[1]) + T(row[3]) + T(row[4])));
  }
}

TEST_F(DemoCompany, HistoryHasBothCurrencies) {
  for (const auto& [year, marks] :
       std::map<std::string, std::set<std::string>>{{"00", {"P"}}, {"01", {"E", "P"}}, {"02", {"E"}}}) {
    const auto rows = company->Table("Historico", year);
    EXPECT_EQ(Texts(rows, 29), marks);
    for (const Row& row : rows) EXPECT_TRUE(row[7].IsNumber() && row[11].IsNumber());
  }
  EXPECT_EQ(Texts(company->Table("Historico", "01"), 0), (std::set<std::string>{"1", "2", "4"}));
}

// Rate of a stored worker in a year.
DesgloseIRPF Rate(Company& company, std::string_view worker, std::string_view year) {
  const auto workers = company.Open(FileKind::kCompany)->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
  workers->SetIndex("Icampo0");
  workers->Seek({Value(worker)});
  const auto irpf = company.Open(FileKind::kOfficial, year)->OpenRecordset("IRPF", RecordsetType::kTable);
  return CalculaTipoIRPF(LeeDatosRegistro(*workers, year), LeeParametrosIRPF(*irpf),
                         {.ano = std::string(year), .pesetas = year != "02"});
}

TEST_F(DemoCompany, KnownCasesAreWhatTheyAreCalled) {
  EXPECT_EQ(Rate(*company, "00001", "01").hijos_limite, 2);
  EXPECT_EQ(Rate(*company, "00003", "01").tipo, "0");
  EXPECT_TRUE(Rate(*company, "00003", "01").bajo_limite);
  EXPECT_TRUE(Rate(*company, "00004", "01").tope_aplicado);
  EXPECT_EQ(Rate(*company, "00004", "01").tipo, "1,34");
  EXPECT_EQ(Rate(*company, "00005", "01").tipo, "2");
  EXPECT_EQ(Rate(*company, "00006", "01").tipo, "18");
  EXPECT_NE(Rate(*company, "00007", "01").deduccion_pensionista, "");
  EXPECT_EQ(Rate(*company, "00007", "01").minimo_personal, "650000");
  EXPECT_NE(Rate(*company, "00008", "01").deduccion_desempleado, "");
  EXPECT_EQ(Rate(*company, "00009", "01").tramo, 5);
  EXPECT_EQ(Rate(*company, "00010", "01").minimo_personal, "1150000");
  EXPECT_EQ(Rate(*company, "00011", "01").cuenta_hijos, 8);
  EXPECT_EQ(Rate(*company, "00012", "01").ascendientes, 4);
  EXPECT_EQ(Rate(*company, "00021", "01").tipo, "0");
  // The same pay in the other currency, which only 02 reads rightly.
  EXPECT_EQ(T(fijo[15][75]), "24040,48");
  const double rate = CDbl(Rate(*company, "00016", "02").tipo);
  EXPECT_GT(rate, 15);
  EXPECT_LT(rate, 25);
  EXPECT_EQ(Situations()["00014"].back()[6], Value(Day(2001, 6, 30)));
}

TEST_F(DemoCompany, TaxRowHoldsItselfTogether) {
  const std::vector<Value> pesetas = company->Table("IRPF", "00").at(0), euros = company->Table("IRPF", "02").at(0);
  EXPECT_EQ(company->Table("IRPF", "01").at(0), pesetas);
  for (const auto& row : {pesetas, euros}) {
    EXPECT_EQ(row[46], row[48]);
    for (std::size_t k = 4; k < 24; k += 4) {
      // The amount due at a limit is what the bracket before it gives.
      const double due = row[k - 3].Number() + (row[k].Number() - row[k - 4].Number()) * row[k - 2].Number() / 100;
      EXPECT_NEAR(row[k + 1].Number(), due, 0.02);
    }
  }
  EXPECT_EQ(euros[46], Value(8113.66));
  EXPECT_EQ(euros[50], Value(0.1923));
  EXPECT_EQ(euros[74], pesetas[74]);
}

TEST(DemoWorkers, FitTheirColumns) {
  const auto check = [](std::string_view table, std::span<const Value> row, const TrabajadorDemo& worker) {
    const TableDef& def = *StoredTable(FileKind::kCompany, table);
    ASSERT_EQ(row.size(), def.columns.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
      const bool fits = !row[i].IsText() || Len(row[i].Text()) <= static_cast<std::size_t>(def.columns[i].width);
      ASSERT_TRUE(fits) << table << " " << worker.Codigo() << " Campo" << i << " " << T(row[i]);
    }
  };
  for (const std::uint64_t seed : {1, 2, 3})
    for (int number = 1; number <= 3000; ++number) {
      const TrabajadorDemo worker = DibujaTrabajador(seed, number * 33);
      check("TrabajadoresFijo", FilaFijo(worker), worker);
      for (std::size_t i = 0; i < worker.situaciones.size(); ++i) check("TrabajadoresVar", FilaVar(worker, i), worker);
    }
  EXPECT_EQ(DibujaTrabajador(1, kMaxDemoWorkers).Codigo(), "00000");
}

std::string Dump(Company& company) {
  std::string dump;
  for (const StoredFile& file : StoredFiles())
    for (const char* year : {"00", "01", "02"})
      for (const TableDef& table : file.tables) {
        for (const Row& row : Rows(*company.Open(file.kind, year), table.name)) {
          dump += table.name;
          for (const Value& value : row) dump += value.IsNull() ? "|~" : "|" + CStr(value);
          dump += "\n";
        }
      }
  return dump;
}

TEST(DemoSeed, DecidesAll) {
  const auto dump = [](int workers, std::uint64_t seed) {
    const Folder folder;
    Company company(folder, workers, seed);
    return Dump(company);
  };
  const std::string first = dump(25, 7);
  EXPECT_EQ(first, dump(25, 7));
  EXPECT_NE(first, dump(25, 8));
  const Folder small_folder, large_folder;
  Company small(small_folder, 5, 7), large(large_folder, 9, 7);
  const auto few = small.Table("TrabajadoresFijo"), many = large.Table("TrabajadoresFijo");
  EXPECT_TRUE(std::equal(few.begin(), few.end(), many.begin()));
}

std::string ErrorOf(const DemoOptions& options, const std::function<void(int, int)>& progress = {}) {
  try {
    WriteDemoCompany(*MakeSqliteEngine(), options, progress);
    return "";
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

TEST(DemoRefusal, LeavesWhatIsThere) {
  for (const char* name : {"nom00001.mdb", "HACIEN02.MDB", "IMPM0999.DAT"}) {
    const Folder folder;
    fs::create_directory(folder / "Datos");
    std::ofstream(folder / ("Datos/" + std::string(name))) << "mine";
    EXPECT_THAT(ErrorOf({.folder = folder.str(), .workers = 2}), testing::HasSubstr(name));
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder.str()), {}), 2);
    EXPECT_EQ(fs::file_size(folder / ("Datos/" + std::string(name))), 4U);
  }
}

TEST(DemoRefusal, KeepsOtherFilesOfTheFolder) {
  const Folder folder;
  fs::create_directory(folder / "DATOS");
  std::ofstream(folder / "DATOS/readme.txt") << "mine";
  std::vector<std::pair<int, int>> told;
  const auto progress = [&](int done, int of) { told.emplace_back(done, of); };
  EXPECT_EQ(ErrorOf({.folder = folder.str(), .workers = 2}, progress), "");
  EXPECT_THAT(told, testing::ElementsAre(std::pair(0, 2), std::pair(2, 2)));
  EXPECT_TRUE(fs::exists(folder / "DATOS/readme.txt"));
  EXPECT_TRUE(fs::exists(folder / "DATOS/Nom00001.MDB"));
}

TEST(DemoFailure, LeavesNothing) {
  const Folder folder;
  const auto stop = [](int, int) { throw std::runtime_error("stopped"); };
  EXPECT_EQ(ErrorOf({.folder = folder / "new/app", .workers = 2}, stop), "stopped");
  EXPECT_TRUE(fs::is_empty(folder.str()));
  for (const int workers : {0, -1, kMaxDemoWorkers + 1})
    EXPECT_THAT(ErrorOf({.folder = folder.str(), .workers = workers}), testing::HasSubstr("number of workers"));
  std::ofstream(folder / "file") << "mine";
  EXPECT_THAT(ErrorOf({.folder = folder / "file", .workers = 2}), testing::HasSubstr("cannot write in"));
  EXPECT_EQ(std::distance(fs::recursive_directory_iterator(folder.str()), {}), 1);
}

}  // namespace
}  // namespace zendara
