#include "frame/stored_tables.hpp"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <stdexcept>
#include <utility>

#include "runtime/text.hpp"

namespace zendara {
namespace {

// Widths that many columns share.
constexpr int kWorker = 5;
constexpr int kSituation = 3;
constexpr int kMonth = 2;
constexpr int kConcept = 3;
constexpr int kAgreement = 7;
constexpr int kMark = 1;  // a letter or digit of a fixed list, a check box value
constexpr int kPercent = 5;
constexpr int kAmount = 10;
constexpr int kWorkerName = 37;
constexpr int kFree = 50;  // no screen limits it
constexpr int kListing = 255;

// Columns side by side; the ordinals are written out so that a declaration reads by column number. The widths repeat
// until the last column.
struct Columns {
  int from;
  int to;
  ColumnType type;
  std::vector<int> widths;
};

Columns Texts(int from, int to, std::vector<int> widths) { return {from, to, ColumnType::kText, std::move(widths)}; }
Columns Texts(int from, int to, int width) { return Texts(from, to, std::vector<int>{width}); }
Columns Text(int ordinal, int width) { return Texts(ordinal, ordinal, width); }
Columns Dates(int from, int to) { return {from, to, ColumnType::kDate, {0}}; }
Columns Numbers(int from, int to) { return {from, to, ColumnType::kNumber, {0}}; }

// "Icampo0_1_2" is on the columns 0, 1 and 2.
std::vector<int> ColumnsOf(std::string_view index) {
  std::vector<int> ordinals;
  for (std::string_view rest = index.substr(std::string_view("Icampo").size()); !rest.empty();) {
    const std::size_t end = std::min(rest.find('_'), rest.size());
    ordinals.push_back(std::atoi(std::string(rest.substr(0, end)).c_str()));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return ordinals;
}

IndexDef Key(std::string_view name) { return {std::string(name), ColumnsOf(name), true}; }
IndexDef Index(std::string_view name) { return {std::string(name), ColumnsOf(name), false}; }

TableDef Table(std::string_view name, std::initializer_list<Columns> columns, std::initializer_list<IndexDef> indexes) {
  TableDef table{std::string(name), {}, indexes};
  for (const Columns& part : columns) {
    const int count = part.to - part.from + 1;
    const int widths = static_cast<int>(part.widths.size());
    if (part.from != static_cast<int>(table.columns.size()) || count < 1 || count % widths != 0) {
      throw std::logic_error("columns of " + table.name + " do not follow at " + std::to_string(part.from));
    }
    for (int i = 0; i < count; ++i) {
      table.columns.push_back(
          {"Campo" + std::to_string(part.from + i), part.type, part.widths[static_cast<std::size_t>(i % widths)]});
    }
  }
  return table;
}

// A table that is opened and kept, of which nothing is known but its index.
TableDef Kept(std::string_view name, const IndexDef& index) {
  return Table(name, {Texts(0, index.columns.back(), kFree)}, {index});
}

// A staging table of listings: blanks and repeats in every column.
TableDef Listing(std::string_view name, int columns, std::initializer_list<IndexDef> indexes) {
  return Table(name, {Texts(0, columns - 1, kListing)}, indexes);
}

TableDef TrabajadoresFijo() {
  return Table("TrabajadoresFijo",
               {
                   Text(0, kWorker),                   // number
                   Texts(1, 2, 20),                    // surnames
                   Text(3, 15),                        // given name
                   Text(4, kMark),                     // kind of identification
                   Text(5, 14),                        // identification
                   Texts(6, 8, {2, 8, 2}),             // social security: province, number, control digits
                   Texts(9, 14, {3, 30, 4, 3, 3, 3}),  // street type, street, number, staircase, floor, door
                   Text(15, 35),                       // municipality
                   Text(16, 25),                       // province
                   Text(17, 5),                        // post code
                   Text(18, 10),                       // telephone
                   Dates(19, 19),                      // birth
                   Text(20, kMark),                    // worker situation
                   Text(21, kMark),                    // contract class
                   Text(22, kMark),                    // family situation
                   Text(23, 14),                       // spouse's identification
                   Text(24, kMark),                    // disability
                   Texts(25, 54, {4, kMark, kMark}),   // ten children: year of birth, por entero, disability
                   Texts(55, 74, {kMark, kMark}),      // ten ascendants: convivencia, disability
                   Texts(75, 79, kAmount),             // income, reduction, expenses, pension, annuities
                   Text(80, kMark),                    // Ceuta or Melilla
                   Texts(81, 84, kAmount),             // paid and withheld so far, initial figures of the year
                   Texts(85, 88, {4, 4, 2, 10}),       // bank account
                   Texts(89, 90, {2, 30}),             // payment form
               },
               {Key("Icampo0")});
}

TableDef TrabajadoresVar() {
  return Table("TrabajadoresVar",
               {
                   Text(0, kWorker),                         // number
                   Text(1, kSituation),                      // situation
                   Text(2, 30),                              // description
                   Dates(3, 4),                              // start and end of the situation
                   Dates(5, 6),                              // entry and leaving
                   Text(7, 30),                              // reason for leaving
                   Dates(8, 8),                              // seniority
                   Text(9, 4),                               // register book
                   Texts(10, 11, {kAgreement, 25}),          // agreement
                   Texts(12, 13, {2, 15}),                   // category
                   Text(14, 15),                             // job
                   Texts(15, 16, {3, 50}),                   // epigraph
                   Texts(17, 18, {2, 50}),                   // tariff group
                   Text(19, 3),                              // contract number
                   Texts(20, 23, {2, kFree, kFree, kFree}),  // first contract: type, modality, disposition, percent
                   Dates(24, 25),                            // its bonus
                   Texts(26, 29, {2, kFree, kFree, kFree}),  // second contract
                   Dates(30, 31),                            // its bonus
                   Texts(32, 35, {2, kFree, kFree, kFree}),  // third contract
                   Dates(36, 37),                            // its bonus
                   Texts(38, 43, 7),                         // part time and training
                   Text(44, kPercent),                       // withholding rate
                   Text(45, kPercent),                       // multiple employment
                   Text(46, 6),                              // occupation
                   Texts(47, 48, kMark),                     // self-employed, assimilated regime
                   Texts(49, 50, {3, kFree}),                // work centre
                   Texts(51, 52, {3, kFree}),                // section
                   Text(53, kMark),                          // right to benefits
               },
               {Key("Icampo0_1"), Index("ICampo0")});
}

// TincidenciasIT and TincidenciasESP.
TableDef DatedIncidents(std::string_view name) {
  return Table(name, {Text(0, kWorker), Text(1, kWorkerName), Text(2, kMark), Dates(3, 4)},
               {Key("Icampo0_3"), Index("ICampo0")});
}

TableDef TIncidenciasVar() {
  return Table("TIncidenciasVar",
               {
                   Text(0, kMonth),       // month
                   Text(1, kWorker),      // worker
                   Text(2, kWorkerName),  // name
                   Text(3, kSituation),   // situation
                   Text(4, kConcept),     // concept
                   Text(5, 8),            // description
                   Text(6, 9),            // amount
                   Text(7, 5),            // units
               },
               {Key("Icampo0_1_3_4"), Index("ICampo0"), Index("Icampo0_1")});
}

TableDef ConTrabajadorConceptos() {
  return Table("ConTrabajadorConceptos",
               {
                   Text(0, kMonth),      // month
                   Text(1, kWorker),     // worker
                   Text(2, kSituation),  // situation
                   Text(3, kConcept),    // concept
                   Text(4, 10),          // description, as wide as the list of a worker's concepts shows it
                   Texts(5, 18, kFree),  // copied, not read
                   Numbers(19, 19),      // amount proposed in variable incidents
               },
               // A situation has many concepts a month, so the index that its slot opens with admits repeats.
               {Key("Icampo0_1_2_3"), Index("Icampo0_1_2")});
}

TableDef ConTrabajadorPagas() {
  return Table("ConTrabajadorPagas", {Text(0, kMonth), Text(1, kWorker), Text(2, kSituation), Texts(3, 110, kFree)},
               {Key("Icampo0_1_2")});
}

TableDef Historico() {
  return Table("Historico",
               {
                   Texts(0, 1, kFree),    // period
                   Text(2, kWorker),      // worker
                   Texts(3, 6, kFree),    // not read
                   Numbers(7, 11),        // remuneration in 7 and 9, withholding in 8, 10 and 11
                   Texts(12, 28, kFree),  // not read
                   Text(29, kFree),       // currency mark
               },
               {Key("Icampo0_1_2_3")});
}

TableDef Contratos() {
  return Table("Contratos",
               {
                   Text(0, 3),          // number
                   Text(1, 2),          // type
                   Texts(2, 4, kFree),  // modality, disposition, percent
               },
               {Key("Icampo0_1")});
}

TableDef Irpf() { return Table("IRPF", {Numbers(0, 74)}, {Key("Icampo0")}); }

// A code and its name.
TableDef Coded(std::string_view name, int code, int text) {
  return Table(name, {Text(0, code), Text(1, text)}, {Key("Icampo0")});
}

TableDef Calles() { return Coded("Calles", 3, kFree); }
TableDef Epigrafes() { return Coded("Epigrafes", 3, 50); }

// Agreements: code and name, category code and name; the fifth column belongs to the key.
TableDef Agreements(std::string_view name, std::initializer_list<IndexDef> indexes) {
  return Table(name, {Text(0, kAgreement), Text(1, 25), Text(2, 2), Text(3, 15), Text(4, kFree)}, indexes);
}
TableDef ConGeneralConceptos() { return Agreements("ConGeneralConceptos", {Key("Icampo0_2_4")}); }

// Company code, an unread column, default agreement.
TableDef EmpresasNom() {
  return Table("EmpresasNom", {Text(0, 5), Text(1, kFree), Text(2, kAgreement)}, {Key("Icampo0")});
}

std::vector<TableDef> DocumentTables() {
  std::vector<TableDef> tables;
  for (const char* name :
       {"CON010200",  "CON020200", "CON030200", "CON040200", "CON050300",  "CON090200",  "CON110200",  "CON11aa0200",
        "CON11b0200", "CON140200", "CON180200", "CON160200", "CON210200",  "CON21a0200", "CON21b0200", "CON360200",
        "CON390200",  "CON850200", "CON950200", "CONANEXO",  "CON11c0200", "MSOL0499",   "MPRO1098"}) {
    tables.push_back(Kept(name, Key("Icampo0_1_2")));
  }
  tables.push_back(Kept("MNOTFINCON", Key("Icampo0_1")));
  tables.push_back(Kept("MFINIQUITO", Key("Icampo0_1")));
  return tables;
}

std::vector<StoredFile> MakeFiles() {
  return {
      {FileKind::kCompany,
       {
           TrabajadoresFijo(),
           DatedIncidents("TincidenciasIT"),
           DatedIncidents("TincidenciasESP"),
           Coded("FPago", 2, 30),
           Coded("Secciones", 3, kFree),
           Kept("FormulasEmp", Key("Icampo0")),
           Agreements("ConEmpresaConceptos", {Key("Icampo0_2_4"), Index("ICampo0"), Index("ICampo0_2")}),
           Kept("ConEmpresaPagas", Key("Icampo0_2_4")),
           TrabajadoresVar(),
           Kept("Mta2", Key("Icampo0_1_2_3_4")),
           Listing("ListadosNOM", 9, {Index("Icampo1"), Index("ICampo0_1")}),
       }},
      {FileKind::kYear,
       {
           ConTrabajadorPagas(),
           Listing("ListadosTRA", 2, {Index("Icampo0_1")}),
           ConTrabajadorConceptos(),
           TIncidenciasVar(),
           Historico(),
           Kept("HistoricoTc", Key("ICampo0_1_2_3_7")),
           Kept("HistoricoCon", Key("Icampo0_1_2_3_4")),
           Coded("Centros", 3, kFree),
           Kept("Nomina", Key("Icampo0_1_2_3")),
       }},
      {FileKind::kDocuments, DocumentTables()},
      {FileKind::kOfficial,
       {
           Contratos(),
           Kept("Cotizacion", Key("Icampo0")),
           Kept("CotizacionEuros", Key("Icampo0")),
           Kept("IRPFE", Key("Icampo0")),
           Irpf(),
           Listing("ListadosCON", 1, {Index("Icampo0")}),
       }},
      {FileKind::kTaxReturns,
       {
           Kept("MAN190", Key("Icampo0_1_2_3_4_5")),
           Kept("M110", Index("Icampo1_3")),
           Kept("C190", Index("Icampo1")),
           Kept("PendientesMensual", Index("Icampo1")),
           Kept("M111", Index("Icampo1_3")),
           Kept("N110", Index("Icampo1_3")),
           Kept("N111", Index("Icampo1_3")),
       }},
      {FileKind::kEmpresa,
       {
           Kept("Delegaciones", Key("Icampo0")),
           Calles(),
           Kept("Empresas", Key("Icampo0")),
           Epigrafes(),
           Kept("ConceptosNOM", Key("Icampo0")),
           Contratos(),
           ConGeneralConceptos(),
           Kept("ConGeneralPagas", Key("Icampo0")),
           Kept("FormulasGen", Key("Icampo0_1")),
           Listing("Listados", 2, {Index("Icampo1")}),
           Kept("EntidadesACC", Key("Icampo0")),
           EmpresasNom(),
           Kept("NIFS", Key("Icampo0")),
       }},
      {FileKind::kEmpresas, {Calles(), Epigrafes(), EmpresasNom(), ConGeneralConceptos()}},
  };
}

const TableDef* TableIn(const StoredFile& file, std::string_view table) {
  const std::string folded = LCase(table);
  const auto found =
      std::find_if(file.tables.begin(), file.tables.end(), [&](const TableDef& t) { return LCase(t.name) == folded; });
  return found == file.tables.end() ? nullptr : &*found;
}

// In the order of FileKind.
constexpr std::string_view kFileNames[] = {
    "Nom<code>.MDB",  "N<code><yy>.MDB", "DOC<code>.MDB", "Nom00a<yy>.MDB",
    "HACIEN<yy>.MDB", "Empresa.MDB",     "Empresas.mdb",
};

void Replace(std::string& text, std::string_view mark, std::string_view by) {
  if (const std::size_t at = text.find(mark); at != std::string::npos) text.replace(at, mark.size(), by);
}

}  // namespace

const std::vector<StoredFile>& StoredFiles() {
  static const std::vector<StoredFile> files = MakeFiles();
  return files;
}

const StoredFile& FileOf(FileKind kind) { return StoredFiles().at(static_cast<std::size_t>(kind)); }

const TableDef* StoredTable(FileKind kind, std::string_view table) { return TableIn(FileOf(kind), table); }

const StoredFile* FileWithTable(std::string_view table) {
  for (const StoredFile& file : StoredFiles()) {
    if (TableIn(file, table)) return &file;
  }
  return nullptr;
}

std::string FileName(FileKind kind, std::string_view code, std::string_view year) {
  return FillFileName(kFileNames[static_cast<std::size_t>(kind)], code, year);
}

std::string FillFileName(std::string_view pattern, std::string_view code, std::string_view year) {
  std::string name(pattern);
  // The year first: a code is the user's text and may hold anything.
  Replace(name, "<yy>", year);
  Replace(name, "<code>", code);
  return name;
}

}  // namespace zendara
