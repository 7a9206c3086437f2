// A clerk at a screen whose server is lost.
#include <gmock/gmock.h>

#include "adapters/hosting/company_host.hpp"
#include "apps/demo/demo_company.hpp"
#include "server/faults.hpp"
#include "zendara/automation.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

struct Clerk : ScreenUser {
  void OnScreen(ShownScreen& screen) override { work(screen); }
  BoxAnswer OnBox(const Box& box) override {
    boxes.push_back(box.text);
    return ScreenUser::OnBox(box);
  }

  std::function<void(ShownScreen&)> work;
  std::vector<std::string> boxes;
};

class AtTheScreen : public testing::TestWithParam<Fault> {};

TEST_P(AtTheScreen, AClerkSeesOneBoxAndSavesAtTheNextTry) {
  if (!TestServer()) GTEST_SKIP() << "ZENDARA_TEST_SERVER says of no server";
  const LostServer server = GetParam().server();
  const Store store = OpenStore(server.place);
  WriteDemoCompany(*store.engine, {.folder = store.folder, .workers = 3});
  Clerk clerk;
  bool done = false;
  clerk.work = [&](ShownScreen& screen) {
    screen.Type("3\n");
    screen.Focus("Text1(2)");
    screen.Press({.code = key::kEnd});
    screen.Paste("ñ");
    const std::string typed = screen.Read("Text1(2)");
    server.lose();
    screen.Click("Grabar");
    EXPECT_THAT(clerk.boxes, testing::ElementsAre(testing::StartsWith("3043  ")));
    EXPECT_EQ(screen.Read("Text1(1)") + screen.Read("Text1(2)"), "00003" + typed);
    EXPECT_TRUE(screen.Unsaved());
    screen.Click("Grabar");
    EXPECT_THAT(clerk.boxes, testing::SizeIs(1));
    EXPECT_THAT(screen.Status(), testing::StartsWith("Grabado: 00003 "));
    done = true;
  };
  const auto automation = MakeAutomation(clerk);
  Platform platform{.engine = store.engine.get(), .files = store.files.get(), .application_folder = store.folder};
  automation->Install(platform);
  CompanyHost company(platform);
  company.Open({.company = "00001", .year = "01", .name = {}, .date = {}});
  company.Show("Trabajadores");
  automation->Rethrow();
  EXPECT_TRUE(done);
  EXPECT_THAT(Ask(server.place, "SELECT campo1 FROM trabajadoresfijo WHERE campo0 = '00003'"), testing::EndsWith("ñ"));
}

INSTANTIATE_TEST_SUITE_P(Servers, AtTheScreen, testing::ValuesIn(kFaults),
                         [](const auto& fault) { return std::string(fault.param.name); });

}  // namespace
}  // namespace zendara
