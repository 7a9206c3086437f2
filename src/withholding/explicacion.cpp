#include "withholding/explicacion.hpp"

#include <string_view>

#include "runtime/number.hpp"
#include "values/valor_numero.hpp"
#include "withholding/columnas_irpf.hpp"

namespace zendara {
namespace {

constexpr std::string_view kMenos = " − ";

std::string Cifra(const std::string& texto) { return texto.empty() ? "0" : texto; }

class Explicacion {
 public:
  Explicacion(const DesgloseIRPF& desglose, const EntradasIRPF& entradas, const ParametrosIRPF& parametros,
              const CondicionesIRPF& condiciones)
      : d_(desglose), e_(entradas), p_(parametros), condiciones_(condiciones) {}

  std::vector<LineaExplicacion> Lineas() {
    Linea("Retribuciones anuales", Leido(e_.RetribucionesAnuales), "dato del trabajador");
    Linea("Rendimiento neto", d_.rendimiento_neto,
          "retribuciones anuales" + Resta(e_.RentasIrregulares, " de rentas irregulares") +
              Resta(e_.GastosAnuales, " de gastos anuales"));
    Linea("Reducción por rendimientos del trabajo", d_.reduccion_trabajo, DetalleReduccion());
    Linea("Mínimo personal", d_.minimo_personal, DetalleMinimoPersonal());
    Linea("Mínimo familiar", d_.minimo_familiar, DetalleMinimoFamiliar());
    if (ValorNumero(e_.Anualidades) != 0) {
      Linea("Anualidades a favor de los hijos", Leido(e_.Anualidades), "dato del trabajador");
    }
    Deduccion("Deducción por pensionista", d_.deduccion_pensionista);
    Deduccion("Deducción por desempleado", d_.deduccion_desempleado);
    Deduccion("Deducción por más de dos hijos", d_.deduccion_familia_numerosa);
    Linea("Base de retención", d_.base_retencion,
          d_.base_retencion == "0" ? "sale negativa: cuenta como 0"
                                   : "rendimiento neto menos la reducción, los mínimos y las deducciones anteriores");
    Escala();
    Limite();
    if (!d_.bajo_limite) {
      Tope();
      Linea("Cuota de retención", d_.cuota_retencion, d_.tope_aplicado ? "el tope" : "la cuota según la escala");
    }
    Linea("Tipo calculado", d_.tipo_sin_ceuta, DetalleTipo());
    if (e_.CeutaMelilla == "S") Linea("Tipo de Ceuta y Melilla", d_.tipo_calculado, "la mitad del tipo calculado");
    if (!d_.tipo_minimo.empty()) {
      Linea("Tipo mínimo", d_.tipo_minimo,
            e_.TipoContrato == "I" ? "contrato inferior a un año" : "relación laboral especial");
    }
    Linea("Tipo de retención", d_.tipo, d_.tipo_minimo.empty() ? "en porcentaje" : "en porcentaje: el mínimo es mayor");
    return std::move(lineas_);
  }

 private:
  void Linea(std::string concepto, const std::string& importe, std::string detalle) {
    lineas_.push_back({std::move(concepto), Cifra(importe), std::move(detalle)});
  }
  void Deduccion(std::string concepto, const std::string& importe) {
    if (!importe.empty()) Linea(std::move(concepto), importe, "cantidad fija del año");
  }

  std::string Parametro(std::size_t columna) const { return CStr(p_[columna]); }
  static std::string Leido(const std::string& texto) { return CStr(ValorNumero(texto)); }
  static std::string Resta(const std::string& texto, std::string_view que) {
    return ValorNumero(texto) == 0 ? std::string() : std::string(kMenos) + Leido(texto) + std::string(que);
  }

  std::string DetalleReduccion() const {
    const double rendimiento = ValorNumero(d_.rendimiento_neto);
    std::string detalle;
    // Later stretches win, as in the calculation.
    if (p_[kTramoHasta] <= rendimiento) {
      detalle = Parametro(kReduccionMinima) + " por rendimiento desde " + Parametro(kTramoHasta);
    } else if (p_[kTramoDesde] < rendimiento) {
      detalle = Parametro(kReduccionCompleta) + std::string(kMenos) + "(" + Cifra(d_.rendimiento_neto) +
                std::string(kMenos) + Parametro(kTramoDesde) + ") × " + Parametro(kTramoPendiente);
    } else if (p_[kReduccionHasta] >= rendimiento) {
      detalle = Parametro(kReduccionCompleta) + " por rendimiento hasta " + Parametro(kReduccionHasta);
    } else {
      detalle = "sin reducción para este rendimiento";
    }
    const auto multiplica = [&](std::string_view grado, std::size_t columna) {
      if (e_.GradoMinusvalia != grado) return;
      detalle += ", multiplicado por " + Parametro(columna) + " por minusvalía de grado " + std::string(grado);
    };
    multiplica("1", kMultiplicadorGrado1);
    multiplica("2", kMultiplicadorGrado2);
    multiplica("3", kMultiplicadorGrado3);
    return detalle;
  }

  std::string DetalleMinimoPersonal() const {
    const std::string& grado = e_.GradoMinusvalia;
    if (grado == "1" || grado == "2" || grado == "3") return "minusvalía de grado " + grado;
    if (d_.edad > 65) return "mayor de 65 años: cumple " + std::to_string(d_.edad) + " en el año";
    return "general";
  }

