#include "withholding/entradas_irpf.hpp"

#include "values/valor_numero.hpp"

namespace zendara {
namespace {

// Columns of TrabajadoresFijo, by ordinal.
enum ColumnaTrabajador {
  kSituacionPerceptor = 20,
  kTipoContrato = 21,
  kSituacionFamiliar = 22,
  kGradoMinusvalia = 24,
  kHijos = 25,         // ten rows of year of birth, por entero, grade
  kAscendientes = 55,  // ten rows of convivencia, grade
  kFechaNacimiento = 19,
  kRetribucionesAnuales = 75,
  kRentasIrregulares = 76,
  kGastosAnuales = 77,
  kAnualidades = 79,
  kAnualidadesRegistro = 48,  // of the stored row
  kCeutaMelilla = 80,
  kRetribucionesAcumuladas = 81,
  kRetencionAcumulada = 82,
};

// What both ways have in common. `campo` gives the text of a column by its ordinal.
template <typename Campo>
EntradasIRPF Lee(const Campo& campo, std::string_view ano) {
  EntradasIRPF entradas;
  entradas.SituacionPerceptor = campo(kSituacionPerceptor);
  entradas.TipoContrato = campo(kTipoContrato);
  if (entradas.SituacionPerceptor == "P" || entradas.SituacionPerceptor == "D") entradas.TipoContrato.clear();
  entradas.SituacionFamiliar = campo(kSituacionFamiliar);
  entradas.GradoMinusvalia = campo(kGradoMinusvalia);
  entradas.RetribucionesAnuales = campo(kRetribucionesAnuales);
  entradas.RentasIrregulares = campo(kRentasIrregulares);
  entradas.GastosAnuales = campo(kGastosAnuales);
  entradas.CeutaMelilla = campo(kCeutaMelilla);

  const int ano_fin = AnoFin(ano);
  for (std::size_t r = 0; r < kFilasFamilia; ++r) {
    const int hijo = kHijos + 3 * static_cast<int>(r);
    entradas.Hijos[r] = {
        .edad = ano_fin - ValorNumero(campo(hijo)), .por_entero = campo(hijo + 1), .grado = campo(hijo + 2)};
    const int ascendiente = kAscendientes + 2 * static_cast<int>(r);
    entradas.Ascendientes[r] = {.convivencia = campo(ascendiente), .grado = campo(ascendiente + 1)};
  }
  return entradas;
}

}  // namespace

ParametrosIRPF LeeParametrosIRPF(Recordset& irpf) {
  ParametrosIRPF parametros;
  for (std::size_t i = 0; i < parametros.size(); ++i) {
    parametros[i] = ValorNumero(TextoNoNulo(irpf.Fields(static_cast<int>(i)).Get()));
  }
  return parametros;
}

EntradasIRPF LeeDatosRegistro(Recordset& trabajadores_fijo, std::string_view ano) {
  const auto campo = [&](int ordinal) { return TextoNoNulo(trabajadores_fijo.Fields(ordinal).Get()); };
  EntradasIRPF entradas = Lee(campo, ano);
  entradas.FechaNacimiento = trabajadores_fijo.Fields(kFechaNacimiento).Get();
  entradas.Anualidades = campo(kAnualidadesRegistro);
  entradas.RetribucionesAcumuladas = campo(kRetribucionesAcumuladas);
  entradas.RetencionAcumulada = campo(kRetencionAcumulada);
  return entradas;
}

EntradasIRPF LeeDatosPantalla(const PantallaIRPF& pantalla, std::string_view ano, bool regularizacion) {
  EntradasIRPF entradas = Lee([&](int ordinal) { return pantalla.TextoColumna(ordinal); }, ano);
  entradas.FechaNacimiento = pantalla.TextoColumna(kFechaNacimiento);
  entradas.Anualidades = pantalla.TextoColumna(kAnualidades);
  if (!regularizacion) return entradas;
  using Cifra = CifraRegularizacion;
  entradas.RetribucionesAnuales = pantalla.TextoCifra(Cifra::kRetribuciones);
  entradas.RentasIrregulares = pantalla.TextoCifra(Cifra::kReduccion);
  entradas.GastosAnuales = pantalla.TextoCifra(Cifra::kGastos);
  entradas.RetribucionesAcumuladas = pantalla.TextoCifra(Cifra::kRetribucionesAcumuladas);
  entradas.RetencionAcumulada = pantalla.TextoCifra(Cifra::kRetencionAcumulada);
  return entradas;
}

}  // namespace zendara
