// How many withholding rates one core works out in a second, over workers as companies have them: half without
// children, a fifth with ascendants, both currencies, one in eight a regularisation.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "tests/withholding/parametros.hpp"
#include "values/formato_valor.hpp"
#include "withholding/calculo_irpf.hpp"

namespace zendara {
namespace {

struct Caso {
  EntradasIRPF entradas;
  CondicionesIRPF condiciones;
};

// The same figures in a currency with decimals.
ParametrosIRPF ParametrosConDecimales() {
  const auto is_ratio = [](std::size_t i) {
    return (i < 32 && i % 4 == 2) || i == 43 || i == 44 || i == 50 || (i >= 54 && i <= 56) || i == 74;
  };
  ParametrosIRPF row = Parametros();
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
  const ParametrosIRPF parametros[] = {ParametrosConDecimales(), Parametros()};
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

BENCHMARK_MAIN();
