// Every statement that the routines build runs on the stored tables, with a worker, dates and codes in their places.
#include "engine/contract.hpp"
#include "frame/stored_tables.hpp"

namespace zendara {
namespace {

struct Text {
  FileKind file;
  std::string sql;
  int columns;
};

// The two dated incident screens use the same texts with the tables exchanged.
std::vector<Text> DatedIncidents(const std::string& own, const std::string& other) {
  const std::string lists = own + ".campo0," + other + ".campo0";
  const std::string join = " from " + own + " INNER JOIN " + other + " ON " + own + ".campo0 = " + other + ".campo0 ";
  const std::string one = "where (" + own + ".campo0 = '00007'  and ";
  const std::string two = " or (" + other + ".campo0 = '00007'  and ";
  const auto test = [&](const std::string& column, const std::string& condition_own,
                        const std::string& condition_other) {
    return Text{
        FileKind::kCompany,
        "select " + own + "." + column + "," + lists + join + one + condition_own + ")" + two + condition_other + ") ",
        3};
  };
  const auto inside = [](const std::string& date, const std::string& table) {
    return "#" + date + "# between " + table + ".campo3 and " + table + ".campo4";
  };
  const auto around = [](const std::string& table) {
    return "#03/01/01# <  " + table + ".campo3 and #03/10/01# >  " + table + ".campo4";
  };
  return {
      {FileKind::kCompany,
       "select " + own + ".campo3," + lists + join + " where  (" + own + ".campo4 = null and " + own +
           ".campo0 = '00007') or (" + other + ".campo4 = null and " + other + ".campo0 = '00007') ",
       3},
      test("campo3", inside("03/01/01", own), inside("03/01/01", other)),
      test("campo4", inside("03/10/01", own), inside("03/10/01", other)),
      test("campo4", around(own), around(other)),
      {FileKind::kCompany, "select * from " + own + " where campo0='00007'", 5},
      {FileKind::kCompany, "select * from " + own + " where campo0 = '00007' and campo2 = '1' and campo3 = #15/03/01# ",
       5},
      {FileKind::kCompany, "select * from " + own + " where campo0 = '00007'  and campo3 = #3/15/2001# ", 5},
      {FileKind::kCompany, "select campo3 from " + own + " where campo0 = '00007' ", 1},
      {FileKind::kCompany, "select * from " + own + " where campo0 >= '00001' and campo0 <= '00099' ", 5},
      {FileKind::kCompany, "select campo0 ,campo1 from " + own + " group by campo0,campo1", 2},
  };
}

std::vector<Text> WorkerListings() {
  const std::string fixed =
      "SELECT TrabajadoresFijo.Campo0, TrabajadoresFijo.Campo1, TrabajadoresFijo.Campo2, TrabajadoresFijo.Campo3, "
      "TrabajadoresFijo.Campo6,TrabajadoresFijo.Campo7, TrabajadoresFijo.Campo8,TrabajadoresFijo.Campo5,"
      "TrabajadoresFijo.Campo9, TrabajadoresFijo.Campo10, TrabajadoresFijo.Campo11, TrabajadoresFijo.Campo12, "
      "TrabajadoresFijo.Campo13, TrabajadoresFijo.Campo14,TrabajadoresFijo.Campo15, TrabajadoresFijo.Campo18, "
      "TrabajadoresFijo.Campo89,TrabajadoresVar.Campo3 FROM TrabajadoresVar,TrabajadoresFijo WHERE "
      "TrabajadoresVar.Campo0=TrabajadoresFijo.Campo0 ";
  const std::string dated =
      "SELECT TrabajadoresVar.Campo0, TrabajadoresFijo.Campo1, TrabajadoresFijo.Campo2, TrabajadoresFijo.Campo3, "
      "TrabajadoresVar.Campo5, TrabajadoresVar.Campo6, TrabajadoresVar.Campo9, TrabajadoresVar.Campo10,"
      "TrabajadoresVar.Campo12,TrabajadoresVar.Campo14, TrabajadoresVar.Campo17 FROM TrabajadoresVar,TrabajadoresFijo "
      "WHERE TrabajadoresVar.Campo0=TrabajadoresFijo.Campo0 ";
  const std::string active = "AND (TrabajadoresVar.Campo6 >= #03/15/2001# OR TrabajadoresVar.Campo6=NULL ) ";
  const std::string centres = "AND TrabajadoresVar.Campo49 between '001'  AND '003'  ";
  const std::string sections = "AND TrabajadoresVar.Campo51 between '001'  AND '998'  ";
  const std::string by_centre = " ORDER BY TrabajadoresVar.Campo49, TrabajadoresVar.Campo51";
  const std::string by_section = " ORDER BY TrabajadoresVar.Campo51,TrabajadoresVar.Campo49";
  return {
      {FileKind::kCompany, fixed + centres + by_centre + " ,TrabajadoresFijo.Campo1,TrabajadoresFijo.Campo0 ", 18},
      {FileKind::kCompany,
       fixed + centres + sections + by_section + " ,TrabajadoresFijo.Campo0,TrabajadoresFijo.Campo1 ", 18},
      {FileKind::kCompany,
       dated + active + centres + sections + by_centre + " ,TrabajadoresFijo.Campo0,TrabajadoresFijo.Campo1 ", 11},
  };
}

std::vector<Text> Statements() {
  using enum FileKind;
  std::vector<Text> texts = {
      // Lists to pick from.
      {kCompany, "select campo0 ,campo1,CAMPO2,CAMPO3 from TRABAJADORESFIJO group by campo0,campo1,CAMPO2,CAMPO3", 4},
      {kCompany, "SELECT CAMPO2,campo1 From TRABAJADOResvar where campo0='00007'", 2},
      {kYear, "SELECT CAMPO4,CAMPO3 From contrabajadorconceptos where campo0='03' AND campo1='00007'AND campo2='001'",
       2},
      {kYear, "SELECT Campo0,Campo1  FROM Centros ORDER BY Campo0 ", 2},
      {kCompany, "SELECT Campo0,Campo1  FROM Secciones ORDER BY Campo0 ", 2},
      {kCompany, "select campo2, campo3, campo1, campo0 from TrabajadoresFijo order by campo0", 4},
      {kEmpresas, "select campo0, campo1 from Calles order by campo0,campo1", 2},
      {kCompany, "select campo0,campo1 from FPago order by campo0", 2},
      {kCompany, "select campo3, campo1, campo2 from Trabajadoresvar where campo0='00007' order by campo3 DESC ", 3},
      {kCompany, "select campo1, campo0 from ConEmpresaConceptos group by campo1, campo0  order by campo1 ", 2},
      {kCompany,
       "SELECT campo2, campo3 FROM ConEmpresaConceptos WHERE Campo0= '0000001' group by campo2, campo3 ORDER BY "
       "campo2 ",
       2},
      {kEmpresas, "select campo0, campo1 from Epigrafes order by campo0", 2},
      {kOfficial, "select campo2, campo0,campo1, campo4 from Contratos order by campo0,campo1", 4},
      {kOfficial, "select campo1, campo2,campo3, campo4 from Contratos WHERE Campo0 = '001' ORDER BY campo1", 4},
      {kYear, "select  campo0,campo1 from Centros order by campo0", 2},
      {kCompany, "select  campo0,campo1 from Secciones order by campo0", 2},
      {kYear, "select campo1 ,campo2 from TincidenciasVAR WHERE CAMPO0='03' group by campo1,campo2", 2},
      {kCompany, "select campo3 from TincidenciasESp where campo0 = '00007' ", 1},
      // The worker screen.
      {kEmpresas, "SELECT Campo2 FROM EMPRESASNOM WHERE Campo0 = '00001' ", 1},
      {kCompany, "SELECT * FROM TRABAJADORESVAR WHERE Campo0 = '00007' ORDER BY Campo3 ", 54},
      {kCompany, "SELECT campo0 ,campo1,Campo3 FROM TRABAJADORESVAR WHERE Campo0='00007' ORDER BY Campo3", 3},
      {kCompany, "SELECT campo0 ,campo1,Campo3 FROM TRABAJADORESVAR WHERE Campo0='00007' ", 3},
      {kCompany, "SELECT Campo1, Campo3, Campo4 FROM TRABAJADORESVAR WHERE Campo0 = '00007' ORDER BY Campo3 ", 3},
      {kOfficial,
       "SELECT Campo1,Campo2, Campo3, Campo4 FROM Contratos WHERE Campo1 = '01' AND Campo0 = '001' ORDER BY Campo1 ",
       4},
      {kYear, "Select * from contrabajadorConceptos where campo0='03'  And campo1='00007' and campo2 = '001' ", 20},
      {kYear, "Select * from contrabajadorPagas where campo0='03'  And campo1='00007' and campo2 = '001' ", 111},
      {kYear, "select * from Historico where campo0 < '4' and campo1 <= '12' and campo2= '00007' ", 30},
      // Variable incidents.
      {kCompany, "SELECT MAX(CAMPO1) From TRABAJADORESVAR where campo0='00007'", 1},
      {kCompany,
       "SELECT campo0 ,campo1,Campo2,Campo3 FROM TRABAJADORESVAR WHERE Campo0='00007' "
       "GROUP BY campo0,campo1,CAMPO2,CAMPO3 ORDER BY Campo3",
       4},
      {kYear, "select min(campo1),min(campo2) from tincidenciasvar where campo0='03'", 2},
      {kYear, "select max(campo1),max(campo2) from tincidenciasvar where campo0='03'", 2},
      // Listings.
      {kCompany, "select * from trabajadoresfijo where campo0= '00007' ", 91},
      {kYear, "select * from TIncidenciasVar where campo0 = '03' and campo1 >= '00001' and campo1 <= '00099' ", 8},
      {kYear, "SELECT Min(Campo0) as MinCod ,Max(Campo0) as MaxCod FROM Centros", 2},
      {kCompany, "SELECT Min(Campo0) as MinCod ,Max(Campo0) as MaxCod FROM Secciones ", 2},
      {kCompany, "SELECT Max(Campo3) FROM TRABAJADORESVAR WHERE Campo0 = '00007' ", 1},
  };
  for (auto part : {DatedIncidents("tincidenciasit", "tincidenciasesp"),
                    DatedIncidents("tincidenciasesp", "tincidenciasit"), WorkerListings()}) {
    texts.insert(texts.end(), part.begin(), part.end());
  }
  return texts;
}

class StatementContract : public EngineContract {
 protected:
  StatementContract() {
    for (const StoredFile& file : StoredFiles()) {
      auto base = engine->Workspaces(0)->CreateDatabase(Path(FileName(file.kind, "00001", "01")));
      base->BeginTrans();
      for (const TableDef& table : file.tables) base->CreateTable(table);
      base->CommitTrans();
    }
  }

