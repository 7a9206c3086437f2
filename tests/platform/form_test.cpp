// Rules of focus, keys, clicks and typing of the form runtime.
#include "zendara/forms/form.hpp"

#include <gmock/gmock.h>

#include <map>
#include <new>
#include <stdexcept>

#include "runtime/text.hpp"
#include "support/errors.hpp"
#include "support/fake_form_host.hpp"
#include "support/sample_form.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

// Every event is noted.
struct Sample : SampleForm {
  explicit Sample(FakeFormHost& host) : SampleForm(host, host, "Sample") {
    Salir.SetCaption("Salir &ñu");
    Combo1.SetItems({"1", "2", "10"});
    Check1.SetValue(0);
    Text1.On().got_focus = [this](int i) { log.push_back("in" + std::to_string(i)); };
    Text1.On().lost_focus = [this](int i) {
      log.push_back("out" + std::to_string(i));
      if (on_leave) on_leave(i);
    };
    Text1.On().change = [this](int) { ++changes; };
    Grabar.On().click = [this](int) { log.emplace_back("accept"); };
    for (Tabs* tabs : {&Tab1, &Tab2}) {
      tabs->On().click = [this, tabs](int) { log.push_back(tabs->Id() + " " + tabs->ShownText()); };
    }
  }

  void Type(const std::string& text) {
    for (const char c : text) Press({0, 0, std::string(1, c)});
  }

  void OnKeyPress(int& character) override {
    if (on_key_press) on_key_press();
    if (character != key::kEnter) return;
    character = 0;
    FocusNext();
  }

  void OnLoad() override {
    if (on_load) on_load();
  }
  void OnUnload() override {
    if (on_unload) on_unload();
  }

  std::vector<std::string> log;
  std::function<void(int)> on_leave;
  std::function<void()> on_load, on_unload, on_key_press;
  int changes = 0;
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
  form.Marco.SetVisible(false);
  for (const char* next : {"Check2", "Option1(0)", "Option1(1)", "Text1(4)", "Grid1(0)", "Text1(5)", "Grabar", "Abrir",
                           "Imprimir", "Salir", "Text1(1)"}) {
    Press(key::kTab);
    EXPECT_EQ(Focus(), next);
  }
  Press(key::kTab, key::kShift);
  EXPECT_EQ(Focus(), "Salir");
  EXPECT_EQ(ErrorOf([&] { form.Text1(3).SetFocus(); }), 5) << "its frame is hidden";
  EXPECT_EQ(ErrorOf([&] { form.Text1(9); }), 9);
}

TEST_F(FormTest, PageKeysTurnThePagesAroundTheFocus) {
  Press(key::kPageDown, key::kControl);  // no pages around it: the first ones turn
  form.Text1(4).SetFocus();
  Press(key::kPageDown, key::kControl);
  EXPECT_EQ(Focus(), "Tab2");
  Press(key::kTab);  // from the pages into the one in front
  form.Text1(3).SetFocus();
  EXPECT_EQ(form.Tab1.Tab(), 0);
  EXPECT_THAT(form.log, ElementsAre("out1", "Tab1 1", "Tab2 0", "in4", "out4", "Tab2 1", "in5", "out5", "in3"));
}

TEST_F(FormTest, AFieldThatTakesItsFocusBackIsEnteredAgainAndKeepsTheClickAway) {
  form.on_leave = [&](int i) { form.Text1(i).SetFocus(); };
  form.Click(form.Grabar);
  EXPECT_THAT(form.log, ElementsAre("out1", "in1"));
}

