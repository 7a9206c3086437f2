// What a layout says besides places: headings, tables, rows to choose from, amounts at rest, what scrolls.
#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QTreeWidget>

#include "platform/form/screen_parts.hpp"
#include "qt/demo_form.hpp"

namespace zendara {
namespace {

struct PartsForm : Form {
  explicit PartsForm(QtHost& host) : Form(host, host, "Partes") {
    SetTitle("Partes");
    for (int i = 1; i <= 24; ++i) {
      TextBox& box = Text1.Add(i);
      box.SetCaption(i == 2 ? "Un rótulo que es más largo:" : "Campo " + std::to_string(i) + ":");
      box.SetMaxLength(10);
    }
    Text1(1).SetRequired(true);
    Text1(2).SetGrouped(true);
    Fila.SetCaption("Primer contrato");
    Arriba.SetCaption("Arriba");
    Abajo.SetCaption("Abajo");
    Lista.Resize(4, 2, 1, 0);
    for (int row = 1; row < 4; ++row) Lista.SetCell(row, 0, "00" + std::to_string(row));
    Lista.Mark(3);
    Lista.On().click = [this](int) { chosen.push_back(Lista.Row()); };
    Grabar.SetCaption("&Grabar");
    Tab1.SetTitles({"Una"});
    std::vector<Layout> many;
    for (int i = 6; i <= 24; ++i) many.push_back(Place(Text1(i)));
    many.push_back(Place(Lista));
    SetLayout(Column(
        {Heading(),
         Pages(Tab1, {Scrolled(Column({Framed(Arriba, {Place(Text1(1))}), Framed(Abajo, {Place(Text1(2))}),
                                       Table({"Tipo"}, {Framed(Fila, {Place(Text1(3))})}), Column(std::move(many))}))}),
         Flow({MainButton(Grabar), Space(), Place(Text1(4)), Place(Text1(5))})}));
  }
  std::string Subject() const override { return subject; }

  ControlArray<TextBox> Text1{*this, "Text1"};
  Frame Arriba{*this, "Arriba"}, Abajo{*this, "Abajo"}, Fila{*this, "Fila"};
  RowPicker Lista{*this, "Lista"};
  Tabs Tab1{*this, "Tab1"};
  Button Grabar{*this, "Grabar"};
  std::string subject;
  std::vector<int> chosen;
};

class PartsTest : public QtTest {
 protected:
  void Play(const std::function<void(FormWindow& window)>& play) {
    Soon([this, &play] {
      QApplication::processEvents();
      play(*host.WindowOf(parts));
      parts.Unload();
    });
    parts.Show();
  }
  static QLineEdit& Edit(FormWindow& window, const TextBox& box) {
    return static_cast<QLineEdit&>(WidgetOf(window, box));
  }
  // From the left of the window.
  static int LeftOf(FormWindow& window, const Control& control) {
    return WidgetOf(window, control).mapTo(&window, QPoint(0, 0)).x();
  }

