#include "platform/sql/printer.hpp"

#include <algorithm>
#include <span>
#include <utility>

namespace zendara::sql {
namespace {

std::string_view Symbol(Operator op) {
  switch (op) {
    case Operator::kAnd:
      return " AND ";
    case Operator::kOr:
      return " OR ";
    case Operator::kEqual:
      return " = ";
    case Operator::kNotEqual:
      return " <> ";
    case Operator::kLess:
      return " < ";
    case Operator::kLessEqual:
      return " <= ";
    case Operator::kGreater:
      return " > ";
    case Operator::kGreaterEqual:
      return " >= ";
    case Operator::kNot:
    case Operator::kBetween:
    case Operator::kIsNull:
    case Operator::kIn:
      break;
  }
  return {};
}

// Conditions in one group of a chain.
constexpr std::size_t kGroup = 8;

class Printer {
 public:
  Printer(const std::vector<TableRef>& from, Dialect& dialect) : from_(from), dialect_(dialect) {}

  void Add(std::string_view text) { printed_.text += text; }

  void AddTables() {
    for (const TableRef& ref : from_) {
      if (&ref != from_.data()) Add(", ");
      Add(dialect_.Table(*ref.table) + " AS " + QuoteName(ref.alias));
    }
  }

  void AddWhere(const std::optional<Expression>& where) {
    std::string_view before = " WHERE ";
    for (const TableRef& ref : from_) {
      const std::string rows = dialect_.RowsOf(ref);
      if (rows.empty()) continue;
      Add(std::exchange(before, " AND "));
      Add(rows);
    }
    if (!where) return;
    Add(before);
    AddCondition(*where);
  }

  // An item of the select list.
  std::string Item(const Expression& item, bool of_group) {
    if (const auto* call = std::get_if<Call>(&item.node)) return Text(*call);
    return Text(item, of_group ? Form::kOfGroup : Form::kRead);
  }

  std::string GroupKey(ColumnRef ref) const { return dialect_.GroupKey(TableOf(ref), ref.column); }

  std::string OrderKey(const OrderTerm& term) const {
    return dialect_.OrderKey(TableOf(term.column), term.column.column, term.descending);
  }

  Printed Finish() { return std::move(printed_); }

 private:
  const TableRef& TableOf(ColumnRef ref) const { return from_[static_cast<std::size_t>(ref.table)]; }
  bool HasKey(ColumnRef ref) const { return dialect_.HasKey(*TableOf(ref).table, ref.column); }
  std::string Text(ColumnRef ref, Form form) const { return dialect_.Column(TableOf(ref), ref.column, form); }

  std::string Text(const Expression& operand, Form form) {
    if (const auto* ref = std::get_if<ColumnRef>(&operand.node)) return Text(*ref, form);
    if (const auto* literal = std::get_if<Parameter>(&operand.node)) return dialect_.Literal(*literal, form);
    return "NULL";
  }

  std::string Text(const Call& call) const {
    if (!call.argument) return "count(*)";
    switch (call.function) {
      case Aggregate::kMin:
      case Aggregate::kMax:
        return dialect_.Extreme(TableOf(*call.argument), call.argument->column, call.function == Aggregate::kMax);
      case Aggregate::kCount:
        return "count(" + Text(*call.argument, Form::kRead) + ")";
      case Aggregate::kSum:
        return "sum(" + Text(*call.argument, Form::kRead) + ")";
    }
    return {};
  }

  // Of values that are compared with each other.
  Form FormOf(std::span<const Expression> operands) const {
    const bool by_key = std::ranges::all_of(operands, [this](const Expression& operand) {
      const auto* ref = std::get_if<ColumnRef>(&operand.node);
      return !ref || HasKey(*ref);
    });
    return by_key ? Form::kKey : Form::kCompared;
  }

  void AddCondition(const Expression& condition) {
    const auto& [op, operands] = std::get<Operation>(condition.node);
    switch (op) {
      case Operator::kAnd:
      case Operator::kOr:
        return Within("(", 1, [&] { AddChain(operands, Symbol(op)); });
      case Operator::kNot:
        return Within("NOT ", 1, [&] { AddCondition(operands[0]); });
      default:
        return Add("(" + Comparison(op, operands) + ")");
    }
  }

