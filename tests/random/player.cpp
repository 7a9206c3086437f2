#include "random/player.hpp"

#include <memory>
#include <utility>

#include "adapters/hosting/company_host.hpp"
#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/silent_banner.hpp"
#include "common/row_list.hpp"
#include "random/clerk.hpp"
#include "random/incident_watch.hpp"
#include "random/other_program.hpp"
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

  void Play(const std::string& place);

  void ShowModal(Form& form) override;
  void DoEvents() override {
    if (top_) watch_->Pause(*top_, 5);
  }
  void Untrapped(int number, const std::string& text) override {
    hands_.Note("error " + std::to_string(number) + " " + text);
  }
  BoxAnswer Show(const Box& box) override { return hands_.Answer(box); }

 private:
  Hands& hands_;
  Components components_;
  std::optional<OtherProgram> other_;
  std::optional<IncidentWatch> watch_;
  int open_ = 0;
  Form* top_ = nullptr;  // of the open ones
};

Player::Player(Hands& hands) : hands_(hands) {
  components_.Register(kBannerClass, [] { return std::make_unique<SilentBanner>(); });
  RegisterPickList(components_, [this](const std::string&, RowList& rows) {
    DoEvents();
    return ChooseAtRandom(hands_, rows);
  });
}

void Player::Play(const std::string& place) {
  const Store store = OpenStore(place);
  CompanyHost company({.engine = store.engine.get(),
                       .dialogs = this,
                       .files = store.files.get(),
                       .application_folder = store.folder,
                       .forms = this,
                       .components = components_});
  Random& random = hands_.random;
  SessionValues values;
  values.company = "00001";
  values.year = random.Chance(80) ? "01" : random.Chance(50) ? "00" : "02";
  if (random.Chance(25)) values.currency = "E";
  if (random.Chance(10)) values.program = "05";
  company.Open(values);
  other_.emplace(hands_, place, values.year);
  watch_.emplace(hands_, *other_, values.year);
  hands_.ChangeShown = [this](Form& form) { watch_->ChangeShown(form); };
  while (!hands_.Done()) {
    const std::size_t before = shown.size();
    company.Show(std::string(random.Chance(60) ? kPantallaTrabajadores : random.Pick(kIncidentTables).screen));
    if (shown.size() == before) hands_.Fail("the screen does not open");
  }
  watch_.reset();
  other_.reset();
}

void Player::ShowModal(Form& form) {
  hands_.Note("screen " + form.Name());
  shown.push_back(form.Name());
  ++open_;
  Form* const below = std::exchange(top_, &form);
  watch_->Attach(form);
  for (int acts = open_ > 1 ? kInnerEvents : hands_.random.Between(50, 1000); acts > 0 && hands_.Going(form); --acts) {
    if (hands_.random.Chance(0.3)) other_->Interfere();
    watch_->Pause(form, 2);
    ActAtRandom(hands_, form);
  }
  form.Unload();
  top_ = below;
  --open_;
}

}  // namespace

void PlayOnScreens(Hands& hands, const std::string& place) { Player(hands).Play(place); }

}  // namespace zendara
