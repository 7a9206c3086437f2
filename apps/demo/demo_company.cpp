#include "apps/demo/demo_company.hpp"

#include <array>
#include <memory>
#include <span>
#include <stdexcept>
#include <vector>

#include "apps/demo/code_tables.hpp"
#include "apps/demo/company_files.hpp"
#include "apps/demo/people.hpp"
#include "apps/demo/random.hpp"
#include "apps/demo/tax_year.hpp"
#include "apps/demo/worker.hpp"
#include "runtime/date.hpp"
#include "runtime/text.hpp"
#include "values/nombres.hpp"

namespace zendara {
namespace {

constexpr std::string_view kCompany = "00001";
constexpr std::string_view kCompanyName = "Compañía de Demostración, S.A.";
constexpr std::array<std::string_view, 3> kYears = {"00", "01", "02"};
constexpr std::size_t kEuroYear = 2;
// So many workers have rows in every month, the others in the last month of each situación in a year only: all months
// of 100,000 workers would be some 25 million rows.
constexpr int kWorkersInFull = 1000;
constexpr int kProgressStep = 250;

// Adds rows to one table.
class Table {
 public:
  Table(Database& database, std::string_view name) : rows_(database.OpenRecordset(name, RecordsetType::kTable)) {}

  // Columns from the first on; Null leaves one unset.
  void Add(std::span<const Value> values) {
    rows_->AddNew();
    for (std::size_t i = 0; i < values.size(); ++i)
      if (!values[i].IsNull()) rows_->Fields(static_cast<int>(i)).Set(values[i]);
    rows_->Update();
  }
  void Add(std::initializer_list<Value> values) { Add(std::span(values.begin(), values.size())); }

 private:
  std::shared_ptr<Recordset> rows_;
};

struct Month {
  std::string code;  // "01" to "12"
  Date first, last;
};

// The tables of one year that workers have rows in.
struct YearTables {
  YearTables(Database& database, std::size_t year)
      : euros(year == kEuroYear),
        conceptos(database, "ConTrabajadorConceptos"),
        pagas(database, "ConTrabajadorPagas"),
        incidencias(database, "TIncidenciasVar"),
        historico(database, "Historico") {
    const int calendar = 2000 + static_cast<int>(year);
    for (int month = 1; month <= 12; ++month) {
      const Date next = month == 12 ? MakeDate(calendar + 1, 1, 1).value() : MakeDate(calendar, month + 1, 1).value();
      months.push_back({Digits(month, 2), MakeDate(calendar, month, 1).value(), {next.serial - 1}});
    }
  }