  PartsForm parts{host};
};

TEST_F(PartsTest, TheHeadingSaysWhoIsOnTheScreen) {
  Play([&](FormWindow& window) {
    const auto* heading = window.findChild<QLabel*>("heading");
    EXPECT_EQ(heading->text(), "Partes");
    parts.subject = "00900 Peña Güell, Begoña";
    window.Flush();
    EXPECT_EQ(heading->text(), "00900 Peña Güell, Begoña");
    EXPECT_EQ(window.windowTitle(), "00900 Peña Güell, Begoña – Partes");
  });
}

TEST_F(PartsTest, AnAmountAtRestShowsItsThousandsApart) {
  Play([&](FormWindow& window) {
    TextBox& amount = parts.Text1(2);
    QLineEdit& edit = Edit(window, amount);
    const auto shown = [&] {
      window.Flush();
      return edit.text();
    };
    amount.SetText("2500000,5");
    EXPECT_EQ(shown(), "2.500.000,5");
    // A click in it is a place in the text that is edited.
    edit.resize(400, edit.height());
    ClickWidget(edit, {edit.fontMetrics().horizontalAdvance("2.500.") + 6, edit.height() / 2});
    EXPECT_EQ(shown(), "2500000,5");
    EXPECT_EQ(amount.SelStart(), 4);
    amount.SetText("2,500000");
    parts.SetFocus(parts.Text1(1));
    EXPECT_EQ(shown(), "2,500000");
    amount.SetText("1000");
    EXPECT_EQ(shown(), "1.000");
    EXPECT_EQ(amount.Text(), "1000");
  });
}

TEST_F(PartsTest, RowsAreChosenByADoubleClickOrByEnter) {
  Play([&](FormWindow& window) {
    auto& list = static_cast<QTreeWidget&>(WidgetOf(window, parts.Lista));
    const auto bold = [&](int row) { return list.topLevelItem(row)->font(0).bold(); };
    EXPECT_EQ(std::tuple(bold(0), bold(1), bold(2)), std::tuple(false, false, true));
    parts.SetFocus(parts.Lista);
    window.Flush();
    window.ViewOf(parts.Lista)->ClickOn(1, 0);
    EXPECT_EQ(parts.Lista.Row(), 1);
    EXPECT_TRUE(parts.chosen.empty());
    QMouseEvent twice(QEvent::MouseButtonDblClick, list.visualItemRect(list.topLevelItem(1)).center(), QPointF(),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &twice);
    PressKey(list, {.code = key::kPageUp, .shift = 0, .text = {}});
    PressKey(list, {.code = key::kEnter, .shift = 0, .text = {}});
    EXPECT_EQ(parts.chosen, (std::vector{2, 1}));
    parts.Lista.Mark(1);
    window.Flush();
    EXPECT_TRUE(bold(0) && !bold(2));
  });
}

TEST_F(PartsTest, LabelsOfAPageAreAlignedAndSayWhatIsRequired) {
  Play([&](FormWindow& window) {
    EXPECT_EQ(LeftOf(window, parts.Text1(1)), LeftOf(window, parts.Text1(2)));
    EXPECT_EQ(Edit(window, parts.Text1(1)).accessibleDescription(), "Obligatorio");
    EXPECT_EQ(Edit(window, parts.Text1(2)).accessibleDescription(), "");
    EXPECT_EQ(Edit(window, parts.Text1(3)).accessibleName(), "Campo 3, Primer contrato");
  });
}

TEST_F(PartsTest, HeaderAndButtonsStayInViewWhereThePageScrolls) {
  Play([&](FormWindow& window) {
    zoom::Set(zoom::kMost);
    QApplication::processEvents();
    window.resize(window.screen()->availableGeometry().size());
    QApplication::processEvents();
    parts.SetFocus(parts.Text1(24));
    window.Flush();
    const auto inside = [&](QWidget& widget) {
      return window.rect().contains(QRect(widget.mapTo(&window, QPoint(0, 0)), widget.size()));
    };
    EXPECT_TRUE(inside(*window.findChild<QLabel*>("heading")));
    EXPECT_TRUE(inside(WidgetOf(window, parts.Grabar)));
    EXPECT_TRUE(inside(WidgetOf(window, parts.Text1(5))));
    EXPECT_TRUE(inside(WidgetOf(window, parts.Text1(24)))) << "brought up by the focus";
    EXPECT_FALSE(WidgetOf(window, parts.Text1(1)).visibleRegion().contains(QPoint(5, 5))) << "scrolled away";
  });
}

TEST_F(PartsTest, TheStatusSaysSinceWhen) {
  Play([&](FormWindow& window) {
    const auto* time = window.findChild<QLabel*>("time");
    EXPECT_EQ(time->text(), "");
    parts.SetStatus("Grabado: 00900");
    window.Flush();
    EXPECT_TRUE(QRegularExpression("^\\d\\d:\\d\\d$").match(time->text()).hasMatch());
    EXPECT_TRUE(window.findChild<QLabel*>("insert")->visibleRegion().contains(QPoint(2, 2)));
    parts.SetStatus("");
    window.Flush();
    EXPECT_EQ(time->text(), "");
  });
}

TEST_F(PartsTest, APictureBesideGivesWayToTheFieldsAndKeepsItsWords) {
  struct BesideForm : Form {
    explicit BesideForm(QtHost& host) : Form(host, host, "Al lado") {
      Campo.SetMaxLength(30);
      Dibujo.SetCaption("Dibujo");
      SetLayout(Column({Beside(Scrolled(Column({Place(Campo)})), Dibujo, 4500, 4500), Flow({Place(Salir)})}));
    }
    TextBox Campo{*this, "Campo"};
    Picture Dibujo{*this, "Dibujo"};
    Button Salir{*this, "Salir"};
  } beside(host);
  Soon([&] {
    QApplication::processEvents();
    FormWindow& window = *host.WindowOf(beside);
    const QWidget& picture = WidgetOf(window, beside.Dibujo);
    const QWidget& field = WidgetOf(window, beside.Campo);
    const auto size_in = [&](int width, int height) {
      window.resize(width, height);
      QApplication::processEvents();
      EXPECT_LE(field.mapTo(&window, QPoint(field.width(), 0)).x(), width);
      return picture.size();
    };
    EXPECT_EQ(picture.width(), 300);
    EXPECT_GE(picture.height(), 225) << "as the window opens";
    const int small = size_in(field.width() + 280, 400).width();
    EXPECT_TRUE(small >= 225 && small < 300) << small;
    EXPECT_TRUE(size_in(field.width() + 200, 400).isEmpty());
    EXPECT_TRUE(size_in(900, 240).isEmpty());
    beside.Dibujo.SetDescription("Nada.");
    window.Flush();
    EXPECT_EQ(picture.accessibleName(), "Dibujo");
    EXPECT_EQ(picture.accessibleDescription(), "Nada.");
    EXPECT_EQ(size_in(900, 400).width(), 300);
    beside.Unload();
  });
  beside.Show();
}

}  // namespace
}  // namespace zendara
