#include "common/listas.hpp"

#include <algorithm>
#include <utility>

#include "frame/catalogo.hpp"
#include "platform/sql/literal.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr char kClaseCodigo = '1';  // the third digit of a column's code

constexpr FicheroLista kFicheroEmpresa = {FileKind::kCompany, "Nom<code>.mdb"};
constexpr FicheroLista kFicheroAno = {FileKind::kYear, "N<code><yy>.mdb"};
constexpr FicheroLista kFicheroOficial = {FileKind::kOfficial, "Nom00a<yy>.mdb"};
constexpr FicheroLista kFicheroGeneral = {FileKind::kEmpresas, "Empresas.mdb"};

// A code and its description, as most lists have them.
constexpr ColumnaLista kCodigoNombre[] = {{"001", {1, 3}, "Código", 1}, {"010", {4, 30}, "Descripción", 2}};
constexpr CorteLista kCortesCodigoNombre[] = {{1, 3}, {4, kHastaColumna}};
constexpr CorteLista kPrimerCaracter[] = {{1, 1}};

// Worker screen.

constexpr ColumnaLista kColumnasFicha[] = {{"020", {1, 22}, "Apellido 2", 3},
                                           {"030", {23, 17}, "Nombre", 4},
                                           {"010", {40, 22}, "Apellido 1", 2},
                                           {"001", {62, 5}, "Número", 1}};
constexpr CorteLista kCortesFicha[] = {{62, 5, true}};

constexpr CorteLista kCortesCalles[] = {{1, kHastaColumna}};

constexpr ColumnaLista kColumnasFormasPago[] = {{"001", {1, 2}, "Código", 1}, {"010", {3, 30}, "Descripción", 2}};
constexpr CorteLista kCortesFormasPago[] = {{1, 2}, {3, 30}};

constexpr ColumnaLista kColumnasSituaciones[] = {
    {"032", {1, 8}, "Inicio", 3}, {"011", {9, 7}, "Número", 1}, {"020", {16, 30}, "Descripción", 2}};
constexpr CorteLista kCortesSituaciones[] = {{9, kHastaColumna}, {16, kHastaColumna}, {1, 8}};

constexpr ColumnaLista kColumnasConvenios[] = {{"010", {1, 25}, "Convenio", 2}, {"001", {26, 7}, "Código", 1}};
constexpr CorteLista kCortesConvenios[] = {{26, 7}, {1, 25}};

constexpr ColumnaLista kColumnasCategorias[] = {{"021", {1, 2}, "Código", 1}, {"030", {3, 15}, "Categoría", 2}};
constexpr CorteLista kCortesCategorias[] = {{1, 2}, {3, 15}};

constexpr ColumnaLista kColumnasEpigrafes[] = {{"001", {1, 3}, "Código", 1}, {"010", {4, 50}, "Descripción", 2}};

constexpr ColumnaLista kColumnasContratos[] = {{"020", {1, 34}, "Modalidad", 3},
                                               {"001", {35, 5}, "Contrato", 1},
                                               {"011", {40, 4}, "Tipo", 2},
                                               {"041", {44, 10}, "Bonificación", 4}};
constexpr CorteLista kCortesContratos[] = {{35, kHastaColumna}, {40, kHastaColumna}};

constexpr ColumnaLista kColumnasTiposContrato[] = {{"011", {1, 2}, "Tipo", 1},
                                                   {"020", {3, 34}, "Modalidad", 2},
                                                   {"030", {37, 13}, "Disposición", 3},
                                                   {"041", {50, 10}, "Bonificación", 4}};
// The first piece reaches into the next column; the field that takes it holds two characters.
constexpr CorteLista kCortesTiposContrato[] = {{1, 3}, {3, kHastaColumna}, {37, kHastaColumna}, {50, kHastaColumna}};