  bool euros;
  std::vector<Month> months;
  Table conceptos, pagas, incidencias, historico;
};

void WriteCodes(Database& database, std::string_view table, std::span<const Code> codes) {
  Table rows(database, table);
  for (const Code& code : codes) rows.Add({code.code, code.name});
}

// A category has a row for each of its concepts.
void WriteAgreements(Database& database, std::string_view table) {
  Table rows(database, table);
  for (const Convenio& convenio : kConvenios)
    for (const Categoria& categoria : convenio.categorias)
      for (const Code& concepto : kConceptos)
        rows.Add({convenio.code, convenio.name, categoria.code, categoria.name, concepto.code});
}

void WriteContracts(Database& database) {
  Table rows(database, "Contratos");
  for (const Contrato& c : kContratos) rows.Add({c.number, c.type, c.modalidad, c.disposicion, c.percent});
}

void WriteGeneralTables(Database& database) {
  WriteCodes(database, "Calles", kCalles);
  WriteCodes(database, "Epigrafes", kEpigrafes);
  WriteAgreements(database, "ConGeneralConceptos");
  Table(database, "EmpresasNom").Add({kCompany, kCompanyName, kConvenioEmpresa});
}

void WriteTaxYear(Database& database, bool euros) {
  const std::array<double, 75> figures = FilaIRPF(euros);
  const std::vector<Value> row(figures.begin(), figures.end());
  Table(database, "IRPF").Add(row);
}

// As the incident screens show it: their field holds 25 characters.
std::string DisplayedName(const TrabajadorDemo& t) {
  std::string apellido1 = t.apellido1, apellido2 = t.apellido2, nombre = t.nombre;
  return Left(NombreCompleto(apellido1, apellido2, nombre), 25);
}

// The incident screens take no worker number zero.
bool HasIncidents(const TrabajadorDemo& t) { return t.number != kMaxDemoWorkers; }

// The money of one worker's month, in pesetas.
struct MonthlyPay {
  explicit MonthlyPay(const TrabajadorDemo& t)
      : gross(t.anual.value_or(0) / 14),
        base(gross * 7 / 10),
        seniority(gross / 10),
        agreement(gross - base - seniority),
        withheld(static_cast<int>(gross * t.TipoAproximado() / 100)) {}
  int gross;
  int base, seniority, agreement;
  int withheld;
};

double Amount(double pesetas, bool euros) { return euros ? Euros(pesetas) : pesetas; }

// Remuneration and withholding of a payroll. In rows that are not marked "P" the amounts in kind and the payments on
// account, columns 9 and 11, stay in pesetas: the regularisation divides those two and no others.
void AddHistory(Table& table, std::string_view kind, const Month& month, const std::string& worker,
                const std::string& situation, const MonthlyPay& pay, bool euros) {
  std::array<Value, 30> row;
  row[0] = kind;
  row[1] = month.code;
  row[2] = worker;
  row[3] = situation;
  row[7] = Amount(pay.gross, euros);
  row[8] = Amount(pay.withheld, euros);
  row[9] = pay.gross > 300'000 ? 12'000.0 : 0.0;
  row[10] = 0.0;
  row[11] = pay.gross > 300'000 ? 2'160.0 : 0.0;
  row[29] = euros ? "E" : "P";
  table.Add(row);
}

// Pay data of one month of a situación. Columns without a known meaning hold what makes copies comparable: the last
// one too.
void AddPayData(YearTables& year, const Month& month, const std::string& worker, const std::string& situation,
                const MonthlyPay& pay) {
  const int amounts[] = {pay.base, pay.seniority, pay.agreement, 0, 0};
  // What the variable incidents propose: an hour of overtime, a day's expenses.
  const int proposed[] = {0, 0, 0, pay.gross / 160, 2500};
  for (std::size_t i = 0; i < kConceptos.size(); ++i) {
    std::array<Value, 20> row;
    row[0] = month.code;
    row[1] = worker;
    row[2] = situation;
    row[3] = kConceptos[i].code;
    row[4] = kConceptos[i].name;
    if (amounts[i] > 0) row[5] = Importe(amounts[i], year.euros);
    row[18] = "N";
    if (proposed[i] > 0) row[19] = Amount(proposed[i], year.euros);
    year.conceptos.Add(row);
  }
  std::array<Value, 111> row;
  row[0] = month.code;
  row[1] = worker;
  row[2] = situation;
  row[3] = "Paga de julio";
  row[4] = Importe(pay.gross, year.euros);
  row[5] = "Paga de diciembre";
  row[6] = Importe(pay.gross, year.euros);
  row[110] = "N";
  year.pagas.Add(row);
}

void AddVariableIncidents(YearTables& year, Random& random, const Month& month, const std::string& worker,
                          const std::string& name, const std::string& situation, const MonthlyPay& pay) {
  for (const std::size_t concept_row : {3U, 4U}) {  // overtime, expenses
    if (!random.Chance(6)) continue;
    const Code& code = kConceptos[concept_row];
    const double price = concept_row == 3 ? pay.gross / 160 : 2500;
    year.incidencias.Add({month.code, worker, name, situation, code.code, Left(code.name, 8),
                          Importe(price, year.euros), std::to_string(random.Between(1, 40))});
  }
}

void WriteYear(YearTables& year, std::size_t year_number, const TrabajadorDemo& t, const std::string& worker,
               const std::string& name, Random& random) {
  const bool in_full = t.number <= kWorkersInFull;
  const MonthlyPay pay(t);
  for (const Month& month : year.months) {
    bool paid = false;
    for (std::size_t i = 0; i < t.situaciones.size(); ++i) {
      const Periodo& periodo = t.situaciones[i].periodo;
      if (!periodo.Covers(month.first, month.last)) continue;
      const bool last = month.code == "12" || (periodo.end && *periodo.end <= month.last);
      if (!in_full && !last) continue;
      const std::string situation = Digits(static_cast<int>(i) + 1, 3);
      AddPayData(year, month, worker, situation, pay);
      if (HasIncidents(t)) AddVariableIncidents(year, random, month, worker, name, situation, pay);
      if (paid) continue;  // one payroll a month, by the situación that the month begins with
      paid = true;
      const bool euros = year.euros || (t.monedas_mezcladas && year_number == 1 && month.code > "06");
      AddHistory(year.historico, "1", month, worker, situation, pay, euros);
      if (month.code == "07" || month.code == "12")
        AddHistory(year.historico, "2", month, worker, situation, pay, euros);
      // Settlements count for nothing in a regularisation.
      if (t.baja && *t.baja >= month.first && *t.baja <= month.last)
        AddHistory(year.historico, "4", month, worker, situation, pay, euros);
    }
  }
}

// Every worker's rows, file by file.
class WorkerWriter {
 public:
  WorkerWriter(CompanyFiles& files)
      : fijo_(files.Of(FileKind::kCompany), "TrabajadoresFijo"),
        var_(files.Of(FileKind::kCompany), "TrabajadoresVar"),
        it_(files.Of(FileKind::kCompany), "TincidenciasIT"),
        esp_(files.Of(FileKind::kCompany), "TincidenciasESP") {
    years_.reserve(kYears.size());
    for (std::size_t i = 0; i < kYears.size(); ++i) years_.emplace_back(files.Of(FileKind::kYear, kYears[i]), i);
  }

