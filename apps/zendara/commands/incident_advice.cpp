#include "apps/zendara/commands/incident_advice.hpp"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "apps/zendara/commands/stored_row.hpp"
#include "incidents/tabla_incidencias.hpp"
#include "runtime/iso_date.hpp"

namespace zendara {
namespace {

struct IncidentTable {
  std::string_view name;
  TablaIncidencias types;
};
constexpr IncidentTable kDatedTables[] = {{"TincidenciasIT", TablaIncidencias::kIT},
                                          {"TincidenciasESP", TablaIncidencias::kESP}};

struct Incident {
  std::string worker;
  const IncidentTable* table;
  std::string type;
  std::optional<Date> start;
  std::optional<Date> end;
  bool open = false;  // no end is stored

  bool HasDates() const { return start && (end || open); }
  bool EndsBefore(Date date) const { return !open && *end < date; }
};

std::string NameOf(const Incident& incident) {
  std::string type(TextoTipo(incident.table->types, incident.type));
  if (type.empty()) type = incident.type.empty() ? "sin tipo" : "tipo " + incident.type;
  return type + " (" + std::string(incident.table->name) + ")";
}

std::string DatesOf(const Incident& incident) {
  const auto text = [](const std::optional<Date>& date) { return date ? IsoDate(*date) : "?"; };
  return incident.open ? "since " + text(incident.start) : text(incident.start) + " to " + text(incident.end);
}

Advice AdviceOn(const Incident& incident, std::string text) {
  return {incident.worker, "", NameOf(incident), DatesOf(incident), std::move(text)};
}

Incident ReadIncident(Recordset& row, const IncidentTable& table) {
  const auto date = [](const Value& value) { return value.IsDate() ? std::optional(value.AsDate()) : std::nullopt; };
  const Value end = ReadCell(row, 4).value;
  return {TextAt(row, 0), &table, TextAt(row, 2), date(ReadCell(row, 3).value), date(end), end.IsNull()};
}

// What is wrong with the dates of a situación is told of it: then it says nothing about incidents.
bool Meets(const Situation& situation, const Incident& incident) {
  if (!situation.start || (situation.end && *situation.end < *situation.start)) return true;
  return !incident.EndsBefore(*situation.start) && (!situation.end || *incident.start <= *situation.end);
}

// The incidents of one worker, by start. `situations`: his.
void AdviseOnWorker(std::span<const Incident> incidents, std::span<const Situation* const> situations,
                    std::vector<Advice>& advice) {
  const Incident* longest = nullptr;  // ends last of those before
  for (const Incident& incident : incidents) {
    if (incident.EndsBefore(*incident.start)) {
      advice.push_back(AdviceOn(incident, "ends before it starts"));
      continue;
    }
    if (longest && !longest->EndsBefore(*incident.start)) {
      const bool both_open = longest->open && incident.open;
      advice.push_back(AdviceOn(
          incident, (both_open ? "is open, and so is " : "overlaps ") + NameOf(*longest) + " " + DatesOf(*longest)));
    }
    if (!longest || (!longest->open && (incident.open || *longest->end < *incident.end))) longest = &incident;
    const auto meets = [&](const Situation* situation) { return Meets(*situation, incident); };
    if (!situations.empty() && std::ranges::none_of(situations, meets)) {
      advice.push_back(AdviceOn(incident, "is outside every situación"));
    }
  }
}

bool IsGone(const std::string& worker, const Staff& staff) {
  return staff.workers && !staff.workers->contains(KeyOf(worker));
}

}  // namespace

void AdviseOnDatedIncidents(const Tables& tables, const Staff& staff, std::vector<Advice>& advice) {
  std::vector<Incident> incidents;
  for (const IncidentTable& table : kDatedTables) {
    tables.Read(FileKind::kCompany, table.name, [&](Recordset& row) {
      Incident incident = ReadIncident(row, table);
      if (IsGone(incident.worker, staff)) {
        advice.push_back(AdviceOn(incident, "has no worker in TrabajadoresFijo"));
      } else if (incident.HasDates()) {
        incidents.push_back(std::move(incident));
      }
    });
  }
  std::ranges::sort(incidents, {}, [](const Incident& one) { return std::tie(one.worker, one.start, one.table); });

  std::unordered_map<std::string, std::vector<const Situation*>> situations;
  if (staff.situations) {
    for (const Situation& situation : *staff.situations) situations[KeyOf(situation.worker)].push_back(&situation);
  }
  for (auto first = incidents.begin(); first != incidents.end();) {
    const auto next =
        std::find_if(first, incidents.end(), [&](const Incident& i) { return i.worker != first->worker; });
    AdviseOnWorker({first, next}, situations[KeyOf(first->worker)], advice);
    first = next;
  }
}

VariableIncidents::VariableIncidents(const Tables& tables) {
  tables.Read(FileKind::kYear, "TIncidenciasVar", [&](Recordset& stored) {
    const Row& row = rows_.emplace_back(
        Row{TextAt(stored, 0), TextAt(stored, 1), TextAt(stored, 3), TextAt(stored, 4), TextAt(stored, 5)});
    missing_.insert(KeyOf(Texts(row).first(kDescription)));
  });
}

void VariableIncidents::Found(Texts concept_row) {
  if (!missing_.empty()) missing_.erase(KeyOf(concept_row));
}

void VariableIncidents::Advise(const Staff& staff, bool all_concepts, int year, std::vector<Advice>& advice) const {
  Keys situations;
  if (staff.situations) {
    for (const Situation& s : *staff.situations) situations.insert(KeyOf(std::vector{s.worker, s.number}));
  }
  for (const Row& row : rows_) {
    std::string_view reason;
    if (IsGone(row[kWorker], staff)) {
      reason = "has no worker in TrabajadoresFijo";
    } else if (staff.situations && !situations.contains(KeyOf(Texts(row).subspan(kWorker, 2)))) {
      reason = "has no situación in TrabajadoresVar";
    } else if (all_concepts && missing_.contains(KeyOf(Texts(row).first(kDescription)))) {
      reason = "is not in ConTrabajadorConceptos";
    } else {
      continue;
    }
    const std::string name = Joined(std::vector<std::string>{"concepto", row[kConcept], row[kDescription]});
    advice.push_back({row[kWorker], row[kSituation], name + " (TIncidenciasVar)",
                      std::to_string(year) + "-" + row[kMonth], std::string(reason)});
  }
}

}  // namespace zendara
