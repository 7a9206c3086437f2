#include "workers/ficha_trabajador.hpp"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/date.hpp"
#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"

namespace zendara {
namespace {

constexpr int kAnchoNormal = 960;  // of a column of which nothing is said
constexpr int kAnchoMargen = 20;
constexpr int kAnchoVista = 25;  // characters of a field that shows what a code stands for
constexpr int kAnchoPorcentaje = 6;

struct ColumnaRejilla {
  std::string_view titulo;
  int ancho;  // twips
  Alignment alineacion;
};

struct Rejilla {
  std::string_view rotulo;  // of a row, before its number
  std::span<const ColumnaRejilla> columnas;
};

constexpr ColumnaRejilla kColumnasHijos[] = {
    {"", kAnchoMargen, Alignment::kLeft},       {"", kAnchoNormal, Alignment::kCenter},
    {"Año Nacim.", 1000, Alignment::kRight},    {"Por entero", 900, Alignment::kCenter},
    {"G.Minusvalia", 1100, Alignment::kCenter},
};
constexpr ColumnaRejilla kColumnasAscendientes[] = {
    {"", kAnchoMargen, Alignment::kLeft},
    {"", 1200, Alignment::kCenter},
    {"Convivencia", 1000, Alignment::kCenter},
    {"G.Minusvalía", 1000, Alignment::kCenter},
};
constexpr Rejilla kRejillas[] = {{"Hijo ", kColumnasHijos}, {"Ascendiente ", kColumnasAscendientes}};

std::vector<std::string> Codigos(int indice) {
  const auto codigos = CodigosDe(indice);
  return {codigos.begin(), codigos.end()};
}

bool EsPorcentajeVisto(int indice) {
  return indice == campo::kBonificacion1 || indice == campo::kBonificacion2 || indice == campo::kBonificacion3;
}

}  // namespace

void FichaTrabajador::CreaControles() {
  for (const CampoTrabajador& campo : CamposTrabajador()) {
    switch (campo.tipo) {
      case TipoCampo::kTexto: {
        TextBox& texto = Text1.Add(campo.indice);
        texto.SetMaxLength(campo.largo);
        if (campo.Tiene(kVista)) texto.SetWidth(EsPorcentajeVisto(campo.indice) ? kAnchoPorcentaje : kAnchoVista);
        if (campo.Tiene(kImporte)) texto.SetAlignment(Alignment::kRight);
        break;
      }
      case TipoCampo::kLista:
        Combo1.Add(campo.indice).SetItems(Codigos(campo.indice));
        break;
      case TipoCampo::kMarca:
        Check1.Add(campo.indice);
        break;
    }
    Campo(campo.indice)->SetCaption(campo.rotulo);
  }
  Grid1.Add(kHijos);
  Grid1.Add(kAscendientes);
}

Control* FichaTrabajador::Campo(int indice) const {
  if (Control* texto = Text1.Find(indice)) return texto;
  if (Control* lista = Combo1.Find(indice)) return lista;
  return Check1.Find(indice);
}

YearWindow FichaTrabajador::Ventana(int indice) const {
  return indice == campo::kFechaNacimiento ? sesion_.VentanaNacimientos : sesion_.VentanaFechas;
}

std::string FichaTrabajador::SeisDigitos(const std::string& fecha) {
  return fecha.empty() ? fecha : Mid(fecha, 1, 2) + Mid(fecha, 4, 2) + Right(fecha, 2);
}

void FichaTrabajador::Pon(int indice, const Value& valor) {
  const CampoTrabajador* campo = CampoDe(indice);
  if (!campo) {
    const CeldaTrabajador celda = CeldaDe(indice);
    Grid1(celda.rejilla).SetCell(celda.fila, celda.columna, TextoNoNulo(valor));
    return;
  }
  switch (campo->tipo) {
    case TipoCampo::kTexto: {
      TextBox& texto = Text1(indice);
      if (campo->Tiene(kFecha)) {
        const std::string fecha = Trim(TextoNoNulo(FormatDate(valor, "dd/mm/yy", Ventana(indice))));
        texto.SetText(texto.HasFocus() ? SeisDigitos(fecha) : fecha);
      } else {
        texto.SetText(TextoNoNulo(valor));
      }
      break;
    }
    case TipoCampo::kLista:
      if (const std::string codigo = Trim(TextoNoNulo(valor)); !codigo.empty()) PonEntrada(Combo1(indice), codigo);
      break;
    case TipoCampo::kMarca:
      Check1(indice).SetValue(CInt(ValorNumero(TextoNoNulo(valor))));
      break;
  }
}

std::string FichaTrabajador::Texto(int indice) const {
  if (const TextBox* texto = Text1.Find(indice)) return texto->Text();
  if (const ComboBox* lista = Combo1.Find(indice)) return lista->Text();
  if (const CheckBox* marca = Check1.Find(indice)) return std::to_string(marca->Value());
  const CeldaTrabajador celda = CeldaDe(indice);
  return Grid1(celda.rejilla).Cell(celda.fila, celda.columna);
}

Value FichaTrabajador::Valor(int indice) const {
  const CampoTrabajador* campo = CampoDe(indice);
  if (!campo) return Texto(indice);
  const std::string texto = Trim(Texto(indice));
  if (!campo->Tiene(kFecha)) return texto;
  if (texto.empty()) return {};
  const auto mostrado = mostrado_.find(indice);
  if (mostrado != mostrado_.end() && mostrado->second.texto == TextoLlano(indice)) return mostrado->second.valor;
  const auto fecha = ReadDate(texto, Ventana(indice));
  return fecha ? Value(*fecha) : Value(texto);
}

std::string FichaTrabajador::TextoLlano(int indice) const {
  std::string texto = Texto(indice);
  const CampoTrabajador* campo = CampoDe(indice);
  if (campo && campo->Tiene(kFecha)) std::erase(texto, '/');
  return texto;
}

void FichaTrabajador::Muestra(Recordset& fila, int desde, int hasta) {
  std::vector<Value> valores;
  for (int indice = desde; indice <= hasta; ++indice) valores.push_back(fila.Fields(ColumnaDe(indice)).Get());
  // Noted before any is put: one that its control does not take keeps what follows from being changed.
  for (int indice = desde; indice <= hasta; ++indice) {
    mostrado_[indice] = {TextoLlano(indice), valores[static_cast<std::size_t>(indice - desde)]};
  }
  for (int indice = desde; indice <= hasta; ++indice) {
    Mostrado& mostrado = mostrado_[indice];
    Pon(indice, mostrado.valor);
    mostrado.texto = TextoLlano(indice);
  }
}

bool FichaTrabajador::Mostro(int indice, std::string_view texto) const {
  const auto mostrado = mostrado_.find(indice);
  return mostrado != mostrado_.end() && Trim(mostrado->second.texto) == texto;
}

std::vector<int> FichaTrabajador::Guarda(Recordset& fila, int desde, int hasta, bool solo_cambiados) {
  std::vector<int> sustituidos;
  std::map<int, Mostrado> guardado;
  for (int indice = desde; indice <= hasta; ++indice) {
    const auto mostrado = solo_cambiados ? mostrado_.find(indice) : mostrado_.end();
    const bool se_mostro = mostrado != mostrado_.end();
    std::string texto = TextoLlano(indice);
    if (se_mostro && mostrado->second.texto == texto) continue;
    const Field campo = fila.Fields(ColumnaDe(indice));
    const Value habia = campo.Get();
    campo.Set(Valor(indice));
    const Value queda = campo.Get();
    if (se_mostro && habia != mostrado->second.valor && habia != queda) sustituidos.push_back(indice);
    guardado[indice] = {std::move(texto), queda};
  }
  fila.Update();
  guardado.merge(mostrado_);
  mostrado_ = std::move(guardado);
  return sustituidos;
}

void FichaTrabajador::PonEntrada(ComboBox& lista, const std::string& codigo) {
  std::vector<std::string> codigos = Codigos(lista.Index());
  if (std::ranges::find(codigos, codigo) == codigos.end()) codigos.push_back(codigo);
  if (codigos != lista.Items()) lista.SetItems(codigos);
  lista.SetText(codigo);
}

void FichaTrabajador::LimpiarCampos(int desde, int hasta) {
  mostrado_.erase(mostrado_.lower_bound(desde), mostrado_.upper_bound(hasta));
  for (const CampoTrabajador& campo : CamposTrabajador()) {
    if (campo.indice < desde || campo.indice > hasta) continue;
    switch (campo.tipo) {
      case TipoCampo::kTexto:
        Text1(campo.indice).SetText("");
        break;
      case TipoCampo::kLista:
        Combo1(campo.indice).SetListIndex(-1);
        break;
      case TipoCampo::kMarca:
        Check1(campo.indice).SetValue(0);
        break;
    }
  }
}

void FichaTrabajador::PreparaGrids() {
  for (const auto& [indice, grid] : Grid1) {
    const Rejilla& rejilla = kRejillas[indice];
    grid->Resize(kFilasRejilla + 1, static_cast<int>(rejilla.columnas.size()), 1, 1);
    for (int columna = 0; columna < grid->Columns(); ++columna) {
      const ColumnaRejilla& modelo = rejilla.columnas[static_cast<std::size_t>(columna)];
      grid->ColumnAt(columna) = {modelo.ancho, modelo.alineacion};
      grid->SetCell(0, columna, modelo.titulo);
    }
    for (int fila = 1; fila <= kFilasRejilla; ++fila) {
      grid->SetCell(fila, kColumnaRotulo, std::string(rejilla.rotulo) + std::to_string(fila));
    }
    grid->SetCurrent(1, kPrimeraColumna);
  }
}

void FichaTrabajador::LimpiarGrid() {
  Grid1(kHijos).Clear();
  PreparaGrids();
}

}  // namespace zendara
