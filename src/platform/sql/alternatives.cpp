#include "platform/sql/alternatives.hpp"

#include <map>
#include <utility>

namespace zendara::sql {
namespace {

// The column and the literal that a condition holds equal, in either order.
std::optional<std::pair<ColumnRef, Parameter>> EqualityOf(const Expression& condition) {
  const auto& [op, operands] = std::get<Operation>(condition.node);
  if (op != Operator::kEqual) return std::nullopt;
  for (const std::size_t i : {0U, 1U}) {
    const auto* column = std::get_if<ColumnRef>(&operands[i].node);
    const auto* literal = std::get_if<Parameter>(&operands[1 - i].node);
    if (column && literal) return std::pair(*column, *literal);
  }
  return std::nullopt;
}

// Each list stands where the first of its alternatives stood.
std::vector<Expression> Joined(std::vector<Expression>&& alternatives) {
  std::vector<Expression> joined;
  std::map<std::pair<int, int>, std::size_t> lists;  // by table and column, places in `joined`
  for (Expression& alternative : alternatives) {
    const auto equality = EqualityOf(alternative);
    if (!equality) {
      joined.push_back(std::move(alternative));
      continue;
    }
    const auto& [column, literal] = *equality;
    const auto [list, is_new] = lists.try_emplace({column.table, column.column}, joined.size());
    if (is_new) joined.push_back({Operation{Operator::kIn, {{column}}}});
    std::get<Operation>(joined[list->second].node).operands.push_back({literal});
  }
  return joined;
}

void JoinIn(Expression& condition) {
  auto& [op, operands] = std::get<Operation>(condition.node);
  if (op != Operator::kAnd && op != Operator::kOr && op != Operator::kNot) return;
  for (Expression& operand : operands) JoinIn(operand);
  if (op != Operator::kOr) return;
  operands = Joined(std::move(operands));
  if (operands.size() == 1) condition = Expression(std::move(operands[0]));
}

}  // namespace

void JoinAlternatives(std::optional<Expression>& where) {
  if (where) JoinIn(*where);
}

}  // namespace zendara::sql
