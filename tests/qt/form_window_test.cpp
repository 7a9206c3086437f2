// Keys, mouse and input methods reach the model; the widgets show what it holds.
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableView>

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
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
    auto& edit = static_cast<QLineEdit&>(WidgetOf(window, form.Text1(1)));
    EXPECT_TRUE(edit.hasFocus());
    const auto shows = [&](const char* text, int caret) {
      EXPECT_EQ(form.Text1(1).Text(), text);
      EXPECT_EQ(edit.text().toStdString(), text);
      EXPECT_EQ(edit.cursorPosition(), caret);
    };
    Send(edit, Qt::Key_A, "a");
    Send(edit, Qt::Key_Ntilde, "ñ");
    Send(edit, Qt::Key_unknown, QString::fromUcs4(U"\U0001F600"));  // two units of the toolkit, one character
    EXPECT_EQ(form.Text1(1).SelStart(), 3);
    shows("añ\U0001F600", 4);
    Send(edit, Qt::Key_Backspace, "\b");
    Send(edit, Qt::Key_Q, "@", Qt::ControlModifier | Qt::AltModifier);  // third level of the keyboard
    Send(edit, Qt::Key_Shift);
    shows("añ@", 3);
    Send(edit, Qt::Key_Home);
    Send(edit, Qt::Key_Right, {}, Qt::ShiftModifier);
    EXPECT_EQ(edit.selectedText(), "a");
    Send(edit, Qt::Key_Delete);
    shows("ñ@", 0);
    for (const char* more : {"1", "2", "3", "4"}) Send(edit, 0, more);
    shows("123ñ@", 3);  // full
    Send(edit, Qt::Key_Insert);
    EXPECT_TRUE(host.insert_on);
  });
}

TEST_F(QtTest, DeadKeysAndInputMethodsCommitComposedText) {
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
    QWidget& edit = WidgetOf(window, form.Text1(1));
    QInputMethodEvent composing("´", {});
    QApplication::sendEvent(&edit, &composing);
    EXPECT_EQ(form.Text1(1).Text(), "");
    QInputMethodEvent commit;
    commit.setCommitString("e\u0301ü");  // an accent of its own is composed
    QApplication::sendEvent(&edit, &commit);
    EXPECT_EQ(form.Text1(1).Text(), "éü");
    EXPECT_EQ(static_cast<QLineEdit&>(edit).text(), "éü");
  });
}

