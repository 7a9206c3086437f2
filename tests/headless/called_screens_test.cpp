// A host's own user on the real screens: acts, nested screens, boxes and lists, what is refused and what is thrown.
#include <gmock/gmock.h>

#include "adapters/hosting/company_host.hpp"
#include "apps/demo/demo_company.hpp"
#include "runtime/number.hpp"
#include "support/temp_folder.hpp"
#include "zendara/automation.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

struct Clerk : ScreenUser {
  void OnScreen(ShownScreen& screen) override { on_screen.at(screen.Name())(screen); }
  BoxAnswer OnBox(const Box& box) override {
    boxes.push_back(box.text.substr(0, box.text.find('\n')));
    return on_box ? on_box() : ScreenUser::OnBox(box);
  }
  std::optional<std::size_t> OnList(const std::string&, ShownRows& rows) override { return on_list(rows); }

  std::map<std::string, std::function<void(ShownScreen&)>> on_screen;
  std::function<BoxAnswer()> on_box;
  std::function<std::optional<std::size_t>(ShownRows&)> on_list;
  std::vector<std::string> boxes;
};

class CalledScreensTest : public testing::Test {
 protected:
  CalledScreensTest() { WriteDemoCompany(*engine_, {.folder = folder_.path().string(), .workers = 3}); }

  // Thrown again: what the clerk has thrown.
  void ShowWorkers(std::function<void(ShownScreen&)> at_the_screen) {
    clerk_.on_screen["Trabajadores"] = std::move(at_the_screen);
    const auto automation = MakeAutomation(clerk_);
    Platform platform{.engine = engine_.get(), .files = files_.get(), .application_folder = folder_.path().string()};
    automation->Install(platform);
    CompanyHost company(platform);
    company.Open({.company = "00001", .year = "01", .name = {}, .date = {}});
    company.Show("Trabajadores");
    automation->Rethrow();
    automation->Rethrow();
  }
  std::string StoredSurname() {
    const auto file = engine_->Workspaces(0)->OpenDatabase(folder_.path().string() + "\\DATOS\\Nom00001.MDB");
    return CStr(file->OpenRecordset("SELECT Campo1 FROM TrabajadoresFijo WHERE Campo0 = '00002'")->Fields(0).Get());
  }

  TempFolder folder_;
  std::unique_ptr<Engine> engine_ = MakeEngine();
  std::unique_ptr<Files> files_ = MakeHostFiles();
  Clerk clerk_;
};

int ErrorOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST_F(CalledScreensTest, AnHourOfWork) {
  ShownScreen* below = nullptr;
  std::vector<std::string> incident;
  clerk_.on_screen["MIncidenciasESP"] = [&](ShownScreen& screen) {
    incident = {screen.Read("Text1(1)"), below->Read("Text1(1)"),
                std::to_string(ErrorOf([&] { below->Click("Grabar"); }))};
    screen.Press({.code = key::kEsc});
    incident.push_back(std::to_string(screen.Shown()));
  };
  clerk_.on_list = [](ShownRows& rows) {
    EXPECT_EQ(rows.Total(), 3U);
    EXPECT_EQ(ErrorOf([&] { rows.Cell(3, 0); }), kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { rows.Heading(rows.Columns()); }), kSubscriptOutOfRange);
    std::size_t row = 0;
    while (rows.Has(row) && rows.Row(row).find("00002") == std::string::npos) ++row;
    return row;
  };
  bool closed = false;
  ShowWorkers([&](ShownScreen& screen) {
    below = &screen;
    EXPECT_EQ(screen.Focused(), "Text1(1)");
    screen.Type("3\t\t");
    EXPECT_EQ(screen.Focused(), "Text1(3)");
    EXPECT_THAT(screen.Subject(), testing::StartsWith("00003 "));
    screen.Click("Image1(1)");
    EXPECT_EQ(screen.Read("Text1(1)"), "00002");
    screen.Click("CmdIncidenciasESP");
    EXPECT_THAT(incident, ElementsAre("00002", "00002", "5", "0"));

    screen.Focus("Text1(2)");
    screen.Press({.code = key::kEnd});
    screen.Paste("ñ");
    EXPECT_TRUE(screen.Unsaved());
    screen.Click("Grabar");
    EXPECT_FALSE(screen.Unsaved());
    EXPECT_THAT(screen.Status(), testing::StartsWith("Grabado: 00002 "));
    EXPECT_THAT(StoredSurname(), testing::EndsWith("ñ"));

    screen.Turn("Tab1", 1);
    EXPECT_EQ(screen.Read("Tab1"), "1");
    EXPECT_TRUE(clerk_.boxes.empty());
    // Nobody is on the screen: the box is answered by its default, and the screen above does not come.
    incident.clear();
    screen.Click("CmdIncidenciasESP");
    EXPECT_THAT(clerk_.boxes, ElementsAre("Debe seleccionar antes un trabajador"));
    EXPECT_TRUE(incident.empty());
    screen.Close();
    closed = !screen.Shown() && ErrorOf([&] { screen.Read("Text1(1)"); }) == kObjectClosed;
  });
  EXPECT_TRUE(closed);
}

