// Rows of a server that are put aside.
#include "adapters/postgres/rows_aside.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/errors.hpp"
#include "support/temp_folder.hpp"

namespace zendara::postgres {
namespace {

// A text, which may be empty, and what is Null in every other row.
Answer Row(int number, std::string text) {
  PGresult* row = PQmakeEmptyPGresult(nullptr, PGRES_SINGLE_TUPLE);
  char name[] = "c";
  PGresAttDesc columns[] = {{name, 0, 0, 1, 25, -1, -1}, {name, 0, 0, 1, 25, -1, -1}};
  PQsetResultAttrs(row, 2, columns);
  PQsetvalue(row, 0, 0, text.data(), static_cast<int>(text.size()));
  PQsetvalue(row, 0, 1, number % 2 == 0 ? name : nullptr, number % 2 == 0 ? 1 : -1);
  return Answer(row);
}

std::string TextOf(int number) { return std::string(static_cast<std::size_t>(number % 1000), 'x') + "ñ"; }

class RowsAsideTest : public testing::Test {
 protected:
  RowsAsideTest() { setenv("TMPDIR", std::string(folder / "t").c_str(), 1); }
  ~RowsAsideTest() override { unsetenv("TMPDIR"); }

  void ExpectRows(int count) {
    for (int i = 0; i < count; ++i) {
      const Answer row = aside.Take();
      ASSERT_TRUE(row) << i;
      ASSERT_EQ(row.Bytes(0, 0), TextOf(i));
      ASSERT_EQ(row.IsNull(0, 1), i % 2 != 0);
    }
    EXPECT_FALSE(aside.Take());
  }

  TempFolder folder;
  RowsAside aside;
};

TEST_F(RowsAsideTest, FewAndManyComeBackInTheirOrder) {
  std::filesystem::create_directory(folder / "t");
  EXPECT_FALSE(aside.Take());
  for (const int count : {1, 9000}) {
    aside = {};
    for (int i = 0; i < count; ++i) aside.Put(Row(i, TextOf(i)));
    ExpectRows(count);
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder / "t"));
}

TEST_F(RowsAsideTest, WithoutRoomForAFileThoseInMemoryAreThere) {
  int kept = 0;
  while (ErrorOf([&] { aside.Put(Row(kept, TextOf(kept))); }) == 0) ++kept;
  EXPECT_GT(kept, 1000);
  ExpectRows(kept);
}

}  // namespace
}  // namespace zendara::postgres
