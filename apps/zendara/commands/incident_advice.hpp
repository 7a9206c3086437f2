// What is probably wrong with the incidents of workers.
//
//   worker 00001: Enfermedad (TincidenciasIT) since 2001-01-08 is outside every situación
//   worker 00001, situación 002: concepto 004 H. extra (TIncidenciasVar) 2001-03 is not in ConTrabajadorConceptos
//
// Of what has the same cause a row is told once: one that runs backwards or whose worker is gone has no further advice.
// Rows with a text in the place of a date are faults of the table, and take part in nothing that needs their dates.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "apps/zendara/commands/advice_tables.hpp"
#include "apps/zendara/commands/data_advice.hpp"

namespace zendara {

// Whom incidents may belong to: nothing where the table cannot be read.
struct Staff {
  std::optional<Keys> workers;
  std::optional<std::span<const Situation>> situations;
};

// TincidenciasIT and TincidenciasESP: what overlaps, is open twice, runs backwards, is outside every situación of the
// worker or has no worker.
void AdviseOnDatedIncidents(const Tables& tables, const Staff& staff, std::vector<Advice>& advice);

// TIncidenciasVar: what has no worker, no situación or no concept.
class VariableIncidents {
 public:
  // Reads them; none where they cannot be read.
  explicit VariableIncidents(const Tables& tables);

  // `concept_row`: month, worker, situación and concept of a row of ConTrabajadorConceptos.
  void Found(Texts concept_row);
  // After all rows of ConTrabajadorConceptos, if `all_concepts`. `year`: in full, for the advice.
  void Advise(const Staff& staff, bool all_concepts, int year, std::vector<Advice>& advice) const;

 private:
  enum Column { kMonth, kWorker, kSituation, kConcept, kDescription, kColumns };
  using Row = std::array<std::string, kColumns>;

  std::vector<Row> rows_;
  Keys missing_;  // concepts of the rows, of which no row of ConTrabajadorConceptos was found so far
};

}  // namespace zendara
