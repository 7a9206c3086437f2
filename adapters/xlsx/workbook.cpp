#include "adapters/xlsx/workbook.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <unzip.h>
#include <xlsxwriter.h>

#include <array>
#include <cerrno>
#include <clocale>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "adapters/host/file_error.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr int kA4 = 9;
constexpr const char* kTextCode = "@";
constexpr const char* kShortDateCode = "[$-C0A]dd/mm/yy";  // C0A: Spanish of Spain
constexpr const char* kLongDateCode = "[$-C0A]dd/mm/yyyy";
constexpr int kMostInHeader = 80;  // characters of one text; all of them are 255 at most

// Figures of the library are printed in the locale of the thread.
class PlainLocale {
 public:
  PlainLocale() : before_(uselocale(Plain())) {}
  ~PlainLocale() { uselocale(before_); }
  PlainLocale(const PlainLocale&) = delete;
  PlainLocale& operator=(const PlainLocale&) = delete;

 private:
  static locale_t Plain() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
  }
  locale_t before_;
};

// What no XML file may hold, as the sign for that. The library writes control characters in a way of their own.
std::string Readable(std::string_view text) {
  std::string readable;
  while (!text.empty()) {
    const std::string_view character = TakeCharacter(text);
    const int code = CodePoint(character);
    if (code == 0xFFFD || code == 0xFFFE || code == 0xFFFF) {
      readable += Utf8(0xFFFD);
    } else if (code != 0) {
      readable += character;
    }
  }
  return readable;
}

// As a part of a header, where & begins a code.
std::string InHeader(const std::string& text) {
  std::string part;
  for (const char c : Left(text, kMostInHeader)) part += c == '&' ? "&&" : std::string(1, c);
  return part;
}

// All of a sheet is in the package: the library takes a file of rows that the disk had no room for as it is.
bool IsWhole(unzFile package, const std::string& name, off_t least) {
  constexpr std::string_view kEnd = "</worksheet>";
  if (unzLocateFile(package, name.c_str(), 1) != UNZ_OK || unzOpenCurrentFile(package) != UNZ_OK) return false;
  std::string piece(1 << 18, '\0');
  std::string end;
  off_t size = 0;
  int read = 0;
  while ((read = unzReadCurrentFile(package, piece.data(), static_cast<unsigned>(piece.size()))) > 0) {
    size += read;
    end.append(piece, 0, static_cast<std::size_t>(read));
    if (end.size() > kEnd.size()) end.erase(0, end.size() - kEnd.size());
  }
  return unzCloseCurrentFile(package) == UNZ_OK && read == 0 && size >= least && end == kEnd;
}

}  // namespace

Workbook::Workbook(Plan plan, const std::string& path)
    : plan_(std::move(plan)),
      path_(path),
      folder_(std::filesystem::path(path).parent_path()),
      package_(memfd_create("zendara", MFD_CLOEXEC | MFD_ALLOW_SEALING)) {
  if (!package_) throw FileError({errno, std::generic_category()}, path_);
  if (folder_.empty()) folder_ = ".";
  package_name_ = "/proc/self/fd/" + std::to_string(package_.get());
  const PlainLocale plain;
  lxw_workbook_options options = {};
  options.constant_memory = 1;
  options.tmpdir = folder_.data();
  book_ = workbook_new_opt(package_name_.c_str(), &options);
  if (!book_) throw RuntimeError(kOutOfMemory);

  std::string title = Readable(plan_.title);
  std::string company = Readable(plan_.company);
  std::string date = Readable(plan_.date);
  lxw_doc_properties properties = {};
  properties.title = title.data();
  properties.company = company.data();
  properties.subject = date.data();
  Check(workbook_set_properties(book_, &properties));

  bold_ = workbook_add_format(book_);
  if (!bold_) throw RuntimeError(kOutOfMemory);
  format_set_bold(bold_);
  format_set_bottom(bold_, LXW_BORDER_THIN);
  texts_[print::CellSide::kText] = nullptr;
  for (const auto& [side, align] :
       {std::pair(print::CellSide::kNumber, LXW_ALIGN_RIGHT), std::pair(print::CellSide::kCentred, LXW_ALIGN_CENTER)}) {
    lxw_format* format = workbook_add_format(book_);
    if (!format) throw RuntimeError(kOutOfMemory);
    format_set_num_format(format, kTextCode);
    format_set_align(format, align);
    texts_[side] = format;
  }
  AddSheet();
}

Workbook::~Workbook() {
  if (book_) lxw_workbook_free(book_);
}

void Workbook::Fail(int library_error) const {
  const int system = errno;
  switch (library_error) {
    case LXW_ERROR_MEMORY_MALLOC_FAILED:
      throw RuntimeError(kOutOfMemory);
    case LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED:
      throw RuntimeError(kTextTooLong);
    case LXW_ERROR_CREATING_TMPFILE:
    case LXW_ERROR_READING_TMPFILE:
    case LXW_ERROR_ZIP_FILE_OPERATION:
    case LXW_ERROR_ZIP_FILE_ADD:
    case LXW_ERROR_ZIP_CLOSE:
      throw FileError({system, std::generic_category()}, path_);
    default:
      throw RuntimeError(kInternalError, {}, lxw_strerror(static_cast<lxw_error>(library_error)));
  }
}

