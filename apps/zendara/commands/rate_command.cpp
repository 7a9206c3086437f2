#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <span>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/csv/csv.hpp"
#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/company_data.hpp"
#include "print/record_document.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "withholding/calculo_irpf.hpp"
#include "withholding/entradas_irpf.hpp"
#include "withholding/explicacion.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// Steps that go out with --explain, beside the rate.
struct Step {
  const char* name;
  std::string DesgloseIRPF::*text;
};
constexpr std::array<Step, 7> kSteps = {{{"rendimiento_neto", &DesgloseIRPF::rendimiento_neto},
                                         {"reduccion_trabajo", &DesgloseIRPF::reduccion_trabajo},
                                         {"minimo_personal", &DesgloseIRPF::minimo_personal},
                                         {"minimo_familiar", &DesgloseIRPF::minimo_familiar},
                                         {"base_retencion", &DesgloseIRPF::base_retencion},
                                         {"cuota_retencion", &DesgloseIRPF::cuota_retencion},
                                         {"limite", &DesgloseIRPF::limite}}};

struct Rated {
  std::string worker;
  std::string name;
  EntradasIRPF inputs;
  DesgloseIRPF steps;
};

class RatePrinter {
 public:
  virtual ~RatePrinter() = default;
  virtual void Begin() {}
  virtual void Worker(const Rated& rated) = 0;
  virtual void End() {}
};

class CsvPrinter : public RatePrinter {
 public:
  CsvPrinter(Console& console, bool explain) : console_(console), explain_(explain) {}

  void Begin() override {
    line_ = "worker,rate";
    for (const Step& step : Steps()) line_.append(",").append(step.name);
    console_.Out(line_ += kCsvLineEnd);
  }
  void Worker(const Rated& rated) override {
    line_.clear();
    AppendCsvText(rated.worker, line_);
    line_ += ',';
    AppendCsvText(rated.steps.tipo, line_);
    for (const Step& step : Steps()) {
      line_ += ',';
      AppendCsvText(rated.steps.*step.text, line_);
    }
    console_.Out(line_ += kCsvLineEnd);
  }

 private:
  std::span<const Step> Steps() const { return std::span(kSteps).first(explain_ ? kSteps.size() : 0); }

  Console& console_;
  bool explain_;
  std::string line_;
};

class JsonPrinter : public RatePrinter {
 public:
  JsonPrinter(Console& console, bool explain) : console_(console), explain_(explain) {}

  void Begin() override { console_.Out("["); }
  void Worker(const Rated& rated) override {
    nlohmann::ordered_json object = {{"worker", rated.worker}, {"rate", rated.steps.tipo}};
    if (explain_) {
      for (const Step& step : kSteps) object[step.name] = rated.steps.*step.text;
    }
    console_.Out(first_ ? "\n" : ",\n");
    console_.Out(object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
    first_ = false;
  }
  void End() override { console_.Out(first_ ? "]\n" : "\n]\n"); }

 private:
  Console& console_;
  bool explain_;
  bool first_ = true;
};

// One line a worker; printed at the end, when the widths are known.
class TablePrinter : public RatePrinter {
 public:
  explicit TablePrinter(Console& console) : console_(console) {}

  void Worker(const Rated& rated) override { rows_.push_back({rated.worker, rated.name, rated.steps.tipo}); }
  void End() override {
    std::array<std::size_t, 3> widths{};
    for (const Row& row : rows_) {
      for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Len(row[i]));
    }
    for (const Row& row : rows_) {
      const std::string blanks(widths[2] - Len(row[2]), ' ');
      console_.Out(Fit(row[0], widths[0]) + "  " + Fit(row[1], widths[1]) + "  " + blanks + row[2] + "\n");
    }
  }

 private:
  using Row = std::array<std::string, 3>;

  Console& console_;
  std::vector<Row> rows_ = {{"Worker", "Name", "Rate"}};
};

// A block of steps a worker: what, how much, where it comes from.
class ExplainPrinter : public RatePrinter {
 public:
  ExplainPrinter(Console& console, const ParametrosIRPF& parameters, const CondicionesIRPF& conditions)
      : console_(console), parameters_(parameters), conditions_(conditions) {}

  void Worker(const Rated& rated) override {
    console_.Out((first_ ? "" : "\n") + rated.worker + "  " + rated.name + "\n");
    first_ = false;
    const std::vector<LineaExplicacion> lines = ExplicaTipoIRPF(rated.steps, rated.inputs, parameters_, conditions_);
    std::size_t concept_width = 0;
    std::size_t amount_width = 0;
    for (const LineaExplicacion& line : lines) {
      concept_width = std::max(concept_width, Len(line.concepto));
      amount_width = std::max(amount_width, Len(line.importe));
    }
    for (const LineaExplicacion& line : lines) {
      const std::string amount = std::string(amount_width - Len(line.importe), ' ') + line.importe;
      console_.Out(RTrim("  " + Fit(line.concepto, concept_width) + "  " + amount + "  " + line.detalle) + "\n");
    }
  }

