// A workbook of one listing by libxlsxwriter, row after row. Rows wait in files without a name, so that many of them
// take no memory; the package itself, a tenth of that, is put together in memory.
//
// The library says nothing when there is no room for such a file, prints what else fails, and asks the machine's
// locale for its decimal point: this class is what stands between.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "adapters/host/descriptor.hpp"
#include "adapters/xlsx/cell_kinds.hpp"
#include "print/listing.hpp"

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace zendara {

class Workbook {
 public:
  using Cell = std::variant<std::monostate, std::string, PlainNumber, PlainDate>;

  struct Column {
    std::string title;
    print::CellSide side = print::CellSide::kText;
    double width = 0;  // in characters
  };

  struct Plan {
    std::string title;
    std::string company;
    std::string date;
    bool landscape = false;
    std::vector<Column> columns;
    std::size_t rows = 0;  // of a sheet, below its titles: those that are more stand on another one
  };

  // `path`: of the file that it is for. The files of the rows are in its folder, and it is named in what fails: error
  // 61 no room on the disk, 7 no memory, 3163 a text that no cell takes, otherwise as FileError.
  Workbook(Plan plan, const std::string& path);
  ~Workbook();
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;

  // As many cells as columns.
  void AddRow(const std::vector<Cell>& cells);
  // The package, a file in memory, from its start. The last call; may be made on another thread.
  Descriptor Finish();
  // Makes a Finish on another thread fail soon.
  void Stop();

 private:
  void AddSheet();
  void EndSheet();
  void Put(std::size_t column, const std::string& text);
  void Put(std::size_t column, const PlainNumber& number);
  void Put(std::size_t column, const PlainDate& date);
  void Put(std::size_t /*column*/, std::monostate /*nothing*/) {}
  lxw_format* FormatOf(const std::string& code);
  [[noreturn]] void Fail(int library_error) const;
  void Check(int library_error) const;

  Plan plan_;
  std::string path_;
  std::string folder_;
  Descriptor package_;
  std::string package_name_;
  lxw_workbook* book_ = nullptr;  // goes with workbook_close
  std::vector<lxw_worksheet*> sheets_;
  std::map<std::string, lxw_format*> formats_;
  lxw_format* bold_ = nullptr;
  std::map<print::CellSide, lxw_format*> texts_;
  std::size_t row_ = 0;  // of the sheet; its titles are 0
};

}  // namespace zendara
