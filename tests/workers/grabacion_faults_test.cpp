// What becomes of a save when the store cannot take it.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "frame/bases_datos.hpp"
#include "support/disk_faults.hpp"
#include "values/valor_numero.hpp"
#include "workers/trabajadores_fixture.hpp"

namespace zendara {
namespace {

using testing::AllOf;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

using Textos = std::vector<std::string>;

class GrabacionTest : public TestDisk, public TrabajadoresTest {
 protected:
  GrabacionTest() { Abre(); }

  // Every field and cell, by index from 1.
  Textos Todo() {
    Textos textos;
    for (int i = 1; i <= kTramoVar.hasta; ++i) textos.push_back(Mostrado(i));
    return textos;
  }

  // Worker 14, who left on 30/06/01, comes back: his second situación, with the concepts of the first.
  Textos TecleaSituacion(const std::string& inicio = "010701") {
    Otro(FileKind::kCompany)->Execute("delete * from TrabajadoresVar where campo0='00014' and campo1='002'");
    for (const std::string tabla : kDelMes) {
      Otro(FileKind::kYear, Right(inicio, 2))
          ->Execute("delete * from " + tabla + " where campo1='00014' and campo2='002'");
    }
    Rellena(1, "14");
    Pulsa("CmdNuevo");
    host.boxes.clear();
    Rellena(CampoTrabajador::kFechaInicio, inicio);
    return Todo();
  }

  // Another program.
  std::shared_ptr<Database> Otro(FileKind fichero, const std::string& ano = "01") {
    return otro->Workspaces(0)->OpenDatabase(PathOf(FileName(fichero, "00001", ano)));
  }
  // All that it finds, row after row, of each from that column on.
  Textos Lee(FileKind fichero, const std::string& condicion, std::size_t desde, const std::string& ano = "01") {
    Textos textos;
    for (const auto filas = Otro(fichero, ano)->OpenRecordset("select * from " + condicion); !filas->Eof();
         filas->MoveNext()) {
      for (std::size_t i = desde; i < filas->Columns().size(); ++i) {
        textos.push_back(TextoNoNulo(filas->Fields(static_cast<int>(i)).Get()));
      }
    }
    return textos;
  }
  // What is stored of that, in the same order.
  Textos Guardado(const Textos& tecleado) {
    const std::string numero = " where campo0='" + tecleado[0] + "'";
    const std::string situacion = " and campo1='" + tecleado[static_cast<std::size_t>(kTramoVar.desde - 1)] + "'";
    Textos textos = Lee(FileKind::kCompany, "TrabajadoresFijo" + numero, 0);
    std::ranges::copy(Lee(FileKind::kCompany, "TrabajadoresVar" + numero + situacion, 1), std::back_inserter(textos));
    return textos;
  }
  static Textos Fijo(const Textos& tecleado) { return {tecleado.begin(), tecleado.begin() + kTramoFijo.hasta}; }
  // Of a situación of worker 14, without the keys.
  Textos Mes(const std::string& tabla, const std::string& mes, const std::string& situacion,
             const std::string& ano = "01") {
    return Lee(FileKind::kYear, tabla + " where campo0='" + mes + "' and campo1='00014' and campo2='" + situacion + "'",
               3, ano);
  }

  // Whether a click stores it. If not, a lock is told, and nothing that was typed is lost.
  bool SeGraba(const Textos& tecleado) {
    Pulsa("Grabar");
    const bool grabado = host.boxes.empty();
    EXPECT_THAT(host.boxes, Each(StartsWith("3218  ")));
    host.boxes.clear();
    if (grabado) {
      EXPECT_EQ(Texto(1), "");
      EXPECT_EQ(Guardado(tecleado), tecleado);
    } else {
      EXPECT_EQ(Todo(), tecleado);
      EXPECT_TRUE(pantalla->Loaded());
    }
    return grabado;
  }