  std::string DetalleMinimoFamiliar() const {
    const struct {
      int veces;
      std::size_t columna;
      std::string_view que;
    } partes[] = {{d_.hijos_primeros, kHijosPrimeros, "por el primer y segundo hijo"},
                  {d_.hijos_siguientes, kHijosSiguientes, "por el tercero y siguientes"},
                  {d_.hijos_escolares, kHijosEscolares, "de 3 a 15 años"},
                  {d_.hijos_menores, kHijosMenores, "menores de 3 años"},
                  {d_.hijos_minusvalia1, kHijosGrado1, "con minusvalía de grado 1"},
                  {d_.hijos_minusvalia2, kHijosGrado2, "con minusvalía de grado 2"}};
    std::string detalle = "hijos que cuentan: " + std::to_string(d_.cuenta_hijos);
    std::string separador = " (por entero vale 2): ";
    for (const auto& parte : partes) {
      if (parte.veces == 0) continue;
      detalle +=
          separador + std::to_string(parte.veces) + " × " + Parametro(parte.columna) + " " + std::string(parte.que);
      separador = ", ";
    }
    detalle += "; ascendientes: " + std::to_string(d_.ascendientes);
    for (const Ascendiente& ascendiente : e_.Ascendientes) {
      const double convivencia = ValorNumero(ascendiente.convivencia);
      if (convivencia == 0) continue;
      const double grado = ValorNumero(ascendiente.grado);
      std::string importe = Parametro(kAscendiente);
      if (grado == 1) importe = "(" + importe + " + " + Parametro(kAscendienteGrado1) + ")";
      if (grado == 2) importe = "(" + importe + " + " + Parametro(kAscendienteGrado2) + ")";
      detalle += ", " + importe + " / " + CStr(convivencia);
    }
    return detalle;
  }

  void Escala() {
    if (d_.tramo < 0) {
      Linea("Cuota según la escala", d_.cuota_escala, "la base no alcanza ningún tramo de la escala");
      return;
    }
    Linea("Tramo de la escala", d_.tramo_desde,
          "tramo " + std::to_string(d_.tramo + 1) + ": " + d_.tramo_cuota + " más el " + d_.tramo_tipo +
              " % de lo que pase de " + d_.tramo_desde);
    Linea("Cuota según la escala", d_.cuota_escala,
          d_.tramo_cuota + " + " + Cifra(d_.tramo_resto) + " × " + d_.tramo_tipo + " %");
  }

  void Limite() {
    std::string detalle = d_.hijos_limite == 0 ? "sin hijos" : d_.hijos_limite == 1 ? "un hijo" : "dos o más hijos";
    detalle += d_.limite_sin_aumento.empty()
                   ? ", sin situación familiar: 0"
                   : ", situación familiar " + e_.SituacionFamiliar + ": " + d_.limite_sin_aumento;
    if (e_.SituacionPerceptor == "P") detalle += " + " + Parametro(kAumentoPensionista) + " por pensionista";
    if (e_.SituacionPerceptor == "D") detalle += " + " + Parametro(kAumentoDesempleado) + " por desempleado";
    detalle += d_.bajo_limite ? "; las retribuciones no lo superan" : "; las retribuciones lo superan";
    Linea("Límite sin retención", d_.limite, detalle);
  }

  void Tope() {
    if (d_.tope.empty()) return;
    Linea("Tope de la cuota", d_.tope,
          Parametro(kTopePorcentaje) + " % de lo que las retribuciones pasan de " + Cifra(d_.limite_sin_aumento) +
              (d_.tope_aplicado ? "; se aplica" : "; la cuota no lo supera"));
  }

  std::string DetalleTipo() const {
    if (d_.bajo_limite) return "sin retención: las retribuciones no superan el límite";
    if (ValorNumero(e_.RetribucionesAnuales) == 0) return "sin retribuciones";
    if (!condiciones_.regularizacion) return "cuota de retención / retribuciones anuales × 100, sin redondear";
    const double pendiente = ValorNumero(e_.RetribucionesAnuales) - ValorNumero(e_.RetribucionesAcumuladas);
    if (pendiente == 0) return "no queda retribución pendiente";
    const std::string cociente = "(" + Cifra(d_.cuota_retencion) + std::string(kMenos) + Leido(e_.RetencionAcumulada) +
                                 " ya retenido) / (" + Leido(e_.RetribucionesAnuales) + std::string(kMenos) +
                                 Leido(e_.RetribucionesAcumuladas) + " ya cobrado) × 100";
    const double cuota = ValorNumero(d_.cuota_retencion) - ValorNumero(e_.RetencionAcumulada);
    return cociente + (cuota / pendiente < 0 ? "; sale negativo: cuenta como 0" : ", sin redondear");
  }

  const DesgloseIRPF& d_;
  const EntradasIRPF& e_;
  const ParametrosIRPF& p_;
  const CondicionesIRPF& condiciones_;
  std::vector<LineaExplicacion> lineas_;
};

}  // namespace

std::vector<LineaExplicacion> ExplicaTipoIRPF(const DesgloseIRPF& desglose, const EntradasIRPF& entradas,
                                              const ParametrosIRPF& parametros, const CondicionesIRPF& condiciones) {
  return Explicacion(desglose, entradas, parametros, condiciones).Lineas();
}

}  // namespace zendara
