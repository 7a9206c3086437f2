// Boxes, pick lists and help.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <QTextBrowser>
#include <map>

#include "adapters/qt/help_window.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/pick_window.hpp"
#include "adapters/script/script_keys.hpp"
#include "qt/demo_form.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

Key Code(int code) { return {.code = code, .shift = 0, .text = {}}; }
Key Sign(const std::string& text) { return KeyOfCharacter(text); }

class WindowsTest : public QtTest {
 protected:
  // The keys go to what has the keyboard in the window that is shown then.
  static void PressSoon(std::vector<Key> keys) {
    Soon([keys = std::move(keys)] {
      QWidget* window = QApplication::activeModalWidget();
      ASSERT_NE(window, nullptr);
      for (const Key& key : keys) PressKey(window->focusWidget() ? *window->focusWidget() : *window, key);
    });
  }
};

TEST_F(WindowsTest, BoxesAnswerByTheirButtons) {
  const auto answer = [&](BoxButtons buttons, int preset, const std::vector<Key>& keys) {
    PressSoon(keys);
    return host.Show({.text = "¿Seguro?", .buttons = buttons, .icon = BoxIcon::kQuestion, .default_button = preset});
  };
  EXPECT_EQ(answer(BoxButtons::kYesNo, 1, {Code(key::kEnter)}), BoxAnswer::kYes);
  EXPECT_EQ(answer(BoxButtons::kYesNo, 2, {Code(key::kEsc), Code(key::kEnter)}), BoxAnswer::kNo);  // Esc is no answer
  EXPECT_EQ(answer(BoxButtons::kYesNo, 1, {Sign("n")}), BoxAnswer::kNo);
  EXPECT_EQ(answer(BoxButtons::kOk, 1, {Code(key::kEsc)}), BoxAnswer::kOk);
  Soon([] {
    auto* box = static_cast<QMessageBox*>(QApplication::activeModalWidget());
    EXPECT_EQ(box->windowTitle(), "Zendara");
    EXPECT_EQ(box->text(), "<b>1</b>\ndos");
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->buttons().front()->text(), "&Aceptar");
    box->buttons().front()->click();
  });
  host.Show({.text = "<b>1</b>\ndos"});
}

TEST_F(WindowsTest, TheDetailOfAQuestionIsReadWithoutAnsweringIt) {
  Box question{.text = "¿Quiere aplicarlo?", .buttons = BoxButtons::kYesNo, .title = "Tipo", .default_button = 2};
  const auto top = [] { return QApplication::activeModalWidget(); };
  const auto press = [&](const std::vector<Key>& keys) {
    for (const Key& key : keys) PressKey(*top()->focusWidget(), key);
    QApplication::processEvents();
  };
  const Key copy{.code = 'C', .shift = key::kControl, .text = {}};
  Soon([&] {
    press({Code(key::kF1)});
    EXPECT_EQ(top()->findChildren<QPushButton*>().size(), 2);
    press({Code(key::kTab), Code(key::kTab), Code(key::kEnter)});
  });
  EXPECT_EQ(host.Show(question), BoxAnswer::kNo);

  const QString words = QString("palabra ").repeated(100);
  question.detail = {{"Base", "582300", "sueldo"}, {"Cuota", "104814", words.toStdString()}, {"Tipo", "2,01", "cuota"}};
  Soon([&] {
    QWidget* box = top();
    for (const Key& closes : {Code(key::kEsc), Code(key::kEnter)}) {
      const QWidget* focus = box->focusWidget();
      press({Code(closes.code == key::kEsc ? key::kF1 : key::kEnter)});
      const auto* table = top()->findChild<QTableWidget*>();
      ASSERT_NE(table, nullptr);
      const QFontMetrics metrics = table->fontMetrics();
      EXPECT_GE(table->rowHeight(1) * table->columnWidth(2), metrics.horizontalAdvance(words) * metrics.height());
      EXPECT_FALSE(table->horizontalScrollBar()->isVisible());
      press({copy});
      EXPECT_EQ(QApplication::clipboard()->text(),
                "Base\t582300\tsueldo\nCuota\t104814\t" + words + "\nTipo\t2,01\tcuota");
      press({closes});
      ASSERT_EQ(top(), box);
      EXPECT_EQ(box->focusWidget(), focus);
      // The button comes behind the answers, and Enter on it gives none.
      if (closes.code == key::kEsc) press({Code(key::kTab)});
    }
    press({Sign("s")});
  });
  EXPECT_EQ(host.Show(question), BoxAnswer::kYes);
}

