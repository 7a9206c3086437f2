#include "apps/zendara/commands/data_advice.hpp"

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <tuple>
#include <utility>

#include "apps/zendara/commands/advice_tables.hpp"
#include "apps/zendara/commands/incident_advice.hpp"
#include "apps/zendara/commands/stored_row.hpp"
#include "runtime/date.hpp"
#include "runtime/iso_date.hpp"
#include "values/comprobar_cuenta.hpp"
#include "values/identificaciones.hpp"
#include "workers/campos_trabajador.hpp"
#include "workers/reglas_trabajador.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;

// A table that says what codes mean, with the columns of its key. What one of its files has is known.
struct CodeTable {
  std::string_view name;
  std::vector<FileKind> files;
  std::vector<int> key;
};
const CodeTable kStreetTypes = {"Calles", {FileKind::kEmpresa, FileKind::kEmpresas}, {0}};
const CodeTable kPaymentForms = {"FPago", {FileKind::kCompany}, {0}};
const CodeTable kAgreements = {"ConEmpresaConceptos", {FileKind::kCompany}, {0, 2}};
const CodeTable kEpigraphs = {"Epigrafes", {FileKind::kEmpresa, FileKind::kEmpresas}, {0}};
const CodeTable kContracts = {"Contratos", {FileKind::kOfficial}, {0, 1}};
const CodeTable kCentres = {"Centros", {FileKind::kYear}, {0}};
const CodeTable kSections = {"Secciones", {FileKind::kCompany}, {0}};

// A code behind those that it depends on: the key of its table or the beginning of it.
struct CodeRule {
  std::string_view field;
  std::vector<CampoTrabajador> key;
  const CodeTable* table;
};
const CodeRule kCodeRules[] = {
    {"siglas", {kSiglas}, &kStreetTypes},
    {"forma de pago", {kFormaPago}, &kPaymentForms},
    {"convenio", {kConvenio}, &kAgreements},
    {"categoría", {kConvenio, kCategoria}, &kAgreements},
    {"epígrafe", {kEpigrafe}, &kEpigraphs},
    {"contrato", {kNumeroContrato}, &kContracts},
    {"tipo de contrato", {kNumeroContrato, kTipo1}, &kContracts},
    {"tipo de contrato", {kNumeroContrato, kTipo2}, &kContracts},
    {"tipo de contrato", {kNumeroContrato, kTipo3}, &kContracts},
    {"centro", {kCentro}, &kCentres},
    {"sección", {kSeccion}, &kSections},
};

// Fields that have to agree, unless the shown ones are all empty.
struct ValueRule {
  std::string_view field;
  std::vector<CampoTrabajador> fields;
  std::size_t first_shown;
  bool (*agree)(Texts values);
  std::string_view otherwise;
};
const ValueRule kValueRules[] = {
    {"identificación",
     {kTipoIdentificacion, kIdentificacion},
     1,
     [](Texts v) { return (v[0] != "1" && v[0] != "6") || LetraCorrecta(v[1]); },
     "has not the letter of its number"},
    {"afiliación",
     {kProvinciaSS, kAfiliacion, kControlSS},
     0,
     [](Texts v) { return !v[2].empty() && v[2] == ControlAfiliacion(v[0], v[1]); },
     "has not the control digits of its number"},
    {"N.I.F. del cónyuge",
     {kNifConyuge},
     0,
     [](Texts v) { return LetraCorrecta(v[0]); },
     "has not the letter of its number"},
    {"cuenta",
     {kEntidad, kOficina, kControlCuenta, kCuenta},
     0,
     [](Texts v) { return v[2] == ControlCuenta(v[0], v[1], v[3]); },
     "has not the control digits of its number"},
    {"grupo de tarifa",
     {kGrupoTarifa},
     0,
     [](Texts v) { return !TextoGrupoTarifa(v[0]).empty(); },
     "is none of the tariff groups"},
};

