// The SQL of the server, on the relations that hold the tables of a file.
//
// Columns with a sort key are compared by it with each other and with literals, and sorted and grouped by it, so that
// the indexes are used and the order is the desks' own. The other texts have the server's Spanish collation.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "adapters/postgres/open_file.hpp"
#include "platform/sql/parser.hpp"
#include "platform/sql/printer.hpp"

namespace zendara::postgres {

// What a parameter of a printed statement is: a literal as it is stored, or its sort key.
struct Argument {
  sql::Parameter literal;
  bool key = false;
};

// For one statement.
class ServerDialect final : public sql::Dialect {
 public:
  // REQUIRES: the file outlives it.
  explicit ServerDialect(OpenFile& file) : file_(file) {}

  // Whose tables it prints.
  sql::Catalogue Tables();
  // Of the parameters behind the first one, which is the name of the file.
  const std::vector<Argument>& Arguments() const { return arguments_; }
  // Those that the statement names.
  const std::vector<const Relation*>& Relations() const { return relations_; }

  std::string Table(const TableDef& table) const override;
  std::string RowsOf(const sql::TableRef& table) const override;
  bool HasKey(const TableDef& table, int column) const override;
  std::string Column(const sql::TableRef& table, int column, sql::Form form) const override;
  std::string Literal(const sql::Parameter& literal, sql::Form form) override;
  std::string Between(const std::string& value, const std::string& a, const std::string& b,
                      bool nullable) const override;
  std::string Extreme(const sql::TableRef& table, int column, bool greatest) const override;
  std::string GroupKey(const sql::TableRef& table, int column) const override;
  std::string OrderKey(const sql::TableRef& table, int column, bool descending) const override;

 private:
  const Relation& RelationOf(const TableDef& table) const;

  OpenFile& file_;
  std::vector<const Relation*> relations_;           // that the statement names
  std::vector<Argument> arguments_;                  // each of them once
  std::array<std::vector<std::string>, 2> printed_;  // by form, as a key or not, and by literal: "$2"
};

}  // namespace zendara::postgres
