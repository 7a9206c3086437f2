// The worker screen in its window: what a screen reader is told, and its place on a screen of 1366 by 768.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <memory>
#include <set>

#include "adapters/hosting/company_host.hpp"
#include "adapters/qt/form_window.hpp"
#include "adapters/qt/names.hpp"
#include "adapters/qt/text.hpp"
#include "apps/demo/demo_company.hpp"
#include "component/componente.hpp"
#include "qt/demo_form.hpp"
#include "runtime/format.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"

namespace zendara {
namespace {

class WorkerScreenTest : public QtTest {
 protected:
  // Opens the screen, plays on it, and closes it.
  void OnScreen(const std::function<void(FormWindow& window, Form& screen)>& play) {
    const TempFolder folder;
    WriteDemoCompany(*engine, {.folder = folder.path().string(), .workers = kDemoCases + 2});
    Platform platform{.engine = engine.get(),
                      .dialogs = &host,
                      .files = files.get(),
                      .application_folder = folder.path().string(),
                      .forms = &host,
                      .shell = &host};
    host.OfferNeighbours(platform.components);
    CompanyHost company(platform);
    SessionValues values;
    values.company = "00001";
    values.year = "01";
    company.Open(values);
    Soon([&] {
      QApplication::processEvents();
      FormWindow& window = *host.Top();
      play(window, window.Shown());
      window.Shown().Unload();
    });
    company.Show("Trabajadores");
  }

  // Each page in turn, those in pages too.
  static void OnEachPage(FormWindow& window, Form& screen, const std::function<void()>& look) {
    auto& outer = dynamic_cast<Tabs&>(*screen.Find("Tab1"));
    auto& inner = dynamic_cast<Tabs&>(*screen.Find("Tab2"));
    for (int page = 0; page < outer.PageCount(); ++page) {
      outer.SetTab(page);
      for (int in = 0; in < (inner.PagesAround() == &outer && inner.Page() == page ? inner.PageCount() : 1); ++in) {
        inner.SetTab(in);
        window.Flush();
        QApplication::processEvents();
        look();
      }
    }
  }

