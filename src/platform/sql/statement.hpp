// A parsed statement of the dialect, names resolved. It stands on its own: no engine, no text of the original.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "zendara/record_engine.hpp"

namespace zendara::sql {

struct TableRef {
  const TableDef* table = nullptr;  // lives as long as the catalogue that the parser was given
  std::string alias;                // how the statement calls it
};

struct ColumnRef {
  int table = 0;   // position in the FROM list
  int column = 0;  // ordinal
};

enum class Operator {
  kAnd,
  kOr,
  kNot,
  kEqual,
  kNotEqual,
  kLess,
  kLessEqual,
  kGreater,
  kGreaterEqual,
  kBetween,
  kIsNull
};
enum class Aggregate { kMin, kMax, kCount, kSum };

struct Expression;

struct Operation {
  Operator op;
  std::vector<Expression> operands;
};

struct Call {
  Aggregate function;
  std::vector<Expression> argument;  // empty for Count(*)
};

struct Expression {
  std::variant<Value, ColumnRef, Operation, Call> node;
};

struct SelectItem {
  Expression expression;
  ColumnDef column;  // name, type and width in the result
};

// In place of a column: the order in which the rows of that table were written.
inline constexpr int kOrderOfWriting = -1;

struct OrderTerm {
  ColumnRef column;
  bool descending = false;
};

struct Select {
  std::vector<SelectItem> items;
  std::vector<TableRef> from;
  std::vector<Expression> joins;  // conditions of INNER JOIN, all of which hold
  std::optional<Expression> where;
  std::vector<ColumnRef> group_by;
  std::vector<OrderTerm> order_by;  // complete: ends in the primary keys, or in the columns of the groups
};

struct Delete {
  TableRef table;
  std::optional<Expression> where;
};

}  // namespace zendara::sql
