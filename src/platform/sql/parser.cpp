#include "platform/sql/parser.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/record/names.hpp"
#include "platform/sql/tokenizer.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sql {
namespace {

constexpr std::string_view kKeywords[] = {"select", "from", "where",   "group", "order", "by",    "and",
                                          "or",     "not",  "between", "is",    "null",  "inner", "join",
                                          "on",     "as",   "asc",     "desc",  "delete"};

constexpr std::pair<std::string_view, Aggregate> kAggregates[] = {
    {"min", Aggregate::kMin}, {"max", Aggregate::kMax}, {"count", Aggregate::kCount}, {"sum", Aggregate::kSum}};

constexpr std::pair<std::string_view, Operator> kComparisons[] = {
    {"=", Operator::kEqual},      {"<>", Operator::kNotEqual}, {"<", Operator::kLess},
    {"<=", Operator::kLessEqual}, {">", Operator::kGreater},   {">=", Operator::kGreaterEqual}};

// Deeper nesting is refused before it exhausts the stack.
constexpr int kMaxDepth = 200;

// Columns of a select list stand before the tables they belong to, so names are kept and resolved once FROM is read.
class Parser {
 public:
  Parser(std::string_view sql, const Catalogue& catalogue, YearWindow window)
      : sql_(sql), catalogue_(catalogue), tokens_(Tokenize(sql, window)) {}

  Select ParseSelect() {
    Select select;
    if (tokens_.size() == 2 && tokens_[0].kind == TokenKind::kWord && !AtKeyword()) {
      ReadTable(select.from);
      tables_ = select.from;
      AddAllColumns(select);
    } else {
      Expect("select");
      const std::size_t list = at_;
      SkipToFrom();
      ReadFrom(select);
      const std::size_t rest = std::exchange(at_, list);
      ReadItems(select);
      at_ = rest;
    }
    if (Accept("where")) select.where = Or();
    if (Accept("group")) ReadGroups(select);
    if (Accept("order")) ReadOrder(select);
    Finish();
    CheckGroups(select);
    CompleteOrder(select);
    return select;
  }

  Delete ParseDelete() {
    Delete statement;
    Expect("delete");
    ExpectSymbol("*");
    Expect("from");
    ReadTable(tables_);
    if (Accept("where")) statement.where = Or();
    Finish();
    statement.table = tables_[0];
    return statement;
  }

 private:
  // Tokens.

  const Token& Current() const { return tokens_[at_]; }

  bool IsWord(std::string_view word) const {
    return Current().kind == TokenKind::kWord && !Current().quoted && SameName(Current().text, word);
  }

  bool AtKeyword() const {
    return std::ranges::any_of(kKeywords, [this](std::string_view word) { return IsWord(word); });
  }

  bool IsSymbol(std::string_view symbol) const {
    return Current().kind == TokenKind::kSymbol && Current().text == symbol;
  }

  bool Accept(std::string_view word) {
    if (!IsWord(word)) return false;
    ++at_;
    return true;
  }

  bool AcceptSymbol(std::string_view symbol) {
    if (!IsSymbol(symbol)) return false;
    ++at_;
    return true;
  }

  void Expect(std::string_view word) {
    if (!Accept(word)) FailSyntax(sql_);
  }

  void ExpectSymbol(std::string_view symbol) {
    if (!AcceptSymbol(symbol)) FailSyntax(sql_);
  }

  std::string Name() {
    if (Current().kind != TokenKind::kWord || AtKeyword()) FailSyntax(sql_);
    return tokens_[at_++].text;
  }

  void Finish() {
    AcceptSymbol(";");
    if (Current().kind != TokenKind::kEnd) FailSyntax(sql_);
    if (!unknown_.empty()) throw RuntimeError(kTooFewParameters, {std::to_string(unknown_.size())});
  }

  // Clauses.

  void SkipToFrom() {
    while (!IsWord("from")) {
      if (Current().kind == TokenKind::kEnd) FailSyntax(sql_);
      ++at_;
    }
  }

  void ReadTable(std::vector<TableRef>& from) {
    const std::string name = Name();
    const TableDef* table = catalogue_(name);
    if (!table) throw RuntimeError(kInputTableNotFound, {name});
    from.push_back({table, name});
  }

  void ReadFrom(Select& select) {
    Expect("from");
    ReadTable(tables_);
    for (;;) {
      if (AcceptSymbol(",")) {
        ReadTable(tables_);
      } else if (Accept("inner")) {
        Expect("join");
        ReadTable(tables_);
        Expect("on");
        select.joins.push_back(Or());
      } else {
        break;
      }
    }
    select.from = tables_;
  }

