// Conditions that are added to a statement so that its rows are found by key.
#include <algorithm>

#include "engine/contract.hpp"
#include "platform/sql/implied.hpp"
#include "platform/sql/parser.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

// How many conditions a statement on two tables gets.
std::size_t Implied(const std::string& rest) {
  const TableDef tables[] = {
      {"a", {{"k", ColumnType::kText, 5}, {"x", ColumnType::kText, 5}, {"y", ColumnType::kText, 5}}, {}},
      {"b", {{"k", ColumnType::kText, 5}, {"x", ColumnType::kText, 5}}, {}}};
  const std::string sql = "select a.x from " + rest;
  const sql::Tokens tokens = sql::Tokenize(sql, YearWindow());
  sql::Select select = sql::ParseSelect(tokens, [&](std::string_view name) {
    const auto* table = std::ranges::find(tables, LCase(name), &TableDef::name);
    return table == std::end(tables) ? nullptr : table;
  });
  const auto conditions = [&]() -> std::size_t {
    const auto* all = select.where ? std::get_if<sql::Operation>(&select.where->node) : nullptr;
    return all && all->op == sql::Operator::kAnd ? all->operands.size() : 1;
  };
  const std::size_t before = conditions();
  AddImpliedKeys(select);
  return conditions() - before;
}

TEST(ImpliedKeys, ComeFromAJoinAndAnOrThatLeavesNoTableFree) {
  const std::string join = "a inner join b on a.k = b.k ";
  const std::pair<std::string, std::size_t> cases[] = {
      {join + "where (a.k = '1' and a.x = '2') or (b.k = '1' and b.x > '2')", 1},
      {join + "where (a.x = null and a.k = '1') or (b.x = null and b.k = '1')", 1},
      {"a, b where a.k = b.k and (a.k = '1' or b.k = '2' or a.k = '3')", 1},
      {"a, b where a.k = b.k and (a.k = '1' or b.k = '2') and (a.k = '3' or b.k = '4')", 2},
      {"a, b where a.k = b.k and a.y = b.x and (a.k = '1' or b.k = '2') and (a.y = '1' or b.x = '2')", 2},
      // An alternative that says nothing about the columns, or nothing that a key could be.
      {join + "where a.k = '1' or b.x = '1'", 0},
      {join + "where a.k = '1' or b.k > '1'", 0},
      {join + "where a.k = '1' or b.k = null", 0},
      {join + "where a.k = '1' or b.k = a.x", 0},
      {join + "where (a.k = '1' or a.x = '2') or b.k = '1'", 0},
      {join + "where not (a.k = '1' or b.k = '1')", 0},
      // No OR, no join by equality, none for the other table's rows.
      {join + "where a.k = '1'", 0},
      {"a, b where a.k > b.k and (a.k = '1' or b.k = '1')", 0},
      {"a, b where a.x = b.x and (a.k = '1' or b.k = '1')", 0},
      {"a, b where (a.k = b.k and a.k = '1') or (a.k = b.k and b.k = '1')", 0},
      {"a where a.k = '1' or a.k = '2'", 0},
      {"a", 0},
  };
  for (const auto& [rest, count] : cases) EXPECT_EQ(Implied(rest), count) << rest;
}

}  // namespace
}  // namespace zendara