TEST_F(FormTest, AnyExceptionIsAnErrorInABoxWithItsOwnWordsInTheLog) {
  const struct {
    std::function<void()> fail;
    std::string box;
    std::string log;
  } cases[] = {
      {[] { throw RuntimeError(kFileNotFound, {}, "a.dat\nb"); }, "'53':\nNo se ha encontrado el archivo",
       "zendara: error 53: a.dat b\n"},
      {[] { throw std::bad_alloc(); }, "'7':\nMemoria insuficiente", ""},
      {[] { throw std::out_of_range("of the host"); }, "'51':\nError interno", "zendara: error 51: of the host\n"},
      {[] { throw 7; }, "'51':\nError interno", "zendara: error 51: an exception of an unknown kind\n"},
  };
  for (const auto& c : cases) {
    host.boxes.clear();
    testing::internal::CaptureStderr();
    form.Run(c.fail);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), c.log);
    EXPECT_THAT(host.boxes, ElementsAre("Error en tiempo de ejecución " + c.box));
  }
}

// A host's own objects may fail where a screen opens, loads, unloads, and even in the box that says so.
TEST_F(FormTest, NothingFliesOutOfAForm) {
  const auto fail = [](auto&&...) { throw std::runtime_error("of the host"); };
  testing::internal::CaptureStderr();
  form.on_leave = fail;
  Press(key::kTab);
  EXPECT_EQ(Focus(), "Text1(2)") << "the rules of leaving ended, the move went on";
  Sample other(host);
  form.Grabar.On().click = [&](int) { other.Show(); };
  form.on_leave = nullptr;
  other.on_load = fail;
  form.Click(form.Grabar);
  other.on_unload = fail;
  other.Unload();
  host.while_shown = fail;
  form.Click(form.Grabar);
  EXPECT_EQ(host.boxes.size(), 5U) << "leaving; load, unload; load again, and the place that shows it";
  EXPECT_TRUE(form.Loaded());
  EXPECT_FALSE(other.Shown());
  struct : FakeFormHost {
    BoxAnswer Show(const Box&) override { throw std::runtime_error("of the host"); }
  } no_boxes;
  Sample silent(no_boxes);
  silent.on_load = fail;
  silent.Show();
  EXPECT_TRUE(silent.Loaded());
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

TEST_F(FormTest, ButtonsAreClickedByKeysAndAccessKeys) {
  form.Press({'G', key::kAlt, "g"});
  EXPECT_EQ(Focus(), "Grabar");
  form.Press({key::kSpace, 0, " "});
  Press(key::kEnter);
  EXPECT_EQ(std::ranges::count(form.log, "accept"), 3);
  form.Press({0, key::kAlt, "Ñ"});
  EXPECT_EQ(Focus(), "Salir");
  form.Grabar.SetEnabled(false);
  form.Press({'G', key::kAlt, "g"});
  EXPECT_EQ(std::ranges::count(form.log, "accept"), 3);
}

// The rest of a key, a click or a paste is lost when a handler has taken the ground from under it.
TEST(FormEvents, EndWithTheControlThatTheyBeganOn) {
  using Handler = std::function<void()>;
  struct Event {
    const char* what;
    bool click;    // on the button; otherwise into the first field
    bool entered;  // the focus was on the button already
    std::function<void(Sample&, Handler)> attach;
    std::function<void(Sample&)> happen;
  };
  const auto type = [](Sample& f) { f.Type("x"); };
  const auto paste = [](Sample& f) { f.Paste("xy"); };
  const auto click = [](Sample& f) { f.Click(f.Grabar); };
  const auto on_down = [](Sample& f, const Handler& h) { f.Text1.On().key_down = [h](int, int&, int) { h(); }; };
  const auto on_press = [](Sample& f, const Handler& h) { f.Text1.On().key_press = [h](int, int&) { h(); }; };
  const auto on_form = [](Sample& f, const Handler& h) {
    f.on_key_press = h;
    f.Text1.On().key_press = [&f](int, int&) { ++f.changes; };
  };
  const auto on_button = [](Sample& f, const Handler& h) {
    f.Grabar.SetFocus();
    f.Grabar.On().key_down = [h](int, int&, int) { h(); };
  };
  const auto enter = [](Sample& f) { f.Press({key::kEnter, 0, {}}); };
  const auto on_leave = [](Sample& f, const Handler& h) { f.on_leave = [h](int i) { i == 1 ? h() : void(); }; };
  const auto on_enter = [](Sample& f, const Handler& h) { f.Grabar.On().got_focus = [h](int) { h(); }; };
  const Event events[] = {
      {"key_down", false, false, on_down, type},
      {"key_press of the form", false, false, on_form, type},
      {"key_press", false, false, on_press, type},
      {"key_press of a paste", false, false, on_press, paste},
      {"lost_focus", true, false, on_leave, click},
      {"got_focus", true, true, on_enter, click},
      {"key_down of a button", true, true, on_button, enter},
  };
  const struct {
    const char* what;
    std::function<void(Sample&, Control&)> deed;
    bool moves;
    std::vector<std::string> log;  // of a click, when it is done on leaving
  } deeds[] = {
      {"hides", [](Sample&, Control& c) { c.SetVisible(false); }, false, {"out1", "in1"}},
      {"disables", [](Sample&, Control& c) { c.SetEnabled(false); }, false, {"out1", "in1"}},
      {"unloads", [](Sample& f, Control&) { f.Unload(); }, false, {"out1"}},
      {"moves the focus", [](Sample& f, Control&) { f.Text1(2).SetFocus(); }, true, {"out1", "in2"}},
  };
  for (const Event& event : events) {
    for (const auto& deed : deeds) {
      SCOPED_TRACE(std::string(deed.what) + " on " + event.what);
      FakeFormHost host;
      Sample form(host);
      form.Show();
      form.log.clear();
      Control& target = event.click ? static_cast<Control&>(form.Grabar) : form.Text1(1);
      event.attach(form, [&] { deed.deed(form, target); });
      event.happen(form);
      EXPECT_EQ(form.Text1(1).Text() + form.Text1(2).Text(), "");
      EXPECT_EQ(form.changes, 0);
      EXPECT_EQ(std::ranges::count(form.log, "accept"), 0);
      EXPECT_EQ(form.Focus()->Id(), deed.moves ? "Text1(2)" : event.entered ? "Grabar" : "Text1(1)");
      if (event.click && !event.entered) {
        EXPECT_EQ(form.log, deed.log);
      }
      EXPECT_EQ(host.boxes.size(), 0U);
    }
  }
}

TEST_F(FormTest, WhatIsNotLoadedTakesNoInput) {
  form.Unload();
  form.Type("x");
  form.Paste("x");
  form.Click(form.Grabar);
  form.Click(form.Check1);
  form.Pick(form.Combo1, 1);
  form.TurnTo(form.Tab1, 1);
  form.Close();
  form.HelpContext = 20004;
  form.Text1.On().key_down = [this](int, int&, int) { form.Unload(); };
  for (const Key& key : {Key{key::kF1, 0, {}}, Key{'G', key::kAlt, "g"}, Key{key::kPageDown, key::kControl, {}}}) {
    form.Show();  // loads it
    form.Press(key);
  }
  EXPECT_THAT(host.help, ElementsAre());
  EXPECT_EQ(form.Text1(1).Text() + form.Combo1.Text(), "");
  EXPECT_EQ(form.Check1.Value() + form.Tab1.Tab(), 0);
  EXPECT_THAT(form.log, ElementsAre());
}

TEST_F(FormTest, AFormThatIsShownIsNotShownAgain) {
  form.Unload();
  int again = 0;
  host.while_shown = [&](Form& shown) {
    ++again;
    shown.Show();
    EXPECT_TRUE(shown.Shown());
    shown.Close();
    EXPECT_FALSE(shown.Shown());
  };
  form.Show();
  form.Show();
  EXPECT_EQ(again, 2) << "and a form that has closed is";
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
  EXPECT_EQ(box.SelectedText(), "ndú");
  Press(key::kRight);
  EXPECT_EQ(box.Caret(), 3) << "to the end of what was selected";
  for (int i = 0; i < 2; ++i) Press(key::kLeft, key::kShift);
  EXPECT_EQ(box.SelectedText(), "dú");
  Press(key::kLeft);
  EXPECT_EQ(box.Caret(), 1);
  box.SetText("más de seis letras");
  EXPECT_EQ(box.Text(), "más de");
  Press(key::kEnd);
  box.SetText("12");
  form.Type("0");
  EXPECT_EQ(box.Text(), "012") << "a text set by code has its caret at the start";
  box.SetLocked(true);
  for (const int code : {key::kDelete, key::kBack}) Press(code);
  form.Type("x");
  EXPECT_EQ(box.Text(), "012");
}

TEST_F(FormTest, APasteIsOneChangeOfAsMuchAsTheFieldHoldsAndLetsPass) {
  std::string long_text;
  for (int i = 0; i < 10'000; ++i) long_text += "línea ñ(&\r\n";
  const struct {
    const char* what;
    const char* text;
    int start;
    int length;
    std::string pasted;
    const char* result;
    int caret;
  } cases[] = {
      {"in place of what is selected", "abcd", 1, 2, "ñú", "añúd", 3},
      {"as far as there is room", "abcd", 2, 0, "12345", "ab12cd", 4},
      {"one line of it all", "", 0, 0, "1\n2\t3", "123", 3},
      {"signs that are keys of a form", "", 0, 0, "(&%\x1b\x08", "(&%", 3},
      {"what the field lets pass", "", 0, 0, "1x2,x", "12.", 3},
      {"a text of any length", "ab", 2, 0, long_text, "ablnea", 6},
      {"nothing that passes leaves the selection", "abc", 0, 3, "xxx", "abc", 0},
  };
  TextBox& box = form.Text1(1);
  box.SetMaxLength(6);
  form.Text1.On().key_press = [&](int, int& character) {
    if (character == 'x' || character == 0xed) character = 0;
    if (character == ',') character = box.Text() == "12" ? '.' : 0;
    box.Select(box.SelStart(), 1);  // as going over the text with the keys does
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    box.SetText(c.text);
    box.Select(c.start, c.length);
    form.changes = 0;
    form.Paste(c.pasted);
    EXPECT_EQ(box.Text(), c.result);
    EXPECT_EQ(box.SelStart(), c.caret);
    const bool changed = c.text != std::string_view(c.result);
    EXPECT_EQ(std::pair(box.SelLength(), form.changes), std::pair(changed ? 0 : c.length, changed ? 1 : 0));
  }
  box.SetText("abc");
  form.Text1.On().key_press = [&](int, int& character) {
    if (character == '2') throw RuntimeError(kInvalidCall);
  };
  form.Paste("123");
  EXPECT_EQ(box.Text(), "abc") << "half of it is not left behind";
  form.Text1.On().key_press = [&](int, int& character) {
    if (character == '2') box.SetText("fin");
  };
  form.Paste("123");
  EXPECT_EQ(box.Text(), "fin") << "the field has answered itself";
  form.Text1.On().key_press = nullptr;
  box.SetLocked(true);
  form.Paste("1");
  box.SetLocked(false);
  box.SetMaxLength(0);
  box.SetText("");
  form.Paste(long_text);
  EXPECT_EQ(Len(box.Text()), 90'000U);
  form.SetFocus(form.Grabar);
  form.Paste(" 1");
  EXPECT_EQ(std::ranges::count(form.log, "accept"), 0);
}

// Each step: a key as scripts name it here, and the text and caret that it leaves. "^" is Ctrl+Z, "~" Ctrl+Y, "<" Left,
// "#" Home, "!" Delete, "\b" Backspace, "=" a text that code sets, "@" a paste.
TEST_F(FormTest, UndoTakesBackRunsOfTheUsersHandAndRedoBringsThemAgain) {
  TextBox& box = form.Text1(2);
  box.SetFocus();
  const std::map<char, Key> keys = {{'^', {'Z', key::kControl, "z"}}, {'~', {'Y', key::kControl, "y"}},
                                    {'<', {key::kLeft, 0, {}}},       {'#', {key::kHome, 0, {}}},
                                    {'!', {key::kDelete, 0, {}}},     {'\b', {key::kBack, 0, {}}}};
  const struct {
    const char* what;
    const char* pressed;
    const char* text;
    int caret;
  } cases[] = {
      {"a run of characters", "abc^", "", 0},
      {"and again", "abc^~", "abc", 3},
      {"the caret moved between two runs", "abc<d^", "abc", 2},
      {"both", "abc<d^^", "", 0},
      {"characters taken out are a run of their own", "abcd\b\b^", "abcd", 4},
      {"typed, taken out, typed", "abc\bd^^", "abc", 3},
      {"to both sides", "abcd<<!!\b^", "abcd", 2},
      {"a paste is a step", "ab@@^", "abpp", 4},
      {"what is typed ends what could be done again", "ab^c~", "c", 1},
      {"a text set by code is not the user's", "ab=c^^", "x", 0},
      {"nor is what stood before it", "ab=^~", "x", 0},
      {"more than there is", "ab^^^^~~~", "ab", 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    box.SetText("");
    for (const char pressed : std::string_view(c.pressed)) {
      const auto key = keys.find(pressed);
      if (pressed == '=') box.SetText("x");
      if (pressed == '@') form.Paste("pp");
      if (key != keys.end()) form.Press(key->second);
      if (key == keys.end() && pressed != '=' && pressed != '@') form.Type(std::string(1, pressed));
    }
    EXPECT_EQ(box.Text(), c.text);
    EXPECT_EQ(box.Caret(), c.caret);
  }
  // Typing that goes over the text is one run as well, and the selection comes back.
  box.SetText("12345");
  form.Text1.On().key_press = [&](int, int& character) {
    if (character >= key::kSpace) box.Select(box.SelStart(), 1);
  };
  form.Type("abc");
  EXPECT_EQ(box.Text(), "abc45");
  form.changes = 0;
  form.Press(keys.at('^'));
  EXPECT_EQ(box.Text(), "12345");
  EXPECT_EQ(form.changes, 1);
  box.SetLocked(true);
  form.Press(keys.at('~'));
  EXPECT_EQ(box.Text(), "12345");
}

TEST_F(FormTest, ListsCheckBoxesOptionsAndGridsTakeOnlyWhatTheyHave) {
  form.Combo1.SetFocus();
  for (const auto& [typed, shown] : {std::pair("1", "1"), {"1", "10"}, {"7", "10"}}) {  // the next that begins so
    form.Type(typed);
    EXPECT_EQ(form.Combo1.Text(), shown);
  }
  EXPECT_EQ(ErrorOf([&] { form.Combo1.SetText("3"); }), 380);
  form.Combo1.SetText("");
  EXPECT_EQ(form.Combo1.ListIndex(), -1);
  int picked = 0;
  form.Combo1.On().click = [&](int) { ++picked; };
  for (int i = 0; i < 2; ++i) form.Pick(form.Combo1, 1);
  EXPECT_EQ(form.Combo1.Text(), "2");
  EXPECT_EQ(picked, 1) << "the entry that shows already is no click";

  form.Click(form.Check1);
  form.Press({key::kSpace, 0, " "});
  form.Click(form.Check1);
  EXPECT_EQ(form.Check1.Value(), 1);
  EXPECT_EQ(ErrorOf([&] { form.Check1.SetValue(3); }), 380);

  form.Click(form.Option1(0));
  form.Click(form.Option1(1));
  EXPECT_FALSE(form.Option1(0).Value());
  EXPECT_TRUE(form.Option1(1).Value());

  Grid& grid = form.Grid1;
  int moved = 0;
  grid.On().selection = [&](int) { ++moved; };
  grid.SetCurrent(2, 2);
  grid.SetText("1999");
  EXPECT_EQ(grid.Cell(2, 2), "1999");
  EXPECT_EQ(moved, 1);
  EXPECT_EQ(ErrorOf([&] { grid.SetRow(0); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.Cell(3, 0); }), 9);
}

}  // namespace
}  // namespace zendara
