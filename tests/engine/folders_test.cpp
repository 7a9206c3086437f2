// Databases that are files of the machine: folders, foreign and damaged files, files that others replace.
#include <fstream>

#include "engine/contract.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class FolderContract : public EngineContract {
 protected:
  std::shared_ptr<Workspace> Work() { return engine->Workspaces(0); }

  int OpenError(const std::string& path) {
    return ErrorOf([&] { Work()->OpenDatabase(path); });
  }
};
ZENDARA_FOR_ENGINES(FolderContract, EnginesUnderTest(true));

TEST_P(FolderContract, FoldersAreFoundWhateverTheirCaseAndSeparators) {
  fs::create_directory(Path("Datos"));
  Work()->CreateDatabase(Path("DATOS\\Nom00001.MDB"));
  EXPECT_EQ(OpenError(Path("Datos/NOM00001.mdb")), 0);
  EXPECT_EQ(OpenError(folder + "\\datos\\nom00001.Mdb"), 0);
  EXPECT_TRUE(MakeHostFiles()->Exists(Path("datos\\NOM00001.MDB")));
  EXPECT_FALSE(MakeHostFiles()->Exists(Path("datos\\NOM00002.MDB")));
}

TEST_P(FolderContract, FilesThatAreNoDatabases) {
  std::ofstream(Path("texto.MDB")) << std::string(5000, 'x');
  std::ofstream(Path("vacio.MDB")) << "";
  fs::create_directory(Path("carpeta.MDB"));
  for (const auto& [file, error] :
       {std::pair("no/nada.MDB", 3044), {"texto.MDB", 3343}, {"vacio.MDB", 3343}, {"carpeta.MDB", 3051}}) {
    EXPECT_EQ(OpenError(Path(file)), error) << file;
  }
  EXPECT_THAT(Work()->Databases(folder), ElementsAre("Prueba.MDB"));
  EXPECT_TRUE(Work()->Exists(Path("Texto.mdb")));
  EXPECT_EQ(ErrorOf([&] { Work()->CreateDatabase(Path("no/nada.MDB")); }), 3044);
  EXPECT_EQ(ErrorOf([&] { Work()->Databases(Path("no")); }), 3044);
  db.reset();
  EXPECT_EQ(ErrorOf([&] { Work()->Rename(Path("Prueba.MDB"), Path("no/Otra.MDB")); }), 3044);
}

TEST_P(FolderContract, AReplacedFileIsAnotherOne) {
  auto mine = Open("Gente", "Icampo0");
  Add(*mine, {"00001"});
  Program other = OtherProgram();
  Add(*other.people, {"00002"});
  Work()->CreateDatabase(Path("copia.MDB"), {People()});
  fs::rename(Path("copia.MDB"), Path("Prueba.MDB"));
  EXPECT_EQ(OtherProgram().people->RecordCount(), 0);
  for (const auto& old : {mine, other.people}) {
    EXPECT_EQ(ErrorOf([&] { Add(*old, {"00003"}); }), 3420);
    EXPECT_EQ(Walk(*old, "FED"), "!3420, !3420, !3420");
  }
  EXPECT_EQ(ErrorOf([&] { db->BeginTrans(); }), 3420);
  auto opened = Work()->OpenDatabase(Path("Prueba.MDB"));
  Add(*opened->OpenRecordset("Gente", RecordsetType::kTable), {"00009"});
  for (auto* database : {&db, &other.db}) (*database)->Close();
  for (const auto& old : {mine, other.people}) old->Close();
  EXPECT_EQ(OtherProgram().people->RecordCount(), 1) << "closing the old file takes nothing from the new one";
  EXPECT_THAT(opened->CheckIntegrity(), testing::IsEmpty());
}

TEST_P(FolderContract, DamagedFilesGiveErrorsAndNeverCrash) {
  const std::string path = Path("Prueba.MDB");
  db->BeginTrans();
  for (int i = 0; i < 2000; ++i) Add(*Open("Gente"), {std::to_string(10000 + i), "nombre", "01/02/03", i});
  db->CommitTrans();
  db.reset();
  engine.reset();
  const auto read_all = [&](const std::string& file) {
    const Program program(AnotherEngine(), file);
    auto& rs = *program.people;
    rs.SetIndex("Icampo0");
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
      for (int i = 0; i < 4; ++i) rs.Fields(i).Get();
    }
    if (!program.db->CheckIntegrity().empty()) throw RuntimeError(kDamagedFile);
  };
  read_all(path);
  const auto size = fs::file_size(path);
  int failures = 0;
  for (std::uintmax_t at = 0; at < size; at += 4096) {
    const std::string copy = Path("copia.MDB");
    fs::copy_file(path, copy, fs::copy_options::overwrite_existing);
    std::fstream(copy, std::ios::in | std::ios::out | std::ios::binary).seekp(static_cast<std::streamoff>(at))
        << std::string(2048, '\xa5');
    const int error = ErrorOf([&] { read_all(copy); });
    if (error != 0) ++failures;
    EXPECT_THAT(error, testing::AnyOf(0, 3343, 3049, 3011, 3421, 3015)) << "page at " << at;
  }
  EXPECT_GT(failures, 10);
  fs::resize_file(path, size / 2);
  EXPECT_NE(ErrorOf([&] { read_all(path); }), 0);
}

}  // namespace
}  // namespace zendara
