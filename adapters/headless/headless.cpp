#include "adapters/headless/headless.hpp"

#include <utility>

#include "adapters/headless/script_neighbours.hpp"

namespace zendara {
namespace {

class Headless : public FormHost, public Dialogs, public ScriptDriver {
 public:
  Headless(Script script, ScriptPlayer::Sink out) : player_(std::move(script), *this, std::move(out)) {
    RegisterScriptNeighbours(components_, player_);
  }

  ScriptResult Run(Engine& engine, Files& files, const std::string& folder) {
    CompanyHost company({.engine = &engine,
                         .dialogs = this,
                         .files = &files,
                         .application_folder = folder,
                         .forms = this,
                         .shell = &player_,
                         .components = &components_});
    return player_.Run(company);
  }

  void ShowModal(Form& form) override { player_.Modal(form); }
  void DoEvents() override {}
  void ShowHelp(const std::string& /*file*/, int context) override { player_.Help(context); }
  void Untrapped(int number, const std::string& text) override { player_.Error(number, text); }
  Dialogs& Boxes() override { return *this; }
  std::string ApplicationTitle() const override { return std::string(kApplicationTitle); }
  std::int32_t WindowHandle(const Form& /*form*/) const override { return 0; }

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
  ScriptPlayer player_;
  Components components_;
};

}  // namespace

ScriptResult PlayHeadless(Script script, Engine& engine, Files& files, const std::string& folder,
                          ScriptPlayer::Sink out) {
  return Headless(std::move(script), std::move(out)).Run(engine, files, folder);
}

}  // namespace zendara
