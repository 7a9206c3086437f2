// What becomes of a save when the store cannot take it.
#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "frame/bases_datos.hpp"
#include "support/test_disk.hpp"
#include "values/valor_numero.hpp"
#include "workers/trabajadores_fixture.hpp"

namespace zendara {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::Eq;
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
    for (int i = 1; i <= campo::kUltimoVar; ++i) textos.push_back(Mostrado(i));
    return textos;
  }

  // A new worker, typed from what an existing one shows.
  Textos TecleaNuevo(const std::string& numero) {
    if (modelo_.empty()) {
      Rellena(1, "11");
      modelo_ = Todo();
    }
    Rellena(1, numero);
    for (int i = 2; i <= campo::kUltimoVar; ++i) {
      const std::string& texto = modelo_[static_cast<std::size_t>(i - 1)];
      const CampoTrabajador* campo = CampoDe(i);
      if (texto.empty() || i == campo::kSituacion || (campo && campo->Tiene(kVista))) continue;
      if (!campo) {
        const CeldaTrabajador celda = CeldaDe(i);
        pantalla->PointTo(El<Grid>("Grid1(" + std::to_string(celda.rejilla) + ")"), celda.fila, celda.columna);
        Escribe(texto);
      } else if (campo->tipo == TipoCampo::kTexto) {
        Rellena(i, campo->Tiene(kFecha) ? FichaTrabajador::SeisDigitos(texto) : texto);
      } else if (campo->tipo == TipoCampo::kLista) {
        auto& lista = El<ComboBox>("Combo1(" + std::to_string(i) + ")");
        pantalla->Pick(lista, static_cast<int>(std::ranges::find(lista.Items(), texto) - lista.Items().begin()));
      } else if (texto != Mostrado(i)) {
        pantalla->Click(El<CheckBox>("Check1(" + std::to_string(i) + ")"));
      }
    }
    pantalla->PointTo(Campo(campo::kNombre), 0, 0);
    Textos tecleado = Todo();
    Textos esperado = modelo_;
    esperado[0] = numero;
    EXPECT_EQ(tecleado, esperado);
    EXPECT_THAT(host.boxes, IsEmpty());
    return tecleado;
  }

  // The columns of a stored row as another program reads them; empty when there is none.
  Textos Guardado(FileKind fichero, std::string_view tabla, std::string_view indice, const std::vector<Value>& claves) {
    const auto filas = Otro(fichero)->OpenRecordset(tabla, RecordsetType::kTable);
    filas->SetIndex(indice);
    filas->Seek(claves);
    Textos textos;
    if (filas->NoMatch()) return textos;
    for (std::size_t i = 0; i < filas->Columns().size(); ++i) {
      textos.push_back(TextoNoNulo(filas->Fields(static_cast<int>(i)).Get()));
    }
    return textos;
  }
  Textos GuardadoFijo(const std::string& numero) {
    return Guardado(FileKind::kCompany, "TrabajadoresFijo", "Icampo0", {numero});
  }
  Textos GuardadoVar(const std::string& numero, const std::string& situacion) {
    return Guardado(FileKind::kCompany, "TrabajadoresVar", "Icampo0_1", {numero, situacion});
  }
  // What these rows are to hold.
  static Textos Fijo(const Textos& todo) { return {todo.begin(), todo.begin() + campo::kUltimoFijo}; }
  static Textos Var(const Textos& todo) {
    Textos fila(todo.begin() + campo::kUltimoFijo, todo.end());
    fila.insert(fila.begin(), todo[0]);
    return fila;
  }

  // A click that fails: told, and nothing that was typed is lost.
  void GrabaEnVano(const std::string& error, const Textos& tecleado) {
    Pulsa("Grabar");
    EXPECT_THAT(host.boxes, Not(IsEmpty()));
    TodoSigue(error, tecleado);
  }
  void TodoSigue(const std::string& error, const Textos& tecleado) {
    EXPECT_THAT(host.boxes, Each(StartsWith(error)));
    host.boxes.clear();
    EXPECT_EQ(Todo(), tecleado);
    EXPECT_TRUE(pantalla->Loaded());
  }
  // On a disk that takes so many writes more.
  bool Cabe(int escrituras, const Textos& tecleado) {
    disk.writes_left = escrituras;
    Pulsa("Grabar");
    disk.writes_left = -1;
    if (host.boxes.empty()) return true;
    TodoSigue("3026  ", tecleado);
    return false;
  }
  void Graba(const Textos& tecleado) {
    Pulsa("Grabar");
    EXPECT_THAT(host.boxes, IsEmpty());
    EXPECT_EQ(Texto(1), "");
    EXPECT_EQ(GuardadoFijo(tecleado[0]), Fijo(tecleado));
    EXPECT_EQ(GuardadoVar(tecleado[0], tecleado[campo::kSituacion - 1]), Var(tecleado));
  }

  std::shared_ptr<Database> Otro(FileKind fichero) {
    return otro->Workspaces(0)->OpenDatabase(PathOf(FileName(fichero, "00001", "01")));
  }

  // A month's rows of a situación of worker 14, without their keys.
  std::vector<Textos> Mes(const std::string& tabla, const std::string& mes, const std::string& situacion) {
    const auto filas = Otro(FileKind::kYear)
                           ->OpenRecordset("select * from " + tabla + " where campo0='" + mes +
                                           "' and campo1='00014' and campo2='" + situacion + "'");
    std::vector<Textos> todas;
    for (; !filas->Eof(); filas->MoveNext()) {
      todas.emplace_back();
      for (std::size_t i = 3; i < filas->Columns().size(); ++i) {
        todas.back().push_back(TextoNoNulo(filas->Fields(static_cast<int>(i)).Get()));
      }
    }
    return todas;
  }
  // Worker 14, who left on 30/06/01, comes back: his second situación, with the concepts of the first.
  Textos TecleaSituacion() {
    Otro(FileKind::kCompany)->Execute("delete * from TrabajadoresVar where campo0='00014' and campo1='002'");
    for (const char* tabla : kDelMes) {
      Otro(FileKind::kYear)->Execute("delete * from " + std::string(tabla) + " where campo1='00014' and campo2='002'");
    }
    Rellena(1, "14");
    Pulsa("CmdNuevo");
    host.boxes.clear();
    Rellena(campo::kFechaInicio, "010701");
    return Todo();
  }

  static constexpr const char* kDelMes[] = {"ConTrabajadorConceptos", "ConTrabajadorPagas"};
  std::unique_ptr<Engine> otro = MakeSqliteEngine();

 private:
  Textos modelo_;
};

