#include "adapters/headless/headless.hpp"

#include <utility>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/hosting/company_host.hpp"
#include "adapters/script/script_neighbours.hpp"

namespace zendara {
namespace {

class Headless : public FormHost, public Dialogs, public ScriptDriver, public ScriptAutomation {
 public:
  Headless(Commands next, ScriptPlayer::Sink out) : player_(std::move(next), *this, documents_, std::move(out)) {}

  void Install(Platform& platform) override {
    platform.forms = this;
    if (!platform.dialogs) platform.dialogs = this;
    if (!platform.shell) platform.shell = &player_;
    OfferScriptNeighbours(platform.components, player_);
    player_.ReadFrom(platform);
  }
  ScriptResult Result() const override { return player_.Result(); }
  ScriptPlayer& Player() { return player_; }

  void ShowModal(Form& form) override { player_.Modal(form); }
  void DoEvents() override {}
  void ShowHelp(const std::string& /*file*/, int context, const HelpPlace& /*place*/) override {
    player_.Help(context);
  }
  void Untrapped(int number, const std::string& text) override { player_.Error(number, text); }
  DraftKeeper* Drafts() override { return player_.Drafts(); }

  BoxAnswer Show(const Box& box) override { return player_.Answer(box); }
  void Beep() override { player_.Beep(); }

  void Press(Form& form, const Key& key) override { form.Press(key); }
  void Focus(Form& form, Control& control) override {
    form.Run([&] {
      if (control.CanFocus()) form.SetFocus(control);
    });
  }
  void Click(Form& form, Control& control) override {
    form.MouseOver(control);
    form.Click(control);
  }
  void Pick(Form& form, ComboBox& combo, int item) override { form.Pick(combo, item); }
  void PointTo(Form& form, Grid& grid, int row, int column) override { form.PointTo(grid, row, column); }
  void TurnTo(Form& form, Tabs& tabs, int page) override { form.TurnTo(tabs, page); }
  void Settle() override {}

 private:
  CairoWriter documents_;
  ScriptPlayer player_;
};

}  // namespace

ScriptResult PlayHeadless(Script script, Engine& engine, Files& files, const std::string& folder,
                          ScriptPlayer::Sink out) {
  Headless headless(CommandsOf(std::move(script)), std::move(out));
  Platform platform{.engine = &engine, .files = &files, .application_folder = folder};
  headless.Install(platform);
  CompanyHost company(platform);
  return headless.Player().Run(company);
}

std::unique_ptr<ScriptAutomation> MakeAutomation(CommandLines next, EventLines out) {
  return std::make_unique<Headless>(CommandsOf(std::move(next)), std::move(out));
}

std::unique_ptr<ScriptAutomation> MakeAutomation(std::string_view script, EventLines out) {
  try {
    return std::make_unique<Headless>(CommandsOf(ReadScript(script)), std::move(out));
  } catch (const ScriptError& error) {
    auto refused = std::make_unique<Headless>(CommandsOf(Script()), std::move(out));
    refused->Player().End(error.status(), error.what());
    return refused;
  }
}

}  // namespace zendara