constexpr std::string_view kIdentificaciones[] = {
    "1 - N.I.F. ", "2 - Pasaporte ", "3 - Tarjeta de residente comunitario  ", "4 - Permiso de residencia ",
    "6 - N.I.E. ", "9 - C.I.F. ",
};
constexpr std::string_view kSituacionesIRPF[] = {"A   - Activo", "D   - Desempleado", "P   - Pensionista"};
constexpr std::string_view kClasesContrato[] = {
    "G   - General",
    "I   - Inferior a un año",
    "R   - Relaciones laborales especiales",
};
constexpr std::string_view kSituacionesFamilia[] = {
    "1 - Soltero, viudo, divorciado o separado legalmente con hijos<18 años o incapacitados que convivan "
    "exclusivamente con el declarante. ",
    "2 - Casado y no separado legalmente cuyo cónyuge no tiene rentas super. a 100000 pts.",
    "3 - Situación  distinta a las anteriores o no se desea manifestarla",
};
constexpr std::string_view kMinusvalias[] = {
    "0 - Sin grado de minusvalía ",
    "1 - >= 33% y < 65%, con ayuda. ",
    "2 - >= 33% y < 65%, sin ayuda. ",
    "3 - >= 65% ",
};
constexpr std::string_view kGruposTarifa[] = {
    "01 - Ingenieros y Licenciados ",         "02 - Ingenieros Técnicos, Peritos y Ayudantes Titulados",
    "03 - Jefes Administrativos y de Taller", "04 - Ayudantes no Titulados",
    "05 - Oficiales Administrativos",         "06 - Subalternos",
    "07 - Auxiliares Administrativos",        "08 - Oficial de Primera y Segunda",
    "09 - Oficial de Tercera y Especial",     "10 - Peones",
    "11 - Trabajadores menores de 18 años",
};
constexpr CorteLista kCortesGruposTarifa[] = {{1, 2}, {5, kHastaColumna}};

// Incident screens.

constexpr ColumnaLista kColumnasTrabajadores[] = {{"001", {1, 5}, "Número", 1},
                                                  {"010", {6, 22}, "Apellido 1", 2},
                                                  {"020", {28, 22}, "Apellido 2", 3},
                                                  {"030", {50, 25}, "Nombre", 4}};
// The first surname is cut from the last character of the number on.
constexpr CorteLista kCortesTrabajadores[] = {{1, 5}, {5, 23}, {28, 22}, {50, 25}};

constexpr ColumnaLista kColumnasFechas[] = {{"032,042", {1, 8}, "Fecha", 1}};
constexpr CorteLista kCortesFechas[] = {{1, 8}};

constexpr std::string_view kTiposIT[] = {
    "1 - Enfermedad", "2 - Maternidad", "3 - Accidente", "4 - Recaida de enfermedad", "5 - Recaidad de accidente",
};
constexpr CorteLista kCortesTiposIT[] = {{1, 1}, {5, 30}};

constexpr std::string_view kTiposESP[] = {"1 - Vacaciones", "2 - Huelga "};
constexpr CorteLista kCortesTiposESP[] = {{1, 1}, {4, 30}};

constexpr ColumnaLista kColumnasSituacionesTrabajador[] = {{"020", {1, 32}, "Descripción", 2},
                                                           {"011", {33, 3}, "Número", 1}};
constexpr CorteLista kCortesSituacionesTrabajador[] = {{33, 3}};

constexpr ColumnaLista kColumnasConceptos[] = {{"040", {1, 10}, "Descripción", 2}, {"031", {11, 3}, "Concepto", 1}};
constexpr CorteLista kCortesConceptos[] = {{11, 3}, {1, 10}};

// Listing screens.

constexpr ColumnaLista kColumnasConIncidencias[] = {{"010", {1, 37}, "Trabajador", 2}, {"001", {38, 5}, "Número", 1}};
constexpr ColumnaLista kColumnasConVariables[] = {{"020", {1, 37}, "Trabajador", 2}, {"011", {38, 5}, "Número", 1}};
constexpr CorteLista kCortesConIncidencias[] = {{38, 5}, {1, 37}};

constexpr std::string_view kMeses[] = {
    "01   - Enero", "02   - Febrero", "03   - Marzo",      "04   - Abril",   "05   - Mayo",      "06   - Junio",
    "07   - Julio", "08   - Agosto",  "09   - Septiembre", "10   - Octubre", "11   - Nobiembre", "12   - Diciembre",
};
constexpr CorteLista kCortesMeses[] = {{1, 2}, {7, 15}};

constexpr CorteLista kCortesListado[] = {{1, 3, true}, {4, 30, true}};

}  // namespace

