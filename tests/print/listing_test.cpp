// What a listing is made of: its description, its rows, and the two as text.
#include "print/listing.hpp"

#include <gtest/gtest.h>

#include "print/given_rows.hpp"
#include "print/listing_text.hpp"
#include "support/errors.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara::print {
namespace {

using namespace std::string_literals;

constexpr std::int16_t kLeft = 0;
constexpr std::int16_t kRight = 1;

TEST(Listing, ReadsItsDescription) {
  const Listing read = ReadDescription({"2"s, "Nº"s, kRight, "1100"s, "Nombre"s, kLeft, " 4000"s, "Relación "s, true});
  EXPECT_EQ(read, (Listing{"Relación ", {{"Nº", CellSide::kNumber, 1100}, {"Nombre", CellSide::kText, 4000}}, true}));
  const std::pair<ListingDescription, int> faults[] = {
      {{}, kSubscriptOutOfRange},
      {{"0"s, "Relación"s, false}, kSubscriptOutOfRange},
      {{"99999999999"s, "Relación"s, false}, kTypeMismatch},
      {{"dos"s, "Nº"s, kLeft, "1100"s, "Relación"s, false}, kTypeMismatch},
      {{"-1"s, "Relación"s, false}, kTypeMismatch},
      {{kRight, "Nº"s, kLeft, "1100"s, "Relación"s, false}, kTypeMismatch},
      {{"1"s, "Nº"s, "0"s, "1100"s, "Relación"s, false}, kTypeMismatch},
      {{"1"s, "Nº"s, std::int16_t{3}, "1100"s, "Relación"s, false}, kTypeMismatch},
      {{"1"s, "Nº"s, kLeft, "ancho"s, "Relación"s, false}, kTypeMismatch},
      {{"1"s, "Nº"s, kLeft, "1100"s, "Relación"s, "False"s}, kTypeMismatch},
      {{"1"s, "Nº"s, kLeft, "1100"s, "Relación"s}, kSubscriptOutOfRange},
      {{"2000000000"s, "Nº"s, kLeft, "1100"s, "Relación"s, false}, kTypeMismatch},
  };
  for (const auto& [elements, number] : faults) {
    EXPECT_EQ(ErrorOf([&] { ReadDescription(elements); }), number) << &elements - &faults[0].first;
  }
}

TEST(Listing, ReadsTheStagedRowsOnceInTheirOrder) {
  const TempFolder folder;
  const auto engine = MakeEngine();
  const TableDef table = {
      "ListadosNOM", {{"Campo0", ColumnType::kText, 9}, {"Campo1", ColumnType::kDate, 0}}, {{"ICampo0", {0}, false}}};
  const auto database = engine->Workspaces(0)->CreateDatabase(folder / "Nom001.mdb", {table});
  const auto rows = database->OpenRecordset("ListadosNOM", RecordsetType::kTable);
  const auto add = [&](const Value& text, const Value& date) {
    rows->AddNew();
    rows->Fields(0).Set(text);
    rows->Fields(1).Set(date);
    rows->Update();
  };
  add("b", Date{46000});
  add(Null(), Null());
  add("a", Date{45999});
  const auto open = [&](const std::string& name, std::size_t columns) {
    return StagedRows(*engine, folder / "Nom001.mdb", name, columns, YearWindow());
  };
  const auto staged = open("listadosnom", 2);
  Texts cells;
  ASSERT_TRUE(staged->Next(cells));
  EXPECT_EQ(cells, (Texts{"b", "09/12/25"}));
  // The next listing is staged while this one is looked at.
  database->Execute("DELETE * FROM ListadosNOM");
  add("c", Null());
  ASSERT_TRUE(staged->Next(cells));
  EXPECT_EQ(cells, (Texts{"", ""}));
  ASSERT_TRUE(staged->Next(cells));
  EXPECT_EQ(cells, (Texts{"a", "08/12/25"}));
  EXPECT_FALSE(staged->Next(cells));
  EXPECT_FALSE(staged->Next(cells));
  EXPECT_EQ(ErrorOf([&] { open("ListadosNOM", 3); }), kItemNotFound);
  EXPECT_EQ(ErrorOf([&] { open("Otra", 1); }), kInputTableNotFound);
}

TEST(Listing, IsTextInColumns) {
  const Listing listing = {
      "Relación ", {{"Nº", CellSide::kNumber, 10}, {"Nombre", CellSide::kText, 10}, {"x", CellSide::kCentred, 10}}};
  GivenRows rows({{"1", "Peña Güell,\tBegoña", "abc"}, {"", "", "\n"}, {"00012", "\xff", "d"}, {}});
  EXPECT_EQ(ListingText(listing, rows),
            "Relación\n\n"
            "   Nº  Nombre               x\n"
            "-----  ------------------  ---\n"
            "    1  Peña Güell, Begoña  abc\n"
            "\n"
            "00012  \xff                    d\n"
            "\n\n4 líneas\n");
}

}  // namespace
}  // namespace zendara::print
