#include "adapters/csv/csv.hpp"

#include <gmock/gmock.h>

#include <sstream>

#include "adapters/csv/stored_text.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

using Rows = std::vector<std::vector<CsvField>>;

CsvField Plain(std::string text) { return {std::move(text), false}; }
CsvField Quoted(std::string text) { return {std::move(text), true}; }

Rows ReadAll(const std::string& text) {
  std::istringstream in(text);
  CsvReader reader(in);
  Rows rows;
  for (std::vector<CsvField> row; reader.Next(row);) rows.push_back(row);
  return rows;
}

TEST(CsvReader, Rows) {
  const struct {
    std::string text;
    Rows rows;
  } cases[] = {
      {"", {}},
      {"a\r\nb\n", {{Plain("a")}, {Plain("b")}}},
      {"\xEF\xBB\xBF\"a\"\n", {{Quoted("a")}}},
      {",\"\"\n", {{Plain(""), Quoted("")}}},
      {"\n\n", {{Plain("")}, {Plain("")}}},
      {"\"a\"\"b,\r\nc\",d", {{Quoted("a\"b,\r\nc"), Plain("d")}}},
      {" a , b \n", {{Plain(" a "), Plain(" b ")}}},
  };
  for (const auto& c : cases) EXPECT_EQ(ReadAll(c.text), c.rows) << c.text;
}

TEST(CsvReader, ErrorsNameTheLine) {
  const struct {
    std::string text;
    std::int64_t line;
    std::string reason;
  } cases[] = {{"a\n\"b\nc", 2, "not closed"},
               {"a\n\"b\n\"x\n", 3, "follows a closing quote"},
               {"a\nb\"c\n", 2, "quote stands inside"},
               {"a\rb\n", 1, "carriage return"},
               {"\"a\"\rb\n", 1, "carriage return"},
               {"a\nb,\xF1\n", 2, "field 2 is not UTF-8"},
               {"\xE2\x82", 1, "UTF-8"}};
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

TEST(CsvReader, FieldsAcrossTheBuffer) {
  const std::string text(300'000, 'x');
  const std::string file = text + ",\"" + text + "\"\"\r\n\"\r\n";
  EXPECT_EQ(ReadAll(file + file), Rows(2, {Plain(text), Quoted(text + "\"\r\n")}));
}

// What a dump writes is what a load reads.
TEST(StoredText, ReadsBack) {
  const struct {
    Value value;
    std::string text;
  } cases[] = {{Value(), ""},
               {"", "\"\""},
               {" \"ñ\",\r\n", "\" \"\"ñ\"\",\r\n\""},
               {-1234.5, "-1234.5"},
               {0.1 + 0.2, "0.30000000000000004"},
               {5e-324, "5e-324"},
               {Date{36923}, "2001-02-01"},
               {Date{-657434}, "0100-01-01"},
               {Date{36923.25}, "2001-02-01T06:00:00"},
               {Date{-1.75}, "1899-12-29T18:00:00"},
               {Date{36923 + 86399 / 86400.0}, "2001-02-01T23:59:59"}};
  for (const auto& [value, text] : cases) {
    std::string stored;
    AppendStored(value, stored);
    EXPECT_EQ(stored, text);
    const ColumnType type = value.IsNumber() ? ColumnType::kNumber
                            : value.IsDate() ? ColumnType::kDate
                                             : ColumnType::kText;
    EXPECT_EQ(ReadStored(ReadAll(text + "\n").at(0).at(0), type), value) << text;
  }
}

TEST(StoredText, Refuses) {
  for (const CsvField& field : {Plain("1,5"), Plain(" 1"), Plain("nan"), Plain("1e999"), Quoted("")}) {
    EXPECT_EQ(ReadStored(field, ColumnType::kNumber), std::nullopt) << field.text;
  }
  for (const char* text : {"01/02/2001", "2001-02-01 06:00:00", "2001-02-01T24:00:00", "2001-02-01T06:00"}) {
    EXPECT_EQ(ReadStored(Plain(text), ColumnType::kDate), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace zendara
