#include "common/buscador.hpp"

#include <algorithm>
#include <deque>
#include <iterator>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "common/listas.hpp"
#include "frame/bases_datos.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/text.hpp"
#include "values/valor_numero.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr ColumnaLista kColumnas[] = {
    {"001", {1, 5}, "Número", 1},
    {"000", {7, 20}, "Apellido 1", 2},
    {"000", {28, 20}, "Apellido 2", 3},
    {"000", {49, 15}, "Nombre", 4},
    {"000", {65, 14}, "Nº Identificación", 5},
    {"000", {80, 12}, "Afiliación", 6},
    {"000", {93, 34}, "Centro", 7},
    {"002", {128, 8}, "Inicio", 8},
    {"002", {137, 8}, "Fin", 9},
};
constexpr std::size_t kColumnaApellido1 = 1;
constexpr CorteLista kCortes[] = {{1, 5, true}};
constexpr Lista kBuscador = {.titulo = "Buscar trabajador", .columnas = kColumnas, .cortes = kCortes};

constexpr std::size_t kMasVistos = 10;
constexpr std::size_t kTrabajadoresDeUnaVez = 256;
constexpr int kNumeros = 100000;  // 00000 to 99999
constexpr std::size_t kCifras = 5;

// As text comparisons of the store have it.
std::string Clave(const std::string& numero) { return LCase(RTrim(numero)); }

// Empty for what is stored in a date column and is no date: the screens say so when they show it.
std::string TextoDe(Recordset& fila, int columna) try {
  const Value valor = fila.Fields(columna).Get();
  return valor.IsText() ? valor.Text() : valor.IsDate() ? ShortDate(valor.AsDate()) : TextoNoNulo(valor);
} catch (const RuntimeError& error) {
  if (error.number() != kDataConversion) throw;
  return {};
}

// The workers, some at a time: a cursor walks them by number, and a query has the situaciones of those that it has
// passed, each worker's last one first.
class FilasTrabajadores : public PickRows {
 public:
  FilasTrabajadores(std::shared_ptr<Database> base, std::vector<std::string> vistos)
      : base_(std::move(base)), vistos_(std::move(vistos)) {
    fijo_ = base_->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
    fijo_->SetIndex("Icampo0");
    for (const std::string& numero : vistos_) {
      fijo_->Seek({numero});
      if (!fijo_->NoMatch()) LeeTrabajador();
      Completa();
    }
    al_principio_ = listas_.size();
    if (fijo_->RecordCount() > 0) fijo_->MoveFirst();
  }

  std::size_t AlPrincipio() const { return al_principio_; }

  bool Siguiente(std::vector<std::string>& textos) override {
    while (listas_.empty() && Lee()) {
    }
    if (listas_.empty()) return false;
    textos = std::move(listas_.front());
    listas_.pop_front();
    return true;
  }

 private:
  using Textos = std::vector<std::string>;  // of a row

  // False when no worker is left.
  bool Lee() {
    if (fijo_->RecordCount() == 0 || fijo_->Eof()) return false;
    for (std::size_t n = 0; n < kTrabajadoresDeUnaVez && !fijo_->Eof(); ++n, fijo_->MoveNext()) {
      if (std::ranges::count(vistos_, fijo_->Fields(0).Get().Text()) == 0) LeeTrabajador();
    }
    Completa();
    return true;
  }

  void LeeTrabajador() {
    const auto texto = [&](int columna) { return TextoDe(*fijo_, columna); };
    leidos_.push_back({texto(0), texto(1), texto(2), texto(3), texto(5), texto(6) + texto(7) + texto(8), "", "", ""});
  }

  // What the situaciones say of those that were read.
  void Completa() {
    if (leidos_.empty()) return;
    const auto situaciones = base_->OpenRecordset(
        "SELECT Campo0, Campo49, Campo50, Campo3, Campo4 FROM TrabajadoresVar WHERE Campo0 BETWEEN '" +
            SqlText(leidos_.front()[0]) + "' AND '" + SqlText(leidos_.back()[0]) +
            "' ORDER BY Campo0, Campo3 DESC, Campo1 DESC",
        RecordsetType::kForward);
    std::map<std::string, Textos*> por_numero;
    for (Textos& trabajador : leidos_) por_numero.emplace(Clave(trabajador[0]), &trabajador);
    std::string anterior;
    for (; !situaciones->Eof(); situaciones->MoveNext()) {
      std::string numero = Clave(TextoDe(*situaciones, 0));
      if (numero == anterior) continue;
      const auto trabajador = por_numero.find(numero);
      anterior = std::move(numero);
      if (trabajador == por_numero.end()) continue;
      Textos& textos = *trabajador->second;
      textos[6] = Trim(TextoDe(*situaciones, 1) + " " + TextoDe(*situaciones, 2));
      textos[7] = TextoDe(*situaciones, 3);
      textos[8] = TextoDe(*situaciones, 4);
    }
    std::ranges::move(leidos_, std::back_inserter(listas_));
    leidos_.clear();
  }

