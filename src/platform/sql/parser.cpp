#include "platform/sql/parser.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/record/names.hpp"
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

// Deeper brackets are refused before they exhaust the stack, more conditions before an engine takes minutes to plan.
constexpr int kMaxDepth = 200;
constexpr int kMaxConditions = 32000;

constexpr std::string_view kTableTwice = "Tabla repetida";

// Columns of a select list stand before the tables they belong to, so names are kept and resolved once FROM is read.
class Parser {
 public:
  Parser(const Tokens& tokens, const Catalogue& catalogue)
      : sql_(tokens.sql), tokens_(tokens.tokens), catalogue_(catalogue) {}

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
    if (Accept("where")) Require(select.where, Or());
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

  std::string_view Name() {
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
    const std::string name(Name());
    const TableDef* table = catalogue_(name);
    if (!table) throw RuntimeError(kInputTableNotFound, {name});
    if (std::ranges::find(from, table, &TableRef::table) != from.end()) FailSyntax(sql_, kTableTwice);
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
        Require(select.where, Or());
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
    Expression first = (this->*next)();
    if (!IsWord(word)) return first;
    Operation chain{op, {}};
    Append(chain, std::move(first));
    while (Accept(word)) Append(chain, (this->*next)());
    return {std::move(chain)};
  }

  // In brackets of its own or not, a chain of the same operator becomes part of this one.
  static void Append(Operation& chain, Expression&& part) {
    auto* inner = std::get_if<Operation>(&part.node);
    if (!inner || inner->op != chain.op) return chain.operands.push_back(std::move(part));
    std::ranges::move(inner->operands, std::back_inserter(chain.operands));
  }

  // Both have to hold.
  static void Require(std::optional<Expression>& conditions, Expression&& condition) {
    if (!conditions) {
      conditions = std::move(condition);
      return;
    }
    Operation both{Operator::kAnd, {}};
    Append(both, std::move(*conditions));
    Append(both, std::move(condition));
    conditions = Expression{std::move(both)};
  }

  Expression Negation() {
    bool negated = false;
    while (Accept("not")) negated = !negated;
    if (++depth_ > kMaxDepth) FailSyntax(sql_, kTooComplex);
    Expression condition = Condition();
    --depth_;
    return negated ? Not(std::move(condition)) : std::move(condition);
  }

  Expression Condition() {
    if (AcceptSymbol("(")) {
      Expression inner = Or();
      ExpectSymbol(")");
      return inner;
    }
    if (++conditions_ > kMaxConditions) FailSyntax(sql_, kTooComplex);
    Expression left = Operand(false);
    if (Accept("is")) {
      const bool negated = Accept("not");
      Expect("null");
      Expression test = Make(Operator::kIsNull, {std::move(left)});
      return negated ? Not(std::move(test)) : test;
    }
    if (Accept("between")) {
      Expression low = Operand(false);
      Expect("and");
      Expression high = Operand(false);
      CheckTypes(left, low);
      CheckTypes(left, high);
      return Make(Operator::kBetween, {std::move(left), std::move(low), std::move(high)});
    }
    for (const auto& [symbol, op] : kComparisons) {
      if (!AcceptSymbol(symbol)) continue;
      Expression right = Operand(false);
      CheckTypes(left, right);
      return Make(op, {std::move(left), std::move(right)});
    }
    FailSyntax(sql_);
  }

  Expression Operand(bool aggregates) {
    if (Current().kind == TokenKind::kLiteral) {
      const Token& literal = tokens_[at_++];
      return {Parameter{literal.number, literal.type}};
    }
    if (Accept("null")) return {Null()};
    if (const Token& next = tokens_[std::min(at_ + 1, tokens_.size() - 1)];
        next.kind == TokenKind::kSymbol && next.text == "(") {
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
    if (function != Aggregate::kCount || !AcceptSymbol("*")) call.argument = Column();
    ExpectSymbol(")");
    if (function == Aggregate::kSum && unknown_.empty() && Definition(*call.argument).type != ColumnType::kNumber) {
      throw RuntimeError(kDataConversion);
    }
    return {call};
  }

  static Expression Make(Operator op, std::vector<Expression>&& operands) {
    return {Operation{op, std::move(operands)}};
  }

  static Expression Not(Expression&& condition) {
    std::vector<Expression> operand;
    operand.push_back(std::move(condition));
    return Make(Operator::kNot, std::move(operand));
  }

  // Names. An unknown one is counted and stands for column 0 until Finish raises the error.

  ColumnRef Column() {
    std::string_view name = Name();
    std::string_view qualifier;
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
    unknown_.insert(name);
    return {};
  }

  const ColumnDef& Definition(ColumnRef ref) const {
    return tables_[static_cast<std::size_t>(ref.table)].table->columns[static_cast<std::size_t>(ref.column)];
  }

  ColumnDef ColumnOf(const Expression& expression) const {
    if (const auto* ref = std::get_if<ColumnRef>(&expression.node)) return Definition(*ref);
    if (const auto* literal = std::get_if<Parameter>(&expression.node)) return {{}, literal->type, 0};
    if (std::holds_alternative<Null>(expression.node)) return {};
    const auto& call = std::get<Call>(expression.node);
    if (call.function == Aggregate::kCount || call.function == Aggregate::kSum) return {{}, ColumnType::kNumber, 0};
    ColumnDef column = Definition(*call.argument);
    column.name.clear();
    return column;
  }

  ColumnType TypeOf(const Expression& operand) const {
    const auto* literal = std::get_if<Parameter>(&operand.node);
    return literal ? literal->type : Definition(std::get<ColumnRef>(operand.node)).type;
  }

  void CheckTypes(const Expression& left, const Expression& right) const {
    if (!unknown_.empty()) return;
    for (const Expression* side : {&left, &right}) {
      if (std::holds_alternative<Null>(side->node)) return;
    }
    if (TypeOf(left) != TypeOf(right)) throw RuntimeError(kDataConversion);
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
  const std::vector<Token>& tokens_;
  const Catalogue& catalogue_;
  std::size_t at_ = 0;
  std::vector<TableRef> tables_;
  std::set<std::string_view> unknown_;
  int unnamed_ = 0;
  int depth_ = 0;
  int conditions_ = 0;
};

}  // namespace

Select ParseSelect(const Tokens& tokens, const Catalogue& catalogue) { return Parser(tokens, catalogue).ParseSelect(); }

Delete ParseDelete(const Tokens& tokens, const Catalogue& catalogue) { return Parser(tokens, catalogue).ParseDelete(); }

}  // namespace zendara::sql
