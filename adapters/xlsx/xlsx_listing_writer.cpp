#include "adapters/xlsx/xlsx_listing_writer.hpp"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <future>
#include <system_error>
#include <utility>
#include <vector>

#include "adapters/host/file_error.hpp"
#include "adapters/host/new_file.hpp"
#include "adapters/xlsx/cell_kinds.hpp"
#include "adapters/xlsx/workbook.hpp"
#include "print/each_row.hpp"
#include "print/reporter.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr double kTwipsPerCharacter = 105;  // a figure of the spreadsheet's usual font
constexpr std::size_t kFilterButton = 3;    // characters that it takes beside the title
constexpr std::size_t kMostCharacters = 60;

// As wide as the description says, and wider for what it does not show whole.
double WidthOf(const print::ListingColumn& column, const ColumnKind& kind) {
  const std::size_t needed = std::max(Len(column.title) + kFilterButton, kind.Width() + 1);
  return std::max(column.width / kTwipsPerCharacter, static_cast<double>(std::min(needed, kMostCharacters)));
}

Workbook::Plan PlanOf(const print::PagedListing& listing, const std::vector<ColumnKind>& kinds, std::size_t rows) {
  const print::ListingHead& head = listing.Head();
  Workbook::Plan plan;
  plan.title = Trim(listing.Description().title);
  plan.company = Trim(head.company + " " + head.name);
  plan.date = head.date;
  plan.landscape = listing.PaperOf().width > listing.PaperOf().height;
  plan.rows = rows;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const print::ListingColumn& column = listing.Description().columns[i];
    plan.columns.push_back({column.title, column.side, WidthOf(column, kinds[i])});
  }
  return plan;
}

Workbook::Cell CellOf(const std::string& text, CellKind kind, YearWindow years) {
  if (text.empty()) return {};
  if (kind == CellKind::kNumber) {
    if (const auto number = ReadPlainNumber(text)) return *number;
  } else if (kind == CellKind::kDate) {
    if (const auto date = ReadPlainDate(text, years)) return *date;
  }
  return text;
}

void AppendAll(const Descriptor& package, NewFile& file, const std::string& path) {
  std::string piece(1 << 18, '\0');
  for (off_t at = 0;;) {
    const ssize_t read = pread(package.get(), piece.data(), piece.size(), at);
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) throw FileError({errno, std::generic_category()}, path);
    if (read == 0) return;
    if (const auto error = file.Append({piece.data(), static_cast<std::size_t>(read)})) throw FileError(error, path);
    at += read;
  }
}

}  // namespace

print::Kept XlsxListingWriter::Write(print::PagedListing& listing, const std::string& path,
                                     print::DocumentWriter::Existing existing, const print::Progress& progress) const {
  NewFile file(
      path, existing == print::DocumentWriter::Existing::kReplace ? NewFile::Taken::kReplace : NewFile::Taken::kKeep);
  if (const auto error = file.Append({})) throw FileError(error, path);

  // What a column holds is known when all of it was seen.
  std::vector<ColumnKind> kinds;
  for (const print::ListingColumn& column : listing.Description().columns) kinds.emplace_back(column.side, years_);
  const auto none_done = [&](std::size_t /*row*/) { return !progress || progress(0); };
  const auto take_in = [&](const std::vector<std::string>& row) {
    for (std::size_t i = 0; i < kinds.size(); ++i) kinds[i].TakeIn(row[i]);
  };
  if (!print::ForEachRow(listing, none_done, take_in)) return print::Kept::kStopped;

  Workbook book(PlanOf(listing, kinds, rows_of_sheet_), path);
  std::vector<Workbook::Cell> cells(kinds.size());
  const auto add = [&](const std::vector<std::string>& row) {
    for (std::size_t i = 0; i < kinds.size(); ++i) cells[i] = CellOf(row[i], kinds[i].Kind(), years_);
    book.AddRow(cells);
  };
  if (!print::ForEachRow(listing, progress, add)) return print::Kept::kStopped;

  std::future<Descriptor> packing = std::async(std::launch::async, [&] { return book.Finish(); });
  while (packing.wait_for(print::Reporter::kEach) != std::future_status::ready) {
    if (progress && !progress(listing.Rows())) {
      book.Stop();
      return print::Kept::kStopped;
    }
  }
  AppendAll(packing.get(), file, path);
  if (const auto error = file.Commit()) throw FileError(error, path);
  return print::Kept::kWritten;
}

}  // namespace zendara
