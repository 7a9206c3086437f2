// Random work on a form with a record, beside a model that knows which texts nobody has saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>

#include "adapters/drafts/memory_drafts.hpp"
#include "platform/form/screen_parts.hpp"
#include "support/fake_form_host.hpp"

namespace zendara {
namespace {

struct Desk : FakeFormHost {
  DraftKeeper* Drafts() override { return &drafts; }
  MemoryDrafts drafts;
};

// Rows of two fields, of which the second is shown in brackets unless it has the focus; a number calls up a row.
struct Rows : Form {
  explicit Rows(Desk& host) : Form(host, host, "Rows") {
    for (int i = 1; i <= 3; ++i) Text1.Add(i);
    AddToRecord(Text1(1), true);
    AddToRecord(Text1(2));
    AddToRecord(Text1(3));
    AddToRecord(Marca);
    Text1.On().got_focus = [this](int i) {
      if (i == 1) number = Text1(1).Text();
      if (i == 3) Text1(3).SetText(Bare());
    };
    Text1.On().lost_focus = [this](int i) {
      if (i == 3) Text1(3).SetText("[" + Text1(3).Text() + "]");
      if (i == 1 && Text1(1).Text() != number) Call();
    };
  }

  std::string Bare() const { return Text1(3).Text().substr(1, Text1(3).Text().size() - 2); }
  void Put(const std::array<std::string, 3>& row) {
    for (Control* control : std::initializer_list<Control*>{&Text1(2), &Text1(3), &Marca}) Settle(*control);
    Text1(2).SetText(row[0]);
    Text1(3).SetText(Text1(3).HasFocus() ? row[1] : "[" + row[1] + "]");
    Marca.SetValue(row[2].empty() ? 0 : row[2][0] - '0');
  }
  void Call() {
    number = Text1(1).Text();
    Settle(Text1(1));
    Put(stored[number]);
  }
  std::array<std::string, 3> Shown() const {
    return {Text1(2).Text(), Text1(3).HasFocus() ? Text1(3).Text() : Bare(), Marca.ShownText()};
  }

  std::string number;
  std::map<std::string, std::array<std::string, 3>> stored;
  ControlArray<TextBox> Text1{*this, "Text1"};
  CheckBox Marca{*this, "Marca"};
};

TEST(FormDrafts, NothingTypedIsLostWhateverIsDone) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const auto any = [&](unsigned below) { return static_cast<int>(random() % below); };
    Desk host;
    Rows form(host);
    for (const char* number : {"1", "2", "3"}) form.stored[number] = {"a", "b", "0"};
    form.stored[""] = {"", "", "0"};
    form.Show();
    form.Run([&] { form.Put({"", "", "0"}); });
    // What stands on the screen as somebody left it, by number, when he went away from it.
    std::vector<std::pair<std::string, std::array<std::string, 3>>> left;
    const auto changed = [&] { return form.Shown() != form.stored[form.number]; };
    for (int step = 0; step < 60; ++step) {
      const auto before = std::pair(form.number, form.Shown());
      const bool was_changed = changed();
      switch (any(7)) {
        case 0:
        case 1:
          if (form.Focus() == &form.Text1(1)) form.Click(form.Text1(2));
          form.Press({0, 0, std::string(1, static_cast<char>('c' + any(20)))});
          break;
        case 2:
          form.Press({key::kTab, any(2) ? key::kShift : 0, {}});
          break;
        case 3:
          form.Click(form.Marca);
          break;
        case 4: {  // another number over it
          const std::string next(1, static_cast<char>('1' + any(3)));
          if (form.Text1(1).Text() == next) break;
          form.Click(form.Text1(1));
          form.PointTo(form.Text1(1), 0, 9);
          form.Press({0, 0, next});
          EXPECT_EQ(form.Unsaved(), changed()) << "typing it is no change";
          form.Press({key::kTab, 0, {}});
          break;
        }
        case 5: {
          form.Click(form.Text1(2));  // a number that was typed is called up
          if (form.number.empty() || form.number != before.first) break;
          const auto stands = form.Shown();
          form.Run([&] {
            form.stored[form.number] = stands;
            form.Saved();
            form.Put(stands);
          });
          std::erase_if(left, [&](const auto& draft) { return draft.first == form.number; });
          break;
        }
        case 6: {
          form.Press({'Z', key::kControl, {}});
          if (was_changed || std::pair(form.number, form.Shown()) == before) break;
          // A draft stands there, all of it, and is worked on.
          const auto restored = std::ranges::find(left, std::pair(form.number, form.Shown()));
          ASSERT_NE(restored, left.end());
          left.erase(restored);
          break;
        }
      }
      if (was_changed && form.number != before.first) left.push_back(before);
      ASSERT_EQ(form.Unsaved(), changed()) << "step " << step;
    }
    if (changed()) left.emplace_back(form.number, form.Shown());
    form.Unload();
    // Every text that was left stands in a draft of its number.
    for (const auto& [number, texts] : left) {
      EXPECT_TRUE(std::ranges::any_of(host.drafts.Left([](const KeptDraft&) { return true; }),
                                      [&, number = number, texts = texts](const auto& kept) {
                                        auto row = form.stored[number];
                                        for (const auto& [id, text] : kept.draft.values) {
                                          const bool edited = kept.draft.focus == "Text1(3)";
                                          if (id == "Text1(2)") row[0] = text;
                                          if (id == "Text1(3)")
                                            row[1] = edited ? text : text.substr(1, text.size() - 2);
                                          if (id == "Marca") row[2] = text;
                                        }
                                        return kept.draft.key.front().text == number && row == texts;
                                      }))
          << number << ": " << texts[0] << " " << texts[1] << " " << texts[2];
    }
  }
}

}  // namespace
}  // namespace zendara