TEST_F(GrabacionTest, AFullDiskLosesNothingTypedAndTheSecondTryStoresAll) {
  int nada = 0, solo_fijo = 0;
  for (int escrituras = 0;; ++escrituras) {
    SCOPED_TRACE(escrituras);
    const std::string numero = std::to_string(60000 + escrituras);
    const Textos tecleado = TecleaNuevo(numero);
    if (Cabe(escrituras, tecleado)) break;
    const Textos fijo = GuardadoFijo(numero);
    EXPECT_THAT(fijo, AnyOf(IsEmpty(), Eq(Fijo(tecleado))));
    EXPECT_THAT(GuardadoVar(numero, "001"), IsEmpty());
    ++(fijo.empty() ? nada : solo_fijo);
    Graba(tecleado);
  }
  EXPECT_GT(nada, 0);
  EXPECT_GT(solo_fijo, 0);
  EXPECT_THAT(sesion.BDEmpresa->CheckIntegrity(), IsEmpty());
}

TEST_F(GrabacionTest, WhatAFullDiskKeptFromBeingCopiedIsCopiedByTheSecondTry) {
  bool cabe = false;
  std::set<std::size_t> copiados;
  for (int escrituras = 0; !cabe; ++escrituras) {
    SCOPED_TRACE(escrituras);
    const Textos tecleado = TecleaSituacion();
    cabe = Cabe(escrituras, tecleado);
    copiados.insert(Mes(kDelMes[0], "07", "002").size());
    if (!cabe) Graba(tecleado);
    for (const char* tabla : kDelMes) EXPECT_EQ(Mes(tabla, "07", "002"), Mes(tabla, "06", "001"));
  }
  EXPECT_THAT(copiados, ElementsAre(0, 1, 2, 3, 4, 5)) << "it stopped after every one of them";
}

TEST_F(GrabacionTest, ALockOfAnotherProgramIsWaitedForAndThenTold) {
  for (const bool nuevo : {true, false}) {
    const Textos tecleado = nuevo ? TecleaNuevo("60000") : TecleaSituacion();
    auto ajena = Otro(FileKind::kCompany);
    ajena->BeginTrans();
    disk.waited = 0;
    GrabaEnVano("3218  ", tecleado);
    EXPECT_GT(disk.waited, 0);
    EXPECT_THAT(GuardadoVar(tecleado[0], tecleado[campo::kSituacion - 1]), IsEmpty());
    // It goes while the screen waits.
    disk.while_waiting = [&ajena] {
      if (const auto base = std::exchange(ajena, nullptr)) base->Rollback();
    };
    Graba(tecleado);
    EXPECT_EQ(ajena, nullptr);
    disk.while_waiting = nullptr;
  }
}

TEST_F(GrabacionTest, ATableThatIsGoneIsToldAndWhatWasFinishedStays) {
  const Textos tecleado = TecleaNuevo("60000");
  sesion.Tabla(kTrabajadoresVar).Close();
  GrabaEnVano("3420  ", tecleado);
  EXPECT_EQ(GuardadoFijo("60000"), Fijo(tecleado));
  LlenaRanuras(sesion, Grupo(1));
  Graba(tecleado);

  // Dropped behind the screen's back: the first fails in the writing, the second in the check before it.
  const Textos siguiente = TecleaNuevo("60001");
  sqlite3* base = nullptr;
  ASSERT_EQ(sqlite3_open(PathOf("Nom00001.MDB").c_str(), &base), SQLITE_OK);
  for (const char* tabla : {"TrabajadoresFijo", "TrabajadoresVar"}) {
    EXPECT_EQ(sqlite3_exec(base, ("DROP TABLE " + std::string(tabla)).c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    GrabaEnVano("3078  ", siguiente);
  }
  sqlite3_close(base);
}

}  // namespace
}  // namespace zendara
