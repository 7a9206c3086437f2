#include "withholding/calculo_irpf.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "values/formato_valor.hpp"
#include "values/valor_numero.hpp"
#include "withholding/columnas_irpf.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kAnchoImporte = 10;
constexpr int kAnchoTipo = 5;
constexpr std::string_view kMascaraTipo = "002 N";
constexpr std::string_view kMascaraTipoFinal = "002 S";

constexpr int kEdadMayor = 65;
constexpr double kEdadLimiteHijo = 25;
constexpr double kEdadEscolar = 3;
constexpr double kEdadFinEscolar = 16;

// Each figure lives twice: as the text that the calculation goes on with, in the breakdown, and as that text's number.
class Calculo {
 public:
  Calculo(const EntradasIRPF& entradas, const ParametrosIRPF& parametros, const CondicionesIRPF& condiciones)
      : e_(entradas),
        p_(parametros),
        condiciones_(condiciones),
        mascara_(condiciones.pesetas ? "100 N" : "112 N"),
        retribuciones_(ValorNumero(entradas.RetribucionesAnuales)) {}

  DesgloseIRPF Desglose() {
    Rendimiento();
    MinimoPersonal();
    CuentaHijos();
    MinimoFamiliar();
    Deducciones();
    Base();
    Escala();
    Limite();
    Tipo();
    CeutaYMinimos();
    return std::move(d_);
  }

 private:
  double Redondea(double valor, std::string& texto) const {
    texto = FormatoValor(kAnchoImporte, valor, mascara_);
    return ValorNumero(texto);
  }
  double Toma(std::size_t columna, std::string& texto) const {
    texto = CStr(p_[columna]);
    return p_[columna];
  }

  void Rendimiento() {
    rendimiento_ = Redondea(retribuciones_ - ValorNumero(e_.RentasIrregulares) - ValorNumero(e_.GastosAnuales),
                            d_.rendimiento_neto);

    std::string& texto = d_.reduccion_trabajo;
    if (p_[kReduccionHasta] >= rendimiento_) reduccion_ = Toma(kReduccionCompleta, texto);
    if (p_[kTramoDesde] < rendimiento_ && p_[kTramoHasta] > rendimiento_) {
      reduccion_ = Redondea(p_[kReduccionCompleta] - (rendimiento_ - p_[kTramoDesde]) * p_[kTramoPendiente], texto);
    }
    if (p_[kTramoHasta] <= rendimiento_) reduccion_ = Toma(kReduccionMinima, texto);

    if (e_.GradoMinusvalia == "1") reduccion_ = Redondea(reduccion_ * p_[kMultiplicadorGrado1], texto);
    if (e_.GradoMinusvalia == "2") reduccion_ = Redondea(reduccion_ * p_[kMultiplicadorGrado2], texto);
    if (e_.GradoMinusvalia == "3") reduccion_ = Redondea(reduccion_ * p_[kMultiplicadorGrado3], texto);
  }

  void MinimoPersonal() {
    std::size_t columna = kPersonalGeneral;
    const Value& nacimiento = e_.FechaNacimiento;
    if (!nacimiento.IsNull() && !(nacimiento.IsText() && nacimiento.Text().empty())) {
      const int fin = AnoFin(condiciones_.ano);
      d_.edad = fin - static_cast<int>(Year(nacimiento, WindowOfBirths(fin % 100)).Number());
      if (d_.edad > kEdadMayor) columna = kPersonalMayor65;
    }
    if (e_.GradoMinusvalia == "1" || e_.GradoMinusvalia == "2") columna = kPersonalGrado12;
    if (e_.GradoMinusvalia == "3") columna = kPersonalGrado3;
    minimo_personal_ = Toma(columna, d_.minimo_personal);
  }

  void CuentaHijo(int peso) {
    ++d_.cuenta_hijos;
    (d_.cuenta_hijos < 3 ? d_.hijos_primeros : d_.hijos_siguientes) += peso;
  }

