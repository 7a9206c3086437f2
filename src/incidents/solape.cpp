#include "incidents/solape.hpp"

#include <utility>

#include "platform/sql/literal.hpp"

namespace zendara {
namespace {

// P and O are the screen's own table and the other one, W the worker, A and B the start and the end. The first column
// of the second and third questions is another one on each screen, and is never read.
constexpr std::string_view kAbierta =
    "select {P}.campo3,{P}.campo0,{O}.campo0 from {P} INNER JOIN {O} ON {P}.campo0 = {O}.campo0  where  "
    "({P}.campo4 = null and {P}.campo0 = '{W}') or ({O}.campo4 = null and {O}.campo0 = '{W}') ";
constexpr std::string_view kDesde = " from {P} INNER JOIN {O} ON {P}.campo0 = {O}.campo0 where ({P}.campo0 = '{W}'";
constexpr std::string_view kInicio =
    "  and #{A}# between {P}.campo3 and {P}.campo4) or ({O}.campo0 = '{W}'  and #{A}# between {O}.campo3 and "
    "{O}.campo4)";
constexpr std::string_view kFin =
    "  and #{B}# between {P}.campo3 and {P}.campo4) or ({O}.campo0 = '{W}'  and #{B}# between {O}.campo3 and "
    "{O}.campo4)";
constexpr std::string_view kEncierra =
    "  and #{A}# <  {P}.campo3 and #{B}# >  {P}.campo4) or ({O}.campo0 = '{W}'  and #{A}# <  {O}.campo3 and #{B}# >  "
    "{O}.campo4) ";

struct Columnas {
  std::string_view inicio;
  std::string_view fin;
};

std::string Lista(std::string_view columna) {
  return "select {P}." + std::string(columna) + ",{P}.campo0,{O}.campo0" + std::string(kDesde);
}

}  // namespace

ConsultasSolape ConsultasDeSolape(TablaIncidencias propia, std::string_view trabajador, std::string_view inicio,
                                  std::string_view fin) {
  const bool it = propia == TablaIncidencias::kIT;
  const std::pair<char, std::string> marcas[] = {
      {'P', it ? "tincidenciasit" : "tincidenciasesp"},
      {'O', it ? "tincidenciasesp" : "tincidenciasit"},
      {'W', SqlText(trabajador)},
      {'A', std::string(inicio)},
      {'B', std::string(fin)},
  };
  const auto rellena = [&](std::string_view texto) {
    std::string consulta;
    for (std::size_t i = 0; i < texto.size(); ++i) {
      if (texto[i] != '{') {
        consulta += texto[i];
        continue;
      }
      for (const auto& [marca, valor] : marcas) {
        if (marca == texto[i + 1]) consulta += valor;
      }
      i += 2;
    }
    return consulta;
  };
  const Columnas columnas = it ? Columnas{"campo3", "campo4"} : Columnas{"campo4", "campo3"};
  return {rellena(kAbierta), rellena(Lista(columnas.inicio) + std::string(kInicio)),
          rellena(Lista(columnas.fin) + std::string(kFin)), rellena(Lista("campo4") + std::string(kEncierra))};
}

}  // namespace zendara
