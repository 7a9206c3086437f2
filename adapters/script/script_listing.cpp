#include "adapters/script/script_listing.hpp"

#include <algorithm>
#include <utility>

#include "adapters/cairo/cairo_listing_writer.hpp"
#include "adapters/csv/csv_listing_writer.hpp"
#include "adapters/xlsx/xlsx_listing_writer.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr std::size_t kBatch = 1000;
constexpr std::string_view kEndings[] = {".pdf", ".xlsx", ".csv"};

// Empty for another one.
std::string_view EndingOf(std::string_view path) {
  const std::string small = LCase(path);
  const auto* ending = std::ranges::find_if(kEndings, [&](std::string_view e) { return small.ends_with(e); });
  return ending == std::end(kEndings) ? std::string_view() : *ending;
}

}  // namespace

ScriptListing::ScriptListing(print::Listing listing, print::ListingHead head, std::unique_ptr<print::ListingRows> rows,
                             const print::TextMeasure& measure, YearWindow years)
    : pages_(std::move(listing), std::move(head), std::move(rows), measure), years_(years) {
  while (pages_.ReadOn(kBatch)) {
  }
}

bool ScriptListing::IsKnown(std::string_view path) { return !EndingOf(path).empty(); }

void ScriptListing::Save(const std::string& path) {
  const std::string_view ending = EndingOf(path);
  const auto write = [&](const print::ListingWriter& writer) {
    writer.Write(pages_, path, print::DocumentWriter::Existing::kKeep, {});
  };
  if (ending == ".pdf") return write(CairoListingWriter(PangoMeasure()));
  if (ending == ".xlsx") return write(XlsxListingWriter(years_));
  if (ending == ".csv") return write(CsvListingWriter(CsvListingWriter::Kind::kPlain));
  throw RuntimeError(kInvalidCall);
}

}  // namespace zendara
