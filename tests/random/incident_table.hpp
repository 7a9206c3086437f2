// The screens of incidents and the tables behind them.
#pragma once

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

namespace zendara {

inline constexpr int kDatedKey[] = {0, 3};
inline constexpr int kVariableKey[] = {0, 1, 3, 4};
enum DatedColumn { kDatedWorker, kDatedName, kDatedType, kDatedStart, kDatedEnd };

struct IncidentTable {
  std::string_view screen;
  std::string_view name;
  std::string_view other;  // whose rows count for the rule; empty: there is none
  std::string_view index;
  std::span<const int> key;
  int columns;
  bool dated() const { return !other.empty(); }
};
inline constexpr IncidentTable kIncidentTables[] = {
    {"MIncidencias", "TincidenciasIT", "TincidenciasESP", "ICampo0_3", kDatedKey, 5},
    {"MIncidenciasESP", "TincidenciasESP", "TincidenciasIT", "ICampo0_3", kDatedKey, 5},
    {"MIncidenciasVAR", "TIncidenciasVar", "", "ICampo0_1_3_4", kVariableKey, 8},
};

// nullptr: the form is no screen of incidents.
inline const IncidentTable* IncidentTableOf(std::string_view form) {
  const auto* table = std::ranges::find(kIncidentTables, form, &IncidentTable::screen);
  return table == std::end(kIncidentTables) ? nullptr : table;
}

// Of the ledger's tables.
inline bool IsIncidents(std::string_view place) {
  return std::ranges::any_of(kIncidentTables, [&](const IncidentTable& t) { return place.ends_with(t.name); });
}

}  // namespace zendara