  std::shared_ptr<Database> File(FileKind kind) {
    return engine->Workspaces(0)->OpenDatabase(Path(FileName(kind, "00001", "01")));
  }
};
ZENDARA_FOR_EVERY_ENGINE(StatementContract);

TEST_P(StatementContract, RunOnTheStoredTables) {
  for (const Text& text : Statements()) {
    SCOPED_TRACE(text.sql);
    auto rs = File(text.file)->OpenRecordset(text.sql);
    EXPECT_EQ(rs->Columns().size(), static_cast<std::size_t>(text.columns));
    const bool aggregate = text.sql.find("ax(") != std::string::npos || text.sql.find("AX(") != std::string::npos ||
                           text.sql.find("in(") != std::string::npos;
    EXPECT_EQ(rs->RecordCount(), aggregate ? 1 : 0);
  }
  EXPECT_EQ(ErrorOf([&] { File(FileKind::kCompany)->Execute("DELETE * FROM ListadosNom"); }), 0);
}

TEST_P(StatementContract, FilesReadBackAsDeclared) {
  for (const StoredFile& file : StoredFiles()) EXPECT_EQ(File(file.kind)->Tables(), file.tables);
}

// The collision test of dated incidents: an open row never collides, ends are included, and a worker without rows in
// the other table gives no row at all.
TEST_P(StatementContract, CollisionsOfDatedIncidents) {
  auto base = File(FileKind::kCompany);
  const auto add = [&](const char* table, const char* worker, const char* from, const Value& to) {
    auto rs = base->OpenRecordset(table, RecordsetType::kTable);
    rs->AddNew();
    rs->Fields(0).Set(worker);
    rs->Fields(3).Set(from);
    rs->Fields(4).Set(to);
    rs->Update();
  };
  add("TincidenciasIT", "00007", "05/03/01", "07/03/01");
  add("TincidenciasIT", "00007", "20/03/01", Null());
  const auto collisions = [&] {
    std::vector<std::int64_t> counts;
    for (const Text& text : DatedIncidents("tincidenciasit", "tincidenciasesp")) {
      if (text.columns != 3) continue;
      auto rs = base->OpenRecordset(text.sql);
      if (!rs->Eof()) rs->MoveLast();
      counts.push_back(rs->RecordCount());
    }
    return counts;
  };
  EXPECT_THAT(collisions(), testing::ElementsAre(0, 0, 0, 0));
  add("TincidenciasESP", "00007", "10/02/01", "01/03/01");
  // 1 March, the start, is the last day of the other one: with each of the two own rows.
  EXPECT_THAT(collisions(), testing::ElementsAre(0, 2, 0, 1));
}

}  // namespace
}  // namespace zendara
