#include "frame/catalogo.hpp"

namespace zendara {
namespace {

constexpr EntradaCatalogo kEmpresaTablas[] = {
    {kTrabajadoresFijo, "TrabajadoresFijo", "Icampo0"},
    {kTincidenciasIT, "TincidenciasIT", "Icampo0_3"},
    {kTincidenciasESP, "TincidenciasESP", "Icampo0_3"},
    {kFPago, "FPago", "Icampo0"},
    {kSecciones, "Secciones", "Icampo0"},
    {427, "FormulasEmp", "Icampo0"},
    {kConEmpresaConceptos, "ConEmpresaConceptos", "Icampo0_2_4"},
    {434, "ConEmpresaPagas", "Icampo0_2_4"},
    {kTrabajadoresVar, "TrabajadoresVar", "Icampo0_1"},
    {451, "Mta2", "Icampo0_1_2_3_4"},
    {490, "ListadosNOM", "Icampo1"},
};

constexpr EntradaCatalogo kAnoTablas[] = {
    {kConTrabajadorPagas, "ConTrabajadorPagas", "Icampo0_1_2"},
    {399, "ListadosTRA", "Icampo0_1"},
    {kConTrabajadorConceptos, "ConTrabajadorConceptos", "Icampo0_1_2"},
    {kTIncidenciasVar, "TIncidenciasVar", "Icampo0_1_3_4"},
    {425, "Historico", "Icampo0_1_2_3"},
    {415, "HistoricoTc", "ICampo0_1_2_3_7"},
    {435, "HistoricoCon", "Icampo0_1_2_3_4"},
    {kCentros, "Centros", "Icampo0"},
    {450, "Nomina", "Icampo0_1_2_3"},
};

constexpr EntradaCatalogo kDocumentosTablas[] = {
    {460, "CON010200", "Icampo0_1_2"}, {461, "CON020200", "Icampo0_1_2"},   {462, "CON030200", "Icampo0_1_2"},
    {463, "CON040200", "Icampo0_1_2"}, {464, "CON050300", "Icampo0_1_2"},   {469, "CON090200", "Icampo0_1_2"},
    {465, "CON110200", "Icampo0_1_2"}, {466, "CON11aa0200", "Icampo0_1_2"}, {467, "CON11b0200", "Icampo0_1_2"},
    {468, "CON140200", "Icampo0_1_2"}, {470, "CON180200", "Icampo0_1_2"},   {471, "CON160200", "Icampo0_1_2"},
    {472, "CON210200", "Icampo0_1_2"}, {473, "CON21a0200", "Icampo0_1_2"},  {474, "CON21b0200", "Icampo0_1_2"},
    {475, "CON360200", "Icampo0_1_2"}, {476, "CON390200", "Icampo0_1_2"},   {477, "CON850200", "Icampo0_1_2"},
    {478, "CON950200", "Icampo0_1_2"}, {479, "CONANEXO", "Icampo0_1_2"},    {480, "CON11c0200", "Icampo0_1_2"},
    {481, "MSOL0499", "Icampo0_1_2"},  {482, "MPRO1098", "Icampo0_1_2"},    {483, "MNOTFINCON", "Icampo0_1"},
    {484, "MFINIQUITO", "Icampo0_1"},
};

constexpr EntradaCatalogo kOficialTablas[] = {
    {kContratos, "Contratos", "Icampo0_1"},
    {403, "Cotizacion", "Icampo0"},
    {413, "CotizacionEuros", "Icampo0"},
    {414, "IRPFE", "Icampo0"},
    {kIRPF, "IRPF", "Icampo0"},
    {493, "ListadosCON", "Icampo0"},
};

constexpr EntradaCatalogo kGeneralTablas[] = {
    {429, "Delegaciones", "Icampo0"},
    {414, "Calles", "Icampo0"},
    {400, "Empresas", "Icampo0"},
    {kEpigrafes, "Epigrafes", "Icampo0"},
    {410, "ConceptosNOM", "Icampo0"},
    {kContratos, "Contratos", "Icampo0_1"},
    {430, "ConGeneralConceptos", "Icampo0_2_4"},
    {431, "ConGeneralPagas", "Icampo0"},
    {432, "FormulasGen", "Icampo0_1"},
    {491, "Listados", "Icampo1"},
    {423, "EntidadesACC", "Icampo0"},
    {401, "EmpresasNom", "Icampo0"},
    {7, "NIFS", "Icampo0"},
};

constexpr EntradaCatalogo kHaciendaTablas[] = {
    {6, "MAN190", "Icampo0_1_2_3_4_5"},   {4, "M110", "Icampo1_3"},  {5, "C190", "Icampo1"},
    {60, "PendientesMensual", "Icampo1"}, {21, "M111", "Icampo1_3"}, {114, "N110", "Icampo1_3"},
    {115, "N111", "Icampo1_3"},
};

constexpr GrupoCatalogo kGrupos[] = {
    {1, FileKind::kCompany, "NOM<code>.MDB", kEmpresaTablas},
    {2, FileKind::kYear, "N<code><yy>.MDB", kAnoTablas},
    {3, FileKind::kDocuments, "DOC<code>.MDB", kDocumentosTablas},
    {4, FileKind::kOfficial, "NOM00A<yy>.MDB", kOficialTablas},
    {5, FileKind::kEmpresa, "Empresa.MDB", kGeneralTablas},
    {6, FileKind::kTaxReturns, "HACIEN<yy>.MDB", kHaciendaTablas},
};

}  // namespace

std::span<const GrupoCatalogo> Catalogo() { return kGrupos; }

const GrupoCatalogo& Grupo(int numero) { return kGrupos[numero - 1]; }

}  // namespace zendara
