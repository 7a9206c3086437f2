// Values as stored columns and variant variables hold them: Null, text, number or date.
#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace zendara {

// A point in time as the number of days since 30/12/1899, time of day as the fraction.
// Range: 01/01/100 (-657434) to 31/12/9999 (2958465).
struct Date {
  double serial = 0;

  friend auto operator<=>(const Date&, const Date&) = default;
};

// The hundred years that a year of two digits falls in.
struct YearWindow {
  int last = 2029;  // of the hundred, in full

  friend bool operator==(const YearWindow&, const YearWindow&) = default;
};

struct Null {
  friend bool operator==(Null, Null) { return true; }
};

// One of the four, copied whole. Texts are UTF-8.
// Two values are equal when kind and contents are the same, letter case and blanks included. Null equals Null here; in
// statements of the record engine no comparison with it holds.
class Value {
 public:
  Value() = default;  // Null
  Value(Null) {}
  Value(std::string text) : data_(std::move(text)) {}
  Value(std::string_view text) : data_(std::in_place_type<std::string>, text) {}
  Value(const char* text) : data_(std::string(text)) {}
  Value(double number) : data_(number) {}
  Value(int number) : data_(static_cast<double>(number)) {}
  Value(Date date) : data_(date) {}

  bool IsNull() const { return std::holds_alternative<Null>(data_); }
  bool IsText() const { return std::holds_alternative<std::string>(data_); }
  bool IsNumber() const { return std::holds_alternative<double>(data_); }
  bool IsDate() const { return std::holds_alternative<Date>(data_); }

  // REQUIRES: the value is of that kind.
  const std::string& Text() const { return std::get<std::string>(data_); }
  double Number() const { return std::get<double>(data_); }
  Date AsDate() const { return std::get<Date>(data_); }

  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<Null, std::string, double, Date> data_;
};

}  // namespace zendara
