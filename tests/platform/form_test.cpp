// Rules of focus, keys, clicks and typing of the form runtime.
#include "platform/form/form.hpp"

#include <gmock/gmock.h>

#include "support/errors.hpp"
#include "support/fake_form_host.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

// Three fields on two pages, a field in a frame, a list, a check box, two options and two buttons; every event is
// noted.
struct Sample : Form {
  explicit Sample(FakeFormHost& host) : Form(host, host, "Sample") {
    for (int i = 1; i <= 4; ++i) Text1.Add(i);
    Accept.SetCaption("&Grabar");
    Cancel.SetCaption("Salir &ñu");
    Pages.SetTitles({"Uno", "Dos"});
    combo.SetItems({"1", "2", "10"});
    Text1.On().got_focus = [this](int i) { log.push_back("in" + std::to_string(i)); };
    Text1.On().lost_focus = [this](int i) {
      log.push_back("out" + std::to_string(i));
      if (on_leave) on_leave(i);
    };
    Accept.On().click = [this](int) { log.push_back("accept"); };
    Pages.On().click = [this](int) { log.push_back("page" + std::to_string(Pages.Tab())); };
    SetLayout(Column({zendara::Pages(Pages, {Column({Place(Text1(1)), Place(Text1(2))}),
                                             Column({Place(Text1(3)), Framed(frame, {Place(Text1(4))})})}),
                      Place(combo), Place(check), Row({Place(first), Place(second)}), Place(Accept), Place(Cancel)}));
  }

  void Type(const std::string& text) {
    for (const char c : text) Press({0, 0, std::string(1, c)});
  }

  void OnKeyPress(int& character) override {
    if (character != key::kEnter) return;
    character = 0;
    FocusNext();
  }

  Tabs Pages{*this, "Tab1"};
  ControlArray<TextBox> Text1{*this, "Text1"};
  Frame frame{*this, "Marco"};
  ComboBox combo{*this, "Combo1", 5};
  CheckBox check{*this, "Check1"};
  OptionButton first{*this, "Option1", 0}, second{*this, "Option1", 1};
  Button Accept{*this, "Grabar"}, Cancel{*this, "Salir"};
  std::vector<std::string> log;
  std::function<void(int)> on_leave;
};

class FormTest : public testing::Test {
 protected:
  FormTest() {
    form.Show();
    form.log.clear();
  }

  void Press(int code, int shift = 0) { form.Press({code, shift, {}}); }
  std::string Focus() const { return form.Focus()->Id(); }

  FakeFormHost host;
  Sample form{host};
};

TEST_F(FormTest, FocusGoesRoundOverWhatCanHaveIt) {
  EXPECT_EQ(Focus(), "Text1(1)");
  form.Text1(2).SetEnabled(false);
  form.frame.SetVisible(false);
  std::vector<std::string> order;
  for (int i = 0; i < 8; ++i) {
    Press(key::kTab);
    order.push_back(Focus());
  }
  EXPECT_THAT(
      order, ElementsAre("Text1(3)", "Combo1(5)", "Check1", "Option1(0)", "Option1(1)", "Grabar", "Salir", "Text1(1)"));
  Press(key::kTab, key::kShift);
  EXPECT_EQ(Focus(), "Salir");
  EXPECT_EQ(ErrorOf([&] { form.Text1(4).SetFocus(); }), 5) << "its frame is hidden";
  EXPECT_EQ(ErrorOf([&] { form.Text1(9); }), 9);
}

TEST_F(FormTest, PageKeysTurnThePagesAroundTheFocus) {
  Press(key::kPageUp, key::kControl);  // there is none before
  Press(key::kPageDown, key::kControl);
  EXPECT_EQ(Focus(), "Tab1");
  Press(key::kTab);       // from the pages into the one in front
  form.combo.SetFocus();  // no pages around it: the first ones turn
  Press(key::kPageUp, key::kControl);
  form.Text1(4).SetFocus();
  EXPECT_EQ(form.Pages.Tab(), 1);
  EXPECT_THAT(form.log, ElementsAre("out1", "page1", "in3", "out3", "page0", "in4"));
}

TEST_F(FormTest, LeavingDecidesWhereTheFocusGoes) {
  form.on_leave = [&](int i) {
    if (i == 1) form.Text1(3).SetFocus();
  };
  Press(key::kTab);
  EXPECT_EQ(Focus(), "Text1(3)");
  EXPECT_THAT(form.log, ElementsAre("out1", "in3")) << "the field first aimed at gets no event";

  form.on_leave = [&](int i) { form.Text1(i).SetFocus(); };
  form.Click(form.Accept);
  EXPECT_THAT(form.log, ElementsAre("out1", "in3", "out3", "in3")) << "it took its focus back, so there was no click";
}

