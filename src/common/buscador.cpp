#include "common/buscador.hpp"

#include <algorithm>
#include <memory>
#include <optional>
#include <span>
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
constexpr std::size_t kTrabajadoresDeUnaVez = 512;
constexpr int kNumeros = 100000;  // 00000 to 99999
constexpr std::size_t kCifras = 5;
constexpr Date kSinFecha = {-1e9};  // before all others

// As text comparisons of the store have it.
std::string Clave(const std::string& numero) {
  return std::ranges::all_of(numero, IsDigit) ? numero : LCase(RTrim(numero));
}

// Null for what is stored in a date column and is no date: the screens say so when they show it.
Value ValorDe(Recordset& fila, int columna) try {
  return fila.Fields(columna).Get();
} catch (const RuntimeError& error) {
  if (error.number() != kDataConversion) throw;
  return {};
}

void Anade(Recordset& fila, int columna, std::string& texto) {
  const Value valor = ValorDe(fila, columna);
  if (valor.IsText()) {
    texto += valor.Text();
  } else {
    texto += valor.IsDate() ? ShortDate(valor.AsDate()) : TextoNoNulo(valor);
  }
}

std::string TextoDe(Recordset& fila, int columna) {
  std::string texto;
  Anade(fila, columna, texto);
  return texto;
}

Date FechaDe(Recordset& fila, int columna) {
  const Value valor = ValorDe(fila, columna);
  return valor.IsDate() ? valor.AsDate() : kSinFecha;
}

// The workers by number, some at a time: a query reads those behind the last one, another one their situaciones. In
// between nothing stays open. The texts of a row are used again for one of the next time.
class FilasTrabajadores : public PickRows {
 public:
  FilasTrabajadores(std::shared_ptr<Database> base, std::vector<std::string> vistos) : base_(std::move(base)) {
    for (const std::string& numero : vistos) Lee("= '" + SqlText(numero) + "'");
    al_principio_ = leidos_;
    vistos_ = std::move(vistos);
  }

  std::size_t AlPrincipio() const { return al_principio_; }

  bool Siguiente(std::vector<std::string>& textos) override {
    while (dados_ == leidos_) {
      if (!quedan_) return false;
      leidos_ = 0;
      dados_ = 0;
      quedan_ = Lee(*quedan_);
    }
    textos.swap(filas_[dados_++]);
    return true;
  }

 private:
  using Textos = std::vector<std::string>;  // of a row

  Textos& Nueva() {
    if (leidos_ == filas_.size()) filas_.emplace_back();
    Textos& textos = filas_[leidos_++];
    textos.resize(std::size(kColumnas));
    for (std::string& texto : textos) texto.clear();
    return textos;
  }

  // Some of those whose number is so, but for those that were read before all others. If there are more of them, what
  // their number is like.
  std::optional<std::string> Lee(const std::string& numero) {
    const std::size_t desde = leidos_;
    auto quedan = LeeTrabajadores(numero);
    if (leidos_ > desde) LeeSituaciones(std::span(filas_).subspan(desde, leidos_ - desde));
    return quedan;
  }

  std::optional<std::string> LeeTrabajadores(const std::string& numero) {
    const auto fijos = base_->OpenRecordset(
        "SELECT Campo0, Campo1, Campo2, Campo3, Campo5, Campo6, Campo7, Campo8 FROM TrabajadoresFijo WHERE Campo0 " +
            numero,
        RecordsetType::kForward);
    std::string ultimo;
    for (std::size_t n = 0; n < kTrabajadoresDeUnaVez && !fijos->Eof(); ++n, fijos->MoveNext()) {
      ultimo = TextoDe(*fijos, 0);
      if (std::ranges::count(vistos_, ultimo) > 0) continue;
      Textos& textos = Nueva();
      textos[0] = ultimo;
      for (const int columna : {1, 2, 3, 4}) Anade(*fijos, columna, textos[static_cast<std::size_t>(columna)]);
      for (const int columna : {5, 6, 7}) Anade(*fijos, columna, textos[5]);
    }
    if (fijos->Eof()) return std::nullopt;
    return "> '" + SqlText(ultimo) + "'";
  }

  // A worker's last situación is the one that began last, of those of one day the highest. They come by number, as the
  // workers do.
  void LeeSituaciones(std::span<Textos> trabajadores) {
    const auto situaciones = base_->OpenRecordset(
        "SELECT Campo0, Campo49, Campo50, Campo3, Campo4 FROM TrabajadoresVar WHERE Campo0 BETWEEN '" +
            SqlText(trabajadores.front()[0]) + "' AND '" + SqlText(trabajadores.back()[0]) +
            "' ORDER BY Campo0, Campo1",
        RecordsetType::kForward);
    std::vector<std::string> claves;
    for (const Textos& trabajador : trabajadores) claves.push_back(Clave(trabajador[0]));
    std::vector<Date> inicios(trabajadores.size(), kSinFecha);
    auto clave = claves.begin();
    std::string numero;
    for (; !situaciones->Eof(); situaciones->MoveNext()) {
      std::string suyo = TextoDe(*situaciones, 0);
      if (suyo != numero) {
        const auto es = std::find(clave, claves.end(), Clave(suyo));
        if (es == claves.end()) continue;
        clave = es;
        numero = std::move(suyo);
      }
      const auto trabajador = static_cast<std::size_t>(clave - claves.begin());
      const Date empieza = FechaDe(*situaciones, 3);
      if (empieza < inicios[trabajador]) continue;
      inicios[trabajador] = empieza;
      Textos& textos = trabajadores[trabajador];
      for (const std::size_t texto : {6, 8}) textos[texto].clear();
      Anade(*situaciones, 1, textos[6]);
      textos[6] += ' ';
      Anade(*situaciones, 2, textos[6]);
      Anade(*situaciones, 4, textos[8]);
    }
    for (std::size_t i = 0; i < trabajadores.size(); ++i) {
      std::string& centro = trabajadores[i][6];
      if (centro.starts_with(' ') || centro.ends_with(' ')) centro = Trim(centro);
      if (inicios[i] != kSinFecha) trabajadores[i][7] = ShortDate(inicios[i]);
    }
  }

  std::shared_ptr<Database> base_;
  std::vector<std::string> vistos_;
  std::size_t al_principio_ = 0;
  std::vector<Textos> filas_;
  std::size_t leidos_ = 0;                             // of them
  std::size_t dados_ = 0;                              // of those
  std::optional<std::string> quedan_ = "IS NOT NULL";  // what the numbers of those are like that are left
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
