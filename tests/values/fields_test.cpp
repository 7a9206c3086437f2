#include <gtest/gtest.h>

#include "fakes.hpp"
#include "values/filtro_tecla.hpp"
#include "values/formato_fecha.hpp"

namespace zendara {
namespace {

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

TEST(FormatoFecha, TurnsDigitsIntoADate) {
  const struct {
    const char *typed, *date;
  } cases[] = {{"", ""},
               {"010203", "01/02/03"},
               {"10203", "01/02/03"},
               {"31203", "03/12/03"},
               {"290204", "29/02/04"},
               {"10203 ", "01/02/03"},
               {" 10203", "01/02/03"}};
  for (const auto& c : cases) {
    FakeField field(c.typed);
    FakeDialogs dialogs;
    EXPECT_EQ(FormatoFecha(field, dialogs, {}), c.date) << c.typed;
    EXPECT_TRUE(dialogs.boxes.empty() && dialogs.beeps == 0 && field.focused == 0) << c.typed;
    EXPECT_EQ(field.text, c.typed);
  }
}

TEST(FormatoFecha, WarnsOfWhatIsNoDateInItsOrder) {
  const struct {
    const char *typed, *message;
  } cases[] = {{"290201", "29/02/01 ,Fecha Incorrecta"},
               {"310401", "31/04/01 ,Fecha Incorrecta"},
               {"031301", "3/13/01 ,Fecha Incorrecta"},
               {"01022003", "Formato de fecha Incorrecto, Introducir [DDMMAA]"}};
  for (const auto& c : cases) {
    FakeField field(c.typed);
    FakeDialogs dialogs;
    EXPECT_EQ(FormatoFecha(field, dialogs, {}), "") << c.typed;
    ASSERT_EQ(dialogs.boxes.size(), 1u) << c.typed;
    const Box& box = dialogs.boxes[0];
    EXPECT_EQ(box.text, c.message);
    EXPECT_TRUE(box.title == "Atención" && box.icon == BoxIcon::kExclamation && box.buttons == BoxButtons::kOk);
    EXPECT_EQ(dialogs.beeps, 1);
    EXPECT_EQ(field.focused, 0);
  }
}

TEST(FormatoFecha, EmptiesAFieldThatHoldsNoDateAtAll) {
  for (const char* typed : {"000000", "abc", "131313", "01/02/03", "5"}) {
    FakeField field(typed);
    FakeDialogs dialogs;
    EXPECT_EQ(FormatoFecha(field, dialogs, {}), "");
    ASSERT_EQ(dialogs.boxes.size(), 1u) << typed;
    EXPECT_EQ(dialogs.boxes[0].text, "  Fecha incorrecta");
    EXPECT_TRUE(IsPlain(dialogs.boxes[0]));
    EXPECT_TRUE(field.text.empty() && field.focused == 1 && dialogs.beeps == 0) << typed;
  }
}

TEST(SinBarras, GivesTheDigitsBack) {
  EXPECT_EQ(SinBarras(FakeField("01/02/03")), "010203");
  EXPECT_EQ(SinBarras(FakeField("010203")), "010203");
}

}  // namespace
}  // namespace zendara
