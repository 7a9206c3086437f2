#include "random/ledger.hpp"

#include <array>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>

#include "runtime/iso_date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

struct WatchedTable {
  std::string_view name;
  std::vector<int> key;
  char between;  // the columns of the key
};
const WatchedTable kCompany[] = {{"TrabajadoresFijo", {0}, ' '},
                                 {"TrabajadoresVar", {0, 1}, '/'},
                                 {"TincidenciasIT", {0, 3}, ' '},
                                 {"TincidenciasESP", {0, 3}, ' '}};
const WatchedTable kYear[] = {{"ConTrabajadorConceptos", {1, 2}, '/'},
                              {"ConTrabajadorPagas", {1, 2}, '/'},
                              {"TIncidenciasVar", {0, 1, 3, 4}, ' '}};
struct WatchedFile {
  std::string name;  // in the places of tables
  std::string file;
  std::span<const WatchedTable> tables;
};
const WatchedFile kFiles[] = {{"company", "Nom00001.MDB", kCompany},
                              {"y00", "N0000100.MDB", kYear},
                              {"y01", "N0000101.MDB", kYear},
                              {"y02", "N0000102.MDB", kYear}};

std::string TextOf(const Value& value) {
  if (value.IsNull()) return {};
  return value.IsDate() ? IsoDate(value.AsDate()) : CStr(value);
}

Ledger::Rows Read(Database& file, const WatchedTable& table) {
  Ledger::Rows rows;
  const auto rs = file.OpenRecordset(table.name, RecordsetType::kForward);
  for (; !rs->Eof(); rs->MoveNext()) {
    std::string key;
    for (const int column : table.key) {
      if (column != table.key.front()) key += table.between;
      key += TextOf(rs->Fields(column).Get());
    }
    std::string& row = rows[LCase(key)];
    for (int column = 0; column < static_cast<int>(rs->Columns().size()); ++column) {
      row += TextOf(rs->Fields(column).Get()) + "|";
    }
  }
  return rows;
}

}  // namespace

Ledger::Ledger(const std::string& place) {
  Store store = OpenStore(place);
  engine_ = std::move(store.engine);
  std::vector<std::string> paths;
  for (const WatchedFile& file : kFiles) {
    paths.push_back(store.folder + "/DATOS/" + file.file);
    files_.push_back(engine_->Workspaces(0)->OpenDatabase(paths.back()));
  }
  pulse_ = MakePulse(place, paths);
  beats_.resize(files_.size());
  Changed();
}

bool Ledger::Has(const std::string& key) const {
  return rows_.at("company.TrabajadoresFijo").contains(key) || rows_.at("company.TrabajadoresVar").contains(key);
}

std::vector<Ledger::Change> Ledger::Changed() {
  std::vector<Change> changed;
  const std::vector<std::string> beats = pulse_->Beats();
  engine_->Idle(1);
  for (std::size_t i = 0; i < files_.size(); ++i) {
    if (beats[i] == std::exchange(beats_[i], beats[i])) continue;
    for (const WatchedTable& table : kFiles[i].tables) {
      const std::string place = kFiles[i].name + "." + std::string(table.name);
      const Rows now = Read(*files_[i], table);
      const Rows before = std::exchange(rows_[place], now);
      Rows keys = before;
      keys.insert(now.begin(), now.end());
      for (const auto& [who, rows] : keys) {
        const auto was = before.find(who);
        const auto is = now.find(who);
        if (was == before.end() || is == now.end() || was->second != is->second) changed.push_back({place, who});
      }
    }
  }
  return changed;
}

}  // namespace zendara
