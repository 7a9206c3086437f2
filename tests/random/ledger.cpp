#include "random/ledger.hpp"

#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/text.hpp"

namespace zendara {
namespace {

struct WatchedTable {
  std::string_view name;
  std::string_view key;
};
constexpr std::string_view kDay = "Campo0 || ' ' || Campo3";
constexpr WatchedTable kCompany[] = {{"TrabajadoresFijo", "Campo0"},
                                     {"TrabajadoresVar", "Campo0 || '/' || Campo1"},
                                     {"TincidenciasIT", kDay},
                                     {"TincidenciasESP", kDay}};
constexpr WatchedTable kYear[] = {{"ConTrabajadorConceptos", "Campo1 || '/' || Campo2"},
                                  {"ConTrabajadorPagas", "Campo1 || '/' || Campo2"},
                                  {"TIncidenciasVar", "Campo0 || ' ' || Campo1 || ' ' || Campo3 || ' ' || Campo4"}};
struct WatchedFile {
  std::string name;  // in the statements
  std::string file;
  std::span<const WatchedTable> tables;
};
const WatchedFile kFiles[] = {{"company", "Nom00001.MDB", kCompany},
                              {"y00", "N0000100.MDB", kYear},
                              {"y01", "N0000101.MDB", kYear},
                              {"y02", "N0000102.MDB", kYear}};

}  // namespace

Ledger::Ledger(const std::filesystem::path& folder) {
  sqlite3* connection = nullptr;
  sqlite3_open(":memory:", &connection);
  connection_.reset(connection);
  for (const WatchedFile& file : kFiles) {
    Read("ATTACH '" + (folder / "DATOS" / file.file).string() + "' AS " + file.name);
  }
  Changed();
}

Ledger::Rows Ledger::Read(const std::string& sql) const {
  Rows rows;
  const auto add = [](void* to, int columns, char** texts, char**) {
    std::string& row = (*static_cast<Rows*>(to))[LCase(texts[0])];
    for (int i = 1; i < columns; ++i) row.append(texts[i] ? texts[i] : "").append("|");
    return 0;
  };
  if (sqlite3_exec(connection_.get(), sql.c_str(), add, &rows, nullptr) == SQLITE_OK) return rows;
  throw std::runtime_error(sql + ": " + sqlite3_errmsg(connection_.get()));
}

bool Ledger::Has(const std::string& key) const {
  return rows_.at("company.TrabajadoresFijo").contains(key) || rows_.at("company.TrabajadoresVar").contains(key);
}

std::vector<Ledger::Change> Ledger::Changed() {
  std::vector<Change> changed;
  for (const WatchedFile& file : kFiles) {
    const Rows version = Read("PRAGMA " + file.name + ".data_version");
    if (version == std::exchange(versions_[file.name], version)) continue;
    for (const auto& [table, key] : file.tables) {
      const std::string place = file.name + "." + std::string(table);
      const Rows now = Read("SELECT " + std::string(key) + ", * FROM " + place);
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