  void CuentaHijos() {
    for (const Hijo& hijo : e_.Hijos) {
      if (hijo.edad == 0) continue;  // born in the working year: counts for nothing
      const int peso = hijo.por_entero == "N" ? 1 : 2;
      const bool mayor = hijo.edad >= kEdadLimiteHijo;
      if (!mayor) {
        CuentaHijo(peso);
        if (hijo.edad >= kEdadEscolar && hijo.edad < kEdadFinEscolar) d_.hijos_escolares += peso;
        if (hijo.edad < kEdadEscolar) d_.hijos_menores += peso;
        ++d_.hijos_limite;
      }
      const char grado = hijo.grado.empty() ? '0' : hijo.grado[0];
      if (grado != '1' && grado != '2') continue;
      if (mayor) CuentaHijo(peso);
      (grado == '1' ? d_.hijos_minusvalia1 : d_.hijos_minusvalia2) += peso;
      if (mayor) d_.hijos_limite += peso;  // by weight, unlike the younger ones
    }
  }

  void MinimoFamiliar() {
    double minimo = 0;
    const auto suma = [&](double importe) { minimo = Redondea(minimo + importe, d_.minimo_familiar); };
    const double primeros = p_[kHijosPrimeros] * d_.hijos_primeros;
    suma(d_.cuenta_hijos > 2 ? primeros + p_[kHijosSiguientes] * d_.hijos_siguientes : primeros);
    suma(p_[kHijosEscolares] * d_.hijos_escolares);
    suma(p_[kHijosMenores] * d_.hijos_menores);
    suma(p_[kHijosGrado1] * d_.hijos_minusvalia1);
    suma(p_[kHijosGrado2] * d_.hijos_minusvalia2);

    for (const Ascendiente& ascendiente : e_.Ascendientes) {
      const double convivencia = ValorNumero(ascendiente.convivencia);
      if (convivencia == 0) continue;
      ++d_.ascendientes;
      suma(p_[kAscendiente] / convivencia);
      const double grado = ValorNumero(ascendiente.grado);
      if (grado == 1) suma(p_[kAscendienteGrado1] / convivencia);
      if (grado == 2) suma(p_[kAscendienteGrado2] / convivencia);
    }
    minimo_familiar_ = minimo;
  }

  void Deducciones() {
    if (e_.SituacionPerceptor == "P") deducciones_[0] = Toma(kDeduccionPensionista, d_.deduccion_pensionista);
    if (e_.SituacionPerceptor == "D") deducciones_[1] = Toma(kDeduccionDesempleado, d_.deduccion_desempleado);
    if (d_.cuenta_hijos > 2) deducciones_[2] = Toma(kDeduccionFamiliaNumerosa, d_.deduccion_familia_numerosa);
  }

  void Base() {
    base_ = Redondea(rendimiento_ - reduccion_ - minimo_personal_ - minimo_familiar_ - ValorNumero(e_.Anualidades) -
                         deducciones_[0] - deducciones_[1] - deducciones_[2],
                     d_.base_retencion);
    if (base_ < 0) {
      base_ = 0;
      d_.base_retencion = "0";
    }
  }

  double CeldaEscala(int fila, std::size_t columna) const {
    return p_[kEscala + kColumnasEscala * static_cast<std::size_t>(fila) + columna];
  }

  // Row of the scale for the base, -1 for none: a base that equals the last limit finds none.
  int FilaEscala() const {
    int ultima = -1;
    for (int fila = 0; fila < static_cast<int>(kFilasEscala); ++fila) {
      const double limite = CeldaEscala(fila, 0);
      if (base_ < limite) {
        // The bracket would be the row before the first one, whose columns do not exist.
        if (fila == 0) throw RuntimeError(kItemNotFound);
        return fila - 1;
      }
      if (limite != 0) ultima = fila;
    }
    return ultima >= 0 && CeldaEscala(ultima, 0) < base_ ? ultima : -1;
  }

  void Escala() {
    d_.tramo = FilaEscala();
    double desde = 0;
    double cuota = 0;
    double tipo = 0;
    if (d_.tramo >= 0) {
      const std::size_t fila = kEscala + kColumnasEscala * static_cast<std::size_t>(d_.tramo);
      desde = Toma(fila, d_.tramo_desde);
      cuota = Toma(fila + 1, d_.tramo_cuota);
      tipo = Toma(fila + 2, d_.tramo_tipo);
    }
    const double resto = Redondea(base_ - desde, d_.tramo_resto);
    cuota_ = Redondea(resto * tipo / 100, d_.cuota_escala);
    cuota_ = Redondea(cuota_ + cuota, d_.cuota_escala);
    d_.cuota_retencion = d_.cuota_escala;
  }

