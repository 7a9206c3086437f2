#include "adapters/postgres/wire.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace zendara::postgres {
namespace {

// Types of the server, by their fixed numbers.
constexpr Oid kBool = 16;
constexpr Oid kBytea = 17;
constexpr Oid kInt8 = 20;
constexpr Oid kInt2 = 21;
constexpr Oid kInt4 = 23;
constexpr Oid kText = 25;
constexpr Oid kFloat8 = 701;
constexpr Oid kTimestamp = 1114;

// The array type of each of the kinds, and the type of its elements, in the order of Parameters::Kind.
struct ArrayType {
  Oid array;
  Oid element;
};
constexpr ArrayType kArrays[] = {{1009, kText}, {1001, kBytea}, {1022, kFloat8}, {1115, kTimestamp}, {1016, kInt8}};

// The server's texts have no zero character. In its place, and in that of the mark itself, stand two characters that
// the order of texts does not look at.
constexpr char kMark = '\x01';
constexpr char kZeroBehindMark = '\x02';
constexpr char kMarkBehindMark = '\x03';

bool NeedsMark(char c) { return c == '\0' || c == kMark; }

std::string WithMarks(std::string_view text) {
  std::string marked;
  for (const char c : text) {
    if (NeedsMark(c)) marked += kMark;
    marked += c == '\0' ? kZeroBehindMark : c == kMark ? kMarkBehindMark : c;
  }
  return marked;
}

std::string WithoutMarks(std::string_view marked) {
  std::string text;
  for (std::size_t i = 0; i < marked.size(); ++i) {
    if (marked[i] != kMark || i + 1 == marked.size()) {
      text += marked[i];
    } else {
      text += marked[++i] == kZeroBehindMark ? '\0' : kMark;
    }
  }
  return text;
}

template <typename T>
T BigEndian(T number) {
  if constexpr (std::endian::native == std::endian::little) {
    auto bytes = std::bit_cast<std::array<char, sizeof(T)>>(number);
    std::ranges::reverse(bytes);
    return std::bit_cast<T>(bytes);
  }
  return number;
}

template <typename T>
T Load(const char* bytes) {
  T number;
  std::memcpy(&number, bytes, sizeof number);
  return BigEndian(number);
}

// The time of day is the fraction of a serial also before day 0, where serials are negative.
constexpr double kFirstDayOfServer = 36526;
constexpr std::int64_t kSecondsADay = 86400;
constexpr std::int64_t kMicroseconds = 1'000'000;

}  // namespace

std::int64_t MomentOf(Date date) {
  const double day = std::trunc(date.serial);
  const auto seconds =
      std::min<std::int64_t>(std::lround(std::abs(date.serial - day) * kSecondsADay), kSecondsADay - 1);
  return (static_cast<std::int64_t>(day - kFirstDayOfServer) * kSecondsADay + seconds) * kMicroseconds;
}

Date DateOf(std::int64_t moment) {
  std::int64_t seconds = moment / kMicroseconds;
  std::int64_t days = seconds / kSecondsADay;
  seconds %= kSecondsADay;
  if (seconds < 0) {
    seconds += kSecondsADay;
    --days;
  }
  const double day = kFirstDayOfServer + static_cast<double>(days);
  const double time = static_cast<double>(seconds) / kSecondsADay;
  return {day < 0 ? day - time : day + time};
}

std::string_view StoredType(ColumnType type) {
  switch (type) {
    case ColumnType::kText:
      return "text";
    case ColumnType::kNumber:
      return "double precision";
    case ColumnType::kDate:
      return "timestamp without time zone";
  }
  return {};
}

Parameters& Parameters::Text(std::string_view text) {
  if (std::ranges::any_of(text, NeedsMark)) {
    const std::string marked = WithMarks(text);
    Add(kText, marked.data(), marked.size());
  } else {
    Add(kText, text.data(), text.size());
  }
  return *this;
}

Parameters& Parameters::Bytes(std::string_view bytes) {
  Add(kBytea, bytes.data(), bytes.size());
  return *this;
}

Parameters& Parameters::Number(double number) {
  const double stored = BigEndian(number);
  Add(kFloat8, &stored, sizeof stored);
  return *this;
}

