// A company copied from place to place, and what keeps it from being copied.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <map>

#include "apps/zendara/commands/table_copy.hpp"
#include "tests/commands/command_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class CopyTest : public CommandFolder {
 protected:
  CopyTest() {
    Create();
    EXPECT_EQ(In(dir_, {"data", "create"}, {"--year", "02", "--name", "Una, S.L."}).status, 0);
    Load("TrabajadoresFijo", "Campo0,Campo19\r\n00002,1899-12-29\r\n00001,9999-12-31T23:59:59\r\n");
    Load("FPago", "Campo0,Campo1\r\n01,\"  de \"\"oro\"\" ñ \"\r\n02,\"\"\r\n03,\r\n");
  }

  static Outcome In(const fs::path& place, std::vector<std::string> words, const std::vector<std::string>& more) {
    words.insert(words.end(), {"--dir", place.string(), "--company", "1"});
    words.insert(words.end(), more.begin(), more.end());
    return RunWords(words);
  }
  Outcome Copy() const {
    return RunWords({"data", "copy", "--from", dir_.string(), "--to", to_.string(), "--company", "1"});
  }
  std::shared_ptr<Database> Open(const fs::path& place, const std::string& file) {
    return engine_->Workspaces(0)->OpenDatabase((place / "DATOS" / file).string());
  }
  void Set(const fs::path& place, const std::string& file, const std::string& table, const Value& key,
           const Value& value) {
    const auto rows = Open(place, file)->OpenRecordset(table, RecordsetType::kTable);
    rows->SetIndex("Icampo0");
    rows->Seek({key});
    rows->NoMatch() ? rows->AddNew() : rows->Edit();
    rows->Fields(0).Set(key);
    if (!value.IsNull()) rows->Fields(1).Set(value);
    rows->Update();
  }
  std::map<fs::path, std::string> Contents(const fs::path& place) const {
    std::map<fs::path, std::string> contents;
    if (!fs::exists(place)) return contents;
    for (const auto& entry : fs::recursive_directory_iterator(place)) {
      contents[entry.path()] = entry.is_regular_file() ? ReadFile(entry.path()) : "";
    }
    return contents;
  }

  const TempFolder other_;
  const fs::path to_ = other_.path() / "new" / "place";
  const std::unique_ptr<Engine> engine_ = MakeEngine();
};

TEST_F(CopyTest, AllYearsComeWithEveryValue) {
  Open(dir_, "Nom00001.MDB")->CreateQueryDef("Consulta", "SELECT * FROM FPago");
  fs::remove(DataFile("HACIEN02.MDB"));
  const Outcome copy = Copy();
  EXPECT_EQ(copy.status, 0) << copy.err;
  EXPECT_THAT(copy.out, HasSubstr("HACIEN02.MDB: is missing, not copied\n"));
  EXPECT_THAT(copy.out, HasSubstr("\nNom00001.MDB: 11 tables, 5 rows\n"));
  EXPECT_THAT(copy.out, HasSubstr("IMPM0999.DAT: 300 bytes\n"));
  for (const char* table : {"TrabajadoresFijo", "FPago"}) {
    EXPECT_EQ(In(to_, {"data", "dump"}, {"--year", "01", table}).out, Dump(table));
  }
  EXPECT_EQ(Open(to_, "Nom00001.MDB")->QueryDefs("consulta")->Sql(), "SELECT * FROM FPago");
  EXPECT_EQ(In(to_, {"data", "check"}, {"--year", "01"}).out, In(dir_, {"data", "check"}, {"--year", "01"}).out);
  EXPECT_TRUE(fs::exists(to_ / "DATOS" / "N0000102.MDB"));
}

TEST_F(CopyTest, SharedFilesStayAndGetTheRowsOfTheCompany) {
  EXPECT_EQ(RunWords({"data", "create", "--dir", to_.string(), "--company", "2", "--year", "01", "--name", "Dos"}).err,
            "");
  Set(dir_, "Empresa.MDB", "Empresas", "00001", Value());
  Set(dir_, "Empresas.mdb", "Calles", "CL", "Calle");
  Set(dir_, "Empresas.mdb", "Calles", "PZ", "Plaza");
  Set(to_, "Empresas.mdb", "Calles", "CL", "Carrer");
  WriteFile(to_ / "DATOS" / "IMPM0999.DAT", std::string(300, 'x'));
  const Outcome copy = Copy();
  EXPECT_EQ(copy.status, 0) << copy.err;
  EXPECT_THAT(copy.out, HasSubstr("Empresa.MDB: was there, 2 rows added\nEmpresas.mdb: was there, 1 row added\n"
                                  "Empresas.mdb: Calles: 1 row missing, 1 row with other values\nNom00a01.MDB: was "
                                  "there\n"));
  EXPECT_THAT(copy.out, HasSubstr("IMPM0999.DAT: was there, with other bytes\n"));
  EXPECT_EQ(In(to_, {"data", "dump"}, {"--year", "01", "--file", "Empresas.mdb", "EmpresasNom"}).out,
            "Campo0,Campo1,Campo2\r\n00001,\"Una, S.L.\",\r\n00002,Dos,\r\n");
}

