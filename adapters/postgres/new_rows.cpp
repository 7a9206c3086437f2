#include "adapters/postgres/new_rows.hpp"

#include <utility>

#include "adapters/postgres/sort_key.hpp"

namespace zendara::postgres {
namespace {

constexpr std::int64_t kManyRows = 1000;

constexpr Parameters::Kind KindOf(ColumnType type) {
  return type == ColumnType::kText     ? Parameters::Kind::kText
         : type == ColumnType::kNumber ? Parameters::Kind::kNumber
                                       : Parameters::Kind::kDate;
}

// Each column is one parameter, an array.
std::string InsertText(const Relation& relation) {
  std::string columns(kFileColumn);
  std::string arrays;
  int parameter = 1;
  const auto add = [&](const std::string& column, std::string_view type) {
    columns += ", " + column;
    arrays += (arrays.empty() ? "$" : ", $") + std::to_string(++parameter) + "::" + std::string(type) + "[]";
  };
  for (std::size_t i = 0; i < relation.columns.size(); ++i) {
    add(relation.columns[i], StoredType(relation.definition.columns[i].type));
    if (!relation.keys[i].empty()) add(relation.keys[i], "bytea");
  }
  return "INSERT INTO " + relation.name + " (" + columns + ") SELECT $1, * FROM unnest(" + arrays + ")";
}

}  // namespace

void BindKey(const Value& value, const SpanishOrder& order, Parameters& parameters) {
  if (value.IsNull()) {
    parameters.NullBytes();
  } else {
    parameters.Bytes(SortKey(value, order));
  }
}

void NewRows::Add(const Relation& relation, const std::vector<Value>& row) {
  rows_[&relation].push_back(row);
  ++count_;
}

void NewRows::Send(Link& link, const std::string& file, const SpanishOrder& order) {
  const auto rows_of = std::move(rows_);
  Clear();
  Parameters parameters;
  for (const auto& [relation, rows] : rows_of) {
    parameters.Clear();
    parameters.Text(file);
    for (std::size_t i = 0; i < relation->columns.size(); ++i) {
      const ColumnType type = relation->definition.columns[i].type;
      parameters.BeginArray(KindOf(type), rows.size());
      for (const auto& row : rows) parameters.Stored(row[i], type);
      if (relation->keys[i].empty()) continue;
      parameters.BeginArray(Parameters::Kind::kBytes, rows.size());
      for (const auto& row : rows) BindKey(row[i], order, parameters);
    }
    link.Run(InsertText(*relation), parameters);
    sent_[relation] += static_cast<std::int64_t>(rows.size());
  }
}

void NewRows::Clear() {
  rows_.clear();
  count_ = 0;
}

void NewRows::RefreshFigures(Link& link) {
  for (const auto& [relation, rows] : std::exchange(sent_, {})) {
    if (rows < kManyRows) continue;
    const Answer known = link.Run("SELECT reltuples < $2 FROM pg_class WHERE oid = $1::regclass",
                                  Parameters().Text(relation->name).Integer(2 * rows));
    if (known.Rows() > 0 && known.Integer(0, 0) != 0) link.RunOnce("ANALYZE " + relation->name);
  }
}

}  // namespace zendara::postgres
