#include "adapters/csv/csv_listing_writer.hpp"

#include <string_view>
#include <system_error>
#include <vector>

#include "adapters/csv/csv.hpp"
#include "adapters/host/file_error.hpp"
#include "adapters/host/new_file.hpp"
#include "print/each_row.hpp"

namespace zendara {
namespace {

bool LooksLikeFormula(std::string_view text) { return text.find_first_of("=+-@") == 0; }

// An empty cell is nothing between two separators.
void AppendCell(std::string_view text, CsvListingWriter::Kind kind, std::string& row) {
  if (text.empty()) return;
  if (kind == CsvListingWriter::Kind::kPlain) return AppendCsvText(text, row);
  if (LooksLikeFormula(text) || text.find(';') != std::string_view::npos) return AppendCsvQuoted(text, row);
  AppendCsvText(text, row);
}

}  // namespace

print::Kept CsvListingWriter::Write(print::PagedListing& listing, const std::string& path,
                                    print::DocumentWriter::Existing existing, const print::Progress& progress) const {
  NewFile file(
      path, existing == print::DocumentWriter::Existing::kReplace ? NewFile::Taken::kReplace : NewFile::Taken::kKeep);
  const auto check = [&](const std::error_code& error) {
    if (error) throw FileError(error, path);
  };
  std::string line;
  const auto append = [&](const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) line += kind_ == Kind::kSpreadsheet ? ';' : ',';
      AppendCell(cells[i], kind_, line);
    }
    line += kCsvLineEnd;
    check(file.Append(line));
    line.clear();
  };

  if (kind_ == Kind::kSpreadsheet) line = kByteOrderMark;
  std::vector<std::string> titles;
  for (const print::ListingColumn& column : listing.Description().columns) titles.push_back(column.title);
  append(titles);
  if (!print::ForEachRow(listing, progress, append)) return print::Kept::kStopped;
  check(file.Commit());
  return print::Kept::kWritten;
}

}  // namespace zendara
