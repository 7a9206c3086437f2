#include "adapters/postgres/dialect.hpp"

#include <algorithm>

namespace zendara::postgres {
namespace {

using sql::Form;
using sql::Qualified;
using sql::TableRef;

// The relations are the same for all files, so the statement has theirs in common too.
constexpr std::string_view kFileParameter = "$1";

// As texts are compared that have no sort key.
std::string Compared(const std::string& value, ColumnType type) {
  return type == ColumnType::kText ? "(rtrim(" + value + ") COLLATE zendara_es)" : value;
}

ColumnType TypeOf(const TableRef& table, int column) {
  return table.table->columns[static_cast<std::size_t>(column)].type;
}

}  // namespace

sql::Catalogue ServerDialect::Tables() {
  return [this](std::string_view name) -> const TableDef* {
    const Relation* relation = file_.FindTable(name);
    if (!relation) return nullptr;
    relations_.push_back(relation);
    return &relation->definition;
  };
}

const Relation& ServerDialect::RelationOf(const TableDef& table) const {
  return **std::ranges::find(relations_, &table, [](const Relation* relation) { return &relation->definition; });
}

std::string ServerDialect::Table(const TableDef& table) const { return RelationOf(table).name; }

std::string ServerDialect::RowsOf(const TableRef& table) const {
  return Qualified(table, kFileColumn).append(" = ").append(kFileParameter);
}

bool ServerDialect::HasKey(const TableDef& table, int column) const {
  return !RelationOf(table).keys[static_cast<std::size_t>(column)].empty();
}

std::string ServerDialect::Column(const TableRef& table, int column, Form form) const {
  const Relation& relation = RelationOf(*table.table);
  const auto i = static_cast<std::size_t>(column);
  const std::string value = Qualified(table, relation.columns[i]);
  switch (form) {
    case Form::kRead:
      return value;
    case Form::kOfGroup:
      return "min(" + value + (TypeOf(table, column) == ColumnType::kText ? " COLLATE \"C\"" : "") + ")";
    case Form::kCompared:
      return Compared(value, TypeOf(table, column));
    case Form::kKey:
      return Qualified(table, relation.keys[i]);
  }
  return {};
}

std::string ServerDialect::Literal(const sql::Parameter& literal, Form form) {
  const bool key = form == Form::kKey;
  auto& printed = printed_[key ? 1 : 0];
  const auto i = static_cast<std::size_t>(literal.number);
  if (printed.size() <= i) printed.resize(i + 1);
  if (printed[i].empty()) {
    arguments_.push_back({literal, key});
    printed[i] = "$" + std::to_string(arguments_.size() + 1);
  }
  switch (form) {
    case Form::kCompared:
      return Compared(printed[i], literal.type);
    case Form::kKey:
      return printed[i];
    default:
      // With its type, since statements are known by their text.
      return (printed[i] + "::").append(StoredType(literal.type));
  }
}

// The server's own condition for ends in either order is false for some values when an end is Null, and is no range of
// an index.
std::string ServerDialect::Between(const std::string& value, const std::string& a, const std::string& b,
                                   bool nullable) const {
  const std::string ends = a + ", " + b;
  if (!nullable) return value + " BETWEEN least(" + ends + ") AND greatest(" + ends + ")";
  return "CASE WHEN (" + a + " = " + b + ") IS NOT NULL THEN " + value + " BETWEEN SYMMETRIC " + a + " AND " + b +
         " END";
}

// Of texts that the order holds equal it would be another one than is stored: without its blanks at the end.
std::string ServerDialect::Extreme(const TableRef& table, int column, bool greatest) const {
  if (TypeOf(table, column) != ColumnType::kText) return Dialect::Extreme(table, column, greatest);
  const std::string order = Column(table, column, HasKey(*table.table, column) ? Form::kKey : Form::kCompared);
  return "(array_agg(" + Column(table, column, Form::kRead) + " ORDER BY " + order + (greatest ? " DESC" : "") +
         " NULLS LAST))[1]";
}

// What the indexes are on, see Relation::OrderOf.
std::string ServerDialect::GroupKey(const TableRef& table, int column) const {
  if (!HasKey(*table.table, column)) return Column(table, column, Form::kCompared);
  const std::string key = Column(table, column, Form::kKey);
  if (RelationOf(*table.table).never_null[static_cast<std::size_t>(column)]) return key;
  return "coalesce(" + key + ", ''::bytea)";
}

std::string ServerDialect::OrderKey(const TableRef& table, int column, bool descending) const {
  const std::string_view direction = descending ? " DESC" : "";
  if (column == sql::kOrderOfWriting) return Qualified(table, kRowColumn).append(direction);
  const std::string key = GroupKey(table, column).append(direction);
  if (HasKey(*table.table, column)) return key;
  return key + (descending ? " NULLS LAST" : " NULLS FIRST");
}

}  // namespace zendara::postgres
