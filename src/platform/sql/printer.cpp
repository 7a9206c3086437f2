#include "platform/sql/printer.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace zendara::sql {
namespace {

constexpr std::array<std::string_view, 4> kAggregateNames = {"min", "max", "count", "sum"};

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
      break;
  }
  return {};
}

// Conditions in one group of a chain.
constexpr std::size_t kGroup = 8;

class Printer {
 public:
  Printer(const std::vector<TableRef>& from, const Dialect& dialect) : from_(from), dialect_(dialect) {}

  void Add(std::string_view text) { printed_.text += text; }

  void AddTables() {
    for (const TableRef& ref : from_) {
      if (&ref != from_.data()) Add(", ");
      Add(QuoteName(ref.table->name) + " AS " + QuoteName(ref.alias));
    }
  }

  void AddWhere(const std::optional<Expression>& where) {
    if (!where) return;
    Add(" WHERE ");
    AddCondition(*where);
  }

  // What a condition compares, or an item of the select list.
  std::string Text(const Expression& operand) const {
    return std::visit([this](const auto& node) { return Node(node); }, operand.node);
  }

  std::string Node(ColumnRef ref) const {
    const TableRef& table = from_[static_cast<std::size_t>(ref.table)];
    if (ref.column == kOrderOfWriting) return dialect_.OrderOfWriting(QuoteName(table.alias));
    return QuoteName(table.alias) + "." + QuoteName(table.table->columns[static_cast<std::size_t>(ref.column)].name);
  }

  Printed Finish() { return std::move(printed_); }

 private:
  std::string Node(Null) const { return "NULL"; }
  std::string Node(const Parameter& literal) const { return dialect_.Placeholder(literal); }
  std::string Node(const Operation&) const { return {}; }  // no operand

  std::string Node(const Call& call) const {
    std::string text(kAggregateNames[static_cast<std::size_t>(call.function)]);
    return text + "(" + (call.argument ? Node(*call.argument) : "*") + ")";
  }

  void AddCondition(const Expression& condition) {
    const auto& operation = std::get<Operation>(condition.node);
    const auto operand = [&](std::size_t i) { return Text(operation.operands[i]); };
    switch (operation.op) {
      case Operator::kAnd:
      case Operator::kOr:
        return Within("(", 1, [&] { AddChain(operation.operands, Symbol(operation.op)); });
      case Operator::kNot:
        return Within("NOT ", 1, [&] { AddCondition(operation.operands[0]); });
      case Operator::kIsNull:
        return Add("(" + operand(0) + " IS NULL)");
      case Operator::kBetween:
        return Add("(" + dialect_.Between(operand(0), operand(1), operand(2)) + ")");
      default:
        return Add("(" + operand(0) + std::string(Symbol(operation.op)) + operand(1) + ")");
    }
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
  const Dialect& dialect_;
  Printed printed_;
  int open_ = 0;
};

}  // namespace

std::string QuoteName(std::string_view name) {
  std::string text = "\"";
  for (const char c : name) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

Printed Print(const Select& select, const Dialect& dialect) {
  Printer printer(select.from, dialect);
  printer.Add("SELECT ");
  for (const SelectItem& item : select.items) {
    if (&item != select.items.data()) printer.Add(", ");
    printer.Add(printer.Text(item.expression));
  }
  printer.Add(" FROM ");
  printer.AddTables();
  printer.AddWhere(select.where);
  for (const ColumnRef& column : select.group_by) {
    printer.Add(&column == select.group_by.data() ? " GROUP BY " : ", ");
    printer.Add(printer.Node(column));
  }
  for (const OrderTerm& term : select.order_by) {
    printer.Add(&term == select.order_by.data() ? " ORDER BY " : ", ");
    printer.Add(printer.Node(term.column) + (term.descending ? " DESC" : "") + dialect.NullOrder(term.descending));
  }
  return printer.Finish();
}

Printed Print(const Delete& statement, const Dialect& dialect) {
  const std::vector<TableRef> from = {statement.table};
  Printer printer(from, dialect);
  printer.Add("DELETE FROM ");
  printer.AddTables();
  printer.AddWhere(statement.where);
  return printer.Finish();
}

}  // namespace zendara::sql
