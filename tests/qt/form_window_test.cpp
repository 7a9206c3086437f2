// Keys, mouse and input methods reach the model; the widgets show what it holds.
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QToolTip>

#include "adapters/qt/drafts_window.hpp"
#include "adapters/qt/message_box.hpp"
#include "qt/demo_form.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

void Send(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(&widget, &press);
}

void SendMouse(QWidget& widget, QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held) {
  QMouseEvent event(type, place, widget.mapToGlobal(place), button, held, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

TEST_F(QtTest, KeysReachTheModelAndItsTextIsShown) {
  Play([&](FormWindow& window) {
    auto& edit = static_cast<QLineEdit&>(WidgetOf(window, form.Text1(1)));
    Send(edit, Qt::Key_Ntilde, "ñ");
    Send(edit, Qt::Key_unknown, QString::fromUcs4(U"\U0001F600"));      // two units of the toolkit, one character
    Send(edit, Qt::Key_Q, "@", Qt::ControlModifier | Qt::AltModifier);  // third level of the keyboard
    Send(edit, Qt::Key_Shift);
    Send(edit, Qt::Key_Left);
    EXPECT_EQ(form.Text1(1).Text(), "ñ\U0001F600@");
    EXPECT_EQ(edit.text().toStdString(), form.Text1(1).Text());
    EXPECT_EQ(edit.cursorPosition(), 3);
    Send(edit, Qt::Key_End, {}, Qt::ShiftModifier);
    EXPECT_EQ(edit.selectedText(), "@");

    // Dead keys and input methods.
    form.Text1(1).SetText("");
    QInputMethodEvent composing("´", {});
    QApplication::sendEvent(&edit, &composing);
    EXPECT_EQ(form.Text1(1).Text(), "");
    QInputMethodEvent commit;
    commit.setCommitString("e\u0301ü");  // an accent of its own is composed
    QApplication::sendEvent(&edit, &commit);
    EXPECT_EQ(form.Text1(1).Text(), "éü");
  });
}

TEST_F(QtTest, TheClipboardGoesThroughTheModel) {
  Play([&](FormWindow& window) {
    QWidget& edit = WidgetOf(window, form.Text1(1));
    QApplication::clipboard()->setText("12\n345678");
    Send(edit, Qt::Key_V, "\x16", Qt::ControlModifier);
    EXPECT_EQ(form.Text1(1).Text(), "12345");
    Send(edit, Qt::Key_A, "\x01", Qt::ControlModifier);
    Send(edit, Qt::Key_X, "\x18", Qt::ControlModifier);
    EXPECT_EQ(form.Text1(1).Text(), "");
    EXPECT_EQ(QApplication::clipboard()->text(), "12345");
  });
}

// What stands in the menu and can be chosen, by its words.
std::map<std::string, QAction*> MenuOf(QWidget& edit) {
  std::map<std::string, QAction*> actions;
  const auto menus = edit.findChildren<QMenu*>();
  for (QAction* action : menus.empty() ? QList<QAction*>() : menus.last()->actions()) {
    if (action->isEnabled() && !action->isSeparator())
      actions[action->text().remove('&').section('\t', 0, 0).toStdString()] = action;
  }
  return actions;
}

std::vector<std::string> WordsOf(const std::map<std::string, QAction*>& actions) {
  std::vector<std::string> words;
  for (const auto& [text, action] : actions) words.push_back(text);
  return words;
}

TEST_F(QtTest, TheMenuOfAFieldWorksThroughTheModel) {
  Play([&](FormWindow& window) {
    QWidget& edit = WidgetOf(window, form.Text1(2));
    const auto open = [&] {
      for (QMenu* menu : edit.findChildren<QMenu*>()) delete menu;
      QContextMenuEvent right(QContextMenuEvent::Mouse, {5, 5}, edit.mapToGlobal(QPoint(5, 5)));
      QApplication::sendEvent(&edit, &right);
      return MenuOf(edit);
    };
    const auto choose = [&](const char* words) {
      const auto menu = open();
      ASSERT_TRUE(menu.contains(words)) << words;
      menu.at(words)->trigger();
    };
    QApplication::clipboard()->clear();
    EXPECT_THAT(WordsOf(open()), ElementsAre("Borradores..."));
    EXPECT_EQ(form.Focus(), &form.Text1(2)) << "a right click enters the field";
    Send(edit, Qt::Key_A, "a");
    EXPECT_THAT(WordsOf(open()), ElementsAre("Borradores...", "Deshacer", "Seleccionar todo"));
    choose("Seleccionar todo");
    choose("Copiar");
    choose("Eliminar");
    EXPECT_EQ(form.Text1(2).Text(), "");
    for (int i = 0; i < 2; ++i) choose("Pegar");
    EXPECT_EQ(form.Text1(2).Text(), "aa");
    choose("Deshacer");
    choose("Seleccionar todo");
    choose("Cortar");
    EXPECT_EQ(form.Text1(2).Text(), "");
    choose("Deshacer");
    EXPECT_EQ(form.Text1(2).Text(), "a");
    choose("Rehacer");
    EXPECT_EQ(form.Text1(2).Text(), "");

    for (QMenu* menu : edit.findChildren<QMenu*>()) delete menu;
    Send(edit, Qt::Key_Menu);
    EXPECT_FALSE(MenuOf(edit).empty());
    for (QMenu* menu : edit.findChildren<QMenu*>()) delete menu;
    Send(edit, Qt::Key_F10, {}, Qt::ShiftModifier);
    EXPECT_FALSE(MenuOf(edit).empty());
    form.Text1(2).SetLocked(true);
    form.Text1(2).SetText("x");
    EXPECT_THAT(WordsOf(open()), ElementsAre("Borradores...", "Seleccionar todo"));
    // A field that keeps the focus keeps its own menu away from the others.
    form.Text1(2).SetLocked(false);
    form.Text1.On().lost_focus = [&](int i) { form.Text1(i).SetFocus(); };
    QWidget& other = WidgetOf(window, form.Text1(1));
    QContextMenuEvent right(QContextMenuEvent::Mouse, {5, 5}, other.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&other, &right);
    EXPECT_TRUE(MenuOf(other).empty());
  });
}

TEST_F(QtTest, WhatIsNotSavedHasAMarkInTheTitleAndInTheLineBelow) {
  form.SetTitle("Demo");
  Play([&](FormWindow& window) {
    const auto* mark = window.findChild<QLabel*>("unsaved");
    const auto seen = [&] {
      return std::vector{window.windowTitle().toStdString(), window.accessibleName().toStdString(),
                         mark->text().toStdString(), mark->accessibleName().toStdString()};
    };
    const std::vector<std::string> saved = {"Demo", "Demo", "", ""};
    EXPECT_EQ(seen(), saved);
    form.SetFocus(form.Text1(2));
    Send(WidgetOf(window, form.Text1(2)), Qt::Key_A, "a");
    EXPECT_THAT(seen(), ElementsAre("• Demo", "Demo (sin grabar)", "• Sin grabar", "Sin grabar"));
    window.Pass([&] { form.Run([&] { form.Saved(); }); });
    EXPECT_EQ(seen(), saved);
  });
}

TEST_F(QtTest, TheListOfDraftsRestoresAndRemoves) {
  Play([&](FormWindow& window) {
    QWidget& edit = WidgetOf(window, form.Text1(2));
    for (const char* typed : {"a", "b"}) {
      form.SetFocus(form.Text1(2));
      Send(edit, Qt::Key_A, typed);
      form.Run([&] {
        form.Settle(form.Text1(2));
        form.Text1(2).SetText("");
      });
    }
    const auto in_list = [&](const std::function<void(DraftsWindow&, QWidget & table)>& act) {
      Soon([&, act] {
        auto* list = dynamic_cast<DraftsWindow*>(QApplication::activeModalWidget());
        ASSERT_TRUE(list);
        act(*list, list->Table());
      });
      Send(edit, Qt::Key_Z, "\x1a", Qt::ControlModifier | Qt::ShiftModifier);
    };
    const auto answer = [&](BoxAnswer given) {
      Soon([given] { dynamic_cast<MessageBox&>(*QApplication::activeModalWidget()).Give(given); });
    };
    drafts.Leave(drafts.Keep({}, {.scope = "2",
                                  .place = "00002 Talleres Sur",
                                  .screen = "Otra",
                                  .screen_title = "Incidencias",
                                  .key = {},
                                  .title = "00014",
                                  .focus = {},
                                  .values = {{"Text1(2)", "c"}},
                                  .note = {}}));
    const auto hint = [](DraftsWindow& list) { return list.findChild<QLabel*>()->text().toStdString(); };
    in_list([&](DraftsWindow& list, QWidget& table) {
      EXPECT_EQ(list.Table().rowCount(), 3);
      list.Table().setCurrentCell(2, 0);
      EXPECT_THAT(hint(list), StartsWith("Se recupera en la pantalla Incidencias de 00002 Talleres Sur. Supr"));
      EXPECT_EQ(list.Table().item(2, 4)->text(), "c") << "its field is not of this screen";
      Send(table, Qt::Key_Return, "\r");
      EXPECT_TRUE(list.isVisible()) << "it is not restored here";
      answer(BoxAnswer::kYes);
      Send(table, Qt::Key_Delete);
      EXPECT_THAT(hint(list), StartsWith("Intro recupera"));
      list.Table().setCurrentCell(0, 0);
      EXPECT_EQ(list.Table().item(0, 4)->text(), "Campo 2: b") << "the last one first";
      answer(BoxAnswer::kNo);
      Send(table, Qt::Key_Delete);
      EXPECT_EQ(list.Table().rowCount(), 2);
      answer(BoxAnswer::kYes);
      Send(table, Qt::Key_Delete);
      EXPECT_EQ(list.Table().rowCount(), 1);
      Send(table, Qt::Key_Escape);
    });
    EXPECT_EQ(form.Text1(2).Text(), "");
    in_list([&](DraftsWindow&, QWidget& table) { Send(table, Qt::Key_Return, "\r"); });
    EXPECT_EQ(form.Text1(2).Text(), "a");
    EXPECT_TRUE(form.Unsaved());
    in_list([&](DraftsWindow& list, QWidget& table) {
      EXPECT_EQ(list.Table().rowCount(), 0) << "it is worked on";
      Send(table, Qt::Key_Return, "\r");
      Send(table, Qt::Key_Delete);
      Send(table, Qt::Key_Escape);
    });
  });
}

TEST_F(QtTest, TheMouseMovesFocusAndSelectionThroughTheModel) {
  form.Text1(2).SetText("abcdef");
  Play([&](FormWindow& window) {
    auto& edit = static_cast<QLineEdit&>(WidgetOf(window, form.Text1(2)));
    SendMouse(edit, QEvent::MouseButtonPress, {edit.width() - 3, 8}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(form.Text1(2).SelStart(), 6);
    SendMouse(edit, QEvent::MouseMove, {2, 8}, Qt::NoButton, Qt::LeftButton);
    SendMouse(edit, QEvent::MouseButtonRelease, {2, 8}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(form.Text1(2).SelLength(), 6);
    EXPECT_EQ(edit.selectedText(), "abcdef");

    QWidget& image = WidgetOf(window, form.Image1(1));
    ClickWidget(image, image.rect().center());
    SendMouse(image, QEvent::MouseMove, {3, 3}, Qt::NoButton, Qt::RightButton);
    SendMouse(image, QEvent::MouseButtonPress, {3, 3}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(image, QEvent::MouseButtonRelease, {3, 3}, Qt::LeftButton, Qt::NoButton);
    EXPECT_THAT(form.log, ElementsAre("image 1", "image 0"));
    EXPECT_EQ(form.Focus(), &form.Text1(2));  // an image never takes it
  });
}

TEST_F(QtTest, WhatTheModelHoldsIsShown) {
  Play([&](FormWindow& window) {
    form.SetFocus(form.Text1(5));
    form.Combo1.SetListIndex(1);
    form.Option1(1).SetValue(true);
    form.Grid1.SetCurrent(2, 2);
    form.Grid1.SetText("x");
    form.SetStatus("Grabado");
    form.SetPointer(MousePointer::kHourglass);
    window.Flush();
    EXPECT_EQ(window.findChild<QLabel*>("status")->text(), "Grabado");
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
    for (const Tabs* tabs : {&form.Tab1, &form.Tab2}) {
      EXPECT_EQ(static_cast<QTabWidget&>(WidgetOf(window, *tabs)).currentIndex(), 1);
    }
    EXPECT_TRUE(static_cast<QAbstractButton&>(WidgetOf(window, form.Option1(1))).isChecked());
    const QModelIndex current = static_cast<QTableView&>(WidgetOf(window, form.Grid1)).currentIndex();
    EXPECT_EQ(std::tuple(current.row(), current.column(), current.data().toString()), std::tuple(2, 2, "x"));

    WidgetOf(window, form.Text1(1)).setFocus();  // as a screen reader does
    QApplication::processEvents();
    EXPECT_EQ(form.Focus(), &form.Text1(1));
  });
}

TEST_F(QtTest, AFormOpensAnotherAndGetsTheKeyboardBack) {
  DemoForm inner(host);
  form.on_click = [&] {
    Soon([&] {
      QApplication::processEvents();
      EXPECT_TRUE(host.WindowOf(inner)->isActiveWindow());
      Send(WidgetOf(*host.WindowOf(inner), inner.Text1(1)), Qt::Key_7, "7");
      inner.Unload();
    });
    inner.Show();
    form.Text1(2).SetFocus();
  };
  Play([&](FormWindow& window) {
    hands.Click(form, form.Grabar);
    EXPECT_EQ(inner.Text1(1).Text(), "7");
    QApplication::processEvents();
    EXPECT_TRUE(window.isActiveWindow());
    EXPECT_TRUE(WidgetOf(window, form.Text1(2)).hasFocus());
  });
}

TEST_F(QtTest, APainterThatFailsLeavesItsPictureEmptyAndIsNotAskedAgain) {
  int painted = 0;
  form.Picture25.SetPainter([&](const Screen&, DrawingSurface&) {
    ++painted;
    throw std::runtime_error("of the host");
  });
  Play([&](FormWindow& window) {
    for (int i = 0; i < 2; ++i) {
      form.Picture25.SetVisible(true);  // changed, so drawn anew
      window.grab();
    }
    EXPECT_EQ(painted, 1);
  });
}

TEST_F(QtTest, EverythingScalesWithTheText) {
  Play([&](FormWindow& window) {
    QWidget& edit = WidgetOf(window, form.Text1(1));
    const auto sizes = [&] {
      form.Tab1.SetTab(1);
      window.Flush();
      QApplication::processEvents();
      const QSize grid = WidgetOf(window, form.Grid1).size();
      return std::vector{edit.width(),
                         edit.height(),
                         grid.width(),
                         grid.height(),
                         WidgetOf(window, form.Picture25).width(),
                         WidgetOf(window, form.Image1(1)).height(),
                         WidgetOf(window, form.Grabar).height()};
    };
    const auto normal = sizes();
    Send(edit, Qt::Key_Plus, "+", Qt::ControlModifier);
    EXPECT_EQ(zoom::Percent(), 110);
    zoom::Set(200);
    const auto large = sizes();
    for (std::size_t i = 0; i < normal.size(); ++i) EXPECT_NEAR(large[i], normal[i] * 2, normal[i] / 2) << i;
    Send(edit, Qt::Key_Minus, "-", Qt::ControlModifier);
    EXPECT_EQ(zoom::Percent(), 175);
    Send(edit, Qt::Key_0, "0", Qt::ControlModifier);
    EXPECT_EQ(sizes(), normal);
  });
}

TEST_F(QtTest, FieldsHaveNamesAndHints) {
  Play([&](FormWindow& window) {
    EXPECT_EQ(WidgetOf(window, form.Text1(3)).accessibleName(), "Campo 3, Datos");
    EXPECT_EQ(WidgetOf(window, form.Combo1).accessibleName(), "Lista, Datos");
    EXPECT_EQ(WidgetOf(window, form.Image1(1)).accessibleName(), "Lista de Campo 1");
    EXPECT_EQ(WidgetOf(window, form.Grabar).toolTip(), "Graba los datos");
    // Access keys are the model's.
    EXPECT_TRUE(static_cast<QAbstractButton&>(WidgetOf(window, form.Grabar)).shortcut().isEmpty());
    // A disabled button has its hint too.
    form.Grabar.SetEnabled(false);
    // A hidden field takes its words along.
    form.Text1(1).SetVisible(false);
    window.Flush();
    EXPECT_TRUE(std::ranges::none_of(window.findChildren<QLabel*>(), [](const QLabel* label) {
      return label->text() == "Campo 1:" && label->isVisible();
    }));
    QHelpEvent over(QEvent::ToolTip, {}, {});
    QApplication::sendEvent(&WidgetOf(window, form.Grabar), &over);
    EXPECT_EQ(QToolTip::text(), "Graba los datos");
  });
}

}  // namespace
}  // namespace zendara
