#include "platform/sql/tokenizer.hpp"

#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::sql {
namespace {

constexpr std::string_view kBadText = "Error de sintaxis en la cadena";
constexpr std::string_view kBadDate = "Error de sintaxis en la fecha";

bool StartsWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Three runs of digits between "/" or "-".
std::optional<std::array<int, 3>> SplitDate(std::string_view text) {
  std::array<int, 3> parts{};
  const char* at = text.data();
  const char* end = at + text.size();
  for (int i = 0; i < 3; ++i) {
    while (at != end && *at == ' ') ++at;
    const auto [next, error] = std::from_chars(at, end, parts[static_cast<std::size_t>(i)]);
    if (error != std::errc() || next - at > 4 || !IsDigit(*at)) return std::nullopt;
    at = next;
    while (at != end && *at == ' ') ++at;
    if (i < 2 && (at == end || (*at != '/' && *at != '-'))) return std::nullopt;
    if (i < 2) ++at;
  }
  if (at != end) return std::nullopt;
  return parts;
}

// The language's own order, whatever the locale: month first, then year first, then day first.
std::optional<Date> ReadLiteralDate(std::string_view text, YearWindow window) {
  const auto parts = SplitDate(text);
  if (!parts) return std::nullopt;
  const auto [a, b, c] = *parts;
  if (const auto date = MakeDate(FullYear(c, window), a, b)) return date;
  if (const auto date = MakeDate(FullYear(a, window), b, c)) return date;
  return MakeDate(FullYear(c, window), b, a);
}

class Scanner {
 public:
  Scanner(std::string_view sql, YearWindow window) : sql_(sql), window_(window), result_{sql, {}, {}, {}} {}

  Tokens Run() {
    result_.tokens.reserve(sql_.size() / 4 + 1);
    result_.shape.reserve(sql_.size());
    for (SkipBlanks(); at_ < sql_.size(); SkipBlanks()) Next();
    result_.tokens.emplace_back();
    return std::move(result_);
  }

 private:
  void SkipBlanks() {
    while (at_ < sql_.size() && IsBlank(sql_[at_])) ++at_;
  }

  void Next() {
    const char c = sql_[at_];
    if (c == '\'' || c == '"') return Text(c);
    if (c == '#') return DateLiteral();
    if (c == '[') return Bracketed();
    if (IsDigit(c)) return Number(1);
    if (c == '-') return Negative();
    if (StartsWord(c)) return Word();
    Symbol();
  }

  void Add(TokenKind kind, std::string_view text) {
    result_.tokens.push_back({kind, text});
    (result_.shape += text) += ' ';
  }

  // No statement has a "?" elsewhere.
  template <typename T>
  void AddLiteral(T value, ColumnType type, std::string_view mark) {
    result_.literals.emplace_back(std::move(value));
    result_.tokens.push_back({TokenKind::kLiteral, {}, true, static_cast<int>(result_.literals.size()), type});
    result_.shape += mark;
  }

  void Text(char quote) {
    std::string text;
    for (++at_; at_ < sql_.size(); ++at_) {
      if (sql_[at_] == quote) {
        if (at_ + 1 == sql_.size() || sql_[at_ + 1] != quote) {
          ++at_;
          return AddLiteral(std::move(text), ColumnType::kText, "?t ");
        }
        ++at_;
      }
      if (sql_[at_] == '\0') break;  // no column holds it
      text += sql_[at_];
    }
    FailSyntax(sql_, kBadText);
  }

  void DateLiteral() {
    const std::size_t end = sql_.find('#', at_ + 1);
    if (end == std::string_view::npos) FailSyntax(sql_, kBadDate);
    const auto date = ReadLiteralDate(sql_.substr(at_ + 1, end - at_ - 1), window_);
    if (!date) FailSyntax(sql_, kBadDate);
    at_ = end + 1;
    AddLiteral(*date, ColumnType::kDate, "?d ");
  }

  void Bracketed() {
    const std::size_t end = sql_.find(']', at_);
    if (end == std::string_view::npos) FailSyntax(sql_);
    result_.tokens.push_back({TokenKind::kWord, sql_.substr(at_ + 1, end - at_ - 1), true});
    (result_.shape += sql_.substr(at_, end + 1 - at_)) += ' ';
    at_ = end + 1;
  }

  void Number(double sign) {
    double number = 0;
    const char* begin = sql_.data() + at_;
    const auto [end, error] = std::from_chars(begin, sql_.data() + sql_.size(), number);
    if (error != std::errc()) FailSyntax(sql_);
    at_ += static_cast<std::size_t>(end - begin);
    AddLiteral(sign * number, ColumnType::kNumber, "?n ");
  }

  // A minus is the sign of a number and nothing else.
  void Negative() {
    ++at_;
    SkipBlanks();
    if (at_ == sql_.size() || !IsDigit(sql_[at_])) FailSyntax(sql_);
    Number(-1);
  }

  void Word() {
    const std::size_t begin = at_;
    while (at_ < sql_.size() && (StartsWord(sql_[at_]) || IsDigit(sql_[at_]))) ++at_;
    Add(TokenKind::kWord, sql_.substr(begin, at_ - begin));
  }

  void Symbol() {
    for (const std::string_view symbol : {"<>", "<=", ">=", "=", "<", ">", "(", ")", ",", ".", "*", ";"}) {
      if (!sql_.substr(at_).starts_with(symbol)) continue;
      at_ += symbol.size();
      return Add(TokenKind::kSymbol, symbol);
    }
    FailSyntax(sql_);
  }

  std::string_view sql_;
  YearWindow window_;
  Tokens result_;
  std::size_t at_ = 0;
};

}  // namespace

Tokens Tokenize(std::string_view sql, YearWindow window) { return Scanner(sql, window).Run(); }

void FailSyntax(std::string_view sql, std::string_view cause) {
  constexpr int kShown = 500;  // characters
  std::string shown = Left(sql, kShown);
  if (shown.size() < sql.size()) shown += "…";
  throw RuntimeError(kQuerySyntax, {std::string(cause), std::move(shown)});
}

}  // namespace zendara::sql
