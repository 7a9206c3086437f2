#include "print/listing.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>
#include <variant>

#include "runtime/format.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara::print {
namespace {

template <typename T>
const T& At(const ListingDescription& elements, std::size_t index) {
  if (index >= elements.size()) throw RuntimeError(kSubscriptOutOfRange);
  const T* element = std::get_if<T>(&elements[index]);
  if (!element) throw RuntimeError(kTypeMismatch);
  return *element;
}

// Not negative.
int NumberAt(const ListingDescription& elements, std::size_t index) {
  double number = 0;
  const int error = ReadNumber(At<std::string>(elements, index), number);
  if (error != 0 || number < 0 || number > std::numeric_limits<int>::max()) throw RuntimeError(kTypeMismatch);
  return static_cast<int>(std::lround(number));
}

CellSide SideAt(const ListingDescription& elements, std::size_t index) {
  const std::int16_t side = At<std::int16_t>(elements, index);
  if (side < 0 || side > static_cast<int>(CellSide::kCentred)) throw RuntimeError(kTypeMismatch);
  return static_cast<CellSide>(side);
}

// The handles are its own, so that no other reading of the file moves its rows.
class Staged : public ListingRows {
 public:
  Staged(Engine& engine, const std::string& file, const std::string& table, std::size_t columns, YearWindow years)
      : database_(engine.Workspaces(0)->OpenDatabase(file)), columns_(static_cast<int>(columns)) {
    database_->SetYearWindow(years);
    rows_ = database_->OpenRecordset(table, RecordsetType::kForward);
    if (rows_->Columns().size() < columns) throw RuntimeError(kItemNotFound);
  }

  bool Next(std::vector<std::string>& cells) override {
    if (std::exchange(begun_, true) && !rows_->Eof()) rows_->MoveNext();
    if (rows_->Eof()) return false;
    cells.clear();
    for (int column = 0; column < columns_; ++column) {
      const Value value = rows_->Fields(column).Get();
      cells.push_back(value.IsNull() ? std::string() : CStr(value));
    }
    return true;
  }

 private:
  std::shared_ptr<Database> database_;
  std::shared_ptr<Recordset> rows_;
  int columns_;
  bool begun_ = false;
};

bool IsControl(std::string_view character) {
  const int code = CodePoint(character);
  return code < ' ' || (code >= 0x7F && code <= 0x9F);
}

// Bytes of control characters, and the one that some of them begin with.
bool MayBeControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < ' ' || byte == 0x7F || byte == 0xC2;
}

}  // namespace

Listing ReadDescription(const ListingDescription& elements) {
  const auto columns = static_cast<std::size_t>(NumberAt(elements, 0));
  if (columns == 0) throw RuntimeError(kSubscriptOutOfRange);
  Listing listing;
  for (std::size_t at = 1; at <= 3 * columns; at += 3) {
    listing.columns.push_back({At<std::string>(elements, at), SideAt(elements, at + 1), NumberAt(elements, at + 2)});
  }
  listing.title = At<std::string>(elements, 3 * columns + 1);
  listing.pending = At<bool>(elements, 3 * columns + 2);
  return listing;
}

std::unique_ptr<ListingRows> StagedRows(Engine& engine, const std::string& file, const std::string& table,
                                        std::size_t columns, YearWindow years) {
  return std::make_unique<Staged>(engine, file, table, columns, years);
}

std::string CellText(std::string_view cell) {
  std::string kept;
  return std::string(CellView(cell, kept));
}

std::string_view CellView(std::string_view cell, std::string& kept) {
  if (std::ranges::any_of(cell, MayBeControl)) {
    kept.clear();
    while (!cell.empty()) {
      const std::string_view character = TakeCharacter(cell);
      IsControl(character) ? kept += ' ' : kept += character;
    }
    cell = kept;
  }
  cell.remove_prefix(std::min(cell.find_first_not_of(' '), cell.size()));
  return cell.substr(0, cell.find_last_not_of(' ') + 1);
}

std::string LinesText(std::size_t rows) {
  return rows == 1 ? "1 línea" : GroupThousands(std::to_string(rows)) + " líneas";
}

}  // namespace zendara::print