constinit const Lista kListaFichaTrabajadores = {
    .titulo = "TrabajadoresFijo",
    .guarda = kTrabajadoresFijo,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo2, campo3, campo1, campo0 from TrabajadoresFijo order by campo0",
    .columnas = kColumnasFicha,
    .cortes = kCortesFicha,
};

constinit const Lista kListaCalles = {
    .titulo = "Calles",
    .guarda = kTiposVia,
    .fichero = kFicheroGeneral,
    .consulta = "select campo0, campo1 from Calles order by campo0,campo1",
    .columnas = kCodigoNombre,
    .cortes = kCortesCalles,
};

constinit const Lista kListaFormasPago = {
    .titulo = "Formas de Pago",
    .fichero = kFicheroEmpresa,
    .consulta = "select campo0,campo1 from FPago order by campo0",
    .columnas = kColumnasFormasPago,
    .cortes = kCortesFormasPago,
};

constinit const Lista kListaSituaciones = {
    .titulo = "Situaciones",
    .guarda = kTrabajadoresVar,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo3, campo1, campo2 from Trabajadoresvar where campo0='{}' order by campo3 DESC ",
    .columnas = kColumnasSituaciones,
    .cortes = kCortesSituaciones,
};

constinit const Lista kListaConvenios = {
    .titulo = "Convenio Empresa Conceptos",
    .guarda = kConEmpresaConceptos,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo1, campo0 from ConEmpresaConceptos group by campo1, campo0  order by campo1 ",
    .columnas = kColumnasConvenios,
    .cortes = kCortesConvenios,
};

constinit const Lista kListaCategorias = {
    .titulo = "Convenio Empresa Conceptos",
    .guarda = kConEmpresaConceptos,
    .fichero = kFicheroEmpresa,
    .consulta =
        "SELECT campo2, campo3 FROM ConEmpresaConceptos WHERE Campo0= '{}' "
        "group by campo2, campo3 ORDER BY campo2 ",
    .columnas = kColumnasCategorias,
    .cortes = kCortesCategorias,
};

constinit const Lista kListaEpigrafes = {
    .titulo = "Epigrafes",
    .guarda = kEpigrafes,
    .fichero = kFicheroGeneral,
    .consulta = "select campo0, campo1 from Epigrafes order by campo0",
    .columnas = kColumnasEpigrafes,
    .cortes = kCortesCodigoNombre,
};

constinit const Lista kListaContratos = {
    .titulo = "Contratos",
    .guarda = kContratos,
    .fichero = kFicheroOficial,
    .consulta = "select campo2, campo0,campo1, campo4 from Contratos order by campo0,campo1",
    .columnas = kColumnasContratos,
    .cortes = kCortesContratos,
};

constinit const Lista kListaTiposContrato = {
    .titulo = "Contratos",
    .guarda = kContratos,
    .fichero = kFicheroOficial,
    .consulta = "select campo1, campo2,campo3, campo4 from Contratos WHERE Campo0 = '{}' ORDER BY campo1",
    .columnas = kColumnasTiposContrato,
    .cortes = kCortesTiposContrato,
};

constinit const Lista kListaCentros = {
    .titulo = "Centros",
    .guarda = kCentros,
    .fichero = kFicheroAno,
    .consulta = "select  campo0,campo1 from Centros order by campo0",
    .columnas = kCodigoNombre,
    .cortes = kCortesCodigoNombre,
};

constinit const Lista kListaSecciones = {
    .titulo = "Secciones",
    .guarda = kSecciones,
    .fichero = kFicheroEmpresa,
    .consulta = "select  campo0,campo1 from Secciones order by campo0",
    .columnas = kCodigoNombre,
    .cortes = kCortesCodigoNombre,
};

constinit const Lista kListaIdentificaciones = {
    .titulo = "Tipo de identificación", .lineas = kIdentificaciones, .cortes = kPrimerCaracter};
constinit const Lista kListaSituacionesIRPF = {
    .titulo = "Situación", .lineas = kSituacionesIRPF, .cortes = kPrimerCaracter};
constinit const Lista kListaClasesContrato = {
    .titulo = "Situación", .lineas = kClasesContrato, .cortes = kPrimerCaracter};
constinit const Lista kListaSituacionesFamilia = {
    .titulo = "Situación Familiar", .lineas = kSituacionesFamilia, .cortes = kPrimerCaracter};