std::vector<std::string> TextsAt(Recordset& row, const Tramo& columns, std::span<const CampoTrabajador> fields) {
  std::vector<std::string> texts;
  for (const CampoTrabajador field : fields) texts.push_back(TextAt(row, columns.ColumnaDe(field)));
  return texts;
}
std::optional<Date> DateAt(Recordset& row, CampoTrabajador field) {
  const Value value = ReadCell(row, kTramoVar.ColumnaDe(field)).value;
  return value.IsDate() ? std::optional(value.AsDate()) : std::nullopt;
}

// The keys of a table and their beginnings; nothing when it cannot be read.
std::optional<Keys> ReadCodes(const Tables& tables, const CodeTable& table) {
  Keys keys;
  for (const FileKind file : table.files) {
    const bool read = tables.Read(file, table.name, [&](Recordset& row) {
      std::vector<std::string> key;
      for (const int column : table.key) {
        key.push_back(TextAt(row, column));
        keys.insert(KeyOf(key));
      }
    });
    if (!read) return std::nullopt;
  }
  return keys;
}

bool IsMissing(Texts key, const Keys& known) {
  if (key.back().empty() || known.contains(KeyOf(key))) return false;
  // Below an unknown code every other one is unknown; that one has advice of its own.
  const Texts above = key.first(key.size() - 1);
  return above.empty() || !IsMissing(above, known);
}

// The rules for single rows.
class Fields {
 public:
  explicit Fields(const Tables& tables) {
    for (const CodeRule& rule : kCodeRules) {
      if (!codes_.contains(rule.table)) codes_.emplace(rule.table, ReadCodes(tables, *rule.table));
    }
  }

  void Advise(Recordset& row, const Tramo& columns, const std::string& worker, const std::string& situation,
              std::vector<Advice>& advice) const {
    for (const CodeRule& rule : kCodeRules) {
      const std::optional<Keys>& known = codes_.at(rule.table);
      if (!known || !Holds(columns, rule.key.front())) continue;
      const std::vector<std::string> key = TextsAt(row, columns, rule.key);
      if (!IsMissing(key, *known)) continue;
      advice.push_back(
          {worker, situation, std::string(rule.field), Joined(key), "is not in " + std::string(rule.table->name)});
    }
    for (const ValueRule& rule : kValueRules) {
      if (!Holds(columns, rule.fields.front())) continue;
      const std::vector<std::string> values = TextsAt(row, columns, rule.fields);
      const std::string shown = Joined(Texts(values).subspan(rule.first_shown));
      if (shown.empty() || rule.agree(values)) continue;
      advice.push_back({worker, situation, std::string(rule.field), shown, std::string(rule.otherwise)});
    }
  }

 private:
  static bool Holds(const Tramo& columns, IndiceCampo field) {
    return field >= columns.desde && field <= columns.hasta;
  }

  std::map<const CodeTable*, std::optional<Keys>> codes_;
};

Keys KeysOf(Texts codes) {
  Keys keys;
  for (const std::string& code : codes) keys.insert(KeyOf(code));
  return keys;
}

// `known`: the keys of the workers.
void AdviseOnOrphans(Texts workers, const Keys& known, std::span<const Situation> situations,
                     std::vector<Advice>& advice) {
  Keys with_situation;
  for (const Situation& s : situations) {
    with_situation.insert(KeyOf(s.worker));
    if (!known.contains(KeyOf(s.worker))) advice.push_back({s.worker, s.number, "", "", "there is no such worker"});
  }
  for (const std::string& worker : workers) {
    if (!with_situation.contains(KeyOf(worker))) advice.push_back({worker, "", "", "", "has no situación"});
  }
}

// The situaciones of one worker.
void AdviseOnIntervals(std::vector<Situation> situations, std::vector<Advice>& advice) {
  std::erase_if(situations, [&](const Situation& s) {
    const bool backwards = s.start && s.end && *s.end < *s.start;
    if (backwards) {
      advice.push_back(
          {s.worker, s.number, "fecha fin", IsoDate(*s.end), "is before fecha inicio " + IsoDate(*s.start)});
    }
    return backwards || !s.start;
  });
  std::ranges::stable_sort(situations, {}, &Situation::start);
  const Situation* longest = nullptr;  // ends last of those before
  for (const Situation& s : situations) {
    if (longest && (!longest->end || *longest->end >= *s.start)) {
      advice.push_back(
          {s.worker, s.number, "fecha inicio", IsoDate(*s.start), "is within situación " + longest->number});
    }
    if (!longest || !s.end || (longest->end && *longest->end < *s.end)) longest = &s;
  }
}

