#include "withholding/entradas_registro.hpp"

#include "values/valor_numero.hpp"

namespace zendara {

ParametrosIRPF LeeParametrosIRPF(Recordset& irpf) {
  ParametrosIRPF parametros;
  for (std::size_t i = 0; i < parametros.size(); ++i) {
    parametros[i] = ValorNumero(TextoNoNulo(irpf.Fields(static_cast<int>(i)).Get()));
  }
  return parametros;
}

EntradasIRPF LeeDatosRegistro(Recordset& trabajadores_fijo, std::string_view ano) {
  const auto campo = [&](int ordinal) { return TextoNoNulo(trabajadores_fijo.Fields(ordinal).Get()); };

  EntradasIRPF entradas;
  entradas.SituacionPerceptor = campo(20);
  entradas.TipoContrato = campo(21);
  if (entradas.SituacionPerceptor == "P" || entradas.SituacionPerceptor == "D") entradas.TipoContrato.clear();
  entradas.SituacionFamiliar = campo(22);
  entradas.GradoMinusvalia = campo(24);
  entradas.RetribucionesAnuales = campo(75);
  entradas.RentasIrregulares = campo(76);
  entradas.GastosAnuales = campo(77);
  entradas.RetribucionesAcumuladas = campo(81);
  entradas.RetencionAcumulada = campo(82);
  entradas.Anualidades = campo(48);  // not Campo79, where the screen saves them
  entradas.CeutaMelilla = campo(80);
  entradas.FechaNacimiento = campo(19);

  const int ano_fin = AnoFin(ano);
  for (std::size_t r = 0; r < kFilasFamilia; ++r) {
    const int hijo = 25 + 3 * static_cast<int>(r);
    entradas.Hijos[r] = {
        .edad = ano_fin - ValorNumero(campo(hijo)), .por_entero = campo(hijo + 1), .grado = campo(hijo + 2)};
    const int ascendiente = 55 + 2 * static_cast<int>(r);
    entradas.Ascendientes[r] = {.convivencia = campo(ascendiente), .grado = campo(ascendiente + 1)};
  }
  return entradas;
}

}  // namespace zendara
