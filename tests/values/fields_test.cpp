#include <gtest/gtest.h>

#include "support/fake_dialogs.hpp"
#include "values/filtro_tecla.hpp"
#include "values/formato_fecha.hpp"
#include "zendara/forms/text_field.hpp"

namespace zendara {
namespace {

struct FakeField : TextField {
  explicit FakeField(std::string start, int caret_at = 0) : text(std::move(start)), caret(caret_at) {}

  std::string Text() const override { return text; }
  void SetText(const std::string& value) override { text = value; }
  int SelStart() const override { return caret; }
  void SetFocus() override { ++focused; }

  std::string text;
  int caret;
  int focused = 0;
};

TEST(FiltroTecla, LetsNumbersThrough) {
  const struct {
    int key;
    const char* text;
    int caret;
    int passed;
  } cases[] = {{8, "12", 2, 8},      {'a', "", 0, 0},   {13, "", 0, 0},      {'.', "12", 2, ','}, {',', "12", 2, ','},
               {'.', "1,2", 3, 0},   {'-', "", 0, '-'}, {'-', "12", 0, '-'}, {'-', "12", 1, 0},   {'-', "-12", 0, 0},
               {'-', "  -12", 0, 0}, {'/', "", 0, 0},   {'0', "", 0, '0'},   {':', "", 0, 0},     {'9', "1,5", 3, '9'}};
  for (const auto& c : cases) {
    int key = c.key;
    EXPECT_EQ(FiltroTecla(key, FakeField(c.text, c.caret)), c.passed) << c.key << " in " << c.text;
    EXPECT_EQ(key, c.passed) << c.key << " in " << c.text;
  }
}

TEST(FormatoFecha, TurnsDigitsIntoADateOrSaysWhatIsWrong) {
  // The last six digits are no date in their order; a text that is no date at all empties the field, which is entered
  // again.
  const struct {
    const char *typed, *date, *message = "";
    bool emptied = false;
  } cases[] = {{"", ""},
               {"010203", "01/02/03"},
               {"10203", "01/02/03"},
               {"31203", "03/12/03"},
               {"10203 ", "01/02/03"},
               {"290201", "", "29/02/01 ,Fecha Incorrecta"},
               {"031301", "", "3/13/01 ,Fecha Incorrecta"},
               {"01022003", "", "Formato de fecha Incorrecto, Introducir [DDMMAA]"},
               {"000000", "", "  Fecha incorrecta", true},
               {"abc", "", "  Fecha incorrecta", true},
               {"01/02/03", "", "  Fecha incorrecta", true},
               {"5", "", "  Fecha incorrecta", true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.typed);
    const std::string message = c.message;
    FakeField field(c.typed);
    FakeDialogs dialogs;
    EXPECT_EQ(FormatoFecha(field, dialogs, {}), c.date);
    EXPECT_EQ(field.text, c.emptied ? "" : c.typed);
    EXPECT_EQ(field.focused, c.emptied);
    EXPECT_EQ(dialogs.boxes, std::vector<std::string>(message.empty() ? 0 : 1, message));
    const bool warned = !message.empty() && !c.emptied;
    EXPECT_EQ(dialogs.beeps, warned);
    EXPECT_EQ(dialogs.last_box.title, warned ? "Atención" : "");
    EXPECT_EQ(dialogs.last_box.icon, warned ? BoxIcon::kExclamation : BoxIcon::kNone);
  }
}

TEST(SinBarras, GivesTheDigitsBack) { EXPECT_EQ(SinBarras(FakeField("01/02/03")), "010203"); }

}  // namespace
}  // namespace zendara
