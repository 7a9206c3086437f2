// A parsed statement of the dialect, names resolved. It stands on its own: no engine, not the text that was read, and
// no values: literals are parameters.
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

// A literal.
struct Parameter {
  int number = 0;  // from 1, in the order of the text
  ColumnType type = ColumnType::kText;
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
  kIsNull,
  kIn  // one of the operands behind the first, which are literals; of no text, see alternatives.hpp
};
enum class Aggregate { kMin, kMax, kCount, kSum };

struct Expression;

// kAnd and kOr are chains of two operands or more, none of which is a chain of the same operator: however long a list
// of conditions is, it is one level of the tree, and the tree is as deep as its brackets.
struct Operation {
  Operator op;
  std::vector<Expression> operands;
};

struct Call {
  Aggregate function;
  std::optional<ColumnRef> argument;  // none for Count(*)
};

struct Expression {
  std::variant<Null, Parameter, ColumnRef, Operation, Call> node;
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
  std::optional<Expression> where;  // the conditions of INNER JOIN too
  std::vector<ColumnRef> group_by;
  std::vector<OrderTerm> order_by;  // complete: ends in the primary keys, or in the columns of the groups
};

struct Delete {
  TableRef table;
  std::optional<Expression> where;
};

}  // namespace zendara::sql