TEST_F(QtTest, TheClipboardGoesThroughTheModel) {
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
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
  DemoForm form(host);
  form.Text1(2).SetText("abcdef");
  On(form, [&](FormWindow& window) {
    auto& edit = static_cast<QLineEdit&>(WidgetOf(window, form.Text1(2)));
    SendMouse(edit, QEvent::MouseButtonPress, {edit.width() - 3, 8}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(form.Focus(), &form.Text1(2));
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

TEST_F(QtTest, FocusAndPagesAreInStepBothWays) {
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
    auto& outer = static_cast<QTabWidget&>(WidgetOf(window, form.Tab1));
    auto& inner = static_cast<QTabWidget&>(WidgetOf(window, form.Tab2));
    form.SetFocus(form.Text1(5));
    window.Flush();
    EXPECT_TRUE(WidgetOf(window, form.Text1(5)).hasFocus());
    EXPECT_EQ(outer.currentIndex(), 1);
    EXPECT_EQ(inner.currentIndex(), 1);
    EXPECT_EQ(WidgetOf(window, form.Text1(5)).palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(WidgetOf(window, form.Text1(1)).palette().color(QPalette::Base), FieldColor(kGrey));

    WidgetOf(window, form.Text1(1)).setFocus();  // as a screen reader does
    QApplication::processEvents();
    EXPECT_EQ(form.Focus(), &form.Text1(1));

    ScriptHands hands([&](const Form&) { return &window; }, {});
    hands.TurnTo(form, form.Tab1, 0);
    EXPECT_EQ(form.Tab1.Tab(), 0);
    EXPECT_EQ(outer.currentIndex(), 0);

    // A field that keeps the focus keeps it in the window too, and the button is not pressed.
    form.SetFocus(form.Text1(2));
    form.on_leave = [&](int i) { form.Text1(i).SetFocus(); };
    hands.Click(form, form.Grabar);
    EXPECT_TRUE(WidgetOf(window, form.Text1(2)).hasFocus());
    EXPECT_THAT(form.log, ElementsAre());
    form.on_leave = nullptr;
  });
}

TEST_F(QtTest, ListsMarksAndGridsAskTheModel) {
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
    ScriptHands hands([&](const Form&) { return &window; }, {});
    hands.Pick(form, form.Combo1, 1);
    EXPECT_EQ(form.Combo1.Text(), "B");
    Send(WidgetOf(window, form.Combo1), Qt::Key_1, "1");
    EXPECT_EQ(form.Combo1.Text(), "10");
    hands.Click(form, form.Check1);
    EXPECT_EQ(form.Check1.Value(), 1);
    hands.Click(form, form.Option1(0));
    hands.Click(form, form.Option1(1));
    EXPECT_FALSE(static_cast<QAbstractButton&>(WidgetOf(window, form.Option1(0))).isChecked());
    EXPECT_TRUE(static_cast<QAbstractButton&>(WidgetOf(window, form.Option1(1))).isChecked());
    form.Tab1.SetTab(1);
    hands.PointTo(form, form.Grid1, 2, 2);
    EXPECT_EQ(form.Focus(), &form.Grid1);
    const QModelIndex current = static_cast<QTableView&>(WidgetOf(window, form.Grid1)).currentIndex();
    EXPECT_EQ(std::pair(current.row(), current.column()), std::pair(2, 2));
    form.Grid1.SetText("x");
    window.Flush();
    EXPECT_EQ(current.data().toString(), "x");
  });
}

TEST_F(QtTest, AccessKeysAreTheModels) {
  DemoForm form(host);
  form.on_leave = [&](int) { form.log.push_back("left"); };
  On(form, [&](FormWindow& window) {
    Send(WidgetOf(window, form.Text1(1)), Qt::Key_G, "g", Qt::AltModifier);
    EXPECT_THAT(form.log, ElementsAre("left", "grabar"));
    EXPECT_TRUE(WidgetOf(window, form.Grabar).hasFocus());
    EXPECT_TRUE(static_cast<QAbstractButton&>(WidgetOf(window, form.Grabar)).shortcut().isEmpty());
  });
}

TEST_F(QtTest, AFormOpensAnotherAndGetsTheKeyboardBack) {
  DemoForm outer(host);
  DemoForm inner(host);
  outer.on_click = [&] {
    Soon([&] {
      QApplication::processEvents();
      EXPECT_TRUE(host.WindowOf(inner)->isActiveWindow());
      Send(WidgetOf(*host.WindowOf(inner), inner.Text1(1)), Qt::Key_7, "7");
      inner.Unload();
    });
    inner.Show();
    outer.Text1(2).SetFocus();
  };
  On(outer, [&](FormWindow& window) {
    ScriptHands hands([&](const Form&) { return &window; }, {});
    hands.Click(outer, outer.Grabar);
    EXPECT_EQ(inner.Text1(1).Text(), "7");
    EXPECT_EQ(host.WindowOf(inner), nullptr);
    QApplication::processEvents();
    EXPECT_TRUE(window.isActiveWindow());
    EXPECT_TRUE(WidgetOf(window, outer.Text1(2)).hasFocus());
  });
}

TEST_F(QtTest, ClosingTheWindowAsksTheForm) {
  struct Stubborn : DemoForm {
    using DemoForm::DemoForm;
    void OnClose() override { log.emplace_back("close"); }
  } form(host);
  On(form, [&](FormWindow& window) {
    window.close();
    EXPECT_TRUE(form.Loaded());
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(form.log, ElementsAre("close"));
  });
}

TEST_F(QtTest, TheHourglassTakesNoInputAway) {
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
    form.SetPointer(MousePointer::kHourglass);
    window.Flush();
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
    Send(WidgetOf(window, form.Text1(1)), Qt::Key_7, "7");
    EXPECT_EQ(form.Text1(1).Text(), "7");
    form.SetPointer(MousePointer::kDefault);
    window.Flush();
    EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
  });
}

TEST_F(QtTest, EverythingScalesWithTheText) {
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
    QWidget& edit = WidgetOf(window, form.Text1(1));
    QWidget& picture = WidgetOf(window, form.Picture25);
    const auto sizes = [&] {
      form.Tab1.SetTab(1);
      window.Flush();
      QApplication::processEvents();
      return std::vector{edit.width(),
                         edit.height(),
                         picture.width(),
                         WidgetOf(window, form.Grid1).width(),
                         WidgetOf(window, form.Grid1).height(),
                         WidgetOf(window, form.Grabar).height(),
                         WidgetOf(window, form.Image1(1)).width()};
    };
    const auto normal = sizes();
    Send(edit, Qt::Key_Plus, "+", Qt::ControlModifier);
    EXPECT_EQ(zoom::Percent(), 110);
    zoom::Set(200);
    const auto large = sizes();
    for (std::size_t i = 0; i < normal.size(); ++i) {
      EXPECT_GT(large[i], normal[i] * 3 / 2) << i;
      EXPECT_LT(large[i], normal[i] * 5 / 2) << i;
    }
    Send(edit, Qt::Key_Minus, "-", Qt::ControlModifier);
    EXPECT_EQ(zoom::Percent(), 175);
    Send(edit, Qt::Key_0, "0", Qt::ControlModifier);
    EXPECT_EQ(sizes(), normal);
    EXPECT_EQ(form.Text1(1).Text(), "");
  });
}

TEST_F(QtTest, FieldsTellTheirNamesAndHints) {
  DemoForm form(host);
  On(form, [&](FormWindow& window) {
    EXPECT_EQ(WidgetOf(window, form.Text1(3)).accessibleName(), "Campo 3");
    EXPECT_EQ(WidgetOf(window, form.Combo1).accessibleName(), "Lista");
    EXPECT_EQ(WidgetOf(window, form.Image1(1)).accessibleName(), "Lista de Campo 1");
    EXPECT_EQ(WidgetOf(window, form.Grabar).toolTip(), "Graba los datos");
    // A hidden field takes its words along.
    form.Text1(1).SetVisible(false);
    window.Flush();
    bool label_shown = false;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      label_shown = label_shown || (label->text() == "Campo 1:" && label->isVisible());
    }
    EXPECT_FALSE(label_shown);
  });
}

}  // namespace
}  // namespace zendara