Parameters& Parameters::Integer(std::int64_t number) {
  const std::int64_t stored = BigEndian(number);
  Add(kInt8, &stored, sizeof stored);
  return *this;
}

Parameters& Parameters::Stored(const Value& value, ColumnType type) {
  if (value.IsNull()) {
    AddNull(type == ColumnType::kText ? kText : type == ColumnType::kNumber ? kFloat8 : kTimestamp);
  } else if (value.IsText()) {
    Text(value.Text());
  } else if (value.IsNumber()) {
    Number(value.Number());
  } else {
    const std::int64_t stored = BigEndian(MomentOf(value.AsDate()));
    Add(kTimestamp, &stored, sizeof stored);
  }
  return *this;
}

Parameters& Parameters::NullBytes() {
  AddNull(kBytea);
  return *this;
}

Parameters& Parameters::BeginArray(Kind kind, std::size_t rows) {
  const ArrayType& type = kArrays[static_cast<std::size_t>(kind)];
  // One dimension, Nulls may come, the type of the elements, how many, the number of the first.
  const std::int32_t head[] = {BigEndian<std::int32_t>(1), BigEndian<std::int32_t>(1),
                               BigEndian(static_cast<std::int32_t>(type.element)),
                               BigEndian(static_cast<std::int32_t>(rows)), BigEndian<std::int32_t>(1)};
  Add(type.array, head, sizeof head);
  rows_left_ = rows;
  return *this;
}

void Parameters::Clear() {
  bytes_.clear();
  types_.clear();
  starts_.clear();
  lengths_.clear();
  rows_left_ = 0;
}

std::vector<const char*> Parameters::Values() const {
  std::vector<const char*> values;
  values.reserve(starts_.size());
  for (const std::ptrdiff_t start : starts_) values.push_back(start < 0 ? nullptr : bytes_.data() + start);
  return values;
}

void Parameters::Add(Oid type, const void* bytes, std::size_t size) {
  const auto length = static_cast<std::int32_t>(size);
  if (rows_left_ > 0) {
    --rows_left_;
    const std::int32_t stored = BigEndian(length);
    bytes_.append(reinterpret_cast<const char*>(&stored), sizeof stored);
    bytes_.append(static_cast<const char*>(bytes), size);
    lengths_.back() += static_cast<int>(sizeof stored) + length;
    return;
  }
  types_.push_back(type);
  starts_.push_back(static_cast<std::ptrdiff_t>(bytes_.size()));
  lengths_.push_back(length);
  bytes_.append(static_cast<const char*>(bytes), size);
}

void Parameters::AddNull(Oid type) {
  if (rows_left_ > 0) {
    --rows_left_;
    const auto null = BigEndian<std::int32_t>(-1);
    bytes_.append(reinterpret_cast<const char*>(&null), sizeof null);
    lengths_.back() += static_cast<int>(sizeof null);
    return;
  }
  types_.push_back(type);
  starts_.push_back(-1);
  lengths_.push_back(0);
}

std::int64_t Answer::Affected() const {
  const std::string_view digits = PQcmdTuples(get());
  std::int64_t rows = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), rows);
  return rows;
}

std::int64_t Answer::Integer(int row, int column) const {
  const char* bytes = PQgetvalue(get(), row, column);
  switch (PQftype(get(), column)) {
    case kBool:
      return *bytes;
    case kInt2:
      return Load<std::int16_t>(bytes);
    case kInt4:
      return Load<std::int32_t>(bytes);
    default:
      return Load<std::int64_t>(bytes);
  }
}

Value Answer::Read(int row, int column, ColumnType type) const {
  if (IsNull(row, column)) return {};
  switch (type) {
    case ColumnType::kText: {
      const std::string_view text = Bytes(row, column);
      // Most are too short for a search that is made for long ones.
      if (std::ranges::any_of(text, [](char c) { return c == kMark; })) return Value(WithoutMarks(text));
      return Value(text);
    }
    case ColumnType::kNumber:
      if (PQftype(get(), column) != kFloat8) return Value(static_cast<double>(Integer(row, column)));
      return Value(Load<double>(PQgetvalue(get(), row, column)));
    case ColumnType::kDate:
      return Value(DateOf(Load<std::int64_t>(PQgetvalue(get(), row, column))));
  }
  return {};
}

}  // namespace zendara::postgres
