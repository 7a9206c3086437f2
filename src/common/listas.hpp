// The lists to pick from, each declared once: its rows, where they come from, when it opens, how a row is laid out in
// the text that comes back, and how the screen cuts that text.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/stored_tables.hpp"
#include "zendara/neighbours.hpp"

namespace zendara {

struct ColumnaLista {
  std::string_view codigo;  // as PickList::ConsultaLista takes it
  RowPlace lugar;
  std::string_view encabezado;
  int turno = 0;  // from 1, in the order in which people read the columns
};

// A piece that the screen takes from the returned row, in characters, start from 1.
struct CorteLista {
  int inicio = 0;
  int largo = 0;           // kHastaColumna: up to the next column of the row, and trimmed
  bool recortado = false;  // trimmed
};
inline constexpr int kHastaColumna = 0;
inline constexpr int kSinGuarda = 0;

struct FicheroLista {
  FileKind tipo = FileKind::kCompany;
  std::string_view nombre{};  // as the lists spell it, with the marks of FillFileName
};

// A list of a query has a file, a query and columns; a fixed one has lines.
struct Lista {
  std::string_view titulo;
  int guarda = kSinGuarda;  // slot whose table must have rows for the list to open
  FicheroLista fichero{};
  std::string_view consulta{};  // each kParametroLista takes the next parameter
  std::span<const ColumnaLista> columnas{};
  std::span<const std::string_view> lineas{};
  std::span<const CorteLista> cortes{};  // in the order of the fields that they fill, or of what is made of them

  bool Fija() const { return consulta.empty(); }
};
inline constexpr std::string_view kParametroLista = "{}";

// Worker screen. Parameters: worker for situations, agreement for categories, contract number for contract types.
extern const Lista kListaFichaTrabajadores;   // number
extern const Lista kListaCalles;              // code
extern const Lista kListaFormasPago;          // code, description
extern const Lista kListaSituaciones;         // number, description, start
extern const Lista kListaConvenios;           // code, description
extern const Lista kListaCategorias;          // code, description
extern const Lista kListaEpigrafes;           // code, description
extern const Lista kListaContratos;           // number, type
extern const Lista kListaTiposContrato;       // type, modality, disposition, percent
extern const Lista kListaCentros;             // code, description
extern const Lista kListaSecciones;           // code, description
extern const Lista kListaIdentificaciones;    // code
extern const Lista kListaSituacionesIRPF;     // code
extern const Lista kListaClasesContrato;      // code
extern const Lista kListaSituacionesFamilia;  // code
extern const Lista kListaMinusvalias;         // code
extern const Lista kListaGruposTarifa;        // code, description

// Incident screens. Parameters: worker for dates and situations; month, worker and situation for concepts.
extern const Lista kListaTrabajadores;           // number, surnames, name
extern const Lista kListaFechasIT;               // date
extern const Lista kListaFechasESP;              // date
extern const Lista kListaTiposIT;                // code, description
extern const Lista kListaTiposESP;               // code, description with a leading blank
extern const Lista kListaSituacionesTrabajador;  // number
extern const Lista kListaConceptosTrabajador;    // number, description

// Listing screens. Parameter: month for workers with variable incidents.
extern const Lista kListaTrabajadoresIT;    // number, name
extern const Lista kListaTrabajadoresESP;   // number, name
extern const Lista kListaTrabajadoresVar;   // number, name
extern const Lista kListaMeses;             // number, name
extern const Lista kListaCentrosListado;    // code, description
extern const Lista kListaSeccionesListado;  // code, description

// All of them.
std::span<const Lista* const> Listas();

// The query with its parameters, in their order, a quote in them doubled. REQUIRES: as many as it has marks.
std::string ConsultaDe(const Lista& lista, const std::vector<std::string>& parametros);
// How its rows are shown; they begin on the one whose pieces are `actuales`.
PickView VistaDe(const Lista& lista, const std::vector<std::string>& actuales, YearWindow ventana);
// What a code stands for in the lines of a fixed list; empty for none of its codes.
std::string_view TextoDeCodigo(const Lista& lista, std::string_view codigo);
// The pieces of a returned row, one for each of `cortes`.
std::vector<std::string> CortaFila(const Lista& lista, std::string_view fila);

}  // namespace zendara
