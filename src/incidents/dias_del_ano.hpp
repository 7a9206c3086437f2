// The days of a year in a row, and which of them an incident has.
#pragma once

#include <algorithm>
#include <array>
#include <optional>

#include "runtime/date.hpp"

namespace zendara {

inline constexpr int kMesesAno = 12;

// Days of the year, from 0, both ends included.
struct TramoAno {
  int desde = 0;
  int hasta = 0;
  bool viene = false;  // from before the year
  bool sigue = false;  // beyond it, or open
};

class DiasDelAno {
 public:
  // REQUIRES: dates have such a year, and one behind it.
  explicit DiasDelAno(int ano) {
    for (int mes = 0; mes <= kMesesAno; ++mes) {
      primeros_[static_cast<std::size_t>(mes)] =
          static_cast<int>(MakeDate(ano + mes / kMesesAno, mes % kMesesAno + 1, 1)->serial);
    }
  }

  int Dias() const { return Primero(kMesesAno); }
  // First day of a month, from 0; of the month behind the last one, that of the next year.
  int Primero(int mes) const { return primeros_[static_cast<std::size_t>(mes)] - primeros_[0]; }
  // The serial 0 was a Saturday.
  bool EsFinDeSemana(int dia) const { return ((primeros_[0] + dia) % 7 + 7) % 7 <= 1; }

  // Nothing when no day of the year is one of these.
  std::optional<TramoAno> TramoDe(Date inicio, const std::optional<Date>& fin) const {
    const double desde = inicio.serial - primeros_[0];
    const double hasta = fin ? fin->serial - primeros_[0] : Dias();
    if (hasta < 0 || desde >= Dias() || hasta < desde) return std::nullopt;
    return TramoAno{.desde = static_cast<int>(std::max(desde, 0.0)),
                    .hasta = static_cast<int>(std::min(hasta, Dias() - 1.0)),
                    .viene = desde < 0,
                    .sigue = hasta >= Dias()};
  }

 private:
  std::array<int, kMesesAno + 1> primeros_{};  // serials
};

}  // namespace zendara