  std::unique_ptr<Engine> engine = MakeEngine();
  std::unique_ptr<Files> files = MakeHostFiles();
};

// Fields with words of their own before them, which those of a table have not.
void CollectLabelled(const Layout& layout, std::set<const Control*>& labelled) {
  if (layout.kind == LayoutKind::kTable) return;
  const bool words = layout.kind == LayoutKind::kControl && layout.labelled && !layout.control->Caption().empty();
  if (words && layout.control->HasCaptionBefore()) labelled.insert(layout.control);
  for (const Layout& child : layout.children) CollectLabelled(child, labelled);
}

// At rest amounts have their thousands apart.
QString ShownBy(const Control& control) {
  const auto* box = dynamic_cast<const TextBox*>(&control);
  return ToQt(box && box->Grouped() && !box->HasFocus() ? GroupThousands(box->Text()) : control.ShownText());
}

QAccessibleInterface& Told(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }

TEST_F(WorkerScreenTest, AScreenReaderIsToldEveryControl) {
  OnScreen([&](FormWindow& window, Form& screen) {
    for (const char character : std::string("00012")) screen.Press({0, 0, std::string(1, character)});
    screen.Press({key::kEnter, 0, ""});
    window.Flush();
    std::map<QString, std::string> names;
    std::set<const Control*> labelled;
    CollectLabelled(screen.GetLayout(), labelled);
    EXPECT_GT(labelled.size(), 50U);
    for (Control* control : screen.Controls()) {
      ControlView* view = window.ViewOf(*control);
      if (!view || (!control->TakesFocus() && control->Kind() != ControlKind::kImage)) continue;
      QAccessibleInterface& told = Told(*view->FocusTarget());
      const QString name = told.text(QAccessible::Name);
      EXPECT_FALSE(name.isEmpty()) << control->Id();
      const auto [other, fresh] = names.emplace(name + NameAndPlace(*control), control->Id());
      EXPECT_TRUE(fresh) << control->Id() << " and " << other->second << " have one name: " << name.toStdString();
      const std::map<ControlKind, QAccessible::Role> roles = {{ControlKind::kTextBox, QAccessible::EditableText},
                                                              {ControlKind::kComboBox, QAccessible::ComboBox},
                                                              {ControlKind::kCheckBox, QAccessible::CheckBox},
                                                              {ControlKind::kOptionButton, QAccessible::RadioButton},
                                                              {ControlKind::kButton, QAccessible::Button},
                                                              {ControlKind::kImage, QAccessible::Button},
                                                              {ControlKind::kRowPicker, QAccessible::Tree},
                                                              {ControlKind::kTabs, QAccessible::PageTabList},
                                                              {ControlKind::kGrid, QAccessible::Table}};
      EXPECT_EQ(told.role(), roles.at(control->Kind())) << control->Id();
      if (control->HasCaptionBefore()) {
        EXPECT_EQ(told.text(QAccessible::Value), ShownBy(*control)) << control->Id();
      }
      if (labelled.contains(control)) {
        // The group around it counts as one more.
        const auto labels = told.relations(QAccessible::Label);
        EXPECT_TRUE(std::ranges::any_of(labels, [&](const auto& label) {
          const QString words = label.first->text(QAccessible::Name).remove(QLatin1Char('*')).simplified();
          return label.first->role() == QAccessible::StaticText && name.startsWith(PlainCaption(words.toStdString()));
        })) << control->Id();
      }
      if (control->Kind() == ControlKind::kButton && control->Caption().find('&') != std::string::npos) {
        EXPECT_TRUE(told.text(QAccessible::Accelerator).startsWith("Alt+")) << control->Id();
      }
    }
    EXPECT_GT(names.size(), 100U);

    auto& grid = dynamic_cast<Grid&>(*screen.Find("Grid1(0)"));
    grid.SetCell(2, 2, "1994");
    window.Flush();
    QAccessibleTableInterface* cells = Told(*window.ViewOf(grid)->Widget()).tableInterface();
    const auto told = [&](int row, int column) {
      return cells->cellAt(row, column)->text(QAccessible::Name).toStdString();
    };
    EXPECT_EQ(told(2, 2), "Hijos, fila 2, Año Nacim.: 1994");
    EXPECT_EQ(told(2, 3), "Hijos, fila 2, Por entero: vacío");
    EXPECT_EQ(Told(*window.findChild<QLabel*>("status")->parentWidget()).role(), QAccessible::StatusBar);
  });
}

TEST_F(WorkerScreenTest, ABoxAboutAMissingValueNamesItsField) {
  OnScreen([&](FormWindow& window, Form& screen) {
    QString about;
    const std::function<void()> look = [&] {
      QWidget* box = QApplication::activeModalWidget();
      if (box == &window) return Soon(look);  // saving lets pending events run before it checks
      about = box->findChild<QLabel*>("about")->text();
      EXPECT_TRUE(WidgetOf(window, *screen.Find("Text1(1)")).property(kMarked).toBool());
      box->close();
    };
    Soon(look);
    window.Pass([&] { screen.Click(*screen.Find("Grabar")); });
    EXPECT_EQ(about, "Campo: «Nº Trabajador»");
  });
}

TEST_F(WorkerScreenTest, NoWindowOutgrowsTheScreen) {
  OnScreen([&](FormWindow& window, Form& screen) {
    const QRect room = window.screen()->availableGeometry();
    for (const int percent : {100, 110, 125, 200}) {
      zoom::Set(percent);
      QApplication::processEvents();
      OnEachPage(window, screen, [&] {
        EXPECT_TRUE(room.contains(window.frameGeometry())) << percent;
        EXPECT_NE(window.frameGeometry(), window.geometry());  // it has a frame
        // Pages are whole; where the text is too large for that they alone scroll.
        for (const QScrollArea* area : window.findChildren<QScrollArea*>()) {
          const bool scrolls = area->verticalScrollBar()->isVisible() || area->horizontalScrollBar()->isVisible();
          EXPECT_TRUE(percent > 125 || !scrolls) << percent << screen.Find("Tab1")->ShownText();
        }
        for (const char* id : {"Text1(1)", "Text1(4)", "Inicio", "Pendientes", "Grabar", "Salir"}) {
          const QWidget& widget = WidgetOf(window, *screen.Find(id));
          EXPECT_EQ(widget.visibleRegion().boundingRect(), widget.rect()) << percent << id;
        }
      });
    }
  });
}

}  // namespace
}  // namespace zendara
