// CSV by RFC 4180, with one addition: an unquoted empty field is Null, a quoted one the empty text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zendara {

struct CsvField {
  std::string text;
  bool quoted = false;

  bool IsNull() const { return text.empty() && !quoted; }
  friend bool operator==(const CsvField&, const CsvField&) = default;
};

// A fault of the text; `line` is the line of the file on which it stands, from 1.
class CsvError : public std::runtime_error {
 public:
  CsvError(std::int64_t line, const std::string& reason) : std::runtime_error(reason), line_(line) {}
  std::int64_t line() const { return line_; }

 private:
  std::int64_t line_;
};

// Reads one row at a time. Lines end with LF or CRLF; a byte order mark at the start is skipped.
class CsvReader {
 public:
  explicit CsvReader(std::istream& in);

  // False at the end of the file. A blank line is a row of one Null field. CsvError on text that is no CSV or no UTF-8.
  bool Next(std::vector<CsvField>& row);
  // The line of the file on which the row that was read last begins, from 1.
  std::int64_t Line() const { return row_line_; }

 private:
  static constexpr int kEnd = -1;

  int Peek();
  bool Fill();
  // Appends what comes before the next of `stops`.
  void TakeUntil(std::string_view stops, std::string& text);
  void ReadQuoted(CsvField& field);
  void ReadPlain(CsvField& field);

  std::istream& in_;
  std::string buffer_;
  std::size_t position_ = 0;
  std::size_t end_ = 0;
  std::int64_t line_ = 1;
  std::int64_t row_line_ = 0;
};

// Appends one field, quoted only where it must be: a text that holds a comma, a quote or a line end, or is empty.
void AppendCsvText(std::string_view text, std::string& row);
void AppendCsvQuoted(std::string_view text, std::string& row);
inline constexpr std::string_view kCsvLineEnd = "\r\n";
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace zendara
