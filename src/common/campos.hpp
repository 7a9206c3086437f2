// The fields of a screen as a table. A field's index is its key: the index of its control, and its place in the run of
// columns that the record has.
#pragma once

#include <string_view>
#include <type_traits>

namespace zendara {

// Each screen names its indexes by an enum class of its own.
class IndiceCampo {
 public:
  constexpr IndiceCampo(int indice) : indice_(indice) {}
  template <typename Campo>
    requires std::is_enum_v<Campo>
  constexpr IndiceCampo(Campo campo) : indice_(static_cast<int>(campo)) {}

  constexpr operator int() const { return indice_; }

 private:
  int indice_;
};

enum class TipoCampo { kTexto, kLista, kMarca };

enum ReglaCampo : unsigned {
  kSinRegla = 0,
  kFecha = 1,         // dd/mm/yy, six digits while it has the focus
  kNacimiento = 2,    // its two digits of a year are those of a birth
  kCeros = 4,         // filled with zeros on the left
  kImporte = 8,       // numeric typing, on the right
  kVista = 16,        // shows what a code stands for: takes no typing, and leaving it does nothing
  kClave = 32,        // says which record it is: typed over, it calls up another one
  kReglaPropia = 64,  // the first one that a screen may define for itself
};

struct Campo {
  IndiceCampo indice;
  TipoCampo tipo;
  std::string_view rotulo;
  int largo;  // characters, as wide as its column; dates have 8
  unsigned reglas;

  constexpr bool Tiene(unsigned regla) const { return (reglas & regla) != 0; }
};

// Fields and the columns that they stand for: the first one's, and on from there.
struct Tramo {
  IndiceCampo desde;
  IndiceCampo hasta;
  int columna;  // ordinal

  constexpr int ColumnaDe(IndiceCampo indice) const { return columna + indice - desde; }
};

}  // namespace zendara