TEST_F(CopyTest, WhatCannotBeCopiedWholeIsNotCopied) {
  const auto refused = [this](const std::string& why) {
    const auto before = Contents(other_.path());
    const Outcome copy = Copy();
    EXPECT_EQ(copy.status, 1);
    EXPECT_THAT(copy.err, HasSubstr(why));
    EXPECT_EQ(std::ranges::count(copy.err, '\n'), 1);
    EXPECT_TRUE(Contents(other_.path()) == before) << why;
  };
  WriteFile(DataFile("N0000102.MDB"), "damaged");
  refused("3343  ");
  fs::remove(DataFile("N0000102.MDB"));
  for (const char* taken : {"DOC00001.MDB", "n0000199.mdb"}) {
    fs::create_directories(to_ / "DATOS");
    WriteFile(to_ / "DATOS" / taken, "mine");
    refused("there is a company 00001 in " + to_.string() + " already: ");
    fs::remove_all(to_.parent_path());
  }
  // What only another program of the same store can write.
  sqlite3* store = nullptr;
  sqlite3_open(DataFile("Nom00001.MDB").c_str(), &store);
  EXPECT_EQ(sqlite3_exec(store, "UPDATE TrabajadoresFijo SET Campo19 = 'x' WHERE rowid = 1", nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(store);
  refused("Nom00001.MDB: TrabajadoresFijo: key 00002: Campo19: \"x\" is no date; nothing was written");
  fs::remove(DataFile("Nom00001.MDB"));
  refused("there is no company 00001 in " + dir_.string() + ": Nom00001.MDB is missing");
}

TEST_F(CopyTest, TheFirstDifferenceIsNamed) {
  EXPECT_EQ(Copy().status, 0);
  std::ostringstream out;
  Console console(out, out, false);
  const auto difference = [&]() -> std::string {
    const auto from = Open(dir_, "Nom00001.MDB");
    const auto to = Open(to_, "Nom00001.MDB");
    try {
      CompareAll({"Nom00001.MDB", *from, *to}, console);
      return "";
    } catch (const std::exception& error) {
      return error.what();
    }
  };
  EXPECT_EQ(difference(), "");
  Set(to_, "Nom00001.MDB", "FPago", "02", " ");
  EXPECT_EQ(difference(), "Nom00001.MDB: FPago: key 02: Campo1: \"\" was read, \" \" was written");
  Set(to_, "Nom00001.MDB", "FPago", "02", "");
  Set(to_, "Nom00001.MDB", "FPago", "04", "");
  EXPECT_EQ(difference(), "Nom00001.MDB: FPago: key 04: was written and is no row there");
  Open(to_, "Nom00001.MDB")->Execute("DELETE * FROM FPago WHERE Campo0 > '02'");
  EXPECT_EQ(difference(), "Nom00001.MDB: FPago: key 03: was not written");
}

TEST_F(CopyTest, APasswordIsRefusedAndNeverRepeated) {
  for (const char* place : {"postgresql://ana:hunter2@h/d", "postgres://h/d?password=hunter2",
                            "postgresql://h/d?pass%77ord=hunter2", "postgresql://h/d?sslpassword=hunter2",
                            "host=h password=hunter2", "postgresql://ana:hunter2@h:x:y/d", "mysql://ana:hunter2@h"}) {
    for (const auto& words : std::vector<std::vector<std::string>>{
             {"demo", place},
             {"demo", "--store", place},
             {"data", "copy", "--from", ".", "--to", place, "--company", "1"},
             {"rate", std::string("--store=") + place, "--company", "1", "--year", "01"},
             {"rate", place}}) {
      const Outcome refused = RunWords(words);
      EXPECT_EQ(refused.status, 2);
      EXPECT_THAT(refused.err, HasSubstr("PGPASSWORD"));
      EXPECT_THAT(refused.err + refused.out, testing::Not(HasSubstr("hunter2")));
    }
  }
  EXPECT_THAT(RunWords({"rate", "--company", "1", "--year", "01"}).err, HasSubstr("--dir or --store is required"));
  EXPECT_THAT(RunHere({"rate"}, {"--store", "postgresql:///d"}).err, HasSubstr("--dir excludes --store"));
}

}  // namespace
}  // namespace zendara
