#include "adapters/headless/headless.hpp"

#include <utility>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/headless/form_hands.hpp"
#include "adapters/hosting/company_host.hpp"
#include "adapters/script/user_neighbours.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

class Headless : public FormHost, public Dialogs, public ScriptAutomation {
 public:
  Headless(Commands next, ScriptPlayer::Sink out) : player_(std::move(next), hands_, documents_, std::move(out)) {}

  void Install(Platform& platform) override {
    platform.forms = this;
    if (!platform.dialogs) platform.dialogs = this;
    if (!platform.shell) platform.shell = &player_;
    OfferUserNeighbours(
        platform.components, [this](const std::string& title, RowList& rows) { return player_.Choose(title, rows); },
        [this](const ListingDescription& description, const std::string& file, const std::string& table) {
          player_.Listing(description, file, table);
        });
    if (!platform.components.Source()) platform.components.LookIn(MakeClassFiles());
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

 private:
  FormHands hands_;
  CairoWriter documents_;
  ScriptPlayer player_;
};

}  // namespace

ScriptResult PlayHeadless(Script script, Engine& engine, Files& files, const std::string& folder,
                          ScriptPlayer::Sink out) {
  Headless headless(CommandsOf(std::move(script)), std::move(out));
  Platform platform{.engine = &engine, .files = &files, .application_folder = folder};
  headless.Install(platform);
  // What a script prints does not depend on the machine.
  platform.components.LookIn(nullptr);
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
