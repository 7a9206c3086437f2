#include "random/player.hpp"

#include <memory>
#include <vector>

#include "adapters/hosting/company_host.hpp"
#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/silent_banner.hpp"
#include "common/row_list.hpp"
#include "random/clerk.hpp"
#include "support/fake_form_host.hpp"
#include "workers/trabajadores.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

constexpr int kInnerEvents = 60;  // of a screen that another one has opened

// Takes any row, or none.
std::optional<std::size_t> ChooseAtRandom(Hands& hands, RowList& rows) {
  const int last = static_cast<int>(rows.Total()) - 1;
  std::optional<std::size_t> row;
  if (last >= 0 && hands.random.Chance(92)) row = static_cast<std::size_t>(hands.random.Between(0, last));
  hands.Note("list -> \"" + (row ? rows.Row(*row) : "") + "\"");
  return row;
}

class Player : public FakeFormHost {
 public:
  explicit Player(Hands& hands);

  void Play(const std::string& folder);

  void ShowModal(Form& form) override;
  void Untrapped(int number, const std::string& text) override {
    hands_.Note("error " + std::to_string(number) + " " + text);
  }
  BoxAnswer Show(const Box& box) override { return hands_.Answer(box); }

 private:
  // Another program changes or removes a row that may be on the screen.
  void Interfere();

  Hands& hands_;
  Components components_;
  std::shared_ptr<Database> other_program_;  // its handle on the company's file
  int open_ = 0;
};

Player::Player(Hands& hands) : hands_(hands) {
  components_.Register(kBannerClass, [] { return std::make_unique<SilentBanner>(); });
  RegisterPickList(components_, [this](const std::string&, RowList& rows) { return ChooseAtRandom(hands_, rows); });
}

void Player::Play(const std::string& folder) {
  const auto engine = MakeEngine();
  const auto files = MakeHostFiles();
  const auto other_engine = MakeEngine();
  CompanyHost company({.engine = engine.get(),
                       .dialogs = this,
                       .files = files.get(),
                       .application_folder = folder,
                       .forms = this,
                       .components = &components_});
  Random& random = hands_.random;
  SessionValues values;
  values.company = "00001";
  values.year = random.Chance(80) ? "01" : random.Chance(50) ? "00" : "02";
  if (random.Chance(25)) values.currency = "E";
  if (random.Chance(10)) values.program = "05";
  company.Open(values);
  other_program_ = other_engine->Workspaces(0)->OpenDatabase(folder + "/DATOS/Nom00001.MDB");
  while (!hands_.Done()) {
    const std::size_t before = shown.size();
    company.Show(std::string(kPantallaTrabajadores));
    if (shown.size() == before) hands_.Fail("the screen does not open");
  }
  other_program_.reset();
}

void Player::ShowModal(Form& form) {
  hands_.Note("screen " + form.Name());
  shown.push_back(form.Name());
  ++open_;
  for (int acts = open_ > 1 ? kInnerEvents : hands_.random.Between(50, 1000); acts > 0 && hands_.Going(form); --acts) {
    if (hands_.random.Chance(0.3)) Interfere();
    ActAtRandom(hands_, form);
  }
  form.Unload();
  --open_;
}

void Player::Interfere() {
  Random& random = hands_.random;
  const char* table = random.Chance(50) ? "TrabajadoresFijo" : "TrabajadoresVar";
  const auto rows = other_program_->OpenRecordset(table, RecordsetType::kTable);
  if (rows->Eof()) return;
  for (int row = random.Between(0, static_cast<int>(rows->RecordCount()) - 1); row > 0; --row) rows->MoveNext();
  hands_.Note(std::string("another program is at ") + table + " " + rows->Fields(0).Get().Text());
  if (random.Chance(80)) {
    rows->Edit();
    rows->Fields(2).Set(random.Chance(50) ? "Otro" : "d'Or");
    rows->Update();
  } else {
    rows->Delete();
  }
  hands_.Forgive();
}

}  // namespace

void PlayOnWorkerScreen(Hands& hands, const std::string& folder) { Player(hands).Play(folder); }

}  // namespace zendara