  std::shared_ptr<Database> base_;
  std::shared_ptr<Recordset> fijo_;
  std::vector<std::string> vistos_;
  std::size_t al_principio_ = 0;
  std::vector<Textos> leidos_;  // without their situaciones
  std::deque<Textos> listas_;
};

// What five digits say, or -1.
int Cifras(const std::string& numero) {
  if (numero.size() != kCifras || !std::ranges::all_of(numero, IsDigit)) return -1;
  int cuenta = 0;
  for (const char cifra : numero) cuenta = cuenta * 10 + (cifra - '0');
  return cuenta;
}

constexpr std::string_view kTablasNumeradas[] = {"TrabajadoresFijo", "TrabajadoresVar"};

int MasAlto(Database& base, std::string_view tabla) {
  const auto filas =
      base.OpenRecordset("SELECT Campo0 FROM " + std::string(tabla) + " WHERE Campo0 <= '99999' ORDER BY Campo0 DESC",
                         RecordsetType::kForward);
  for (; !filas->Eof(); filas->MoveNext()) {
    if (const int numero = Cifras(TextoDe(*filas, 0)); numero >= 0) return numero;
  }
  return 0;
}

// Of those above 00000.
int MasBajoLibre(Database& base) {
  std::vector<bool> usados(kNumeros);
  usados[0] = true;
  for (const std::string_view tabla : kTablasNumeradas) {
    const auto filas = base.OpenRecordset("SELECT Campo0 FROM " + std::string(tabla), RecordsetType::kForward);
    for (; !filas->Eof(); filas->MoveNext()) {
      if (const int numero = Cifras(TextoDe(*filas, 0)); numero >= 0) usados[static_cast<std::size_t>(numero)] = true;
    }
  }
  return static_cast<int>(std::ranges::find(usados, false) - usados.begin());
}

}  // namespace

std::string EligeTrabajador(const Sesion& sesion, const std::string& actual) {
  const std::unique_ptr<PickList> lista = CreatePickList(sesion.platform.components);
  std::vector<std::string> vistos;
  for (const auto& [empresa, numero] : sesion.TrabajadoresVistos) {
    if (empresa == sesion.CodEmpresa.str()) vistos.push_back(numero);
  }
  FilasTrabajadores filas(AbreAparte(sesion, FileKind::kCompany), std::move(vistos));
  PickView vista = VistaDe(kBuscador, {actual}, sesion.VentanaFechas);
  vista.sorted_by = kColumnaApellido1;
  vista.foremost = filas.AlPrincipio();
  std::vector<std::string> columnas;
  std::vector<RowPlace> lugares;
  for (const ColumnaLista& columna : kColumnas) {
    columnas.emplace_back(columna.codigo);
    lugares.push_back(columna.lugar);
  }
  std::string fila;
  lista->Presenta(vista);
  lista->ConsultaFilas(columnas, filas, lugares, std::string(kBuscador.titulo), sesion.MarcaBoton, fila);
  return CortaFila(kBuscador, fila).front();
}

void ApuntaVisto(Sesion& sesion, const std::string& numero) {
  if (numero.empty()) return;
  auto& vistos = sesion.TrabajadoresVistos;
  const std::pair<std::string, std::string> visto = {sesion.CodEmpresa.str(), numero};
  std::erase(vistos, visto);
  vistos.insert(vistos.begin(), visto);
  if (vistos.size() > kMasVistos) vistos.pop_back();
}

std::string NumeroLibre(const Sesion& sesion) {
  const std::shared_ptr<Database> base = AbreAparte(sesion, FileKind::kCompany);
  int numero = 0;
  for (const std::string_view tabla : kTablasNumeradas) numero = std::max(numero, MasAlto(*base, tabla));
  numero = numero < kNumeros - 1 ? numero + 1 : MasBajoLibre(*base);
  if (numero == kNumeros) return {};
  const std::string cifras = std::to_string(numero);
  return std::string(kCifras - cifras.size(), '0') + cifras;
}

}  // namespace zendara
