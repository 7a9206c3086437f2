#include "apps/demo/tax_year.hpp"

#include <cmath>
#include <cstddef>

namespace zendara {
namespace {

constexpr double kPesetasPorEuro = 166.386;

enum class Kind { kAmount, kFigure };

struct Parameter {
  std::size_t column;
  double value;
  Kind kind = Kind::kAmount;
};

// Published figures of the tax year 2000, used for all three years: the scale, the reduction of work income, the
// general personal minimum and the minimum rates.
constexpr Parameter kPublished[] = {
    {0, 0},
    {1, 0},
    {2, 18, Kind::kFigure},  //
    {4, 612'000},
    {5, 110'160},
    {6, 24, Kind::kFigure},  //
    {8, 2'142'000},
    {9, 477'360},
    {10, 28.3, Kind::kFigure},  //
    {12, 4'182'000},
    {13, 1'054'680},
    {14, 37.2, Kind::kFigure},  //
    {16, 6'732'000},
    {17, 2'003'280},
    {18, 45, Kind::kFigure},  //
    {20, 11'220'000},
    {21, 4'022'880},
    {22, 48, Kind::kFigure},  //
    {43, 2, Kind::kFigure},   // minimum rate of contracts under a year
    {44, 18, Kind::kFigure},  // of special relations
    {46, 1'350'000},          // full reduction up to here, where the sliding stretch begins
    {47, 500'000},
    {48, 1'350'000},
    {49, 2'000'000},
    {50, 0.1923, Kind::kFigure},
    {53, 375'000},
    {57, 550'000},
};

// Demonstration values, not those of any law. The limits lie in the published span of 1.250.000 to 2.025.000.
constexpr Parameter kDemonstration[] = {
    {32, 1'250'000},
    {33, 1'575'000},
    {34, 1'250'000},  // limits, no children, by family situation
    {35, 1'650'000},
    {36, 1'750'000},
    {37, 1'350'000},  // one child
    {38, 1'850'000},
    {39, 2'025'000},
    {40, 1'450'000},            // two or more
    {41, 100'000},              // increase for pensioners
    {42, 200'000},              // for the unemployed
    {54, 2.75, Kind::kFigure},  // multipliers of the reduction, grades 3, 1, 2
    {55, 2.25, Kind::kFigure},
    {56, 1.75, Kind::kFigure},
    {58, 650'000},  // personal minimum over 65; grades 1 and 2; grade 3
    {59, 850'000},
    {60, 1'150'000},
    {61, 100'000},  // family minimum per weight unit: first two children, later ones
    {62, 150'000},
    {63, 12'500},  // of school age; under three
    {64, 25'000},
    {65, 150'000},  // with grade 1, grade 2
    {66, 300'000},
    {67, 100'000},  // ascendants; with grade 1, grade 2
    {68, 150'000},
    {69, 300'000},
    {70, 100'000},  // deductions: pensioners, the unemployed, more than two children
    {71, 200'000},
    {72, 100'000},
    {73, 4'000'000},  // remuneration up to which the cap holds, and its percentage
    {74, 35, Kind::kFigure},
};

}  // namespace

double Euros(double pesetas) { return std::round(pesetas / kPesetasPorEuro * 100) / 100; }

std::array<double, 75> FilaIRPF(bool euros) {
  std::array<double, 75> row{};
  const auto fill = [&](const auto& parameters) {
    for (const Parameter& p : parameters) {
      const bool convert = euros && p.kind == Kind::kAmount;
      row.at(p.column) = convert ? Euros(p.value) : p.value;
    }
  };
  fill(kPublished);
  fill(kDemonstration);
  return row;
}

}  // namespace zendara
