#include "values/formato_fecha.hpp"

#include <algorithm>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr int kTypedLength = 6;

void Warn(const std::string& text, Dialogs& dialogs) {
  dialogs.Beep();
  dialogs.Show({.text = text, .icon = BoxIcon::kExclamation, .title = "Atención"});
}

std::string WithBars(const std::string& text, int day_digits) {
  return Left(text, day_digits) + "/" + Mid(text, day_digits + 1, 2) + "/" + Mid(text, day_digits + 3, 2);
}

}  // namespace

std::string FormatoFecha(TextField& control, Dialogs& dialogs, YearWindow window) {
  std::string text = control.Text();
  if (text.empty()) return {};

  // Any order of the parts: a day of one digit, typed without its zero, gets through here.
  if (!ReadDate(Mid(text, 1, 2) + "/" + Mid(text, 3, 2) + "/" + Mid(text, 5), window)) {
    dialogs.Show({.text = "  Fecha incorrecta"});
    control.SetText("");
    control.SetFocus();
    return {};
  }

  if (Val(text) == 0) text.clear();
  if (const std::string first = Left(text, 1); !first.empty() && Val(first) == 0) {
    if (first != "0") text = Left(text, kTypedLength);
    text = Mid(text, 2);
  }

  const auto length = static_cast<int>(Len(Trim(text)));
  if (length != kTypedLength && length != kTypedLength - 1) {
    Warn("Formato de fecha Incorrecto, Introducir [DDMMAA]", dialogs);
    return {};
  }
  const std::string written = WithBars(text, length - 4);
  const auto date = ReadDateStrict(written, window);
  if (!date) {
    Warn(written + " ,Fecha Incorrecta", dialogs);
    return {};
  }
  return ShortDate(*date);
}

std::string ConBarras(const std::string& fecha) {
  const bool digits = Len(fecha) == kTypedLength && std::ranges::all_of(fecha, IsDigit);
  return digits ? WithBars(fecha, 2) : fecha;
}

std::string SinBarras(const TextField& control) {
  std::string text = control.Text();
  for (int bar = 0; bar < 2; ++bar) {
    const std::size_t place = text.find('/');
    if (place != std::string::npos) text.erase(place, 1);
  }
  return text;
}

}  // namespace zendara
