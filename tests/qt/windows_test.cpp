// Boxes, pick lists and help.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>

#include "adapters/qt/keys.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/pick_window.hpp"
#include "adapters/script/script_keys.hpp"
#include "qt/demo_form.hpp"

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
    const QWidget* box = QApplication::activeModalWidget();
    EXPECT_EQ(box->windowTitle(), "Zendara");
    const auto* text = box->findChild<QLabel*>("text");
    EXPECT_EQ(std::pair(text->text(), text->textFormat()), std::pair(QString("<b>1</b>\ndos"), Qt::PlainText));
    auto* button = box->findChild<QPushButton*>();
    EXPECT_EQ(button->text(), "&Aceptar");
    button->click();
  });
  host.Show({.text = "<b>1</b>\ndos"});
}

TEST_F(WindowsTest, ABoxSaysTheFieldThatTheUserIsInAndMarksIt) {
  struct Case {
    Control& focus;
    QString about;
  };
  const Case cases[] = {{form.Text1(1), "Campo: «Campo 1»"},
                        {form.Text1(3), "Campo: «Campo 3», en Uno, Datos"},
                        {form.Grid1, "Campo: «fila 1, Enero», en Dos, Dentro"},
                        {form.Grabar, ""}};
  Play([&](FormWindow& window) {
    for (const Case& c : cases) {
      form.SetFocus(c.focus);
      QWidget& field = WidgetOf(window, c.focus);
      Soon([&] {
        QWidget* box = QApplication::activeModalWidget();
        const auto* about = box->findChild<QLabel*>("about");
        EXPECT_EQ(about ? about->text() : QString(), c.about);
        EXPECT_EQ(field.property(kMarked).toBool(), !c.about.isEmpty());
        // The mark is to be seen, and the title too.
        EXPECT_FALSE(box->frameGeometry().intersects(QRect(field.mapToGlobal(QPoint()), field.size())));
        EXPECT_GT(box->width(), box->fontMetrics().horizontalAdvance(box->windowTitle()));
        box->close();
      });
      host.Show({.text = "No", .title = "Un título que es mucho más ancho que las palabras de la caja"});
      EXPECT_FALSE(field.property(kMarked).toBool());
    }
  });
}

TEST_F(WindowsTest, NoWindowStaysBehindThatAnswersNothing) {
  Play([&](FormWindow& window) {
    Soon([&] {
      QWidget* box = QApplication::activeModalWidget();
      const auto minimised = [&] {
        QApplication::processEvents();
        return std::pair(window.isMinimized(), box->isMinimized());
      };
      for (QWidget* brought_back : {static_cast<QWidget*>(&window), box}) {
        box->showMinimized();
        EXPECT_EQ(minimised(), std::pair(true, true));
        brought_back->showNormal();
        EXPECT_EQ(minimised(), std::pair(false, false));
        EXPECT_TRUE(box->isActiveWindow());
      }
      window.showMinimized();
      EXPECT_EQ(minimised(), std::pair(true, false));  // the box answers
      box->close();
    });
    host.Show({.text = "No"});
    QApplication::processEvents();
    EXPECT_EQ(std::pair(window.isMinimized(), window.isActiveWindow()), std::pair(false, true));
  });
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
  lines[700] = "Ñíguez";
  RowList rows(lines);
  const auto pick = [&](std::vector<Key> keys) {
    PickWindow window("Filas", rows, nullptr);
    PressSoon(std::move(keys));
    window.exec();
    return window.Chosen();
  };
  EXPECT_EQ(pick({Code(key::kEnd), Code(key::kDown), Code(key::kUp), Code(key::kEnter)}), 998U);
  EXPECT_EQ(pick({Code(key::kEnd), Code(key::kHome), Code(key::kUp), Code(key::kEnter)}), 0U);
  EXPECT_EQ(pick({Code(key::kEnd), Sign("ñ"), Sign("i"), Code(key::kEnter)}), 700U);       // from the top again
  EXPECT_EQ(pick({Sign("1"), Sign("x"), Sign("5"), Sign("0"), Code(key::kEnter)}), 500U);  // "x" is nowhere: dropped
  const auto page = pick({Code(key::kPageDown), Code(key::kPageDown), Code(key::kPageUp), Code(key::kEnter)});
  EXPECT_GT(page.value_or(0), 10U);
  EXPECT_LT(page.value_or(0), 40U);

  RowList none({});
  PickWindow empty("Nada", none, nullptr);
  PressSoon({Code(key::kEnd), Code(key::kEnter)});
  empty.exec();
  EXPECT_EQ(empty.Chosen(), std::nullopt);
}

}  // namespace
}  // namespace zendara
