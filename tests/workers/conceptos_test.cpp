// The concepts of a new situación, and in which year's files the slots are left.
#include "workers/conceptos.hpp"

#include "frame/bases_datos.hpp"
#include "values/valor_numero.hpp"
#include "workers/trabajadores_fixture.hpp"

namespace zendara {
namespace {

constexpr const char* kAnos[] = {"00", "01", "02"};

class ConceptosTest : public TrabajadoresTest {
 protected:
  std::string trabajador = "00090";

  std::shared_ptr<Database> Base(const std::string& ano) {
    return engine->Workspaces(0)->OpenDatabase(PathOf("N00001" + ano + ".MDB"));
  }
  static void Anade(Database& base, const char* tabla, const std::vector<Value>& valores) {
    const auto filas = base.OpenRecordset(tabla, RecordsetType::kTable);
    filas->AddNew();
    for (std::size_t i = 0; i < valores.size(); ++i) filas->Fields(static_cast<int>(i)).Set(valores[i]);
    filas->Update();
  }

  // A worker with concepts of situación 001 in May and December of every year; a mark tells the years apart.
  void Prepara(const Value& fin) {
    Anade(*engine->Workspaces(0)->OpenDatabase(PathOf("Nom00001.MDB")), "TrabajadoresVar",
          {trabajador, "001", "", "01/01/97", fin});
    for (const std::string ano : kAnos) {
      Anade(*Base(ano), "ConTrabajadorConceptos", {"99", trabajador, "", "", ano});
      for (const char* mes : {"05", "12"}) {
        for (const char* concepto : {"001", "002"}) {
          Anade(*Base(ano), "ConTrabajadorConceptos", {mes, trabajador, "001", concepto, ano + mes});
        }
        Anade(*Base(ano), "ConTrabajadorPagas", {mes, trabajador, "001", "x" + ano + mes});
      }
    }
  }

  void Transfiere(const std::string& inicio, const std::string& numero = "002") {
    CopiaPendiente copia{.nueva = {trabajador, numero, inicio}};
    TransfiereConceptos(sesion, copia);
  }

  // What the new situación has: "year month:description " of concepts, then of pay data, in the order of the years.
  std::string Copiado() {
    std::string texto;
    for (const std::string consulta : {"campo4 from ConTrabajadorConceptos", "campo3 from ConTrabajadorPagas"}) {
      for (const std::string ano : kAnos) {
        const auto filas = Base(ano)->OpenRecordset("select campo0, " + consulta + " where campo1='" + trabajador +
                                                    "' and campo2='002'");
        for (; !filas->Eof(); filas->MoveNext()) {
          texto += ano + " " + TextoNoNulo(filas->Fields(0).Get()) + ":" + TextoNoNulo(filas->Fields(1).Get()) + " ";
        }
      }
    }
    return texto;
  }

  std::string AnoDeLasRanuras() {
    Recordset& conceptos = sesion.Tabla(kConTrabajadorConceptos);
    conceptos.SetIndex("Icampo0_1_2");
    conceptos.Seek({"99", trabajador});
    return TextoNoNulo(conceptos.Fields(4).Get());
  }
};

TEST_F(ConceptosTest, GoFromTheMonthOfOneToTheMonthOfTheOther) {
  const struct {
    Value fin;
    const char* inicio;
    std::string copiado;
    const char* ano;  // of the slots afterwards
  } casos[] = {
      {"31/05/01", "01/06/01", "01 06:0105 01 06:0105 01 06:x0105 ", "01"},
      {"31/12/01", "01/01/02", "02 01:0112 02 01:0112 02 01:x0112 ", "01"},
      {"31/12/00", "01/01/01", "01 01:0012 01 01:0012 01 01:x0012 ", "01"},
      // Both in other years: the rows go to the working year, the slots stay in the year of the previous one.
      {"31/12/00", "01/01/02", "01 01:0012 01 01:0012 01 01:x0012 ", "00"},
      // No file for the year of the new one, or of the old one.
      {"31/12/01", "01/01/05", "01 01:0112 01 01:0112 01 01:x0112 ", "01"},
      {"31/12/97", "01/01/02", "", "02"},
      // Not closed; nothing in that month.
      {Value(), "01/06/01", "", "01"},
      {"30/06/01", "01/07/01", "", "01"},
  };
  for (const auto& caso : casos) {
    SCOPED_TRACE(TextoNoNulo(caso.fin) + " to " + caso.inicio);
    trabajador = "0009" + std::to_string(&caso - casos);
    AbreEmpresa(sesion, "00001", "01");
    Prepara(caso.fin);
    Transfiere(caso.inicio);
    EXPECT_EQ(Copiado(), caso.copiado);
    EXPECT_EQ(AnoDeLasRanuras(), caso.ano);
  }
}

TEST_F(ConceptosTest, ATableThatHasRowsOfTheNewOneIsLeftAlone) {
  Prepara("31/05/01");
  Anade(*Base("01"), "ConTrabajadorConceptos", {"06", trabajador, "002", "009", "suyo"});
  Transfiere("01/06/01");
  // Nothing comes before the first one.
  Transfiere("01/12/01", "001");
  EXPECT_EQ(Copiado(), "01 06:suyo 01 06:x0105 ");
}

}  // namespace
}  // namespace zendara