  static constexpr std::size_t kConceptos = 5;  // of his
  static constexpr const char* kDelMes[] = {"ConTrabajadorConceptos", "ConTrabajadorPagas"};
  std::unique_ptr<Engine> otro = MakeEngine();
};

// One fault at every point of the save: where it ends there, nothing is stored but concepts, and the next try stores
// the rest.
TEST_F(GrabacionTest, NoFaultLosesAConcept) {
  for (const std::string inicio : {"010701", "010102"}) {
    const std::string mes = Mid(inicio, 3, 2), ano = Right(inicio, 2);
    std::set<std::size_t> copiados;
    for (int punto = 0, quedan = -1; quedan < 0; ++punto) {
      SCOPED_TRACE(inicio + ", " + std::to_string(punto));
      const Textos tecleado = TecleaSituacion(inicio);
      disk.fault_in = punto;
      Pulsa("Grabar");
      quedan = std::exchange(disk.fault_in, -1);
      if (!Texto(1).empty()) {
        const std::size_t conceptos = Mes(kDelMes[0], mes, "002", ano).size();
        copiados.insert(conceptos);
        if (conceptos < kConceptos) {
          EXPECT_EQ(Guardado(tecleado), Fijo(tecleado));
        }
        EXPECT_EQ(Todo(), tecleado);
        EXPECT_THAT(host.boxes, Not(IsEmpty()));
        host.boxes.clear();
        pantalla->RestoreNote(pantalla->DraftNote());  // all that a draft carries into another program
        EXPECT_TRUE(SeGraba(tecleado));
      }
      EXPECT_EQ(Guardado(tecleado), tecleado);
      for (const char* tabla : kDelMes) EXPECT_EQ(Mes(tabla, mes, "002", ano), Mes(tabla, "06", "001"));
    }
    EXPECT_EQ(copiados.size(), 1 + kConceptos) << "it stopped before the first, and after every one of them";
  }
  EXPECT_THAT(sesion.BDEmpresa->CheckIntegrity(), IsEmpty());
}

TEST_F(GrabacionTest, WhatAnotherProgramChangedMeanwhileStays) {
  using enum CampoTrabajador;
  Rellena(1, "11");
  Rellena(kMunicipio, "Aquí");
  Rellena(kApellido1, "Aquí");
  El<Grid>("Grid1(0)").SetCell(2, 2, "1999");
  const auto fila = Otro(FileKind::kCompany)->OpenRecordset("TrabajadoresFijo", RecordsetType::kTable);
  fila->SetIndex("Icampo0");
  fila->Seek({"00011"});
  fila->Edit();
  for (const auto& [campo, texto] :
       {std::pair(kTelefono, "allí"), {kMunicipio, "allí"}, {kApellido1, "Aquí"}, {kPrimeraCelda + 3, "1998"}}) {
    fila->Fields(kTramoFijo.ColumnaDe(campo)).Set(texto);
  }
  fila->Update();
  Pulsa("Grabar");
  const auto grabado = [&](CampoTrabajador campo) {
    const auto columna = static_cast<std::size_t>(kTramoFijo.ColumnaDe(campo));
    return Lee(FileKind::kCompany, "TrabajadoresFijo where campo0='00011'", 0).at(columna);
  };
  EXPECT_EQ(grabado(kTelefono) + grabado(kMunicipio) + grabado(kApellido1), "allíAquíAquí");
  EXPECT_EQ(pantalla->Status(),
            "Grabado: 00011 Aquí Zúñiga, Ana. Otro puesto había cambiado también, y queda lo grabado aquí: Municipio "
            "(Domicilio), Hijo 2 (Año Nacim.).");

  // Removed altogether.
  Rellena(1, "11");
  EXPECT_EQ(pantalla->Status(), "");
  const Textos mostrado = Todo();
  for (const std::string tabla : {"TrabajadoresFijo", "TrabajadoresVar"}) {
    Otro(FileKind::kCompany)->Execute("delete * from " + tabla + " where campo0='00011'");
  }
  EXPECT_TRUE(SeGraba(mostrado));
  EXPECT_THAT(pantalla->Status(), AllOf(HasSubstr("El trabajador 00011"), HasSubstr("La situación 001")));

  // A removal that was cut short is finished.
  Rellena(1, "14");
  Otro(FileKind::kCompany)->Execute("delete * from TrabajadoresFijo where campo0='00014'");
  Pulsa("Borrar");
  EXPECT_THAT(Lee(FileKind::kCompany, "TrabajadoresVar where campo0='00014'", 0), IsEmpty());
  EXPECT_EQ(Texto(1), "");
  EXPECT_THAT(host.boxes, IsEmpty());
}

TEST_F(GrabacionTest, ALockOfAnotherProgramIsWaitedForAndThenTold) {
  const Textos tecleado = TecleaSituacion();
  auto ajena = Otro(FileKind::kCompany);
  ajena->BeginTrans();
  disk.waited = 0;
  EXPECT_FALSE(SeGraba(tecleado));
  EXPECT_GT(disk.waited, 0);
  EXPECT_EQ(Guardado(tecleado), Fijo(tecleado)) << "no situación";
  // It goes while the screen waits.
  disk.while_waiting = [&ajena] {
    if (const auto base = std::exchange(ajena, nullptr)) base->Rollback();
  };
  EXPECT_TRUE(SeGraba(tecleado));
  EXPECT_EQ(ajena, nullptr);
}

}  // namespace
}  // namespace zendara