  void ReadItems(Select& select) {
    if (AcceptSymbol("*")) {
      AddAllColumns(select);
    } else {
      do select.items.push_back(Item());
      while (AcceptSymbol(","));
    }
    if (!IsWord("from")) FailSyntax(sql_);
  }

  void AddAllColumns(Select& select) {
    for (std::size_t t = 0; t < tables_.size(); ++t) {
      const auto& columns = tables_[t].table->columns;
      for (std::size_t c = 0; c < columns.size(); ++c) {
        select.items.push_back({{ColumnRef{static_cast<int>(t), static_cast<int>(c)}}, columns[c]});
      }
    }
  }

  SelectItem Item() {
    SelectItem item{Operand(true), {}};
    item.column = ColumnOf(item.expression);
    if (Accept("as")) item.column.name = Name();
    if (item.column.name.empty()) item.column.name = "Expr" + std::to_string(1000 + unnamed_++);
    return item;
  }

  void ReadGroups(Select& select) {
    Expect("by");
    do select.group_by.push_back(Column());
    while (AcceptSymbol(","));
  }

  void ReadOrder(Select& select) {
    Expect("by");
    do {
      OrderTerm term{Column(), false};
      term.descending = Accept("desc");
      if (!term.descending) Accept("asc");
      select.order_by.push_back(term);
    } while (AcceptSymbol(","));
  }

  // Expressions, loosest first.

  Expression Or() { return Chain("or", Operator::kOr, &Parser::And); }
  Expression And() { return Chain("and", Operator::kAnd, &Parser::Negation); }

  Expression Chain(std::string_view word, Operator op, Expression (Parser::*next)()) {
    Expression left = (this->*next)();
    while (Accept(word)) left = Combine(op, std::move(left), (this->*next)());
    return left;
  }

  Expression Negation() {
    if (++depth_ > kMaxDepth) FailSyntax(sql_);
    Expression result = Accept("not") ? Expression{Operation{Operator::kNot, {Negation()}}} : Condition();
    --depth_;
    return result;
  }

  Expression Condition() {
    if (AcceptSymbol("(")) {
      Expression inner = Or();
      ExpectSymbol(")");
      return inner;
    }
    Expression left = Operand(false);
    if (Accept("is")) {
      const bool negated = Accept("not");
      Expect("null");
      Expression test{Operation{Operator::kIsNull, {std::move(left)}}};
      return negated ? Expression{Operation{Operator::kNot, {std::move(test)}}} : test;
    }
    if (Accept("between")) {
      Expression low = Operand(false);
      Expect("and");
      Expression high = Operand(false);
      CheckTypes(left, low);
      CheckTypes(left, high);
      return {Operation{Operator::kBetween, {std::move(left), std::move(low), std::move(high)}}};
    }
    for (const auto& [symbol, op] : kComparisons) {
      if (!AcceptSymbol(symbol)) continue;
      Expression right = Operand(false);
      CheckTypes(left, right);
      return Combine(op, std::move(left), std::move(right));
    }
    FailSyntax(sql_);
  }

  Expression Operand(bool aggregates) {
    if (Current().kind == TokenKind::kLiteral) return {tokens_[at_++].literal};
    if (Accept("null")) return {Value()};
    if (AcceptSymbol("-")) {
      if (Current().kind != TokenKind::kLiteral || !Current().literal.IsNumber()) FailSyntax(sql_);
      return {Value(-tokens_[at_++].literal.Number())};
    }
    if (tokens_[std::min(at_ + 1, tokens_.size() - 1)].text == "(") {
      for (const auto& [name, function] : kAggregates) {
        if (aggregates && Accept(name)) return Aggregation(function);
      }
      FailSyntax(sql_);
    }
    return {Column()};
  }

  Expression Aggregation(Aggregate function) {
    ExpectSymbol("(");
    Call call{function, {}};
    if (function != Aggregate::kCount || !AcceptSymbol("*")) call.argument.push_back({Column()});
    ExpectSymbol(")");
    return {std::move(call)};
  }

  static Expression Combine(Operator op, Expression left, Expression right) {
    Operation operation{op, {}};
    operation.operands.push_back(std::move(left));
    operation.operands.push_back(std::move(right));
    return {std::move(operation)};
  }

  // Names. An unknown one is counted and stands for column 0 until Finish raises the error.

