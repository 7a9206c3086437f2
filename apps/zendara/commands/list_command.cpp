#include <memory>
#include <utility>
#include <vector>

#include "adapters/cairo/cairo_listing_writer.hpp"
#include "adapters/csv/csv_listing_writer.hpp"
#include "adapters/hosting/company_host.hpp"
#include "adapters/xlsx/xlsx_listing_writer.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "apps/zendara/commands/company_data.hpp"
#include "apps/zendara/commands/listing_clerk.hpp"
#include "print/listing_text.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr const char* kButton = "Impresora";

std::vector<ScreenOrder> OrdersOf(const ListOptions& options) {
  const auto beside = [&](const char* screen, const ScreenOrder& request) {
    return std::vector<ScreenOrder>{{screen, {}, {}, "Pendientes"}, request};
  };
  switch (options.kind) {
    case ListKind::kIncidents:
    case ListKind::kSpecialIncidents:
      return beside(options.kind == ListKind::kIncidents ? "MIncidencias" : "MIncidenciasESP",
                    {"Imprgast", {}, {{"Text1(1)", options.from}, {"Text1(3)", options.to}}, kButton});
    case ListKind::kVariableIncidents:
      return beside("MIncidenciasVAR",
                    {"Imprgast",
                     {},
                     {{"Text1(1)", options.month}, {"Text1(3)", options.from}, {"Text1(5)", options.to}},
                     kButton});
    case ListKind::kWorkers:
      break;
  }
  ScreenOrder request{"ListadoTrabajador", {}, {}, kButton};
  if (options.variable) request.options.emplace_back("Option1(1)");
  if (options.only_active) request.options.emplace_back("Option1(3)");
  if (options.by_section) request.options.emplace_back("Option1(5)");
  if (options.by_number) request.options.emplace_back("Option1(7)");
  request.fields = {{"Text1(0)", options.centre_from},
                    {"Text1(2)", options.centre_to},
                    {"Text1(4)", options.section_from},
                    {"Text1(6)", options.section_to}};
  return beside("Trabajadores", request);
}

// Empty where the general tables do not say.
std::string NameOf(const std::string& company, const CompanyData& data, Console& console) try {
  const auto general = data.Open(FileKind::kEmpresas, console);
  const auto companies = general->OpenRecordset("EmpresasNom", RecordsetType::kTable);
  companies->SetIndex("Icampo0");
  companies->Seek({company});
  if (companies->NoMatch()) return {};
  const Value name = companies->Fields(1).Get();
  return name.IsText() ? Trim(name.Text()) : std::string();
} catch (const RuntimeError&) {
  return {};
}

// The screens of the company put the rows together.
StagedListing Stage(const ListOptions& options, const CompanyData& data, YearWindow& years, Console& console) {
  ListingClerk clerk(OrdersOf(options));
  CompanyHost host({.engine = data.store().engine.get(),
                    .dialogs = &clerk,
                    .files = data.store().files.get(),
                    .application_folder = data.store().folder,
                    .forms = &clerk,
                    .components = clerk.Neighbours()});
  SessionValues session;
  session.company = options.company.company;
  session.year = options.company.year;
  session.name = NameOf(options.company.company, data, console);
  console.Doing("opening company " + options.company.company + ", year " + options.company.year + ", in " +
                data.store().folder);
  host.Open(session);
  years = host.Years();
  host.Show(OrdersOf(options).front().screen);
  return clerk.Take();
}

}  // namespace

int List(const ListOptions& options, Console& console) {
  const CompanyData data(options.company);
  YearWindow years;
  StagedListing staged = Stage(options, data, years, console);
  console.Doing("reading the listing");
  if (options.pdf.empty() && options.xlsx.empty() && options.csv.empty()) {
    console.Out(print::ListingText(staged.listing, *staged.rows));
    return 0;
  }

  const PangoMeasure measure;
  print::PagedListing pages(std::move(staged.listing), std::move(staged.head), std::move(staged.rows), measure);
  const CairoListingWriter pdf(measure);
  const XlsxListingWriter xlsx(years);
  const CsvListingWriter csv(options.bom ? CsvListingWriter::Kind::kSpreadsheet : CsvListingWriter::Kind::kPlain);
  const std::pair<const std::string&, const print::ListingWriter&> files[] = {
      {options.pdf, pdf}, {options.xlsx, xlsx}, {options.csv, csv}};
  for (const auto& [path, writer] : files) {
    if (path.empty()) continue;
    console.Doing("writing " + path);
    writer.Write(pages, path, print::DocumentWriter::Existing::kKeep, [&](std::size_t rows) {
      console.Progress("rows written", static_cast<std::int64_t>(rows));
      return true;
    });
    console.Out(path + ": " + print::LinesText(pages.Rows()) + "\n");
    console.Flush();
  }
  return 0;
}

}  // namespace zendara