void AdviseOnEachWorkersIntervals(std::span<const Situation> situations, std::vector<Advice>& advice) {
  for (std::size_t first = 0, next = 0; first < situations.size(); first = next) {
    while (next < situations.size() && situations[next].worker == situations[first].worker) ++next;
    AdviseOnIntervals({situations.begin() + static_cast<std::ptrdiff_t>(first),
                       situations.begin() + static_cast<std::ptrdiff_t>(next)},
                      advice);
  }
}

// `paid`: the keys of the situaciones that have concepts in the year.
void AdviseOnConcepts(std::span<const Situation> situations, const Keys& paid, int year, std::vector<Advice>& advice) {
  const Date first = MakeDate(year, 1, 1).value();
  const Date last = MakeDate(year, 12, 31).value();
  for (const Situation& s : situations) {
    const bool in_year = s.start && *s.start <= last && (!s.end || (*s.end >= first && *s.end >= *s.start));
    if (!in_year || paid.contains(KeyOf(std::vector{s.worker, s.number}))) continue;
    advice.push_back({s.worker, s.number, "", "", "has no concepts in " + std::to_string(year)});
  }
}

}  // namespace

std::string OneLine(const Advice& advice) {
  std::string line = "worker " + advice.worker;
  if (!advice.situation.empty()) line += ", situación " + advice.situation;
  return line + ": " + Joined(std::vector{advice.field, advice.value, advice.text});
}

std::vector<Advice> ReadAdvice(const CompanyData& data, Console& console, bool sound) {
  const Tables tables(data, console, sound);
  const Fields fields(tables);
  std::vector<Advice> advice;

  std::vector<std::string> workers;
  const bool all_workers = tables.Read(FileKind::kCompany, "TrabajadoresFijo", [&](Recordset& row) {
    workers.push_back(TextAt(row, 0));
    fields.Advise(row, kTramoFijo, workers.back(), "", advice);
  });

  std::vector<Situation> situations;
  const bool all_situations = tables.Read(FileKind::kCompany, "TrabajadoresVar", [&](Recordset& row) {
    situations.push_back({TextAt(row, 0), TextAt(row, kTramoVar.ColumnaDe(kSituacion)), DateAt(row, kFechaInicio),
                          DateAt(row, kFechaFin)});
    fields.Advise(row, kTramoVar, situations.back().worker, situations.back().number, advice);
  });
  AdviseOnEachWorkersIntervals(situations, advice);
  Staff staff;
  if (all_workers) staff.workers = KeysOf(workers);
  if (all_situations) staff.situations = situations;
  if (staff.workers && staff.situations) AdviseOnOrphans(workers, *staff.workers, situations, advice);
  AdviseOnDatedIncidents(tables, staff, advice);

  VariableIncidents variable(tables);
  Keys paid;
  std::vector<std::string> before;  // month, worker, situación and concept; most rows repeat worker and situación
  const bool all_concepts = tables.Read(FileKind::kYear, "ConTrabajadorConceptos", [&](Recordset& row) {
    std::vector<std::string> this_one = {TextAt(row, 0), TextAt(row, 1), TextAt(row, 2), TextAt(row, 3)};
    variable.Found(this_one);
    const auto situation = [](Texts key) { return key.subspan(1, 2); };
    if (before.empty() || !std::ranges::equal(situation(this_one), situation(before))) {
      paid.insert(KeyOf(situation(this_one)));
    }
    before = std::move(this_one);
  });
  const int year = FullWorkingYear(std::stoi(data.year()));
  if (all_concepts) AdviseOnConcepts(situations, paid, year, advice);
  variable.Advise(staff, all_concepts, year, advice);

  std::ranges::stable_sort(advice, {}, [](const Advice& one) { return std::tie(one.worker, one.situation); });
  return advice;
}

}  // namespace zendara