constinit const Lista kListaMinusvalias = {
    .titulo = "Grado de minusvalía", .lineas = kMinusvalias, .cortes = kPrimerCaracter};
constinit const Lista kListaGruposTarifa = {
    .titulo = "Tipo de identificación", .lineas = kGruposTarifa, .cortes = kCortesGruposTarifa};

constinit const Lista kListaTrabajadores = {
    .titulo = "Trabajadores",
    .guarda = kTrabajadoresFijo,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo0 ,campo1,CAMPO2,CAMPO3 from TRABAJADORESFIJO group by campo0,campo1,CAMPO2,CAMPO3",
    .columnas = kColumnasTrabajadores,
    .cortes = kCortesTrabajadores,
};

constinit const Lista kListaFechasIT = {
    .titulo = "Trabajadores",
    .guarda = kTincidenciasIT,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo3 from TincidenciasIT where campo0 = '{}' ",
    .columnas = kColumnasFechas,
    .cortes = kCortesFechas,
};

constinit const Lista kListaFechasESP = {
    .titulo = "Trabajadores",
    .guarda = kTincidenciasESP,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo3 from TincidenciasESp where campo0 = '{}' ",
    .columnas = kColumnasFechas,
    .cortes = kCortesFechas,
};

constinit const Lista kListaTiposIT = {
    .titulo = "Consulta tipo de Incidencias", .lineas = kTiposIT, .cortes = kCortesTiposIT};
constinit const Lista kListaTiposESP = {
    .titulo = "Consulta tipo de Incidencias", .lineas = kTiposESP, .cortes = kCortesTiposESP};

constinit const Lista kListaSituacionesTrabajador = {
    .titulo = "Situación de Trabajadores",
    .guarda = kTrabajadoresVar,
    .fichero = kFicheroEmpresa,
    .consulta = "SELECT CAMPO2,campo1 From TRABAJADOResvar where campo0='{}'",
    .columnas = kColumnasSituacionesTrabajador,
    .cortes = kCortesSituacionesTrabajador,
};

constinit const Lista kListaConceptosTrabajador = {
    .titulo = "conceptos de Trabajador",
    .guarda = kConTrabajadorConceptos,
    .fichero = kFicheroAno,
    .consulta = "SELECT CAMPO4,CAMPO3 From contrabajadorconceptos where campo0='{}' AND campo1='{}'AND campo2='{}'",
    .columnas = kColumnasConceptos,
    .cortes = kCortesConceptos,
};

constinit const Lista kListaTrabajadoresIT = {
    .titulo = "Trabajadores",
    .guarda = kTincidenciasIT,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo0 ,campo1 from TincidenciasIT group by campo0,campo1",
    .columnas = kColumnasConIncidencias,
    .cortes = kCortesConIncidencias,
};

constinit const Lista kListaTrabajadoresESP = {
    .titulo = "Trabajadores",
    // The other table's rows decide: a company without IT incidents gets no list here.
    .guarda = kTincidenciasIT,
    .fichero = kFicheroEmpresa,
    .consulta = "select campo0 ,campo1 from TincidenciasESP group by campo0,campo1",
    .columnas = kColumnasConIncidencias,
    .cortes = kCortesConIncidencias,
};

constinit const Lista kListaTrabajadoresVar = {
    .titulo = "Trabajadores",
    .guarda = kTIncidenciasVar,
    .fichero = kFicheroAno,
    .consulta = "select campo1 ,campo2 from TincidenciasVAR WHERE CAMPO0='{}' group by campo1,campo2",
    .columnas = kColumnasConVariables,
    .cortes = kCortesConIncidencias,
};

constinit const Lista kListaMeses = {
    .titulo = "Mes", .guarda = kTIncidenciasVar, .lineas = kMeses, .cortes = kCortesMeses};

constinit const Lista kListaCentrosListado = {
    .titulo = "Centros",
    .guarda = kCentros,
    .fichero = kFicheroAno,
    .consulta = "SELECT Campo0,Campo1  FROM Centros ORDER BY Campo0 ",
    .columnas = kCodigoNombre,
    .cortes = kCortesListado,
};

constinit const Lista kListaSeccionesListado = {
    .titulo = "Secciones",
    .guarda = kSecciones,
    .fichero = kFicheroEmpresa,
    .consulta = "SELECT Campo0,Campo1  FROM Secciones ORDER BY Campo0 ",
    .columnas = kCodigoNombre,
    .cortes = kCortesListado,
};

