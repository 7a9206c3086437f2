#include "platform/sql/implied.hpp"

#include <algorithm>
#include <span>
#include <utility>

namespace zendara::sql {
namespace {

const Operation* OperationOf(const Expression& condition) { return std::get_if<Operation>(&condition.node); }

// The conditions that hold together: the operands of an AND, or the one that there is.
std::span<const Expression> Conjuncts(const Expression& condition) {
  const Operation* operation = OperationOf(condition);
  if (operation && operation->op == Operator::kAnd) return operation->operands;
  return {&condition, 1};
}

bool Same(ColumnRef a, ColumnRef b) { return a.table == b.table && a.column == b.column; }

using Equals = std::vector<ColumnRef>;

// Groups of columns that the joins hold equal.
std::vector<Equals> JoinedColumns(std::span<const Expression> conjuncts) {
  std::vector<Equals> groups;
  for (const Expression& condition : conjuncts) {
    const Operation* operation = OperationOf(condition);
    if (!operation || operation->op != Operator::kEqual) continue;
    const auto* left = std::get_if<ColumnRef>(&operation->operands[0].node);
    const auto* right = std::get_if<ColumnRef>(&operation->operands[1].node);
    if (left && right) groups.push_back({*left, *right});
  }
  return groups;
}

// The literal that one of the columns equals there.
const Parameter* LiteralOf(const Equals& columns, const Expression& alternative) {
  for (const Expression& condition : Conjuncts(alternative)) {
    const Operation* operation = OperationOf(condition);
    if (!operation || operation->op != Operator::kEqual) continue;
    const auto* column = std::get_if<ColumnRef>(&operation->operands[0].node);
    const auto* literal = std::get_if<Parameter>(&operation->operands[1].node);
    if (!column || !literal) continue;
    if (std::ranges::any_of(columns, [&](ColumnRef other) { return Same(other, *column); })) return literal;
  }
  return nullptr;
}

// Nothing when an alternative leaves the columns free.
std::vector<Expression> KeysOf(const Equals& columns, const Operation& alternatives) {
  std::vector<Expression> keys;
  for (const Expression& alternative : alternatives.operands) {
    const Parameter* literal = LiteralOf(columns, alternative);
    if (!literal) return {};
    keys.push_back({Operation{Operator::kEqual, {{columns.front()}, {*literal}}}});
  }
  return keys;
}

}  // namespace

void AddImpliedKeys(Select& select) {
  if (!select.where) return;
  const std::span<const Expression> conjuncts = Conjuncts(*select.where);
  std::vector<Expression> implied;
  for (const Equals& columns : JoinedColumns(conjuncts)) {
    for (const Expression& condition : conjuncts) {
      const Operation* operation = OperationOf(condition);
      if (!operation || operation->op != Operator::kOr) continue;
      std::vector<Expression> keys = KeysOf(columns, *operation);
      if (!keys.empty()) implied.push_back({Operation{Operator::kOr, std::move(keys)}});
    }
  }
  // A join and an OR are two conditions, so there is a chain to add to.
  for (Expression& condition : implied) {
    std::get<Operation>(select.where->node).operands.push_back(std::move(condition));
  }
}

}  // namespace zendara::sql
