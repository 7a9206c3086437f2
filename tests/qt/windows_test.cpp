// Boxes, pick lists and help.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableView>
#include <QTextBrowser>

#include "adapters/headless/script_keys.hpp"
#include "adapters/qt/help_window.hpp"
#include "adapters/qt/keys.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/pick_window.hpp"
#include "common/ayuda.hpp"
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
  const Box question{.text = "¿Seguro?", .buttons = BoxButtons::kYesNo, .icon = BoxIcon::kQuestion};
  Box second = question;
  second.default_button = 2;
  PressSoon({Code(key::kEnter)});
  EXPECT_EQ(host.Show(question), BoxAnswer::kYes);
  PressSoon({Code(key::kEsc), Code(key::kEnter)});  // Esc is no answer
  EXPECT_EQ(host.Show(second), BoxAnswer::kNo);
  PressSoon({Sign("n")});
  EXPECT_EQ(host.Show(question), BoxAnswer::kNo);
  PressSoon({Code(key::kEsc)});
  EXPECT_EQ(host.Show({.text = "Hecho"}), BoxAnswer::kOk);
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

TEST_F(WindowsTest, AListIsWalkedAndSearchedByKeys) {
  std::vector<std::string> lines;
  for (int i = 0; i < 1000; ++i) lines.push_back(std::to_string(1000 + i) + " fila");
  lines[700] = "Ñíguez";
  ListaFilas rows(lines);
  const auto pick = [&](std::vector<Key> keys) {
    PickWindow window("Filas", rows, nullptr);
    PressSoon(std::move(keys));
    window.exec();
    return window.Chosen();
  };
  EXPECT_EQ(pick({Code(key::kEnter)}), 0U);
  EXPECT_EQ(pick({Code(key::kDown), Code(key::kDown), Code(key::kUp), Code(key::kEnter)}), 1U);
  EXPECT_EQ(pick({Code(key::kEnd), Code(key::kDown), Code(key::kEnter)}), 999U);
  EXPECT_EQ(pick({Code(key::kEnd), Code(key::kHome), Code(key::kUp), Code(key::kEnter)}), 0U);
  EXPECT_EQ(pick({Sign("1"), Sign("5"), Sign("0"), Sign("1"), Code(key::kEnter)}), 501U);
  EXPECT_EQ(pick({Code(key::kEnd), Sign("ñ"), Sign("i"), Code(key::kEnter)}), 700U);  // from the top again
  EXPECT_EQ(pick({Sign("1"), Sign("x"), Sign("1"), Code(key::kEnter)}), 100U);        // "x" is nowhere: dropped
  EXPECT_EQ(pick({Code(key::kDown), Code(key::kEsc)}), std::nullopt);
  const auto page = pick({Code(key::kPageDown), Code(key::kPageDown), Code(key::kPageUp), Code(key::kEnter)});
  EXPECT_GT(page.value_or(0), 10U);
  EXPECT_LT(page.value_or(0), 40U);

  ListaFilas none({});
  PickWindow empty("Nada", none, nullptr);
  PressSoon({Code(key::kEnd), Code(key::kEnter)});
  empty.exec();
  EXPECT_EQ(empty.Chosen(), std::nullopt);
}

TEST_F(WindowsTest, HelpShowsThePageOfTheContextAndFollowsLinks) {
  for (const PaginaAyuda& page : PaginasAyuda()) {
    HelpWindow help(page.contexto, nullptr);
    const auto* browser = help.findChild<QTextBrowser*>();
    if (page.contexto != 0) {
      EXPECT_EQ(browser->source().fileName().toStdString(), page.fichero);
    }
    EXPECT_GT(browser->toPlainText().size(), 200) << page.fichero;
  }
  HelpWindow help(20004, nullptr);
  auto* browser = help.findChild<QTextBrowser*>();
  browser->setSource(browser->source().resolved(QUrl("teclas.md")));
  EXPECT_TRUE(browser->toPlainText().startsWith("Teclas"));
  Soon([&] { PressKey(*help.focusWidget(), Code(key::kEsc)); });
  help.exec();
  EXPECT_FALSE(help.isVisible());
}

}  // namespace
}  // namespace zendara
