// The rule that keeps incidents apart, against a model of it as it is written.
#include "incidents/solape.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>

#include "incidents/incidencias_fixture.hpp"

namespace zendara {
namespace {

using Dia = int;  // of a month

struct Intervalo {
  Dia inicio;
  std::optional<Dia> fin;
};

bool Entre(Dia dia, const Intervalo& fila) {
  return fila.fin && std::min(fila.inicio, *fila.fin) <= dia && dia <= std::max(fila.inicio, *fila.fin);
}

// With rows in one of the tables only nothing collides; an open row never does.
bool Choca(const std::vector<Intervalo>& propias, const std::vector<Intervalo>& otras, const Intervalo& nueva) {
  if (propias.empty() || otras.empty()) return false;
  const auto choca = [&](const Intervalo& fila) {
    if (Entre(nueva.inicio, fila)) return true;
    return nueva.fin && (Entre(*nueva.fin, fila) || (nueva.inicio < fila.inicio && fila.fin && *nueva.fin > *fila.fin));
  };
  return std::ranges::any_of(propias, choca) || std::ranges::any_of(otras, choca);
}

std::string Fecha(Dia dia) { return (dia < 10 ? "0" : "") + std::to_string(dia) + "/03/01"; }
std::string Fin(const Intervalo& fila) { return fila.fin ? Fecha(*fila.fin) : ""; }

class SolapeTest : public IncidenciasTest {
 protected:
  void Comprueba(const std::string& propia, const std::string& otra) {
    const std::vector<std::vector<Intervalo>> juegos = {{}, {{5, 7}}, {{5, {}}}, {{7, 5}}, {{3, 3}, {9, 12}}};
    const Intervalo nuevas[] = {{3, {}}, {5, {}}, {6, {}}, {7, {}},  {8, {}}, {2, 3}, {4, 5},
                                {4, 6},  {4, 8},  {5, 7},  {6, 6},   {6, 8},  {7, 8}, {8, 8},
                                {8, 10}, {1, 13}, {3, 12}, {12, 14}, {13, 14}};
    for (const auto& propias : juegos) {
      for (const auto& otras : juegos) {
        for (const Intervalo& nueva : nuevas) {
          SCOPED_TRACE(propia + " " + std::to_string(&propias - juegos.data()) + ", " +
                       std::to_string(&otras - juegos.data()) + ": " + Fecha(nueva.inicio) + "-" + Fin(nueva));
          const auto pon = [&](const std::string& tabla, const std::vector<Intervalo>& filas) {
            Vacia(FileKind::kCompany, tabla);
            for (const Intervalo& fila : filas) Incidencia(tabla, Fecha(fila.inicio), Fin(fila), "otra");
          };
          pon(propia, propias);
          pon(otra, otras);
          El<Button>("Grabar").SetFocus();
          Caja(CampoFechas::kTrabajador).SetText(kTrabajadorUno);
          Caja(CampoFechas::kNombre).SetText("nueva");
          Caja(CampoFechas::kInicio).SetText(Fecha(nueva.inicio));
          Caja(CampoFechas::kFin).SetText(Fin(nueva));
          host.boxes.clear();
          Pulsa("Grabar");

          const std::string fila = std::string(kTrabajadorUno) + "|nueva||" + Fecha(nueva.inicio) + "|" + Fin(nueva);
          const bool choca = Choca(propias, otras, nueva);
          EXPECT_EQ(std::ranges::count(Filas(FileKind::kCompany, propia), fila), choca ? 0 : 1);
          const std::vector<std::string> dicho = {
              "Ya existe una incidencia para ese trabajador en es intervalo tiempo "};
          EXPECT_EQ(host.boxes, choca ? dicho : std::vector<std::string>());
          EXPECT_EQ(Texto(CampoFechas::kInicio), choca ? Fecha(nueva.inicio) : "");
          if (choca) Pulsa("Cancela");
        }
      }
    }
  }
};

TEST_F(SolapeTest, IT) {
  Abre<MIncidencias>();
  Comprueba("TincidenciasIT", "TincidenciasESP");
}

TEST_F(SolapeTest, ESP) {
  Abre<MIncidenciasESP>();
  Comprueba("TincidenciasESP", "TincidenciasIT");
}

// To the letter: what a host reads in SqlTexto.
TEST(ConsultasSolape, StandAsTheyAreAsked) {
  const ConsultasSolape it = ConsultasDeSolape(TablaIncidencias::kIT, "00003", "03/01/01", "03/10/01");
  const std::string desde =
      ",tincidenciasit.campo0,tincidenciasesp.campo0 from tincidenciasit INNER JOIN tincidenciasesp ON "
      "tincidenciasit.campo0 = tincidenciasesp.campo0 where (tincidenciasit.campo0 = '00003'  and ";
  EXPECT_EQ(it.abierta,
            "select tincidenciasit.campo3,tincidenciasit.campo0,tincidenciasesp.campo0 from tincidenciasit INNER JOIN "
            "tincidenciasesp ON tincidenciasit.campo0 = tincidenciasesp.campo0  where  (tincidenciasit.campo4 = null "
            "and tincidenciasit.campo0 = '00003') or (tincidenciasesp.campo4 = null and tincidenciasesp.campo0 = "
            "'00003') ");
  EXPECT_EQ(it.inicio, "select tincidenciasit.campo3" + desde +
                           "#03/01/01# between tincidenciasit.campo3 and tincidenciasit.campo4) or "
                           "(tincidenciasesp.campo0 = '00003'  and #03/01/01# between tincidenciasesp.campo3 and "
                           "tincidenciasesp.campo4)");
  EXPECT_EQ(it.encierra, "select tincidenciasit.campo4" + desde +
                             "#03/01/01# <  tincidenciasit.campo3 and #03/10/01# >  tincidenciasit.campo4) or "
                             "(tincidenciasesp.campo0 = '00003'  and #03/01/01# <  tincidenciasesp.campo3 and "
                             "#03/10/01# >  tincidenciasesp.campo4) ");
  const ConsultasSolape esp = ConsultasDeSolape(TablaIncidencias::kESP, "00003", "03/01/01", "03/10/01");
  EXPECT_THAT(esp.inicio, testing::StartsWith("select tincidenciasesp.campo4,tincidenciasesp.campo0,"
                                              "tincidenciasit.campo0 from tincidenciasesp INNER JOIN tincidenciasit"));
  EXPECT_THAT(esp.fin, testing::StartsWith("select tincidenciasesp.campo3,"));
}

}  // namespace
}  // namespace zendara