std::span<const Lista* const> Listas() {
  static constexpr const Lista* kTodas[] = {
      &kListaFichaTrabajadores,
      &kListaCalles,
      &kListaFormasPago,
      &kListaSituaciones,
      &kListaConvenios,
      &kListaCategorias,
      &kListaEpigrafes,
      &kListaContratos,
      &kListaTiposContrato,
      &kListaCentros,
      &kListaSecciones,
      &kListaIdentificaciones,
      &kListaSituacionesIRPF,
      &kListaClasesContrato,
      &kListaSituacionesFamilia,
      &kListaMinusvalias,
      &kListaGruposTarifa,
      &kListaTrabajadores,
      &kListaFechasIT,
      &kListaFechasESP,
      &kListaTiposIT,
      &kListaTiposESP,
      &kListaSituacionesTrabajador,
      &kListaConceptosTrabajador,
      &kListaTrabajadoresIT,
      &kListaTrabajadoresESP,
      &kListaTrabajadoresVar,
      &kListaMeses,
      &kListaCentrosListado,
      &kListaSeccionesListado,
  };
  return kTodas;
}

std::string ConsultaDe(const Lista& lista, const std::vector<std::string>& parametros) {
  std::string sql;
  std::string_view resto = lista.consulta;
  for (const std::string& parametro : parametros) {
    const std::size_t marca = resto.find(kParametroLista);
    sql += resto.substr(0, marca);
    sql += SqlText(parametro);
    resto.remove_prefix(marca + kParametroLista.size());
  }
  return sql += resto;
}

// Codes alone tell a row: the text of another column may have been cut, or changed since the field was filled.
PickView VistaDe(const Lista& lista, const std::vector<std::string>& actuales, YearWindow ventana) {
  PickView vista;
  vista.years = ventana;
  for (std::size_t i = 0; i < lista.columnas.size(); ++i) {
    vista.headings.emplace_back(lista.columnas[i].encabezado);
    vista.reading.push_back(i);
  }
  std::ranges::sort(vista.reading, {}, [&](std::size_t columna) { return lista.columnas[columna].turno; });
  for (std::size_t i = 0; i < std::min(actuales.size(), lista.cortes.size()); ++i) {
    const auto empieza = [&](const ColumnaLista& c) { return c.lugar.start == lista.cortes[i].inicio; };
    const auto columna = std::ranges::find_if(lista.columnas, empieza);
    const bool hay = columna != lista.columnas.end();
    if (i == 0 && actuales[i].empty()) break;
    if (i > 0 && (!hay || columna->codigo.back() != kClaseCodigo)) continue;
    const RowPlace corte = {lista.cortes[i].inicio, lista.cortes[i].largo};
    vista.present.push_back({hay ? columna->lugar : corte, actuales[i]});
  }
  return vista;
}

// Lines are a code, blanks, a dash, and the text between blanks.
std::string_view TextoDeCodigo(const Lista& lista, std::string_view codigo) {
  for (std::string_view linea : lista.lineas) {
    const std::size_t guion = linea.find('-');
    const std::string_view clave = linea.substr(0, guion);
    if (clave.substr(0, clave.find(' ')) != codigo) continue;
    linea.remove_prefix(linea.find_first_not_of(' ', guion + 1));
    return linea.substr(0, linea.find_last_not_of(' ') + 1);
  }
  return {};
}

std::vector<std::string> CortaFila(const Lista& lista, std::string_view fila) {
  std::vector<std::string> piezas;
  for (const CorteLista& corte : lista.cortes) {
    if (corte.largo != kHastaColumna) {
      std::string pieza = Mid(fila, corte.inicio, corte.largo);
      piezas.push_back(corte.recortado ? Trim(pieza) : std::move(pieza));
      continue;
    }
    int largo = static_cast<int>(Len(fila));
    for (const ColumnaLista& columna : lista.columnas) {
      if (columna.lugar.start > corte.inicio) largo = std::min(largo, columna.lugar.start - corte.inicio);
    }
    piezas.push_back(Trim(Mid(fila, corte.inicio, largo)));
  }
  return piezas;
}

}  // namespace zendara
