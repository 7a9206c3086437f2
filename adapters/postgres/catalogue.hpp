// What the server knows of databases: which files there are, which tables they have, where the rows stand.
//
//   zendara_store    one row: the version of the catalogue, and that of the sort keys
//   zendara_tables   a definition, and the relation with the rows of all tables of its shape
//   zendara_files    a database file and the numbers of its tables
//   zendara_queries  named queries of a file
//   zendara_beside   files beside the databases
//
// A file is known by its name in upper case, without a folder; `name` is how it was spelled.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/postgres/link.hpp"
#include "zendara/record_engine.hpp"

namespace zendara::postgres {

// The name behind the last separator, as files are known by. Error 3055 when there is none.
std::string FileOf(std::string_view path);
// The same as it is spelled.
std::string NameOf(std::string_view path);

// A definition as text, and back. Definitions that are equal have the same text.
std::string DefinitionText(const TableDef& table);
TableDef ReadDefinition(std::string_view text);

// The numbers of these tables, whose definitions and relations are made if they are missing, and the catalogue itself.
// In a transaction of its own. `keys`: the version of the sort keys.
std::vector<int> EnsureTables(Link& link, const std::vector<TableDef>& tables, const std::string& keys);

// "1,5,7" and back, in the form that the server has.
std::string NumbersText(const std::vector<int>& numbers);
std::vector<int> ReadNumbers(std::string_view text);

}  // namespace zendara::postgres
