// The long statements that are built for incidents and listings, on the stored tables. All others run where they are
// built.
#include "engine/contract.hpp"
#include "frame/stored_tables.hpp"

namespace zendara {
namespace {

class StatementContract : public EngineContract {
 protected:
  StatementContract() {
    for (const TableDef& table : FileOf(FileKind::kCompany).tables) db->CreateTable(table);
  }

  void AddIncident(const char* table, const char* from, const Value& to) const {
    Add(*Open(table), {"00007", Null(), Null(), from, to});
  }
};
ZENDARA_FOR_EVERY_ENGINE(StatementContract);

TEST_P(StatementContract, ListingOfWorkers) {
  Add(*Open("TrabajadoresFijo"), {"00007", "Núñez"});
  auto var = Open("TrabajadoresVar");
  for (const char* situation : {"001", "002", "003"}) Add(*var, {"00007", situation});
  const auto change = [&](const char* situation, const Value& end, const char* centre) {
    var->SetIndex("Icampo0_1");
    var->Seek({"00007", situation});
    Change(*var, 6, end);
    Change(*var, 49, centre);
    Change(*var, 51, "002");
  };
  change("001", "14/03/01", "001");
  change("002", "15/03/01", "003");
  change("003", Null(), "001");
  // An open situación is not found: a comparison with Null never holds.
  EXPECT_THAT(Query("SELECT TrabajadoresVar.Campo1, TrabajadoresFijo.Campo1, TrabajadoresVar.Campo6 FROM "
                    "TrabajadoresVar,TrabajadoresFijo WHERE TrabajadoresVar.Campo0=TrabajadoresFijo.Campo0 "
                    "AND (TrabajadoresVar.Campo6 >= #03/15/2001# OR TrabajadoresVar.Campo6=NULL ) "
                    "AND TrabajadoresVar.Campo49 between '001'  AND '003'  AND TrabajadoresVar.Campo51 between '001'  "
                    "AND '998'   ORDER BY TrabajadoresVar.Campo49, TrabajadoresVar.Campo51 "
                    ",TrabajadoresFijo.Campo0,TrabajadoresFijo.Campo1 "),
              testing::ElementsAre("002"));
}

// The collision test of dated incidents: an open row never collides, ends are included, and a worker without rows in
// the other table gives no row at all.
TEST_P(StatementContract, CollisionsOfDatedIncidents) {
  const auto both = [](const std::string& column, const std::string& condition_it, const std::string& condition_esp) {
    return "select tincidenciasit." + column +
           ",tincidenciasit.campo0,tincidenciasesp.campo0 from tincidenciasit INNER JOIN tincidenciasesp ON "
           "tincidenciasit.campo0 = tincidenciasesp.campo0 where (tincidenciasit.campo0 = '00007'  and " +
           condition_it + ") or (tincidenciasesp.campo0 = '00007'  and " + condition_esp + ") ";
  };
  const auto inside = [&](const std::string& column, const std::string& date) {
    return both(column, date + " between tincidenciasit.campo3 and tincidenciasit.campo4",
                date + " between tincidenciasesp.campo3 and tincidenciasesp.campo4");
  };
  const auto collisions = [&] {
    return std::vector<std::size_t>{
        Query(both("campo3", "tincidenciasit.campo4 = null", "tincidenciasesp.campo4 = null")).size(),
        Query(inside("campo3", "#03/01/01#")).size(), Query(inside("campo4", "#03/10/01#")).size(),
        Query(both("campo4", "#03/01/01# <  tincidenciasit.campo3 and #03/10/01# >  tincidenciasit.campo4",
                   "#03/01/01# <  tincidenciasesp.campo3 and #03/10/01# >  tincidenciasesp.campo4"))
            .size()};
  };
  AddIncident("TincidenciasIT", "05/03/01", "07/03/01");
  AddIncident("TincidenciasIT", "20/03/01", Null());
  EXPECT_THAT(collisions(), testing::ElementsAre(0, 0, 0, 0));
  AddIncident("TincidenciasESP", "10/02/01", "01/03/01");
  // 1 March, the start, is the last day of the other one: with each of the two own rows.
  EXPECT_THAT(collisions(), testing::ElementsAre(0, 2, 0, 1));
}

}  // namespace
}  // namespace zendara
