// Rates of stored workers in every format.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

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
    EXPECT_EQ(
        Load("IRPF",
             "Campo0,Campo1,Campo2,Campo4,Campo5,Campo6,Campo34,Campo58\n0,0,10,1000000,100000,30,500000,600000\n")
            .status,
        0);
    const Outcome load = Load("TrabajadoresFijo",
                              "Campo0,Campo1,Campo2,Campo3,Campo22,Campo75\n"
                              "00010,Peña,,Íñigo,3,2000000\n"
                              "00003,Ruiz,Sanz,Ana,3,1500000\n"
                              "00001,Gil,,Eva,3,\n");
    EXPECT_EQ(load.status, 0) << load.err;
  }
};

TEST_F(RateTest, Csv) {
  EXPECT_EQ(RunHere({"rate"}, {"--format", "csv"}).out, "worker,rate\r\n00001,0\r\n00003,\"16,66\"\r\n00010,20\r\n");
  EXPECT_EQ(RunHere({"rate"}, {"--format", "csv", "--worker", "3"}).out, "worker,rate\r\n00003,\"16,66\"\r\n");
  EXPECT_EQ(RunHere({"rate"}, {"--format", "csv", "--worker", "00010", "--explain"}).out,
            "worker,rate,rendimiento_neto,reduccion_trabajo,minimo_personal,minimo_familiar,base_retencion,"
            "cuota_retencion,limite\r\n00010,20,2000000,0,0,\"\",2000000,400000,500000\r\n");
}

TEST_F(RateTest, Json) {
  using nlohmann::json;
  const auto rate = [this](const std::vector<std::string>& options) {
    return json::parse(RunHere({"rate", "--format", "json"}, options).out);
  };
  EXPECT_EQ(rate({}), json::parse(R"([{"worker": "00001", "rate": "0"}, {"worker": "00003", "rate": "16,66"},
                                      {"worker": "00010", "rate": "20"}])"));
  const json steps = rate({"--worker", "10", "--explain"}).at(0);
  EXPECT_EQ(steps.size(), 9U);
  EXPECT_EQ(steps.at("cuota_retencion"), "400000");
  EXPECT_EQ(rate({"--worker", "10", "--explain", "--currency", "E"}).at(0).at("cuota_retencion"), "400000,00");
}

TEST_F(RateTest, Text) {
  EXPECT_EQ(RunHere({"rate"}).out,
            "Worker  Name            Rate\n"
            "00001   Gil Eva            0\n"
            "00003   Ruiz Sanz Ana  16,66\n"
            "00010   Peña Íñigo        20\n");
  const Outcome explain = RunHere({"rate"}, {"--worker", "3", "--explain"});
  EXPECT_THAT(explain.out, testing::StartsWith("00003  Ruiz Sanz Ana\n"));
  EXPECT_THAT(explain.out, HasSubstr("16,66"));
}

TEST_F(RateTest, BirthsKeepTheirCentury) {
  ASSERT_EQ(Load("TrabajadoresFijo",
                 "Campo0,Campo19,Campo22,Campo75\n00004,1925-03-05,3,1500000\n00005,1895-03-05,3,1500000\n")
                .status,
            0);
  for (const char* worker : {"4", "5"}) {
    EXPECT_THAT(RunHere({"rate"}, {"--format", "csv", "--worker", worker}).out, HasSubstr(",6\r\n")) << worker;
  }
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

  std::filesystem::remove(DataFile("Nom00001.MDB"));
  Create();
  EXPECT_EQ(RunHere({"rate"}, {"--format", "json"}).out, "[]\n");

  std::filesystem::remove(DataFile("Nom00a01.MDB"));
  Create();
  EXPECT_THAT(RunHere({"rate"}).err, testing::ContainsRegex("table IRPF of .*: 3021  "));
}

}  // namespace
}  // namespace zendara
