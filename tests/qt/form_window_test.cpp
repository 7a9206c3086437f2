// Keys, mouse and input methods reach the model; the widgets show what it holds.
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableView>
#include <QToolTip>

#include "qt/demo_form.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;

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