  void Limite() {
    if (e_.SituacionFamiliar == "1" || e_.SituacionFamiliar == "2" || e_.SituacionFamiliar == "3") {
      const auto fila = static_cast<std::size_t>(std::min(d_.hijos_limite, 2));
      celda_limite_ =
          Toma(kLimites + 3 * fila + static_cast<std::size_t>(e_.SituacionFamiliar[0] - '1'), d_.limite_sin_aumento);
    }
    limite_ = celda_limite_;
    d_.limite = d_.limite_sin_aumento;
    if (e_.SituacionPerceptor == "P") limite_ = Redondea(limite_ + p_[kAumentoPensionista], d_.limite);
    if (e_.SituacionPerceptor == "D") limite_ = Redondea(limite_ + p_[kAumentoDesempleado], d_.limite);
  }

  // The cap is measured from the limit without its increase.
  void Tope() {
    const double tope = Redondea((retribuciones_ - celda_limite_) * p_[kTopePorcentaje] / 100, d_.tope);
    if (d_.tope.empty()) d_.tope = "0";
    if (tope >= cuota_) return;
    cuota_ = tope;
    d_.cuota_retencion = d_.tope;
    d_.tope_aplicado = true;
  }

  void Tipo() {
    d_.bajo_limite = limite_ >= retribuciones_;
    if (d_.bajo_limite) return;
    if (p_[kTopeHasta] >= retribuciones_) Tope();
    if (retribuciones_ == 0) return;
    if (!condiciones_.regularizacion) {
      d_.tipo_sin_ceuta = FormatoValor(kAnchoTipo, cuota_ / retribuciones_ * 100, kMascaraTipo);
      return;
    }
    const double pendiente = retribuciones_ - ValorNumero(e_.RetribucionesAcumuladas);
    if (pendiente == 0) return;
    const double tipo = (cuota_ - ValorNumero(e_.RetencionAcumulada)) / pendiente * 100;
    if (!std::isfinite(tipo)) throw RuntimeError(kOverflow);
    if (tipo >= 0) d_.tipo_sin_ceuta = FormatoValor(kAnchoTipo, tipo, kMascaraTipo);
  }

  void TipoMinimo(std::string_view contrato, std::size_t columna, double& tipo) {
    if (p_[columna] > tipo && e_.TipoContrato == contrato) tipo = Toma(columna, d_.tipo_minimo);
  }

  void CeutaYMinimos() {
    d_.tipo_calculado = d_.tipo_sin_ceuta;
    double tipo = ValorNumero(d_.tipo_calculado);
    if (e_.CeutaMelilla == "S") {
      // The mask of money, not of rates: whole percents in pesetas.
      d_.tipo_calculado = FormatoValor(kAnchoTipo, tipo * 50 / 100, mascara_);
      tipo = ValorNumero(d_.tipo_calculado);
    }
    TipoMinimo("I", kMinimoInferiorAno, tipo);
    TipoMinimo("R", kMinimoEspeciales, tipo);
    d_.tipo = FormatoValor(kAnchoTipo, tipo, kMascaraTipoFinal);
  }

  const EntradasIRPF& e_;
  const ParametrosIRPF& p_;
  const CondicionesIRPF& condiciones_;
  const std::string_view mascara_;
  const double retribuciones_;
  DesgloseIRPF d_;
  double rendimiento_ = 0;
  double reduccion_ = 0;
  double minimo_personal_ = 0;
  double minimo_familiar_ = 0;
  std::array<double, 3> deducciones_{};
  double base_ = 0;
  double cuota_ = 0;
  double celda_limite_ = 0;
  double limite_ = 0;
};

}  // namespace

int AnoFin(std::string_view ano) {
  return static_cast<int>(Year(Value("31/12/20" + std::string(ano)), YearWindow{}).Number());
}

DesgloseIRPF CalculaTipoIRPF(const EntradasIRPF& entradas, const ParametrosIRPF& parametros,
                             const CondicionesIRPF& condiciones) {
  return Calculo(entradas, parametros, condiciones).Desglose();
}

}  // namespace zendara
