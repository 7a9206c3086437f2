#include "adapters/postgres/catalogue.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <nlohmann/json.hpp>
#include <utility>

#include "adapters/postgres/failure.hpp"
#include "adapters/postgres/relation.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

constexpr int kVersion = 1;

// The collation orders what has no sort key as the keys do: Spanish, without regard to case.
constexpr const char* kCatalogue[] = {
    "CREATE COLLATION zendara_es (provider = icu, locale = 'es-u-ks-level2', deterministic = false)",
    "CREATE TABLE zendara_store (version integer NOT NULL, keys text NOT NULL)",
    "CREATE TABLE zendara_tables (number integer GENERATED ALWAYS AS IDENTITY PRIMARY KEY, "
    "definition text NOT NULL, shape text NOT NULL, relation text NOT NULL)",
    "CREATE UNIQUE INDEX zendara_tables_definition ON zendara_tables (md5(definition))",
    "CREATE TABLE zendara_files (zendara_file text COLLATE \"C\" PRIMARY KEY, name text NOT NULL, "
    "tables integer[] NOT NULL)",
    "CREATE TABLE zendara_queries (zendara_file text COLLATE \"C\", folded text COLLATE \"C\", "
    "name text NOT NULL, sql text NOT NULL, PRIMARY KEY (zendara_file, folded))",
    "CREATE TABLE zendara_beside (zendara_file text COLLATE \"C\" PRIMARY KEY, name text NOT NULL, "
    "bytes bytea NOT NULL)"};

// Where an installation separates its clients, this function puts a new relation under its rules.
constexpr std::string_view kProtect = "zendara_protect";

constexpr std::array<std::pair<ColumnType, const char*>, 3> kTypes = {
    {{ColumnType::kText, "text"}, {ColumnType::kNumber, "number"}, {ColumnType::kDate, "date"}}};

// The number of a definition, 0 if it is not there.
int FindDefinition(Link& link, const std::string& definition) {
  const Answer found =
      link.Run("SELECT number FROM zendara_tables WHERE md5(definition) = md5($1)", Parameters().Text(definition));
  return found.Rows() > 0 ? static_cast<int>(found.Integer(0, 0)) : 0;
}

bool HasCatalogue(Link& link) { return link.Run("SELECT to_regclass('zendara_store') IS NOT NULL").Integer(0, 0) != 0; }

void CreateCatalogue(Link& link, const std::string& keys) {
  for (const char* statement : kCatalogue) link.RunOnce(statement);
  link.RunOnce("INSERT INTO zendara_store VALUES (" + std::to_string(kVersion) + ", $1)", Parameters().Text(keys));
}

std::string FreeName(Link& link, const TableDef& table) {
  const std::string plain = PlainName(table);
  std::string name = plain;
  for (int i = 2;
       link.Run("SELECT to_regclass(quote_ident($1)) IS NOT NULL", Parameters().Text(name)).Integer(0, 0) != 0; ++i) {
    name = plain + "_" + std::to_string(i);
  }
  return name;
}

std::string EnsureRelation(Link& link, const TableDef& table) {
  const Answer known =
      link.Run("SELECT relation FROM zendara_tables WHERE shape = $1 LIMIT 1", Parameters().Text(ShapeOf(table)));
  if (known.Rows() > 0) return std::string(known.Bytes(0, 0));
  const Relation relation(table, FreeName(link, table));
  for (const std::string& statement : relation.Creation()) link.RunOnce(statement);
  const std::string protect(kProtect);
  if (link.Run("SELECT to_regproc('" + protect + "') IS NOT NULL").Integer(0, 0) != 0) {
    link.RunOnce("SELECT " + protect + "($1::regclass)", Parameters().Text(relation.name));
  }
  return relation.plain_name;
}

int AddDefinition(Link& link, const TableDef& table, const std::string& definition) {
  const std::string relation = EnsureRelation(link, table);
  const Answer added =
      link.Run("INSERT INTO zendara_tables (definition, shape, relation) VALUES ($1, $2, $3) RETURNING number",
               Parameters().Text(definition).Text(ShapeOf(table)).Text(relation));
  return static_cast<int>(added.Integer(0, 0));
}

}  // namespace

std::string NameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  if (separator != std::string_view::npos) path.remove_prefix(separator + 1);
  if (path.empty()) throw RuntimeError(kBadFileName);
  return std::string(path);
}

std::string FileOf(std::string_view path) { return UCase(NameOf(path)); }

std::string DefinitionText(const TableDef& table) {
  nlohmann::ordered_json columns = nlohmann::ordered_json::array();
  for (const ColumnDef& column : table.columns) {
    const auto* type = std::ranges::find(kTypes, column.type, &std::pair<ColumnType, const char*>::first);
    columns.push_back({column.name, type->second, column.width});
  }
  nlohmann::ordered_json indexes = nlohmann::ordered_json::array();
  for (const IndexDef& index : table.indexes) indexes.push_back({index.name, index.columns, index.primary});
  return nlohmann::ordered_json{{"name", table.name}, {"columns", columns}, {"indexes", indexes}}.dump();
}

TableDef ReadDefinition(std::string_view text) try {
  const auto json = nlohmann::ordered_json::parse(text);
  TableDef table;
  table.name = json.at("name");
  for (const auto& column : json.at("columns")) {
    const std::string type_name = column.at(1);
    const auto* type =
        std::ranges::find(kTypes, type_name, [](const auto& known) { return std::string(known.second); });
    if (type == kTypes.end()) throw RuntimeError(kDamagedFile, {table.name}, "a column of type " + type_name);
    table.columns.push_back({column.at(0), type->first, column.at(2)});
  }
  for (const auto& index : json.at("indexes")) table.indexes.push_back({index.at(0), index.at(1), index.at(2)});
  return table;
} catch (const nlohmann::json::exception& error) {
  throw RuntimeError(kDamagedFile, {"zendara_tables"}, error.what());
}

std::vector<int> EnsureTables(Link& link, const std::vector<TableDef>& tables, const std::string& keys) {
  std::vector<int> numbers;
  const auto number_all = [&](const std::function<int(const TableDef&, const std::string&)>& make) {
    numbers.clear();
    for (const TableDef& table : tables) {
      const std::string definition = DefinitionText(table);
      int number = FindDefinition(link, definition);
      if (number == 0) number = make(table, definition);
      if (number == 0) return false;
      numbers.push_back(number);
    }
    return true;
  };
  // Mostly all is there, and who may only write rows may not make anything.
  if (HasCatalogue(link) && number_all([](const TableDef&, const std::string&) { return 0; })) return numbers;
  link.Begin();
  try {
    // One at a time in a schema.
    link.Run("SELECT pg_advisory_xact_lock(hashtextextended(current_schema() || '/zendara_tables', 0))");
    if (!HasCatalogue(link)) CreateCatalogue(link, keys);
    number_all(
        [&](const TableDef& table, const std::string& definition) { return AddDefinition(link, table, definition); });
    link.Commit();
  } catch (...) {
    if (link.InTransaction()) link.Rollback();
    throw;
  }
  return numbers;
}

std::string NumbersText(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : ",") + std::to_string(number);
  return text;
}

std::vector<int> ReadNumbers(std::string_view text) {
  std::vector<int> numbers;
  const char* at = text.data();
  const char* end = at + text.size();
  while (at < end) {
    int number = 0;
    at = std::from_chars(at, end, number).ptr + 1;
    numbers.push_back(number);
  }
  return numbers;
}

}  // namespace zendara::postgres
