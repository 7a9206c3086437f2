// How many withholding rates one core works out in a second, over workers as companies have them: half without
// children, a fifth with ascendants, both currencies, one in eight a regularisation.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "values/formato_valor.hpp"
#include "withholding/calculo_irpf.hpp"

namespace zendara {
namespace {

struct Caso {
  EntradasIRPF entradas;
  CondicionesIRPF condiciones;
};

ParametrosIRPF Parametros(bool pesetas) {
  constexpr double kScale[][3] = {{0, 0, 18},
                                  {612000, 110160, 24},
                                  {2142000, 477360, 28.3},
                                  {4182000, 1054680, 37.2},
                                  {6732000, 2003280, 45},
                                  {11220000, 4022880, 48}};
  ParametrosIRPF row{};
  std::size_t column = 0;
  for (const auto& bracket : kScale) {
    for (std::size_t i = 0; i < 3; ++i) row[column + i] = bracket[i];
    column += 4;
  }
  constexpr double kFrom32[] = {1250000, 1250000, 1250000, 1250000, 1650000, 1450000, 1300000, 2025000, 1500000,
                                100000,  200000,  2,       18,      0,       1350000, 500000,  1350000, 2000000,
                                0.1923,  0,       0,       375000,  2.75,    1.75,    2.25,    550000,  650000,
                                850000,  1150000, 200000,  300000,  25000,   50000,   300000,  600000,  100000,
                                300000,  600000,  100000,  200000,  100000,  3000000, 35};
  for (std::size_t i = 0; i < std::size(kFrom32); ++i) row[32 + i] = kFrom32[i];
  if (pesetas) return row;
  const auto is_ratio = [](std::size_t i) {
    return (i < 32 && i % 4 == 2) || i == 43 || i == 44 || i == 50 || (i >= 54 && i <= 56) || i == 74;
  };
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (!is_ratio(i)) row[i] /= 166.386;
  }
  return row;
}

std::vector<Caso> Casos(std::size_t count) {
  std::mt19937 random(20001);
  const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
  std::vector<Caso> casos(count);
  for (Caso& caso : casos) {
    EntradasIRPF& e = caso.entradas;
    caso.condiciones = {.ano = "01", .pesetas = below(2) == 0, .regularizacion = below(8) == 0};
    const double unit = caso.condiciones.pesetas ? 1 : 0.01;
    e.SituacionPerceptor = below(12) == 0 ? "P" : "A";
    e.TipoContrato = e.SituacionPerceptor == "P" ? "" : below(5) == 0 ? "I" : "G";
    e.SituacionFamiliar = std::string(1, static_cast<char>('1' + below(3)));
    e.GradoMinusvalia = below(15) == 0 ? "1" : "0";
    e.FechaNacimiento = "15/06/" + std::to_string(35 + below(45));
    e.RetribucionesAnuales = FormatoValor(10, (900000 + below(9000000)) * (unit == 1 ? 1 : 0.006), "112 N");
    e.GastosAnuales = FormatoValor(10, (60000 + below(300000)) * (unit == 1 ? 1 : 0.006), "112 N");
    if (caso.condiciones.regularizacion) {
      e.RetribucionesAcumuladas = FormatoValor(10, (100000 + below(700000)) * unit, "112 N");
      e.RetencionAcumulada = FormatoValor(10, below(90000) * unit, "112 N");
    }
    const int children = below(2) == 0 ? 0 : 1 + below(4);
    for (int i = 0; i < children; ++i) {
      e.Hijos[static_cast<std::size_t>(i)] = {static_cast<double>(below(28)), below(2) == 0 ? "N" : "S", "0"};
    }
    if (below(5) == 0) e.Ascendientes[0] = {std::to_string(1 + below(3)), std::to_string(below(3))};
  }
  return casos;
}

void CalculaTipo(benchmark::State& state) {
  const std::vector<Caso> casos = Casos(1024);
  const ParametrosIRPF parametros[] = {Parametros(false), Parametros(true)};
  std::size_t next = 0;
  for (auto _ : state) {
    const Caso& caso = casos[next++ % casos.size()];
    benchmark::DoNotOptimize(
        CalculaTipoIRPF(caso.entradas, parametros[caso.condiciones.pesetas ? 1 : 0], caso.condiciones));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(CalculaTipo);

}  // namespace
}  // namespace zendara
