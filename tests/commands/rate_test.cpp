// Rates of stored workers in every format.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "support/pdf.hpp"
#include "tests/commands/command_folder.hpp"

namespace zendara {
namespace {

using testing::HasSubstr;

// A scale of 10 % up to a million and 30 % from there, no reductions, a limit of half a million and 600,000 off
// for those over 65.
class RateTest : public CommandFolder {
 protected:
  RateTest() {
    Create();
    Load("IRPF", "Campo0,Campo1,Campo2,Campo4,Campo5,Campo6,Campo34,Campo58\n0,0,10,1000000,100000,30,500000,600000\n");
    Load("TrabajadoresFijo",
         "Campo0,Campo1,Campo2,Campo3,Campo19,Campo22,Campo75\n"
         "00010,Peña,,Íñigo,,3,2000000\n"
         "00003,Ruiz,Sanz,Ana,,3,1500000\n"
         "00001,Gil,,Eva,,3,\n"
         "00005,,,,1895-03-05,3,1500000\n");
  }
  std::string Rate(const std::vector<std::string>& options) const { return RunHere({"rate"}, options).out; }
};

// The fifth is over 65 only if the birth keeps its century.
TEST_F(RateTest, Formats) {
  EXPECT_EQ(Rate({}),
            "Worker  Name            Rate\n"
            "00001   Gil Eva            0\n"
            "00003   Ruiz Sanz Ana  16,66\n"
            "00005                      6\n"
            "00010   Peña Íñigo        20\n");
  EXPECT_THAT(Rate({"--worker", "3", "--explain"}),
              testing::AllOf(testing::StartsWith("00003  Ruiz Sanz Ana\n"), HasSubstr("16,66")));

  EXPECT_EQ(Rate({"--format", "csv"}), "worker,rate\r\n00001,0\r\n00003,\"16,66\"\r\n00005,6\r\n00010,20\r\n");
  EXPECT_EQ(Rate({"--format", "csv", "--worker", "00010", "--explain"}),
            "worker,rate,rendimiento_neto,reduccion_trabajo,minimo_personal,minimo_familiar,base_retencion,"
            "cuota_retencion,limite\r\n00010,20,2000000,0,0,\"\",2000000,400000,500000\r\n");

  using nlohmann::json;
  EXPECT_EQ(json::parse(Rate({"--format", "json", "--worker", "3"})),
            json::parse(R"([{"worker": "00003", "rate": "16,66"}])"));
  const json steps = json::parse(Rate({"--format", "json", "--worker", "10", "--explain", "--currency", "E"})).at(0);
  EXPECT_EQ(steps.size(), 9U);
  EXPECT_EQ(steps.at("cuota_retencion"), "400000,00");
}

TEST_F(RateTest, ThePdfOfAWorkerIsNewAndSaysTheSteps) {
  const std::string path = (dir_ / "paso.pdf").string();
  EXPECT_EQ(RunHere({"rate"}, {"--pdf", path}).status, 2);
  EXPECT_EQ(RunHere({"rate"}, {"--worker", "10", "--pdf", path}).status, 0);
  const std::string text = PdfText(path);
  for (const char* said : {"Código: +00001 +Año: +01", "00010 Peña Íñigo +Tipo de IRPF", "Límite sin retención +500000",
                           "Tipo de retención +20 +en porcentaje"}) {
    EXPECT_THAT(text, testing::ContainsRegex(said));
  }
  const Outcome again = RunHere({"rate"}, {"--worker", "3", "--pdf", path});
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr("3012"));
  EXPECT_EQ(PdfText(path), text);
}

TEST_F(RateTest, OneWorkersErrorDoesNotStopTheOthers) {
  ASSERT_EQ(Load("TrabajadoresFijo", "Campo0,Campo75\n00002,1E400\n").status, 0);
  for (const char* format : {"csv", "json", "text"}) {
    const Outcome run = RunHere({"rate"}, {"--format", format});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, "zendara: worker 00002: 6  Desbordamiento\n");
    EXPECT_THAT(run.out, testing::AllOf(HasSubstr("00001"), testing::Not(HasSubstr("00002")), HasSubstr("00010")));
  }
}

TEST_F(RateTest, NothingToRate) {
  EXPECT_THAT(RunHere({"rate"}, {"--worker", "9"}).err, HasSubstr("there is no worker 00009"));
  for (const auto& [file, text] :
       {std::pair("Nom00001.MDB", "^\\[]\n$"), {"Nom00a01.MDB", "table IRPF of .*: 3021  "}}) {
    std::filesystem::remove(DataFile(file));
    Create();
    const Outcome run = RunHere({"rate"}, {"--format", "json"});
    EXPECT_THAT(run.out + run.err, testing::ContainsRegex(text));
  }
}

}  // namespace
}  // namespace zendara
