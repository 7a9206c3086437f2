#include "adapters/csv/csv.hpp"

#include <algorithm>

#include "runtime/text.hpp"

namespace zendara {
namespace {

constexpr std::size_t kBufferSize = 1 << 18;

}  // namespace

CsvReader::CsvReader(std::istream& in) : in_(in), buffer_(kBufferSize, '\0') {
  if (Fill() && std::string_view(buffer_.data(), end_).starts_with(kByteOrderMark)) position_ = kByteOrderMark.size();
}

bool CsvReader::Fill() {
  in_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  if (in_.bad()) throw CsvError(line_, "the file cannot be read");
  position_ = 0;
  end_ = static_cast<std::size_t>(in_.gcount());
  return end_ > 0;
}

int CsvReader::Peek() {
  if (position_ == end_ && !Fill()) return kEnd;
  return static_cast<unsigned char>(buffer_[position_]);
}

void CsvReader::TakeUntil(std::string_view stops, std::string& text) {
  while (Peek() != kEnd) {
    const std::string_view rest(buffer_.data() + position_, end_ - position_);
    std::size_t length = 0;
    while (length < rest.size() && stops.find(rest[length]) == std::string_view::npos) ++length;
    text.append(rest.substr(0, length));
    position_ += length;
    if (length < rest.size()) return;
  }
}

bool CsvReader::Next(std::vector<CsvField>& row) {
  if (Peek() == kEnd) return false;
  row_line_ = line_;
  for (std::size_t count = 0;; ++count) {
    if (row.size() == count) row.emplace_back();
    CsvField& field = row[count];
    field.text.clear();
    field.quoted = Peek() == '"';
    if (field.quoted) {
      ReadQuoted(field);
    } else {
      ReadPlain(field);
    }
    if (!IsUtf8(field.text)) throw CsvError(row_line_, "field " + std::to_string(count + 1) + " is not UTF-8");
    if (Peek() == ',') {
      ++position_;
      continue;
    }
    if (Peek() == '\n') ++position_;
    ++line_;
    row.resize(count + 1);
    return true;
  }
}

// Both leave the position at a comma, at a line end or at the end of the file.
void CsvReader::ReadPlain(CsvField& field) {
  TakeUntil(",\"\r\n", field.text);
  if (Peek() == '"') throw CsvError(line_, "a quote stands inside a field that does not begin with one");
  if (Peek() != '\r') return;
  ++position_;
  if (Peek() != '\n') throw CsvError(line_, "a carriage return stands alone");
}

void CsvReader::ReadQuoted(CsvField& field) {
  ++position_;
  while (true) {
    const std::size_t before = field.text.size();
    TakeUntil("\"", field.text);
    line_ += std::count(field.text.begin() + static_cast<std::ptrdiff_t>(before), field.text.end(), '\n');
    if (Peek() == kEnd) throw CsvError(row_line_, "a quoted field is not closed");
    ++position_;
    if (Peek() != '"') break;
    field.text += '"';
    ++position_;
  }
  if (Peek() == '\r') {
    ++position_;
    if (Peek() != '\n') throw CsvError(line_, "a carriage return stands alone");
  }
  if (Peek() != ',' && Peek() != '\n' && Peek() != kEnd) throw CsvError(line_, "text follows a closing quote");
}

void AppendCsvText(std::string_view text, std::string& row) {
  if (!text.empty() && text.find_first_of(",\"\r\n") == std::string_view::npos) {
    row += text;
    return;
  }
  AppendCsvQuoted(text, row);
}

void AppendCsvQuoted(std::string_view text, std::string& row) {
  row += '"';
  for (const char c : text) {
    if (c == '"') row += '"';
    row += c;
  }
  row += '"';
}

}  // namespace zendara