 private:
  Console& console_;
  const ParametrosIRPF& parameters_;
  const CondicionesIRPF& conditions_;
  bool first_ = true;
};

std::unique_ptr<RatePrinter> MakePrinter(const RateOptions& options, const ParametrosIRPF& parameters,
                                         const CondicionesIRPF& conditions, Console& console) {
  switch (options.format) {
    case RateFormat::kCsv:
      return std::make_unique<CsvPrinter>(console, options.explain);
    case RateFormat::kJson:
      return std::make_unique<JsonPrinter>(console, options.explain);
    case RateFormat::kText:
      break;
  }
  if (options.explain) return std::make_unique<ExplainPrinter>(console, parameters, conditions);
  return std::make_unique<TablePrinter>(console);
}

// As the window with the steps does; a file that is there stays.
void KeepSteps(const Rated& rated, const RateOptions& options, const ParametrosIRPF& parameters,
               const CondicionesIRPF& conditions, Console& console) {
  console.Doing("writing " + options.pdf);
  const CairoWriter writer;
  const print::Heading heading = {{{"Código:", options.company.company}, {"Año:", options.company.year}},
                                  "Tipo de IRPF",
                                  Trim(rated.worker + " " + rated.name),
                                  writer.Now()};
  std::vector<BoxDetail> rows;
  for (const LineaExplicacion& line : ExplicaTipoIRPF(rated.steps, rated.inputs, parameters, conditions)) {
    rows.push_back({line.concepto, line.importe, line.detalle});
  }
  writer.WritePdf(print::DetailDocument(heading, {}, rows, writer.Measure()), options.pdf,
                  print::DocumentWriter::Existing::kKeep);
}

// Surnames, then the given name, as the lists of workers show them.
std::string WorkerName(Recordset& workers) {
  std::string name;
  for (const int column : {1, 2, 3}) {
    const Value part = workers.Fields(column).Get();
    if (!part.IsText() || Trim(part.Text()).empty()) continue;
    if (!name.empty()) name += ' ';
    name += Trim(part.Text());
  }
  return name;
}

}  // namespace

int Rate(const RateOptions& options, Console& console) {
  const CompanyData data(options.company);
  const std::shared_ptr<Database> official = data.Open(FileKind::kOfficial, console);
  console.Doing("reading table IRPF of " + official->Name());
  const std::shared_ptr<Recordset> irpf = official->OpenRecordset("IRPF", RecordsetType::kTable);
  irpf->SetIndex("Icampo0");
  const ParametrosIRPF parameters = LeeParametrosIRPF(*irpf);

  const std::shared_ptr<Database> company = data.Open(FileKind::kCompany, console);
  console.Doing("reading table TrabajadoresFijo of " + company->Name());
  const std::shared_ptr<Recordset> workers = company->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
  workers->SetIndex("Icampo0");
  if (!options.worker.empty()) {
    workers->Seek({options.worker});
    if (workers->NoMatch()) throw CommandError("there is no worker " + options.worker + " in " + company->Name());
  }

  const CondicionesIRPF conditions{.ano = options.company.year, .pesetas = options.currency == "P"};
  const std::int64_t all = options.worker.empty() ? workers->RecordCount() : 1;
  const std::unique_ptr<RatePrinter> printer = MakePrinter(options, parameters, conditions, console);
  bool failed = false;
  printer->Begin();
  for (std::int64_t done = 0; !workers->Eof() && done < all; ++done) {
    Rated rated;
    rated.worker = CStr(workers->Fields(0).Get());
    try {
      if (options.format == RateFormat::kText || !options.pdf.empty()) rated.name = WorkerName(*workers);
      rated.inputs = LeeDatosRegistro(*workers, options.company.year);
      rated.steps = CalculaTipoIRPF(rated.inputs, parameters, conditions);
      printer->Worker(rated);
    } catch (const RuntimeError& error) {
      console.Error("worker " + rated.worker + ": " + error.what());
      failed = true;
    }
    if (!options.pdf.empty() && !failed) KeepSteps(rated, options, parameters, conditions, console);
    console.Progress("workers rated", done + 1, all);
    if (options.worker.empty()) workers->MoveNext();
  }
  printer->End();
  return failed ? 1 : 0;
}

}  // namespace zendara