  void Write(std::uint64_t seed, int number) {
    const TrabajadorDemo t = DibujaTrabajador(seed, number);
    const std::string worker = t.Codigo();
    const std::string name = DisplayedName(t);
    fijo_.Add(FilaFijo(t));
    for (std::size_t i = 0; i < t.situaciones.size(); ++i) var_.Add(FilaVar(t, i));
    if (HasIncidents(t)) {
      WriteIncidents(it_, t.incidencias_it, worker, name);
      WriteIncidents(esp_, t.incidencias_esp, worker, name);
    }
    Random random(seed ^ 0x5A, static_cast<std::uint64_t>(number));
    for (std::size_t i = 0; i < years_.size(); ++i) WriteYear(years_[i], i, t, worker, name, random);
  }

 private:
  static void WriteIncidents(Table& table, const std::vector<IncidenciaDemo>& list, const std::string& worker,
                             const std::string& name) {
    for (const IncidenciaDemo& incident : list) {
      const Periodo& p = incident.periodo;
      table.Add({worker, name, incident.type, p.start, p.end ? Value(*p.end) : Value()});
    }
  }

  Table fijo_, var_, it_, esp_;
  std::vector<YearTables> years_;
};

void WriteCodeTables(CompanyFiles& files) {
  Database& company = files.Of(FileKind::kCompany);
  WriteCodes(company, "FPago", kFormasPago);
  WriteCodes(company, "Secciones", kSecciones);
  WriteAgreements(company, "ConEmpresaConceptos");
  for (std::size_t i = 0; i < kYears.size(); ++i) {
    WriteCodes(files.Of(FileKind::kYear, kYears[i]), "Centros", kCentros);
    Database& official = files.Of(FileKind::kOfficial, kYears[i]);
    WriteContracts(official);
    WriteTaxYear(official, i == kEuroYear);
  }
  for (const FileKind kind : {FileKind::kEmpresa, FileKind::kEmpresas}) WriteGeneralTables(files.Of(kind));
  Database& general = files.Of(FileKind::kEmpresa);
  WriteContracts(general);
  Table(general, "Empresas").Add({kCompany});
}

}  // namespace

void WriteDemoCompany(Engine& engine, const DemoOptions& options,
                      const std::function<void(int done, int of)>& progress) {
  if (options.workers < 1 || options.workers > kMaxDemoWorkers) {
    throw std::runtime_error("the number of workers must be from 1 to " + std::to_string(kMaxDemoWorkers));
  }
  CompanyFiles files(engine, options.folder, kCompany, kYears);
  WriteCodeTables(files);
  if (progress) progress(0, options.workers);
  {
    WorkerWriter writer(files);
    for (int number = 1; number <= options.workers; ++number) {
      writer.Write(options.seed, number);
      if (progress && number % kProgressStep == 0 && number < options.workers) progress(number, options.workers);
    }
  }
  files.Finish();
  if (progress) progress(options.workers, options.workers);
}

}  // namespace zendara
