#include "common/lista_filas.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// Small letters with the marks that a search does not ask for; ñ is a letter of its own.
constexpr std::pair<std::string_view, char> kPlainLetters[] = {
    {"á", 'a'}, {"à", 'a'}, {"â", 'a'}, {"ä", 'a'}, {"ã", 'a'}, {"å", 'a'}, {"é", 'e'}, {"è", 'e'}, {"ê", 'e'},
    {"ë", 'e'}, {"í", 'i'}, {"ì", 'i'}, {"î", 'i'}, {"ï", 'i'}, {"ó", 'o'}, {"ò", 'o'}, {"ô", 'o'}, {"ö", 'o'},
    {"õ", 'o'}, {"ú", 'u'}, {"ù", 'u'}, {"û", 'u'}, {"ü", 'u'}, {"ý", 'y'}, {"ÿ", 'y'}, {"ç", 'c'},
};

std::string Plain(std::string_view text) {
  const std::string small = LCase(text);
  std::string plain;
  for (std::size_t i = 0; i < small.size();) {
    const std::string_view two = std::string_view(small).substr(i, 2);
    const auto letter = std::ranges::find(kPlainLetters, two, &std::pair<std::string_view, char>::first);
    const bool marked = letter != std::end(kPlainLetters);
    plain += marked ? letter->second : small[i];
    i += marked ? 2 : 1;
  }
  return plain;
}

std::string TextoDe(const Value& value) {
  if (value.IsNull()) return {};
  return value.IsDate() ? ShortDate(value.AsDate()) : CStr(value);
}

// Ordinal of the column that a code names, or -1.
int OrdinalDe(const std::vector<ColumnDef>& columns, std::string_view codigo) {
  if (codigo.size() != 3 || !std::ranges::all_of(codigo, IsDigit)) throw RuntimeError(kInvalidCall);
  const std::string name = "campo" + std::to_string((codigo[0] - '0') * 10 + (codigo[1] - '0'));
  const auto found = std::ranges::find_if(columns, [&](const ColumnDef& c) { return LCase(c.name) == name; });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

}  // namespace

ListaFilas::ListaFilas(Engine& motor, const std::string& base, const std::string& sql,
                       const std::vector<std::string>& columnas, const std::vector<RowPlace>& lugares) {
  if (columnas.size() != lugares.size()) throw RuntimeError(kInvalidCall);
  int siguiente = 1;
  for (const RowPlace& lugar : lugares) {
    if (lugar.start < siguiente || lugar.width < 0) throw RuntimeError(kInvalidCall);
    siguiente = lugar.start + lugar.width;
  }
  rs_ = motor.Workspaces(0)->OpenDatabase(base)->OpenRecordset(sql);
  for (std::size_t i = 0; i < columnas.size(); ++i) {
    int ordinal = -1;
    char clase = '0';
    for (std::string_view resto = columnas[i]; ordinal < 0 && !resto.empty();) {
      const std::string_view codigo = resto.substr(0, resto.find(','));
      ordinal = OrdinalDe(rs_->Columns(), codigo);
      clase = codigo.back();
      resto.remove_prefix(std::min(codigo.size() + 1, resto.size()));
    }
    if (ordinal < 0) throw RuntimeError(kItemNotFound, {}, "no column " + columnas[i] + " in: " + sql);
    columnas_.push_back({clase - '0', ordinal, lugares[i]});
  }
}

ListaFilas::ListaFilas(std::vector<std::string> lineas) : columnas_(1), lineas_(std::move(lineas)), completa_(true) {}

bool ListaFilas::Reach(std::size_t fila) {
  while (!completa_ && leidas_.size() <= fila) {
    if (!leidas_.empty()) {
      rs_->GoTo(leidas_.back());
      rs_->MoveNext();
    }
    completa_ = rs_->Eof();
    if (!completa_) leidas_.push_back(rs_->Bookmark());
  }
  return fila < Reached();
}

std::size_t ListaFilas::Total() {
  Reach(std::numeric_limits<std::size_t>::max());
  return Reached();
}

Value ListaFilas::Celda(std::size_t fila, std::size_t columna) const {
  rs_->GoTo(leidas_[fila]);
  return rs_->Fields(columnas_[columna].ordinal).Get();
}

std::string ListaFilas::Cell(std::size_t fila, std::size_t columna) const {
  return rs_ ? TextoDe(Celda(fila, columna)) : lineas_[fila];
}

std::string ListaFilas::Row(std::size_t fila) const {
  if (!rs_) return lineas_[fila];
  std::string texto;
  std::size_t ancho = 0;
  for (std::size_t i = 0; i < columnas_.size(); ++i) {
    const RowPlace& lugar = columnas_[i].lugar;
    const auto inicio = static_cast<std::size_t>(lugar.start - 1);
    texto.append(inicio - ancho, ' ');
    texto += Fit(Cell(fila, i), static_cast<std::size_t>(lugar.width));
    ancho = inicio + static_cast<std::size_t>(lugar.width);
  }
  return texto;
}

std::optional<std::size_t> ListaFilas::Find(std::size_t columna, std::string_view texto, std::size_t desde) {
  const std::string buscado = Plain(texto);
  const int largo = static_cast<int>(Len(texto));
  for (std::size_t fila = desde; Reach(fila); ++fila) {
    if (Plain(Left(Cell(fila, columna), largo)) == buscado) return fila;
  }
  return std::nullopt;
}

}  // namespace zendara