  // Those behind the first.
  std::string List(std::span<const Expression> operands, Form form) {
    std::string list;
    for (const Expression& operand : operands.subspan(1)) list += (list.empty() ? "" : ", ") + Text(operand, form);
    return list;
  }

  std::string Comparison(Operator op, const std::vector<Expression>& operands) {
    const Form form = FormOf(operands);
    const std::string left = Text(operands[0], form);
    if (op == Operator::kIsNull) return left + " IS NULL";
    if (op == Operator::kIn) return left + " IN (" + List(operands, form) + ")";
    const std::string right = Text(operands[1], form);
    if (op != Operator::kBetween) return left + std::string(Symbol(op)) + right;
    const auto nullable = [](const Expression& end) { return !std::holds_alternative<Parameter>(end.node); };
    return dialect_.Between(left, right, Text(operands[2], form), nullable(operands[1]) || nullable(operands[2]));
  }

  void AddChain(std::span<const Expression> conditions, std::string_view symbol) {
    std::size_t part = 1;
    while (part * kGroup < conditions.size()) part *= kGroup;
    for (std::size_t i = 0; i < conditions.size(); i += part) {
      const auto group = conditions.subspan(i, std::min(part, conditions.size() - i));
      Within(i > 0 ? symbol : "", i > 0 ? 2 : 0, [&] {
        if (group.size() == 1) return AddCondition(group[0]);
        Within("(", 1, [&] { AddChain(group, symbol); });
      });
    }
  }

  // Writes something that stands behind `opening`, for which so many parts wait.
  void Within(std::string_view opening, int parts, const auto& inside) {
    Add(opening);
    open_ += parts;
    printed_.depth = std::max(printed_.depth, open_);
    inside();
    open_ -= parts;
    if (opening == "(") Add(")");
  }

  const std::vector<TableRef>& from_;
  Dialect& dialect_;
  Printed printed_;
  int open_ = 0;
};

}  // namespace

std::string QuoteName(std::string_view name) {
  std::string text = "\"";
  for (const char c : name) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

std::string Qualified(const TableRef& table, std::string_view quoted_column) {
  return (QuoteName(table.alias) += '.').append(quoted_column);
}

std::string Dialect::Table(const TableDef& table) const { return QuoteName(table.name); }

std::string Dialect::Column(const TableRef& table, int column, Form) const {
  return Qualified(table, QuoteName(table.table->columns[static_cast<std::size_t>(column)].name));
}

std::string Dialect::Extreme(const TableRef& table, int column, bool greatest) const {
  return (greatest ? "max(" : "min(") + Column(table, column, Form::kRead) + ")";
}

std::string Dialect::GroupKey(const TableRef& table, int column) const {
  return Column(table, column, Form::kCompared);
}

Printed Print(const Select& select, Dialect& dialect) {
  Printer printer(select.from, dialect);
  printer.Add("SELECT ");
  for (const SelectItem& item : select.items) {
    if (&item != select.items.data()) printer.Add(", ");
    printer.Add(printer.Item(item.expression, !select.group_by.empty()));
  }
  printer.Add(" FROM ");
  printer.AddTables();
  printer.AddWhere(select.where);
  for (const ColumnRef& column : select.group_by) {
    printer.Add(&column == select.group_by.data() ? " GROUP BY " : ", ");
    printer.Add(printer.GroupKey(column));
  }
  for (const OrderTerm& term : select.order_by) {
    printer.Add(&term == select.order_by.data() ? " ORDER BY " : ", ");
    printer.Add(printer.OrderKey(term));
  }
  return printer.Finish();
}

Printed Print(const Delete& statement, Dialect& dialect) {
  const std::vector<TableRef> from = {statement.table};
  Printer printer(from, dialect);
  printer.Add("DELETE FROM ");
  printer.AddTables();
  printer.AddWhere(statement.where);
  return printer.Finish();
}

}  // namespace zendara::sql
