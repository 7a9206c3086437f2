#include "platform/record/packed_row.hpp"

#include <cstdint>
#include <cstring>
#include <string_view>

#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

using Start = std::uint32_t;

// Kinds of what a column holds. A fault of reading it, a stored date that is none, belongs to who asks for it.
constexpr char kText = 't';
constexpr char kNumber = 'n';
constexpr char kDate = 'd';
constexpr char kFault = 'f';

template <typename T>
void Store(T number, char* bytes) {
  std::memcpy(bytes, &number, sizeof number);
}

template <typename T>
T Load(const char* bytes) {
  T number;
  std::memcpy(&number, bytes, sizeof number);
  return number;
}

void Append(std::string& bytes, char kind, double number) {
  bytes += kind;
  bytes.resize(bytes.size() + sizeof number);
  Store(number, bytes.data() + bytes.size() - sizeof number);
}

}  // namespace

PackedRow::PackedRow(const QueryCursor& query) {
  const std::size_t columns = query.Columns().size();
  bytes_.resize(columns * sizeof(Start));
  for (std::size_t i = 0; i < columns; ++i) {
    Store(static_cast<Start>(bytes_.size()), bytes_.data() + i * sizeof(Start));
    try {
      const Value value = query.Column(static_cast<int>(i));
      if (value.IsText()) (bytes_ += kText) += value.Text();
      if (value.IsNumber()) Append(bytes_, kNumber, value.Number());
      if (value.IsDate()) Append(bytes_, kDate, value.AsDate().serial);
    } catch (const RuntimeError& error) {
      Append(bytes_, kFault, error.number());
    }
  }
  bytes_.shrink_to_fit();
}

Value PackedRow::Read(int column) const {
  const auto start_of = [this](std::size_t i) { return Load<Start>(bytes_.data() + i * sizeof(Start)); };
  const auto i = static_cast<std::size_t>(column);
  const std::size_t columns = start_of(0) / sizeof(Start);
  const std::size_t end = i + 1 < columns ? start_of(i + 1) : bytes_.size();
  const std::string_view cell(bytes_.data() + start_of(i), end - start_of(i));
  if (cell.empty()) return {};
  if (cell[0] == kText) return Value(cell.substr(1));
  const auto number = Load<double>(cell.data() + 1);
  if (cell[0] == kFault) throw RuntimeError(static_cast<int>(number));
  return cell[0] == kDate ? Value(Date{number}) : Value(number);
}

}  // namespace zendara
