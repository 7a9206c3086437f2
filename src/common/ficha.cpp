#include "common/ficha.hpp"

#include <algorithm>
#include <utility>

#include "runtime/date.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"
#include "zendara/forms/form.hpp"

namespace zendara {
namespace {

std::string SeisDigitos(const std::string& fecha) {
  return fecha.empty() ? fecha : Mid(fecha, 1, 2) + Mid(fecha, 4, 2) + Right(fecha, 2);
}

}  // namespace

void Ficha::Anade(const Campo& campo, Control& control) {
  controles_[campo.indice] = &control;
  control.Owner().AddToRecord(control, campo.Tiene(kClave));
  control.SetCaption(campo.rotulo);
  if (campo.tipo == TipoCampo::kTexto) {
    CajaDe(campo.indice).SetMaxLength(campo.largo);
    if (campo.Tiene(kImporte)) {
      TextBox& caja = CajaDe(campo.indice);
      caja.SetAlignment(Alignment::kRight);
      caja.SetGrouped(true);
      caja.SetWidth(campo.largo + (campo.largo - 1) / 3);  // with the points between the thousands
    }
  }
  if (campo.tipo == TipoCampo::kLista) codigos_[campo.indice] = static_cast<ComboBox&>(control).Items();
}

void Ficha::AnadeCelda(IndiceCampo indice, Grid& rejilla, int fila, int columna) {
  celdas_[indice] = {&rejilla, fila, columna};
  rejilla.Owner().AddToRecord(rejilla);
}

const Campo* Ficha::CampoDe(IndiceCampo indice) const {
  const auto campo =
      std::ranges::lower_bound(campos_, static_cast<int>(indice), {}, [](const Campo& c) -> int { return c.indice; });
  return campo == campos_.end() || campo->indice != indice ? nullptr : &*campo;
}

Control* Ficha::ControlDe(IndiceCampo indice) const {
  const auto control = controles_.find(indice);
  return control == controles_.end() ? nullptr : control->second;
}

TextBox& Ficha::CajaDe(IndiceCampo indice) const { return static_cast<TextBox&>(*controles_.at(indice)); }

bool Ficha::Tiene(IndiceCampo indice, unsigned regla) const {
  const Campo* campo = CampoDe(indice);
  return campo && campo->Tiene(regla);
}

YearWindow Ficha::Ventana(IndiceCampo indice) const {
  return Tiene(indice, kNacimiento) ? sesion_.VentanaNacimientos : sesion_.VentanaFechas;
}

// Values and texts.

void Ficha::Pon(IndiceCampo indice, const Value& valor) {
  if (const auto celda = celdas_.find(indice); celda != celdas_.end()) {
    const auto [rejilla, fila, columna] = celda->second;
    return rejilla->SetCell(fila, columna, TextoNoNulo(valor));
  }
  Control& control = *controles_.at(indice);
  switch (CampoDe(indice)->tipo) {
    case TipoCampo::kTexto: {
      auto& texto = static_cast<TextBox&>(control);
      if (Tiene(indice, kFecha)) {
        const std::string fecha = Trim(TextoNoNulo(FormatDate(valor, "dd/mm/yy", Ventana(indice))));
        texto.SetText(texto.HasFocus() ? SeisDigitos(fecha) : fecha);
      } else {
        texto.SetText(TextoNoNulo(valor));
      }
      break;
    }
    case TipoCampo::kLista:
      if (const std::string codigo = Trim(TextoNoNulo(valor)); !codigo.empty()) {
        PonEntrada(static_cast<ComboBox&>(control), indice, codigo);
      }
      break;
    case TipoCampo::kMarca:
      static_cast<CheckBox&>(control).SetValue(CInt(ValorNumero(TextoNoNulo(valor))));
      break;
  }
}

void Ficha::PonEntrada(ComboBox& lista, int indice, const std::string& codigo) {
  std::vector<std::string> codigos = codigos_[indice];
  if (std::ranges::find(codigos, codigo) == codigos.end()) codigos.push_back(codigo);
  if (codigos != lista.Items()) lista.SetItems(codigos);
  lista.SetText(codigo);
}

std::string Ficha::Texto(IndiceCampo indice) const {
  if (const auto celda = celdas_.find(indice); celda != celdas_.end()) {
    return celda->second.rejilla->Cell(celda->second.fila, celda->second.columna);
  }
  const Control& control = *controles_.at(indice);
  switch (CampoDe(indice)->tipo) {
    case TipoCampo::kTexto:
      return static_cast<const TextBox&>(control).Text();
    case TipoCampo::kLista:
      return static_cast<const ComboBox&>(control).Text();
    case TipoCampo::kMarca:
      break;
  }
  return std::to_string(static_cast<const CheckBox&>(control).Value());
}

std::string Ficha::TextoRecortado(IndiceCampo indice) const { return Trim(Texto(indice)); }

std::string Ficha::TextoLlano(IndiceCampo indice) const {
  std::string texto = Texto(indice);
  if (Tiene(indice, kFecha)) std::erase(texto, '/');
  return texto;
}

Value Ficha::Valor(IndiceCampo indice) const {
  if (celdas_.contains(indice)) return Texto(indice);
  const std::string texto = TextoRecortado(indice);
  if (!Tiene(indice, kFecha)) return texto;
  if (texto.empty()) return {};
  const auto mostrado = mostrado_.find(indice);
  if (mostrado != mostrado_.end() && mostrado->second.texto == TextoLlano(indice)) return mostrado->second.valor;
  const auto fecha = ReadDate(texto, Ventana(indice));
  return fecha ? Value(*fecha) : Value(texto);
}

void Ficha::Vacia(IndiceCampo desde, IndiceCampo hasta) {
  for (const Campo& campo : campos_) {
    if (campo.indice < desde || campo.indice > hasta) continue;
    Control& control = *controles_.at(campo.indice);
    switch (campo.tipo) {
      case TipoCampo::kTexto:
        static_cast<TextBox&>(control).SetText("");
        break;
      case TipoCampo::kLista:
        static_cast<ComboBox&>(control).SetListIndex(-1);
        break;
      case TipoCampo::kMarca:
        static_cast<CheckBox&>(control).SetValue(0);
        break;
    }
  }
}

void Ficha::Limpia(IndiceCampo desde, IndiceCampo hasta) {
  mostrado_.erase(mostrado_.lower_bound(desde), mostrado_.upper_bound(hasta));
  Vacia(desde, hasta);
  Asienta(desde, hasta);
}

// Grids settle by themselves when they are emptied.
void Ficha::Asienta(IndiceCampo desde, IndiceCampo hasta) {
  for (int indice = desde; indice <= hasta; ++indice) {
    if (Control* control = ControlDe(indice)) control->Owner().Settle(*control);
    if (const auto celda = celdas_.find(indice); celda != celdas_.end()) {
      celda->second.rejilla->Owner().Settle(*celda->second.rejilla);
    }
  }
}

void Ficha::RellenaCeros(IndiceCampo indice) {
  TextBox& caja = CajaDe(indice);
  const std::string texto = Trim(caja.Text());
  const int faltan = caja.MaxLength() - static_cast<int>(Len(texto));
  if (!texto.empty() && faltan > 0) caja.SetText(Repeat('0', faltan) + texto);
}

void Ficha::Edita(IndiceCampo indice) {
  if (Tiene(indice, kFecha)) CajaDe(indice).SetText(SeisDigitos(Texto(indice)));
}

// Rows.

void Ficha::Muestra(Recordset& fila, const Tramo& tramo) {
  std::vector<Value> valores;
  for (int indice = tramo.desde; indice <= tramo.hasta; ++indice) {
    valores.push_back(fila.Fields(tramo.ColumnaDe(indice)).Get());
  }
  Asienta(tramo.desde, tramo.hasta);
  // Noted before any is put: one that its control does not take keeps what follows from being changed.
  for (int indice = tramo.desde; indice <= tramo.hasta; ++indice) {
    mostrado_[indice] = {TextoLlano(indice), valores[static_cast<std::size_t>(indice - tramo.desde)]};
  }
  for (int indice = tramo.desde; indice <= tramo.hasta; ++indice) {
    Mostrado& mostrado = mostrado_[indice];
    Pon(indice, mostrado.valor);
    mostrado.texto = TextoLlano(indice);
  }
}

void Ficha::Anota(Recordset& fila, const Tramo& tramo) {
  for (int indice = tramo.desde; indice <= tramo.hasta; ++indice) {
    mostrado_[indice] = {TextoLlano(indice), fila.Fields(tramo.ColumnaDe(indice)).Get()};
  }
  Asienta(tramo.desde, tramo.hasta);
}

bool Ficha::Cambiado(IndiceCampo indice) const {
  const auto mostrado = mostrado_.find(indice);
  return mostrado == mostrado_.end() || mostrado->second.texto != TextoLlano(indice);
}

bool Ficha::CambioAjeno(IndiceCampo indice, const Value& hay) const {
  const auto mostrado = mostrado_.find(indice);
  return mostrado != mostrado_.end() && hay != mostrado->second.valor && hay != Valor(indice);
}

bool Ficha::Mostro(IndiceCampo indice, std::string_view texto) const {
  const auto mostrado = mostrado_.find(indice);
  return mostrado != mostrado_.end() && Trim(mostrado->second.texto) == texto;
}

void Ficha::Escrito(IndiceCampo indice) {
  const auto mostrado = mostrado_.find(indice);
  if (mostrado != mostrado_.end()) mostrado->second = {TextoLlano(indice), Valor(indice)};
  controles_.at(indice)->Owner().Stored(*controles_.at(indice));
}

std::vector<int> Ficha::Guarda(Recordset& fila, const Tramo& tramo, bool solo_cambiados) {
  std::vector<int> sustituidos;
  std::map<int, Mostrado> guardado;
  for (int indice = tramo.desde; indice <= tramo.hasta; ++indice) {
    const auto mostrado = solo_cambiados ? mostrado_.find(indice) : mostrado_.end();
    const bool se_mostro = mostrado != mostrado_.end();
    std::string texto = TextoLlano(indice);
    if (se_mostro && mostrado->second.texto == texto) continue;
    const Field columna = fila.Fields(tramo.ColumnaDe(indice));
    const Value habia = columna.Get();
    columna.Set(Valor(indice));
    const Value queda = columna.Get();
    if (se_mostro && habia != mostrado->second.valor && habia != queda) sustituidos.push_back(indice);
    guardado[indice] = {std::move(texto), queda};
  }
  fila.Update();
  guardado.merge(mostrado_);
  mostrado_ = std::move(guardado);
  return sustituidos;
}

}  // namespace zendara
