#include "adapters/csv/csv.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "adapters/csv/stored_text.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

using Rows = std::vector<std::vector<CsvField>>;

CsvField Plain(std::string text) { return {std::move(text), false}; }
CsvField Quoted(std::string text) { return {std::move(text), true}; }

Rows ReadAll(const std::string& text, std::vector<std::int64_t>* lines = nullptr) {
  std::istringstream in(text);
  CsvReader reader(in);
  Rows rows;
  for (std::vector<CsvField> row; reader.Next(row);) {
    rows.push_back(row);
    if (lines) lines->push_back(reader.Line());
  }
  return rows;
}

TEST(CsvReader, Rows) {
  const struct {
    std::string text;
    Rows rows;
  } cases[] = {
      {"", {}},
      {"a", {{Plain("a")}}},
      {"a,b\n", {{Plain("a"), Plain("b")}}},
      {"a\r\nb\n", {{Plain("a")}, {Plain("b")}}},
      {"\xEF\xBB\xBF\"a\"\n", {{Quoted("a")}}},
      {",\"\"\n", {{Plain(""), Quoted("")}}},
      {"\n\n", {{Plain("")}, {Plain("")}}},
      {"a,\r\n", {{Plain("a"), Plain("")}}},
      {"\"a\"\"b,\r\nc\",d", {{Quoted("a\"b,\r\nc"), Plain("d")}}},
      {"\"\"\"\"", {{Quoted("\"")}}},
      {" a , b \n", {{Plain(" a "), Plain(" b ")}}},
      {"ñ€😀\n", {{Plain("ñ€😀")}}},
  };
  for (const auto& c : cases) EXPECT_EQ(ReadAll(c.text), c.rows) << c.text;
}

TEST(CsvReader, ErrorsNameTheLine) {
  const struct {
    std::string text;
    std::int64_t line;
    std::string reason;
  } cases[] = {
      {"a\n\"b\nc", 2, "not closed"},
      {"a\n\"b\n\"x\n", 3, "follows a closing quote"},
      {"a\nb\"c\n", 2, "quote stands inside"},
      {"a\rb\n", 1, "carriage return"},
      {"\"a\"\rb\n", 1, "carriage return"},
      {"a\nb,\xF1\n", 2, "field 2 is not UTF-8"},
      {"\xC0\x80", 1, "UTF-8"},
      {"\xED\xA0\x80", 1, "UTF-8"},
      {"\xF4\x90\x80\x80", 1, "UTF-8"},
      {"\xE2\x82", 1, "UTF-8"},
  };
  for (const auto& c : cases) {
    try {
      ReadAll(c.text);
      ADD_FAILURE() << c.text;
    } catch (const CsvError& error) {
      EXPECT_EQ(error.line(), c.line) << c.text;
      EXPECT_THAT(error.what(), testing::HasSubstr(c.reason)) << c.text;
    }
  }
}

TEST(CsvReader, LineIsWhereTheRowBegins) {
  std::vector<std::int64_t> lines;
  ReadAll("a\n\"b\r\n\n\",c\nd\n", &lines);
  EXPECT_THAT(lines, testing::ElementsAre(1, 2, 5));
}

TEST(CsvReader, FieldsAcrossTheBuffer) {
  const std::string text(300'000, 'x');
  std::string file;
  AppendCsvText(text, file);
  file += ',';
  AppendCsvText(text + "\"\r\n", file);
  file += kCsvLineEnd;
  EXPECT_EQ(ReadAll(file + file), Rows(2, {Plain(text), Quoted(text + "\"\r\n")}));
}

// What a dump writes is what a load reads.
TEST(StoredText, ReadsBack) {
  const struct {
    ColumnType type;
    Value value;
    std::string text;
  } cases[] = {
      {ColumnType::kText, Value(), ""},
      {ColumnType::kText, Value(""), "\"\""},
      {ColumnType::kText, Value("007"), "007"},
      {ColumnType::kText, Value(" \"ñ\",\r\n"), "\" \"\"ñ\"\",\r\n\""},
      {ColumnType::kNumber, Value(), ""},
      {ColumnType::kNumber, Value(0), "0"},
      {ColumnType::kNumber, Value(-1234.5), "-1234.5"},
      {ColumnType::kNumber, Value(0.1 + 0.2), "0.30000000000000004"},
      {ColumnType::kNumber, Value(5e-324), "5e-324"},
      {ColumnType::kDate, Value(), ""},
      {ColumnType::kDate, Value(Date{36923}), "2001-02-01"},
      {ColumnType::kDate, Value(Date{0}), "1899-12-30"},
      {ColumnType::kDate, Value(Date{-657434}), "0100-01-01"},
      {ColumnType::kDate, Value(Date{2958465}), "9999-12-31"},
      {ColumnType::kDate, Value(Date{36923.25}), "2001-02-01T06:00:00"},
      {ColumnType::kDate, Value(Date{-1.75}), "1899-12-29T18:00:00"},
      {ColumnType::kDate, Value(Date{36923 + 86399 / 86400.0}), "2001-02-01T23:59:59"},
  };
  for (const auto& c : cases) {
    std::string text;
    AppendStored(c.value, text);
    EXPECT_EQ(text, c.text);
    const Rows rows = ReadAll(text + "\n");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(ReadStored(rows[0][0], c.type), c.value) << c.text;
  }
}

TEST(StoredText, Refuses) {
  const struct {
    ColumnType type;
    CsvField field;
  } cases[] = {
      {ColumnType::kNumber, Plain("1,5")},
      {ColumnType::kNumber, Plain(" 1")},
      {ColumnType::kNumber, Plain("1x")},
      {ColumnType::kNumber, Plain("nan")},
      {ColumnType::kNumber, Plain("1e999")},
      {ColumnType::kNumber, Quoted("")},
      {ColumnType::kDate, Quoted("")},
      {ColumnType::kDate, Plain("01/02/2001")},
      {ColumnType::kDate, Plain("2001-02-29")},
      {ColumnType::kDate, Plain("0099-12-31")},
      {ColumnType::kDate, Plain("2001-02-01 06:00:00")},
      {ColumnType::kDate, Plain("2001-02-01T24:00:00")},
      {ColumnType::kDate, Plain("2001-02-01T06:00")},
      {ColumnType::kDate, Plain("2001-02-01T06:00:00Z")},
      {ColumnType::kDate, Plain("2001-02-01T06:00:00.5e1")},
  };
  for (const auto& c : cases) EXPECT_EQ(ReadStored(c.field, c.type), std::nullopt) << c.field.text;
}

}  // namespace
}  // namespace zendara