void Workbook::Check(int library_error) const {
  if (library_error != LXW_NO_ERROR) Fail(library_error);
}

void Workbook::AddSheet() {
  const std::string name = "Listado" + (sheets_.empty() ? "" : " " + std::to_string(sheets_.size() + 1));
  lxw_worksheet* sheet = workbook_add_worksheet(book_, name.c_str());
  if (!sheet) Fail(LXW_ERROR_CREATING_TMPFILE);
  sheets_.push_back(sheet);
  row_ = 0;

  const std::string title = Readable(plan_.title);
  Check(worksheet_set_header(
      sheet, ("&L" + InHeader(Readable(plan_.company)) + "&C" + InHeader(title) + "&R" + InHeader(Readable(plan_.date)))
                 .c_str()));
  Check(worksheet_set_footer(sheet, "&RPágina &P de &N"));
  worksheet_set_paper(sheet, kA4);
  if (plan_.landscape) worksheet_set_landscape(sheet);
  worksheet_fit_to_pages(sheet, 1, 0);
  Check(worksheet_repeat_rows(sheet, 0, 0));
  worksheet_freeze_panes(sheet, 1, 0);
  for (std::size_t i = 0; i < plan_.columns.size(); ++i) {
    const auto column = static_cast<lxw_col_t>(i);
    Check(worksheet_set_column(sheet, column, column, plan_.columns[i].width, nullptr));
    Check(worksheet_write_string(sheet, 0, column, Readable(plan_.columns[i].title).c_str(), bold_));
  }
}

void Workbook::EndSheet() {
  const auto row = static_cast<lxw_row_t>(row_);
  const auto column = static_cast<lxw_col_t>(plan_.columns.size() - 1);
  Check(worksheet_autofilter(sheets_.back(), 0, 0, row, column));
  // Codes are texts on purpose.
  std::array<char, LXW_MAX_CELL_RANGE_LENGTH> all{};
  lxw_rowcol_to_range(all.data(), 0, 0, row, column);
  Check(worksheet_ignore_errors(sheets_.back(), LXW_IGNORE_NUMBER_STORED_AS_TEXT, all.data()));
}

void Workbook::AddRow(const std::vector<Cell>& cells) {
  const PlainLocale plain;
  if (row_ == plan_.rows) {
    EndSheet();
    AddSheet();
  }
  ++row_;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    std::visit([&](const auto& cell) { Put(i, cell); }, cells[i]);
  }
  FILE* rows = sheets_.back()->optimize_tmpfile;
  if (ferror(rows) != 0) throw FileError({errno, std::generic_category()}, path_);
}

void Workbook::Put(std::size_t column, const std::string& text) {
  Check(worksheet_write_string(sheets_.back(), static_cast<lxw_row_t>(row_), static_cast<lxw_col_t>(column),
                               Readable(text).c_str(), texts_[plan_.columns[column].side]));
}

void Workbook::Put(std::size_t column, const PlainNumber& number) {
  const std::string code =
      number.decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(number.decimals), '0');
  Check(worksheet_write_number(sheets_.back(), static_cast<lxw_row_t>(row_), static_cast<lxw_col_t>(column),
                               number.value, FormatOf(code)));
}

void Workbook::Put(std::size_t column, const PlainDate& date) {
  Check(worksheet_write_number(sheets_.back(), static_cast<lxw_row_t>(row_), static_cast<lxw_col_t>(column),
                               date.serial, FormatOf(date.full_year ? kLongDateCode : kShortDateCode)));
}

lxw_format* Workbook::FormatOf(const std::string& code) {
  lxw_format*& format = formats_[code];
  if (format) return format;
  format = workbook_add_format(book_);
  if (!format) throw RuntimeError(kOutOfMemory);
  format_set_num_format(format, code.c_str());
  return format;
}

Descriptor Workbook::Finish() {
  const PlainLocale plain;
  EndSheet();
  std::vector<off_t> sizes;
  for (const lxw_worksheet* sheet : sheets_) {
    errno = 0;
    if (fflush(sheet->optimize_tmpfile) != 0 || ferror(sheet->optimize_tmpfile) != 0) {
      throw FileError({errno, std::generic_category()}, path_);
    }
    sizes.push_back(ftello(sheet->optimize_tmpfile));
  }
  Check(workbook_close(std::exchange(book_, nullptr)));

  const std::unique_ptr<void, decltype(&unzClose)> package(unzOpen64(package_name_.c_str()), unzClose);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const std::string name = "xl/worksheets/sheet" + std::to_string(i + 1) + ".xml";
    if (!package || !IsWhole(package.get(), name, sizes[i])) {
      throw FileError(std::make_error_code(std::errc::no_space_on_device), path_);
    }
  }
  return std::move(package_);
}

// The library has no way to stop: its next write is refused.
void Workbook::Stop() { fcntl(package_.get(), F_ADD_SEALS, F_SEAL_WRITE); }

}  // namespace zendara
