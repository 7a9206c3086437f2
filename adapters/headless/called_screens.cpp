// The front end without windows whose user is an object of the host's.
#include <exception>
#include <utility>

#include "adapters/headless/form_hands.hpp"
#include "adapters/hosting/shown_row_list.hpp"
#include "adapters/script/screen_acts.hpp"
#include "adapters/script/user_neighbours.hpp"
#include "runtime/failure.hpp"
#include "zendara/automation.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

// The user, who is asked by one function within the other. What he throws is kept from the screens, which are below on
// the stack.
class AskedUser {
 public:
  explicit AskedUser(ScreenUser& user) : user_(user) {}

  template <typename Question>
  void Ask(Question question) {
    ++depth_;
    try {
      question(user_);
    } catch (...) {
      ++failures_;
      if (first_) {
        LogCurrentError();
      } else {
        first_ = std::current_exception();
      }
    }
    --depth_;
  }
  // Of his functions that are running: screens, and the boxes, lists and listings in front of them.
  int Depth() const { return depth_; }
  int Failures() const { return failures_; }
  void Rethrow() {
    if (const auto first = std::exchange(first_, nullptr)) std::rethrow_exception(first);
  }

 private:
  ScreenUser& user_;
  int depth_ = 0;
  std::exception_ptr first_;  // and not thrown again yet
  int failures_ = 0;
};

class CalledScreen final : public ShownScreen {
 public:
  CalledScreen(Form& form, const AskedUser& user)
      : form_(form), user_(user), depth_(user.Depth() + 1), acts_(form, hands_) {}

  bool Shown() const override { return form_.Loaded(); }
  std::string Name() const override { return Open().Name(); }
  std::string Title() const override { return Open().Title(); }
  std::string Subject() const override { return Open().Subject(); }
  std::string Status() const override { return Open().Status(); }
  bool Unsaved() const override { return Open().Unsaved(); }
  std::string Focused() const override {
    const Control* focus = Open().Focus();
    return focus ? focus->Id() : std::string();
  }
  std::vector<std::string> Controls() const override {
    std::vector<std::string> ids;
    for (const Control* control : Open().Controls()) ids.push_back(control->Id());
    return ids;
  }
  ControlFacts Facts(std::string_view id) const override {
    Open();
    const Control& control = acts_.Find(id);
    ControlFacts facts{.caption = control.Caption(), .visible = true, .enabled = true};
    for (const Control* part = &control; part; part = part->Container()) {
      facts.visible = facts.visible && part->Visible();
      facts.enabled = facts.enabled && part->Enabled();
    }
    return facts;
  }
  std::string Read(std::string_view id) const override {
    Open();
    return acts_.Read(std::string(id));
  }

  void Focus(std::string_view id) override { Act().Focus(id); }
  void Type(std::string_view text) override {
    Act().Type(text, [this, before = user_.Failures()] { return user_.Failures() != before; });
  }
  void Press(const Key& key) override { Act().Press(key); }
  void Paste(std::string_view text) override { Act().Paste(text); }
  void Click(std::string_view id) override { Act().Click(id); }
  void Choose(std::string_view id, std::size_t item) override { Act().Choose(id, item); }
  void Choose(std::string_view id, std::string_view text) override { Act().Choose(id, text); }
  void Point(std::string_view id, int row, int column) override { Act().Point(id, row, column); }
  void Turn(std::string_view id, int page) override { Act().Turn(id, page); }
  void Close() override {
    Act();
    form_.Close();
  }

 private:
  const Form& Open() const {
    if (!form_.Loaded()) throw RuntimeError(kObjectClosed);
    return form_;
  }
  ScreenActs& Act() {
    Open();
    if (user_.Depth() != depth_) {
      throw ActError(kInvalidCall, "something else stands in front of screen " + form_.Name());
    }
    return acts_;
  }

  Form& form_;
  const AskedUser& user_;
  int depth_;  // of the function that got it
  FormHands hands_;
  ScreenActs acts_;
};

bool HasButton(const Box& box, BoxAnswer answer) {
  if (box.buttons == BoxButtons::kOk) return answer == BoxAnswer::kOk;
  return answer == BoxAnswer::kYes || answer == BoxAnswer::kNo;
}

class CalledScreens final : public ScreenAutomation, public FormHost, public Dialogs {
 public:
  explicit CalledScreens(ScreenUser& user) : user_(user) {}

  void Install(Platform& platform) override {
    platform.forms = this;
    if (!platform.dialogs) platform.dialogs = this;
    OfferUserNeighbours(
        platform.components, [this](const std::string& title, RowList& rows) { return Choose(title, rows); },
        [this](const ListingDescription& description, const std::string& file, const std::string& table) {
          user_.Ask([&](ScreenUser& user) { user.OnListing(description, file, table); });
        });
    if (!platform.components.Source()) platform.components.LookIn(MakeClassFiles());
  }
  void Rethrow() override { user_.Rethrow(); }

  void ShowModal(Form& form) override {
    CalledScreen screen(form, user_);
    user_.Ask([&](ScreenUser& user) { user.OnScreen(screen); });
    form.Unload();
  }
  void DoEvents() override {}
  void ShowHelp(const std::string& /*file*/, int /*context*/, const HelpPlace& /*place*/) override {}

  BoxAnswer Show(const Box& box) override {
    BoxAnswer answer = DefaultAnswer(box);
    user_.Ask([&](ScreenUser& user) {
      const BoxAnswer given = user.OnBox(box);
      if (!HasButton(box, given)) throw ActError(kInvalidCall, "the box has no such button: " + box.text);
      answer = given;
    });
    return answer;
  }
  void Beep() override {}

 private:
  std::optional<std::size_t> Choose(const std::string& title, RowList& rows) {
    ShownRowList shown(rows);
    std::optional<std::size_t> chosen;
    user_.Ask([&](ScreenUser& user) {
      const auto row = user.OnList(title, shown);
      if (row && !shown.Has(*row)) {
        throw ActError(kInvalidPropertyValue, "the list has no row of number " + std::to_string(*row) + ": " + title);
      }
      chosen = row;
    });
    return chosen;
  }

  AskedUser user_;
};

}  // namespace

std::unique_ptr<ScreenAutomation> MakeAutomation(ScreenUser& user) { return std::make_unique<CalledScreens>(user); }

}  // namespace zendara
