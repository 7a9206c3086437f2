#include "common/buscador.hpp"

#include <gtest/gtest.h>

#include "lists_fixture.hpp"
#include "runtime/date.hpp"

namespace zendara {
namespace {

TEST_F(ListsTest, EveryWorkerIsFoundWithHisLastSituacion) {
  EXPECT_EQ(EligeTrabajador(sesion, ""), "") << "nobody to choose";
  for (const char* number : {"00001", "00002", "00003", "00400"}) {
    Add(FileKind::kCompany, "TrabajadoresFijo",
        {{0, number}, {1, "García"}, {3, number}, {5, "1X"}, {6, "28"}, {7, "12345678"}, {8, "90"}});
  }
  const auto situation = [&](const char* number, const char* code, std::optional<Date> start, const char* centre) {
    Add(FileKind::kCompany, "TrabajadoresVar",
        {{0, number}, {1, code}, {3, start ? Value(*start) : Value()}, {49, centre}, {50, "Taller"}});
  };
  situation("00001", "001", MakeDate(2001, 9, 1), "003");
  situation("00001", "002", MakeDate(1999, 9, 1), "001");
  situation("00002", "001", MakeDate(2001, 9, 1), "005");
  situation("00002", "002", MakeDate(2001, 9, 1), "006");
  situation("00002", "003", std::nullopt, "007");
  situation("00003", "001", std::nullopt, "002");
  situation("00077", "001", MakeDate(2001, 9, 1), "004");  // nobody's
  ApuntaVisto(sesion, "00003");
  ApuntaVisto(sesion, "00099");  // removed since
  sesion.TrabajadoresVistos.emplace_back("00002", "00400");
  std::vector<std::string> rows;
  RegisterPickList(components, [&](const std::string&, RowList& list) {
    for (std::size_t row = 0; row < list.Total(); ++row) rows.push_back(list.Row(row));
    EXPECT_EQ(list.PresentIn(2), 1U);
    EXPECT_EQ(list.View().foremost, 1U);
    return std::optional<std::size_t>(3);
  });
  EXPECT_EQ(EligeTrabajador(sesion, "2"), "00400");
  ASSERT_EQ(rows.size(), 4U);
  const auto tail = [&](std::size_t row) { return Trim(Mid(rows[row], 65)); };
  EXPECT_EQ(tail(0), "1X             281234567890 002 Taller");
  EXPECT_EQ(tail(1), "1X             281234567890 003 Taller                         01/09/01");
  EXPECT_EQ(tail(2), "1X             281234567890 006 Taller                         01/09/01");
  EXPECT_EQ(tail(3), "1X             281234567890");
}

TEST_F(ListsTest, ManyWorkersKeepTheirOwnSituaciones) {
  constexpr int kWorkers = 1100;
  const auto number = [](int n) { return std::to_string(10000 + n); };
  for (int n = 1; n <= kWorkers; ++n) {
    if (n % 7 != 0) Add(FileKind::kCompany, "TrabajadoresFijo", {{0, number(n)}});
    if (n % 3 == 0) continue;
    Add(FileKind::kCompany, "TrabajadoresVar", {{0, number(n)}, {1, "001"}, {49, "C"}, {50, number(n)}});
  }
  ApuntaVisto(sesion, number(300));
  std::vector<std::string> rows;
  RegisterPickList(components, [&](const std::string&, RowList& list) {
    for (std::size_t row = 0; row < list.Total(); ++row) rows.push_back(list.Cell(row, 0) + list.Cell(row, 6));
    return std::nullopt;
  });
  EligeTrabajador(sesion, "");
  std::vector<std::string> expected = {number(300)};
  for (int n = 1; n <= kWorkers; ++n) {
    if (n % 7 != 0 && n != 300) expected.push_back(number(n) + (n % 3 == 0 ? "" : "C " + number(n)));
  }
  EXPECT_EQ(rows, expected);
}

// A host's own list that knows nothing of rows that are made.
TEST_F(ListsTest, AListThatOnlyKnowsFixedRowsGetsTheWorkersAsThose) {
  struct Plain : PickList {
    void ConsultaLista(const std::vector<std::string>&, const std::string&, const std::vector<RowPlace>&, Engine&,
                       const std::string&, const std::string&, std::int16_t, std::string&) override {}
    void ConsultaFija(const std::vector<std::string>& lineas, const std::string&, std::int16_t,
                      std::string& resultado) override {
      resultado = lineas.back();
    }
  };
  components.Register(kPickListClass, [] { return std::make_unique<Plain>(); });
  for (const char* number : {"00001", "00002"}) Add(FileKind::kCompany, "TrabajadoresFijo", {{0, number}});
  EXPECT_EQ(EligeTrabajador(sesion, ""), "00002");
}

TEST_F(ListsTest, ANewWorkerGetsTheNextFreeNumber) {
  const struct {
    const char* table;
    const char* number;
    const char* next;
  } cases[] = {{"TrabajadoresFijo", "00007", "00008"}, {"TrabajadoresFijo", "9", "00008"},
               {"TrabajadoresFijo", "ZZZ", "00008"},   {"TrabajadoresVar", "00011", "00012"},
               {"TrabajadoresFijo", "00001", "00012"}, {"TrabajadoresFijo", "99999", "00002"},
               {"TrabajadoresVar", "00002", "00003"}};
  EXPECT_EQ(NumeroLibre(sesion), "00001");
  for (const auto& [table, number, next] : cases) {
    Add(FileKind::kCompany, table, {{0, number}, {1, "001"}});
    EXPECT_EQ(NumeroLibre(sesion), next) << number;
  }
}

}  // namespace
}  // namespace zendara
