#include "workers/familia.hpp"

#include <span>
#include <string>
#include <string_view>

#include "runtime/text.hpp"
#include "workers/campos_trabajador.hpp"

namespace zendara {
namespace {

constexpr int kAnchoNormal = 960;  // of a column of which nothing is said
constexpr int kAnchoMargen = 20;

struct ColumnaRejilla {
  std::string_view titulo;
  int ancho;  // twips
  Alignment alineacion;
  std::string_view espera{};  // what a cell takes
};

struct Rejilla {
  std::string_view rotulo;  // of a row, before its number
  std::span<const ColumnaRejilla> columnas;
};

constexpr std::string_view kEsperaGrado = "0, 1 o 2";

constexpr ColumnaRejilla kColumnasHijos[] = {
    {"", kAnchoMargen, Alignment::kLeft},
    {"", kAnchoNormal, Alignment::kCenter},
    {"Año Nacim.", 1000, Alignment::kRight, "Año, 4 cifras"},
    {"Por entero", 900, Alignment::kCenter, "S o N"},
    {"G.Minusvalia", 1100, Alignment::kCenter, kEsperaGrado},
};
constexpr ColumnaRejilla kColumnasAscendientes[] = {
    {"", kAnchoMargen, Alignment::kLeft},
    {"", 1200, Alignment::kCenter},
    {"Convivencia", 1000, Alignment::kCenter, "De 1 a 9"},
    {"G.Minusvalía", 1000, Alignment::kCenter, kEsperaGrado},
};
constexpr Rejilla kRejillas[] = {{"Hijo ", kColumnasHijos}, {"Ascendiente ", kColumnasAscendientes}};

constexpr std::size_t kLargoAno = 4;
constexpr std::string_view kSinMinusvalia = "0";

bool Entre(int caracter, char desde, char hasta) { return caracter >= desde && caracter <= hasta; }

void PonCaracter(Grid& rejilla, int caracter) { rejilla.SetText(std::string(1, static_cast<char>(caracter))); }

void PonGrado(Grid& rejilla, int caracter) {
  if (Entre(caracter, '0', '2')) PonCaracter(rejilla, caracter);
}

void EscribeHijo(Grid& rejilla, int caracter) {
  using namespace columna_hijo;
  switch (rejilla.Col()) {
    case kAnoNacimiento:
      if (!Entre(caracter, '0', '9') || Len(rejilla.Text()) >= kLargoAno) return;
      rejilla.SetText(rejilla.Text() + static_cast<char>(caracter));
      rejilla.SetCell(rejilla.Row(), kGrado, kSinMinusvalia);
      break;
    case kPorEntero:
      if (caracter == 'S' || caracter == 's') rejilla.SetText("S");
      if (caracter == 'N' || caracter == 'n') rejilla.SetText("N");
      break;
    case kGrado:
      PonGrado(rejilla, caracter);
      break;
    default:
      break;
  }
}

void EscribeAscendiente(Grid& rejilla, int caracter) {
  using namespace columna_ascendiente;
  if (rejilla.Col() == kGrado) PonGrado(rejilla, caracter);
  if (rejilla.Col() != kConvivencia || !Entre(caracter, '1', '9')) return;
  PonCaracter(rejilla, caracter);
  rejilla.SetCell(rejilla.Row(), kGrado, kSinMinusvalia);
}

}  // namespace

void PreparaRejilla(Grid& rejilla) {
  const Rejilla& modelo = kRejillas[rejilla.Index()];
  rejilla.Resize(kFilasRejilla + 1, static_cast<int>(modelo.columnas.size()), 1, 1);
  for (int columna = 0; columna < rejilla.Columns(); ++columna) {
    const ColumnaRejilla& plan = modelo.columnas[static_cast<std::size_t>(columna)];
    rejilla.ColumnAt(columna) = {plan.ancho, plan.alineacion};
    rejilla.SetCell(0, columna, plan.titulo);
  }
  for (int fila = 1; fila <= kFilasRejilla; ++fila) {
    rejilla.SetCell(fila, kColumnaRotulo, std::string(modelo.rotulo) + std::to_string(fila));
  }
  rejilla.SetCurrent(1, kPrimeraColumna);
}

void EscribeFamilia(Grid& rejilla, int caracter) {
  if (rejilla.Index() == kHijos) {
    EscribeHijo(rejilla, caracter);
  } else {
    EscribeAscendiente(rejilla, caracter);
  }
}

void BorraFamilia(Grid& rejilla, int tecla) {
  const std::string texto = rejilla.Text();
  if (tecla == key::kDelete) rejilla.SetText("");
  if (tecla == key::kBack && !texto.empty()) rejilla.SetText(Left(texto, static_cast<int>(Len(texto)) - 1));
}

bool PulsaIntro(Grid& rejilla) {
  using namespace columna_hijo;
  if (rejilla.Index() != kHijos) return false;
  if (rejilla.Col() == kAnoNacimiento) {
    rejilla.SetCol(kPorEntero);
    return true;
  }
  if (rejilla.Col() != kGrado || rejilla.Row() == kFilasRejilla) return false;
  rejilla.SetCurrent(rejilla.Row() + 1, kPorEntero);
  return true;
}

std::string_view EsperaFamilia(const Grid& rejilla) {
  return kRejillas[rejilla.Index()].columnas[static_cast<std::size_t>(rejilla.Col())].espera;
}

int FilaIncompleta(const Grid& rejilla) {
  for (int fila = 1; fila <= kFilasRejilla; ++fila) {
    int vacias = 0;
    for (int columna = kPrimeraColumna; columna < rejilla.Columns(); ++columna) {
      if (rejilla.Cell(fila, columna).empty()) ++vacias;
    }
    if (vacias != 0 && vacias != rejilla.Columns() - kPrimeraColumna) return fila;
  }
  return 0;
}

}  // namespace zendara
