#include "platform/sql/printer.hpp"

#include <array>
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

class Printer {
 public:
  Printer(const std::vector<TableRef>& from, const Dialect& dialect) : from_(from), dialect_(dialect) {}

  std::string Tables() const {
    std::string text;
    for (const TableRef& ref : from_) {
      if (!text.empty()) text += ", ";
      text += QuoteName(ref.table->name) + " AS " + QuoteName(ref.alias);
    }
    return text;
  }

  std::string Text(const Expression& expression) const {
    return std::visit([this](const auto& node) { return Node(node); }, expression.node);
  }

  std::string Node(ColumnRef ref) const {
    const TableRef& table = from_[static_cast<std::size_t>(ref.table)];
    if (ref.column == kOrderOfWriting) return dialect_.OrderOfWriting(QuoteName(table.alias));
    return QuoteName(table.alias) + "." + QuoteName(table.table->columns[static_cast<std::size_t>(ref.column)].name);
  }

 private:
  std::string Node(const Value& value) const { return dialect_.Literal(value); }

  std::string Node(const Call& call) const {
    std::string text(kAggregateNames[static_cast<std::size_t>(call.function)]);
    return text + "(" + (call.argument.empty() ? "*" : Text(call.argument[0])) + ")";
  }

  std::string Node(const Operation& operation) const {
    const auto operand = [&](std::size_t i) { return Text(operation.operands[i]); };
    switch (operation.op) {
      case Operator::kNot:
        return "NOT (" + operand(0) + ")";
      case Operator::kIsNull:
        return "(" + operand(0) + " IS NULL)";
      case Operator::kBetween:
        return "(" + dialect_.Between(operand(0), operand(1), operand(2)) + ")";
      default:
        return "(" + operand(0) + std::string(Symbol(operation.op)) + operand(1) + ")";
    }
  }

  const std::vector<TableRef>& from_;
  const Dialect& dialect_;
};

void AppendList(std::string& text, std::string_view opening, const std::vector<std::string>& parts,
                std::string_view separator) {
  for (const std::string& part : parts) {
    text += &part == parts.data() ? opening : separator;
    text += part;
  }
}

}  // namespace

std::string QuoteName(std::string_view name) {
  std::string text = "\"";
  for (const char c : name) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

std::string Print(const Select& select, const Dialect& dialect) {
  const Printer printer(select.from, dialect);
  std::vector<std::string> items;
  for (const SelectItem& item : select.items) items.push_back(printer.Text(item.expression));
  std::vector<std::string> conditions;
  for (const Expression& join : select.joins) conditions.push_back(printer.Text(join));
  if (select.where) conditions.push_back(printer.Text(*select.where));
  std::vector<std::string> groups;
  for (const ColumnRef column : select.group_by) groups.push_back(printer.Node(column));
  std::vector<std::string> order;
  for (const OrderTerm& term : select.order_by) {
    order.push_back(printer.Node(term.column) + (term.descending ? " DESC" : "") + dialect.NullOrder(term.descending));
  }

  std::string text;
  AppendList(text, "SELECT ", items, ", ");
  text += " FROM " + printer.Tables();
  AppendList(text, " WHERE ", conditions, " AND ");
  AppendList(text, " GROUP BY ", groups, ", ");
  AppendList(text, " ORDER BY ", order, ", ");
  return text;
}

std::string Print(const Delete& statement, const Dialect& dialect) {
  const std::vector<TableRef> from = {statement.table};
  const Printer printer(from, dialect);
  std::string text = "DELETE FROM " + printer.Tables();
  if (statement.where) text += " WHERE " + printer.Text(*statement.where);
  return text;
}

}  // namespace zendara::sql