TEST_F(CalledScreensTest, WhatIsNotThereIsAnErrorAndChangesNothing) {
  ShowWorkers([&](ShownScreen& screen) {
    screen.Type("3\n");
    const struct {
      int number;
      std::function<void()> act;
    } cases[] = {
        {kItemNotFound, [&] { screen.Click("Nada"); }},
        {kItemNotFound, [&] { screen.Facts("text1(1)"); }},
        {kInvalidCall, [&] { screen.Focus("Image1(1)"); }},
        {kInvalidCall, [&] { screen.Choose("Text1(1)", "x"); }},
        {kInvalidCall, [&] { screen.Type("a\xF1"); }},
        {kInvalidCall, [&] { screen.Type("a\x01"); }},
        {kInvalidCall, [&] { screen.Press({.code = 0, .text = "ab"}); }},
        {kInvalidPropertyValue, [&] { screen.Choose("Combo1(5)", "nada"); }},
        {kInvalidPropertyValue, [&] { screen.Choose("Combo1(5)", std::size_t{99}); }},
        {kInvalidPropertyValue, [&] { screen.Point("Grid1(0)", 0, 1); }},
        {kInvalidPropertyValue, [&] { screen.Read("Grid1(0)[99,0]"); }},
        {kInvalidPropertyValue, [&] { screen.Turn("Tab1", 99); }},
    };
    const std::string before = screen.Read("Text1(2)");
    for (const auto& c : cases) EXPECT_EQ(ErrorOf(c.act), c.number) << &c - cases;
    EXPECT_EQ(screen.Focused() + screen.Read("Text1(2)"), "Text1(2)" + before);
    EXPECT_TRUE(screen.Facts("Text1(2)").enabled);
    EXPECT_FALSE(screen.Facts("SSPanel1(25)").visible) << "the panel of a banner that shows nothing";
  });
}

TEST_F(CalledScreensTest, WhatTheUserThrowsEndsWhatWasAskedAndComesOutAtTheEnd) {
  // From a box: it has its default answer, and the rest of the text is not typed.
  const auto fail = [](const char* words) -> BoxAnswer { throw std::runtime_error(words); };
  clerk_.on_box = [&] { return fail("box"); };
  clerk_.on_list = [&](ShownRows&) -> std::optional<std::size_t> { throw std::runtime_error("list"); };
  std::string after;
  EXPECT_THAT(
      [&] {
        ShowWorkers([&](ShownScreen& screen) {
          screen.Focus("CmdIncidenciasESP");
          screen.Type("\n\n\n");
          screen.Click("Image1(1)");
          after = screen.Read("Text1(1)");
        });
      },
      testing::ThrowsMessage<std::runtime_error>("box"));
  EXPECT_EQ(clerk_.boxes.size(), 1U);
  EXPECT_EQ(after, "");

  // An answer that the box does not have.
  clerk_.on_box = [] { return BoxAnswer::kYes; };
  EXPECT_EQ(ErrorOf([&] { ShowWorkers([](ShownScreen& screen) { screen.Click("CmdIncidenciasESP"); }); }),
            kInvalidCall);

  // From a screen: it closes without a word, and the one below goes on.
  clerk_.boxes.clear();
  clerk_.on_screen["MIncidenciasESP"] = [&](ShownScreen&) { fail("screen"); };
  EXPECT_THAT(
      [&] {
        ShowWorkers([&](ShownScreen& screen) {
          screen.Type("3\n");
          screen.Click("CmdIncidenciasESP");
          after = screen.Read("Text1(1)");
        });
      },
      testing::ThrowsMessage<std::runtime_error>("screen"));
  EXPECT_EQ(after, "00003");
  EXPECT_TRUE(clerk_.boxes.empty());
}

}  // namespace
}  // namespace zendara
