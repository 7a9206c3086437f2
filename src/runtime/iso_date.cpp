#include "runtime/iso_date.hpp"

#include <algorithm>
#include <cmath>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

constexpr int kSecondsADay = 86400;

void AppendDigits(std::string& text, int number, int width) {
  const std::size_t end = text.size() + static_cast<std::size_t>(width);
  text.append(static_cast<std::size_t>(width), '0');
  for (std::size_t i = end; i-- > end - static_cast<std::size_t>(width); number /= 10) {
    text[i] = static_cast<char>('0' + number % 10);
  }
}

// Reads along a text; `ok` stays false from the first thing that is not there.
struct Reader {
  std::string_view text;
  bool ok = true;

  int Digits(std::size_t width) {
    int number = 0;
    ok = ok && text.size() >= width && std::ranges::all_of(text.substr(0, width), IsDigit);
    if (!ok) return 0;
    for (const char c : text.substr(0, width)) number = number * 10 + (c - '0');
    text.remove_prefix(width);
    return number;
  }

  void Mark(char mark) {
    ok = ok && text.starts_with(mark);
    if (ok) text.remove_prefix(1);
  }
};

}  // namespace

std::string IsoDate(Date date) {
  const DateParts parts = PartsOf(date);
  std::string text;
  AppendDigits(text, parts.year, 4);
  text += '-';
  AppendDigits(text, parts.month, 2);
  text += '-';
  AppendDigits(text, parts.day, 2);
  // The fraction is the time of day also before day 0, where serials are negative.
  const double fraction = std::abs(date.serial - std::trunc(date.serial));
  const int seconds = std::min(static_cast<int>(std::lround(fraction * kSecondsADay)), kSecondsADay - 1);
  if (seconds == 0) return text;
  text += 'T';
  AppendDigits(text, seconds / 3600, 2);
  text += ':';
  AppendDigits(text, seconds / 60 % 60, 2);
  text += ':';
  AppendDigits(text, seconds % 60, 2);
  return text;
}

std::optional<Date> ReadIsoDate(std::string_view text) {
  Reader read{text};
  const int year = read.Digits(4);
  read.Mark('-');
  const int month = read.Digits(2);
  read.Mark('-');
  const int day = read.Digits(2);
  if (!read.ok) return std::nullopt;
  const auto date = MakeDate(year, month, day);
  if (!date || read.text.empty()) return date;
  read.Mark('T');
  const int hour = read.Digits(2);
  read.Mark(':');
  const int minute = read.Digits(2);
  read.Mark(':');
  const int second = read.Digits(2);
  if (!read.ok || !read.text.empty() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  const double time = static_cast<double>(hour * 3600 + minute * 60 + second) / kSecondsADay;
  return Date{date->serial < 0 ? date->serial - time : date->serial + time};
}

}  // namespace zendara