TEST_F(WindowsTest, AListIsWalkedAndSearchedByKeys) {
  std::vector<std::string> lines;
  for (int i = 0; i < 1000; ++i) lines.push_back(std::to_string(1000 + i) + " fila");
  lines[700] = "Ñíguez, la última";
  RowList rows(lines);
  const auto pick = [&](std::vector<Key> keys) {
    PickWindow window("Filas", rows, nullptr);
    PressSoon(std::move(keys));
    window.exec();
    return window.Chosen();
  };
  const Key enter = Code(key::kEnter);
  EXPECT_EQ(pick({Code(key::kEnd), Code(key::kDown), Code(key::kUp), enter}), 998U);
  EXPECT_EQ(pick({Code(key::kEnd), Code(key::kHome), Code(key::kUp), enter}), 0U);
  EXPECT_EQ(pick({Code(key::kEnd), Sign("u"), Sign("l"), Sign(" "), Sign("Ñ"), enter}), 700U);
  EXPECT_EQ(pick({Sign("9"), Sign("5"), Code(key::kEnd), Code(key::kUp), enter}), 959U) << "1095 ... 1959, 1995";
  EXPECT_EQ(pick({Sign("x"), enter, enter, Code(key::kEsc)}), std::nullopt) << "no hit";
  EXPECT_EQ(pick({Sign("x"), Code(key::kBack), Sign("5"), Sign("0"), Sign("0"), enter}), 500U);
  const auto page = pick({Code(key::kPageDown), Code(key::kPageDown), Code(key::kPageUp), enter});
  EXPECT_GT(page.value_or(0), 10U);
  EXPECT_LT(page.value_or(0), 40U);

  RowList none({});
  PickWindow empty("Nada", none, nullptr);
  PressSoon({Code(key::kEnd), enter});
  empty.exec();
  EXPECT_EQ(empty.Chosen(), std::nullopt);

  // A screen reader has a name for each, and the label that belongs to it.
  std::map<QWidget*, QString> labels;
  for (const auto* label : empty.findChildren<QLabel*>()) labels[label->buddy()] = label->text();
  for (QWidget* widget : {static_cast<QWidget*>(&empty.Table()), static_cast<QWidget*>(&empty.Line())}) {
    const bool is_table = widget == &empty.Table();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), is_table ? "Nada" : "Buscar");
    EXPECT_EQ(labels[widget], is_table ? "Nada" : "&Buscar:");
  }
}

// Rows that come slowly, far more than the window reads before it is shown.
TEST_F(WindowsTest, AListBeginsOnThePresentRowAndTakesTheRightOneHoweverItIsSorted) {
  struct Made : PickRows {
    bool Siguiente(std::vector<std::string>& textos) override {
      textos = {QString("%1").arg(at, 4, 10, QLatin1Char('0')).toStdString(),
                QString("%1").arg((at * 7) % 5000, 4).toStdString()};
      if (at == fails_at) throw RuntimeError(kObjectClosed);
      return at++ < 5000;
    }
    int fails_at = -1;
    int at = 0;
  };
  const std::vector<RowPlace> places = {{1, 4}, {6, 4}};
  const auto pick = [&](const std::string& present, std::vector<Key> keys, int fails_at = -1) {
    Made made;
    made.fails_at = fails_at;
    RowList rows(made, {"001", "000"}, places);
    PickView view;
    view.headings = {"Código", "Otro"};
    view.reading = {1, 0};
    view.present = {{places[0], present}};
    rows.Present(view);
    PickWindow window("Filas", rows, nullptr);
    PressSoon(std::move(keys));
    window.exec();
    return window.Chosen();
  };
  const Key enter = Code(key::kEnter);
  const auto sort = [](char column) { return Key{.code = column, .shift = key::kControl, .text = {}}; };
  EXPECT_EQ(pick("4321", {enter}), 4321U);
  EXPECT_EQ(pick("321", {Code(key::kDown), enter}), 322U);
  EXPECT_EQ(pick("9999", {enter}), 0U) << "there is none";
  EXPECT_EQ(pick("4321", {sort('1'), enter}), 4321U);
  EXPECT_EQ(pick("4321", {sort('2'), sort('2'), Code(key::kDown), enter}), 4320U);
  EXPECT_EQ(pick("4321", {sort('1'), sort('1'), Code(key::kHome), enter}), 2857U) << "the one that has 4999";
  EXPECT_EQ(pick("4321", {sort('2'), sort('2'), sort('2'), Code(key::kHome), enter}), 0U);
  for (const int row : {0, 3000}) EXPECT_THROW(pick("", {}, row), RuntimeError) << "closed by itself";
}

TEST_F(WindowsTest, HelpShowsThePageOfTheContextAndFollowsLinks) {
  HelpWindow help(20004, nullptr);
  auto* browser = help.findChild<QTextBrowser*>();
  EXPECT_EQ(browser->source().fileName(), "trabajadores.md");
  EXPECT_GT(browser->toPlainText().size(), 200);
  browser->setSource(browser->source().resolved(QUrl("teclas.md")));
  EXPECT_TRUE(browser->toPlainText().startsWith("Teclas"));
  Soon([&] { PressKey(*help.focusWidget(), Code(key::kEsc)); });
  help.exec();
  EXPECT_FALSE(help.isVisible());
}

}  // namespace
}  // namespace zendara