  ColumnRef Column() {
    std::string name = Name();
    std::string qualifier;
    if (AcceptSymbol(".")) qualifier = std::exchange(name, Name());
    std::optional<ColumnRef> found;
    bool doubtful = false;
    for (std::size_t t = 0; t < tables_.size(); ++t) {
      if (!qualifier.empty() && !SameName(tables_[t].alias, qualifier)) continue;
      const int column = tables_[t].table->ColumnOrdinal(name);
      if (column < 0) continue;
      doubtful = found.has_value();
      if (!found) found = ColumnRef{static_cast<int>(t), column};
    }
    if (found && !doubtful) return *found;
    if (std::ranges::find(unknown_, name) == unknown_.end()) unknown_.push_back(name);
    return {};
  }

  ColumnDef Definition(ColumnRef ref) const {
    return tables_[static_cast<std::size_t>(ref.table)].table->columns[static_cast<std::size_t>(ref.column)];
  }

  ColumnDef ColumnOf(const Expression& expression) const {
    if (const auto* ref = std::get_if<ColumnRef>(&expression.node)) return Definition(*ref);
    if (const auto* value = std::get_if<Value>(&expression.node)) return {{}, TypeOf(*value), 0};
    const auto& call = std::get<Call>(expression.node);
    if (call.function == Aggregate::kCount || call.function == Aggregate::kSum) return {{}, ColumnType::kNumber, 0};
    ColumnDef column = Definition(std::get<ColumnRef>(call.argument[0].node));
    column.name.clear();
    return column;
  }

  static ColumnType TypeOf(const Value& value) {
    if (value.IsNumber()) return ColumnType::kNumber;
    return value.IsDate() ? ColumnType::kDate : ColumnType::kText;
  }

  void CheckTypes(const Expression& left, const Expression& right) const {
    if (!unknown_.empty()) return;
    for (const Expression* side : {&left, &right}) {
      const auto* value = std::get_if<Value>(&side->node);
      if (value && value->IsNull()) return;
    }
    if (ColumnOf(left).type != ColumnOf(right).type) throw RuntimeError(kDataConversion);
  }

  // Rules of the whole.

  static bool Same(ColumnRef a, ColumnRef b) { return a.table == b.table && a.column == b.column; }

  static bool HasAggregate(const Select& select) {
    return std::ranges::any_of(
        select.items, [](const SelectItem& item) { return std::holds_alternative<Call>(item.expression.node); });
  }

  static bool IsGroup(const Select& select, ColumnRef column) {
    return std::ranges::any_of(select.group_by, [&](ColumnRef group) { return Same(group, column); });
  }

  void CheckGroups(const Select& select) const {
    if (select.group_by.empty() && !HasAggregate(select)) return;
    for (const SelectItem& item : select.items) {
      const auto* column = std::get_if<ColumnRef>(&item.expression.node);
      if (column && !IsGroup(select, *column)) FailSyntax(sql_);
    }
    for (const OrderTerm& term : select.order_by) {
      if (!IsGroup(select, term.column)) FailSyntax(sql_);
    }
  }

  // Rows without an order, and rows that an order leaves equal, come by primary key; groups come sorted.
  static void CompleteOrder(Select& select) {
    const auto append = [&select](ColumnRef column) {
      const bool there =
          std::ranges::any_of(select.order_by, [&](const OrderTerm& term) { return Same(term.column, column); });
      if (!there) select.order_by.push_back({column, false});
    };
    if (!select.group_by.empty()) {
      for (const ColumnRef column : select.group_by) append(column);
      return;
    }
    if (HasAggregate(select)) return;
    for (std::size_t t = 0; t < select.from.size(); ++t) {
      const int table = static_cast<int>(t);
      const IndexDef* primary = select.from[t].table->Primary();
      if (!primary) append({table, kOrderOfWriting});
      for (const int column : primary ? primary->columns : std::vector<int>()) append({table, column});
    }
  }

  std::string_view sql_;
  const Catalogue& catalogue_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  std::vector<TableRef> tables_;
  std::vector<std::string> unknown_;
  int unnamed_ = 0;
  int depth_ = 0;
};

}  // namespace

Select ParseSelect(std::string_view sql, const Catalogue& catalogue, YearWindow window) {
  return Parser(sql, catalogue, window).ParseSelect();
}

Delete ParseDelete(std::string_view sql, const Catalogue& catalogue, YearWindow window) {
  return Parser(sql, catalogue, window).ParseDelete();
}

}  // namespace zendara::sql
