// A host that shows a screen on a machine where another library has registered a banner.
#include "sample_host.hpp"
#include "zendara/automation.hpp"

namespace {

constexpr const char* kPanel = "SSPanel1(25)";

struct User : zendara::ScreenUser {
  void OnScreen(zendara::ShownScreen& screen) override { panel_seen = screen.Facts(kPanel).visible; }
  bool panel_seen = false;
};

bool SeesPanel(SampleHost& host, bool with_classes) {
  User user;
  const auto front = zendara::MakeAutomation(user);
  front->Install(host.platform);
  if (!with_classes) host.platform.components.LookIn(nullptr);
  Expect("the mark was handed back", host.ShowWorkers(), true);
  return user.panel_seen;
}

}  // namespace

// The argument is the application's folder, which holds DATOS.
int main(int /*argc*/, char** argv) {
  SampleHost host(argv[1]);
  Expect("the banner of the class files is there", SeesPanel(host, true), true);
  Expect("the front end's own banner is there", SeesPanel(host, false), false);
  return failed ? 1 : 0;
}
