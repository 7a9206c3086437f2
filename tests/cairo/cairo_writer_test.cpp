// Files as other programs read them, and what becomes of them on a disk that fails.
#include "adapters/cairo/cairo_writer.hpp"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "adapters/host/new_file.hpp"
#include "print/record_document.hpp"
#include "support/disk_faults.hpp"
#include "support/errors.hpp"
#include "support/fake_form_host.hpp"
#include "support/pdf.hpp"
#include "support/sample_form.hpp"
#include "support/temp_folder.hpp"

namespace zendara {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using enum print::DocumentWriter::Existing;

namespace fs = std::filesystem;

class CairoWriterTest : public TestDisk, public testing::Test {
 protected:
  print::Document Record() {
    form_.SetTitle("Ficha");
    form_.Text1(2).SetText("Íñigo «efecto» ﬁn €");
    form_.Text1(3).SetText("fi\xFFx");
    form_.Grid1.SetCell(1, 1, "1.234,50");
    return print::RecordDocument(form_, writer_.Now(), writer_.Measure());
  }
  static std::string Contents(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::ptrdiff_t Files() const {
    return std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator());
  }

  FakeFormHost host_;
  SampleForm form_{host_, host_, "Demo"};
  CairoWriter writer_;
  TempFolder folder_;
  const std::string path_ = folder_ / "ficha.pdf";
};

TEST_F(CairoWriterTest, OtherProgramsReadTheTextAndFindTheFonts) {
  writer_.WritePdf(Record(), path_, kKeep);
  const std::string text = PdfText(path_);
  for (const char* said : {"Campo 2: +Íñigo «efecto» ﬁn €", "Campo 3: +fi�x", "Enero", "1\\.234,50", "Sueltas: +No",
                           "Uno", "Dos · Dentro", "Página 1 de 1"}) {
    EXPECT_THAT(text, ContainsRegex(said));
  }
  const std::string facts = PdfFacts(path_);
  for (const char* fact : {"Title: +Ficha\n", "Creator: +Zendara", "CreationDate: +[A-Z]", "A4",
                           "DejaVuSans +[A-Za-z ]+ [-A-Za-z]+ +yes yes yes"}) {
    EXPECT_THAT(facts, ContainsRegex(fact));
  }
}

TEST_F(CairoWriterTest, AFileIsReplacedOnlyWhenThatIsAsked) {
  std::ofstream(path_) << "antes";
  EXPECT_EQ(ErrorOf([&] { writer_.WritePdf(Record(), path_, kKeep); }), kObjectExists);
  EXPECT_EQ(Contents(path_), "antes");
  writer_.WritePdf(Record(), path_, kReplace);
  EXPECT_THAT(PdfText(path_), HasSubstr("Íñigo"));
  EXPECT_EQ(Files(), 1);
}

TEST_F(CairoWriterTest, PlacesThatTakeNoFile) {
  fs::create_directory(path_);
  const struct {
    std::string path;
    int error;
  } cases[] = {{folder_ / "nada/ficha.pdf", kPathNotFound},
               {path_, kPathFileAccess},
               {"/proc/ficha.pdf", kPathNotFound},
               {"", kPathNotFound}};
  for (const auto& [path, error] : cases) {
    EXPECT_EQ(ErrorOf([&] { writer_.WritePdf(Record(), path, kReplace); }), error) << path;
  }
}

// Whatever call fails, and whenever the program ends, the old file or the new one is there, whole.
TEST_F(CairoWriterTest, ADiskThatFailsLeavesWhatWasThere) {
  const print::Document document = Record();
  writer_.WritePdf(document, folder_ / "entera.pdf", kKeep);
  const std::string whole = Contents(folder_ / "entera.pdf");
  fs::remove(folder_ / "entera.pdf");
  for (const auto existing : {kKeep, kReplace}) {
    for (const Fault fault : {Fault::kFails, Fault::kFullDisk, Fault::kKilled}) {
      int reached = 0;
      for (int call = 1;; ++call, ++reached) {
        for (const auto& entry : fs::directory_iterator(folder_.path())) fs::remove(entry);
        if (existing == kReplace) std::ofstream(path_) << "antes";
        const Ending ending =
            RunWithFault({fault, call}, [&] { return ErrorOf([&] { writer_.WritePdf(document, path_, existing); }); });
        if (!ending.reached) break;
        SCOPED_TRACE(testing::PrintToString(DiskFault{fault, call}));
        const std::string now = Contents(path_);
        EXPECT_TRUE(now == whole || (existing == kReplace ? now == "antes" : !fs::exists(path_)));
        if (fault == Fault::kKilled) continue;
        EXPECT_EQ(ending.ExitStatus(), fault == Fault::kFullDisk ? kDiskFull : kDeviceIoError);
        EXPECT_EQ(Files(), fs::exists(path_) ? 1 : 0);
      }
      EXPECT_GE(reached, fault == Fault::kFullDisk ? 2 : 3);
    }
  }
}

// Pieces, of which some wait for others and one is written at once.
TEST_F(CairoWriterTest, AFileOfPiecesIsWholeOrNotThere) {
  const std::string pieces[] = {"a", std::string(200'000, 'b'), std::string(100'000, 'c'), std::string(300'000, 'd'),
                                "e"};
  const auto write = [&] {
    NewFile file(path_, NewFile::Taken::kReplace);
    for (const std::string& piece : pieces) static_cast<void>(file.Append(piece));
    return file.Commit() ? 1 : 0;
  };
  for (int call = 1;; ++call) {
    const Ending ending = RunWithFault({Fault::kFullDisk, call}, write);
    if (!ending.reached) break;
    EXPECT_EQ(ending.ExitStatus(), 1) << call;
    EXPECT_EQ(Files(), 0) << call;
    ASSERT_LT(call, 20);
  }
  EXPECT_EQ(Contents(path_), pieces[0] + pieces[1] + pieces[2] + pieces[3] + pieces[4]);
  {
    NewFile given_up(path_, NewFile::Taken::kReplace);
    static_cast<void>(given_up.Append(pieces[3]));
  }
  EXPECT_EQ(fs::file_size(path_), 600'002U);
  EXPECT_EQ(Files(), 1);
}

}  // namespace
}  // namespace zendara
