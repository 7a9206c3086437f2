#include "apps/zendara/commands/stored_text.hpp"

#include <array>
#include <charconv>
#include <cmath>

#include "runtime/date.hpp"

namespace zendara {
namespace {

// Wider than the serials, so that a serial goes to seconds and back without loss.
using Seconds = long double;
constexpr Seconds kSecondsOfDay = 86400;
constexpr int kMaxDecimals = 17;

template <typename Number, typename... Format>
std::string NumberText(Number number, Format... format) {
  std::array<char, 64> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format...).ptr;
  return {buffer.data(), end};
}

template <typename Number>
std::optional<Number> ReadNumber(std::string_view text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) return std::nullopt;
  return number;
}

// Exactly `width` digits at `position`.
std::optional<int> ReadDigits(std::string_view text, std::size_t position, std::size_t width) {
  int number = 0;
  for (std::size_t i = position; i < position + width; ++i) {
    if (i >= text.size() || text[i] < '0' || text[i] > '9') return std::nullopt;
    number = number * 10 + (text[i] - '0');
  }
  return number;
}

std::string Padded(int number, std::size_t width) {
  std::string text = std::to_string(number);
  return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

// The time of day counts forward also before day 0, where serials are negative.
Date Join(double day, Seconds seconds) {
  const Seconds time = seconds / kSecondsOfDay;
  return Date{static_cast<double>(day < 0 ? day - time : day + time)};
}

std::string TimeText(Seconds seconds, int decimals) {
  const int whole = static_cast<int>(seconds);
  std::string second = NumberText(seconds - whole / 60 * 60, std::chars_format::fixed, decimals);
  if (whole % 60 < 10) second.insert(0, 1, '0');
  return "T" + Padded(whole / 3600, 2) + ":" + Padded(whole / 60 % 60, 2) + ":" + second;
}

}  // namespace

std::string IsoDate(Date date) {
  const double day = std::trunc(date.serial);
  const DateParts parts = PartsOf(Date{day});
  const std::string text = Padded(parts.year, 4) + "-" + Padded(parts.month, 2) + "-" + Padded(parts.day, 2);
  const Seconds time = std::abs(Seconds{date.serial} - Seconds{day}) * kSecondsOfDay;
  if (time == 0) return text;
  const Date stored = Join(day, time);
  // Whole seconds as a rule; a finer time of day takes as many decimals as it needs to read back.
  std::string best = text;
  for (int decimals = 0; decimals <= kMaxDecimals; ++decimals) {
    const Seconds scale = std::pow(Seconds{10}, decimals);
    const Seconds seconds = std::round(time * scale) / scale;
    if (seconds >= kSecondsOfDay) continue;
    best = text + TimeText(seconds, decimals);
    if (ReadIsoDate(best) == stored) break;
  }
  return best;
}

std::optional<Date> ReadIsoDate(std::string_view text) {
  const auto year = ReadDigits(text, 0, 4);
  const auto month = ReadDigits(text, 5, 2);
  const auto day = ReadDigits(text, 8, 2);
  if (!year || !month || !day || text[4] != '-' || text[7] != '-') return std::nullopt;
  const std::optional<Date> date = MakeDate(*year, *month, *day);
  if (!date || text.size() == 10) return date;
  const auto hour = ReadDigits(text, 11, 2);
  const auto minute = ReadDigits(text, 14, 2);
  const auto second = ReadDigits(text, 17, 2);
  if (!hour || !minute || !second || text[10] != 'T' || text[13] != ':' || text[16] != ':') return std::nullopt;
  if (*hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
  if (text.size() > 19 && (text[19] != '.' || text.find_first_not_of("0123456789", 20) != std::string_view::npos)) {
    return std::nullopt;
  }
  const std::optional<Seconds> seconds = ReadNumber<Seconds>(text.substr(17));
  if (!seconds) return std::nullopt;
  return Join(date->serial, static_cast<Seconds>(*hour * 3600 + *minute * 60) + *seconds);
}

void AppendStored(const Value& value, std::string& row) {
  if (value.IsText()) {
    AppendCsvText(value.Text(), row);
  } else if (value.IsNumber()) {
    row += NumberText(value.Number());
  } else if (value.IsDate()) {
    row += IsoDate(value.AsDate());
  }
}

std::optional<Value> ReadStored(const CsvField& field, ColumnType type) {
  if (field.IsNull()) return Value();
  switch (type) {
    case ColumnType::kText:
      return Value(field.text);
    case ColumnType::kNumber:
      if (const auto number = ReadNumber<double>(field.text)) return Value(*number);
      return std::nullopt;
    case ColumnType::kDate:
      if (const auto date = ReadIsoDate(field.text)) return Value(*date);
      return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace zendara
