#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/zendara/commands/company_data.hpp"
#include "apps/zendara/commands/data_advice.hpp"
#include "apps/zendara/commands/stored_row.hpp"
#include "frame/parametros.hpp"
#include "platform/record/names.hpp"
#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// Codes that the screens pad with zeros: a shorter one is another code, which no screen finds.
struct CodeColumns {
  std::string_view table;
  std::vector<std::size_t> columns;
};
const CodeColumns kCodeTables[] = {
    {"TrabajadoresFijo", {0}},
    {"TrabajadoresVar", {0, 1}},
    {"TincidenciasIT", {0}},
    {"TincidenciasESP", {0}},
    {"TIncidenciasVar", {0, 1, 3, 4}},
    {"ConTrabajadorConceptos", {0, 1, 2, 3}},
    {"ConTrabajadorPagas", {0, 1, 2}},
    {"Historico", {2}},
    {"FPago", {0}},
    {"Secciones", {0}},
    {"Centros", {0}},
    {"Epigrafes", {0}},
    {"Calles", {0}},
    {"EmpresasNom", {0}},
    {"Contratos", {0}},
};

// Which columns of the table are such codes.
std::vector<bool> CodesOf(const TableDef& table) {
  std::vector<bool> codes(table.columns.size());
  for (const CodeColumns& coded : kCodeTables) {
    if (!SameName(coded.table, table.name)) continue;
    for (const std::size_t column : coded.columns) {
      if (column < codes.size()) codes[column] = true;
    }
  }
  return codes;
}

std::string CodeFault(const Value& code, int width) {
  if (!code.IsText()) return {};
  const std::size_t length = Len(Trim(code.Text()));
  if (length == static_cast<std::size_t>(width)) return {};
  return InQuotes(code.Text()) + " has " + std::to_string(length) + " characters, not " + std::to_string(width);
}

std::string TypeName(const ColumnDef& column) {
  switch (column.type) {
    case ColumnType::kText:
      return "text " + std::to_string(column.width);
    case ColumnType::kNumber:
      return "number";
    case ColumnType::kDate:
      return "date";
  }
  return {};
}

std::string IndexText(const IndexDef& index) {
  std::string text = index.primary ? "primary key on" : "index on";
  for (const int column : index.columns) text += " " + std::to_string(column);
  return text;
}

// Where the findings go.
class CheckReport {
 public:
  virtual ~CheckReport() = default;
  virtual void Fault(const std::string& place, const std::string& what) = 0;
  virtual void Advise(const std::vector<Advice>& advice) = 0;
};

class TextReport : public CheckReport {
 public:
  explicit TextReport(Console& console) : console_(console) {}

  void Fault(const std::string& place, const std::string& what) override { console_.Out(place + ": " + what + "\n"); }
  void Advise(const std::vector<Advice>& advice) override {
    for (const Advice& one : advice) console_.Out("advice: " + OneLine(one) + "\n");
    if (advice.empty()) return;
    console_.Out(advice.size() == 1 ? "1 piece of advice\n" : std::to_string(advice.size()) + " pieces of advice\n");
  }

 private:
  Console& console_;
};

class JsonReport : public CheckReport {
 public:
  explicit JsonReport(Console& console) : console_(console) {}

  void Fault(const std::string& place, const std::string& what) override {
    document_["faults"].push_back({{"place", place}, {"text", what}});
  }
  void Advise(const std::vector<Advice>& advice) override {
    for (const Advice& one : advice) {
      document_["advice"].push_back({{"worker", one.worker},
                                     {"situacion", one.situation},
                                     {"field", one.field},
                                     {"value", one.value},
                                     {"text", one.text}});
    }
    console_.Out(document_.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n");
  }

 private:
  Console& console_;
  nlohmann::ordered_json document_ = {{"faults", nlohmann::ordered_json::array()},
                                      {"advice", nlohmann::ordered_json::array()}};
};

class Check {
 public:
  Check(CheckReport& report, Console& console) : report_(report), console_(console) {}

  void File(const CompanyData& data, const StoredFile& stored);
  void Parameters(const CompanyData& data, const ParameterFile& file);

  int faults() const { return faults_; }