TEST_F(FormTest, AnErrorThatNobodyTrapsEndsItsEventAlone) {
  form.Text1(1).SetText("escrito");
  form.on_leave = [](int) { throw RuntimeError(kInvalidUseOfNull); };
  Press(key::kTab);
  EXPECT_THAT(host.boxes, ElementsAre("Error en tiempo de ejecución '94':\nUso no válido de Null"));
  EXPECT_EQ(Focus(), "Text1(2)");
  EXPECT_EQ(form.Text1(1).Text(), "escrito");
}

TEST_F(FormTest, ButtonsAreClickedByKeysAndAccessKeys) {
  form.Press({'G', key::kAlt, "g"});
  EXPECT_EQ(Focus(), "Grabar");
  form.Press({key::kSpace, 0, " "});
  Press(key::kEnter);
  EXPECT_EQ(std::ranges::count(form.log, "accept"), 3);
  form.Press({0, key::kAlt, "Ñ"});
  EXPECT_EQ(Focus(), "Salir");
  form.Accept.SetEnabled(false);
  form.Press({'G', key::kAlt, "g"});
  EXPECT_EQ(std::ranges::count(form.log, "accept"), 3);
}

TEST_F(FormTest, TheFormSeesKeysFirst) {
  form.Text1.On().key_press = [&](int, int& character) {
    form.log.push_back("press");
    if (character == 'x') character = 0;
  };
  form.Type("axb");
  EXPECT_EQ(form.Text1(1).Text(), "ab");
  Press(key::kEnter);  // cancelled by the form, the field never sees it
  EXPECT_THAT(form.log, ElementsAre("press", "press", "press", "out1", "in2"));
  form.HelpContext = 20004;
  Press(key::kF1);
  EXPECT_THAT(host.help, ElementsAre(20004));
}

TEST_F(FormTest, TextsAreEditedByCharacters) {
  TextBox& box = form.Text1(1);
  box.SetMaxLength(6);
  for (const char* c : {"ñ", "a", "n", "d", "ú", "ü", "x"}) form.Press({0, 0, c});
  EXPECT_EQ(box.Text(), "ñandúü") << "full";
  Press(key::kHome);
  Press(key::kDelete);
  Press(key::kRight);
  Press(key::kBack);
  EXPECT_EQ(box.Text(), "ndúü");
  Press(key::kEnd, key::kShift);
  Press(key::kLeft, key::kShift);
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 3);
  form.Press({0, 0, "é"});
  form.Paste("1\n23456");
  EXPECT_EQ(box.Text(), "é1234ü");
  box.SetText("más de seis letras");
  EXPECT_EQ(box.Text(), "más de");
  box.SetLocked(true);
  form.Type("x");
  EXPECT_EQ(box.Text(), "más de");
}

TEST_F(FormTest, ListsCheckBoxesOptionsAndGridsTakeOnlyWhatTheyHave) {
  form.combo.SetFocus();
  for (const auto& [typed, shown] : {std::pair("1", "1"), {"1", "10"}, {"7", "10"}}) {  // the next that begins so
    form.Type(typed);
    EXPECT_EQ(form.combo.Text(), shown);
  }
  EXPECT_EQ(ErrorOf([&] { form.combo.SetText("3"); }), 380);
  form.combo.SetText("");
  EXPECT_EQ(form.combo.ListIndex(), -1);
  form.Pick(form.combo, 1);
  EXPECT_EQ(form.combo.Text(), "2");

  form.Click(form.check);
  form.Press({key::kSpace, 0, " "});
  form.Click(form.check);
  EXPECT_EQ(form.check.Value(), 1);
  EXPECT_EQ(ErrorOf([&] { form.check.SetValue(3); }), 380);

  form.Click(form.first);
  form.Click(form.second);
  EXPECT_FALSE(form.first.Value());
  EXPECT_TRUE(form.second.Value());

  Grid grid(form, "Grid1", 0);
  grid.Resize(11, 5, 1, 1);
  int moved = 0;
  grid.On().selection = [&](int) { ++moved; };
  grid.SetCurrent(3, 2);
  grid.SetText("1999");
  EXPECT_EQ(grid.Cell(3, 2), "1999");
  EXPECT_EQ(moved, 1);
  EXPECT_EQ(ErrorOf([&] { grid.SetRow(0); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.Cell(11, 0); }), 9);
}

TEST_F(FormTest, AFormOpensAnotherAndComesBack) {
  Sample other(host);
  host.while_shown = [](Form& shown) { shown.Close(); };
  form.Accept.On().click = [&](int) {
    other.Show();
    form.log.push_back("back");
  };
  form.Click(form.Accept);
  EXPECT_FALSE(other.Loaded());
  form.Unload();
  form.Click(form.Accept);
  EXPECT_EQ(std::ranges::count(form.log, "back"), 1) << "nothing happens on a screen that is gone";
}

}  // namespace
}  // namespace zendara