 private:
  void Table(const std::string& place, const TableDef& stored, const TableDef& wanted);
  void Rows(const std::string& place, Database& database, const TableDef& table);
  void Fault(const std::string& place, const std::string& what) {
    report_.Fault(place, what);
    ++faults_;
  }

  CheckReport& report_;
  Console& console_;
  int faults_ = 0;
};

void Check::File(const CompanyData& data, const StoredFile& stored) {
  const std::string name = data.FileName(stored.kind);
  if (!data.Has(name)) return Fault(name, "missing file");
  try {
    const std::shared_ptr<Database> database = data.Open(stored.kind, console_);
    for (const std::string& fault : database->CheckIntegrity()) Fault(name, fault);
    const std::vector<TableDef> tables = database->Tables();
    for (const TableDef& wanted : stored.tables) {
      const std::string place = name + ": " + wanted.name;
      const auto found = std::ranges::find_if(tables, [&](const TableDef& t) { return SameName(t.name, wanted.name); });
      if (found == tables.end()) {
        Fault(place, "missing table");
        continue;
      }
      Table(place, *found, wanted);
      Rows(place, *database, *found);
    }
  } catch (const RuntimeError& error) {
    Fault(name, OneLine(error));
  }
}

void Check::Table(const std::string& place, const TableDef& stored, const TableDef& wanted) {
  for (std::size_t i = 0; i < wanted.columns.size(); ++i) {
    const ColumnDef& column = wanted.columns[i];
    if (i >= stored.columns.size()) {
      Fault(place, "missing column " + column.name);
    } else if (!SameName(stored.columns[i].name, column.name)) {
      Fault(place, "column " + std::to_string(i) + " is " + stored.columns[i].name + ", not " + column.name);
    } else if (stored.columns[i].type != column.type || stored.columns[i].width != column.width) {
      Fault(place, column.name + " is " + TypeName(stored.columns[i]) + ", not " + TypeName(column));
    }
  }
  for (const IndexDef& index : wanted.indexes) {
    const int ordinal = stored.IndexOrdinal(index.name);
    if (ordinal < 0) {
      Fault(place, "missing index " + index.name);
      continue;
    }
    const IndexDef& found = stored.indexes[static_cast<std::size_t>(ordinal)];
    if (found.columns != index.columns || found.primary != index.primary) {
      Fault(place, index.name + " is " + IndexText(found) + ", not " + IndexText(index));
    }
  }
}

void Check::Rows(const std::string& place, Database& database, const TableDef& table) {
  console_.Doing("reading " + place);
  const std::vector<bool> codes = CodesOf(table);
  const std::shared_ptr<Recordset> rows = database.OpenRecordset(table.name, RecordsetType::kTable);
  for (std::int64_t number = 1; !rows->Eof(); rows->MoveNext(), ++number) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const ColumnDef& column = table.columns[i];
      const StoredCell cell = ReadCell(*rows, static_cast<int>(i));
      std::string fault = cell.fault;
      if (fault.empty() && codes[i]) fault = CodeFault(cell.value, column.width);
      if (fault.empty()) continue;
      Fault(place, NameOfRow(*rows, table, number) + ": " + column.name + ": " + fault);
    }
    console_.Progress(place, number);
  }
}

void Check::Parameters(const CompanyData& data, const ParameterFile& file) {
  const std::string name(file.name);
  if (!data.Has(name)) return Fault(name, "missing file");
  try {
    const std::size_t length = data.Read(name, console_).size();
    if (length != file.length) {
      Fault(name, std::to_string(length) + " bytes, not " + std::to_string(file.length));
    }
  } catch (const RuntimeError& error) {
    Fault(name, error.number() == kCannotOpenFile ? error.detail() : OneLine(error));
  }
}

}  // namespace

int DataCheck(const CheckOptions& options, Console& console) {
  const CompanyData data(options.company);
  std::unique_ptr<CheckReport> report = std::make_unique<TextReport>(console);
  if (options.json) report = std::make_unique<JsonReport>(console);
  Check check(*report, console);
  for (const StoredFile& file : StoredFiles()) check.File(data, file);
  for (const ParameterFile& file : kParameterFiles) check.Parameters(data, file);
  report->Advise(ReadAdvice(data, console, check.faults() == 0));
  return check.faults() == 0 ? 0 : 1;
}

}  // namespace zendara
