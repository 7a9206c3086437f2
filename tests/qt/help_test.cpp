// The help: its places, its search, and that it stays usable beside whatever is modal.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QWindow>
#include <set>

#include "adapters/qt/help_window.hpp"
#include "adapters/qt/text.hpp"
#include "common/ayuda.hpp"
#include "qt/demo_form.hpp"
#include "workers/ayuda_trabajador.hpp"
#include "workers/campos_trabajador.hpp"

namespace zendara {
namespace {

constexpr int kWorkers = 20004;

class HelpTest : public QtTest {
 protected:
  HelpWindow& Window() { return host.Help(); }
  QTextBrowser& Browser() { return *Window().findChild<QTextBrowser*>(); }
  QString Marked() {
    QStringList texts;
    for (const auto& mark : Browser().extraSelections()) texts << mark.cursor.selectedText();
    return texts.join(QLatin1Char(' '));
  }
  // The heading above a place of the page.
  static QString HeadingAbove(QTextBlock block) {
    while (block.isValid() && block.blockFormat().headingLevel() == 0) block = block.previous();
    return AnchorOf(block.text());
  }
  static void Press(QWidget& widget, int code) { PressKey(widget, {.code = code, .shift = 0, .text = {}}); }
};

// Those of the help, and the chapters that the manual adds.
TEST_F(HelpTest, EveryLinkLeadsToAPageAndAHeading) {
  std::set<QString> places;  // pages, and their headings
  std::set<QString> links;
  for (const QString folder : {"help/", "manual/"}) {
    const QDir pages(QStringLiteral(ZENDARA_SOURCE_DIR) + QLatin1Char('/') + folder);
    for (const QString& name : pages.entryList({QStringLiteral("*.md")})) {
      QFile file(pages.filePath(name));
      ASSERT_TRUE(file.open(QIODevice::ReadOnly));
      QTextDocument page;
      page.setMarkdown(QString::fromUtf8(file.readAll()));
      const QUrl address(folder + name);
      places.insert(address.toString());
      for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0) {
          places.insert(address.toString() + QLatin1Char('#') + AnchorOf(block.text()));
        }
        for (auto piece = block.begin(); piece != block.end(); ++piece) {
          const QString link = piece.fragment().charFormat().anchorHref();
          if (!link.isEmpty()) links.insert(address.resolved(QUrl(link)).toString());
        }
      }
    }
  }
  for (const QString& link : links) EXPECT_TRUE(places.contains(link)) << link.toStdString();
  EXPECT_GT(links.size(), 10U);
}

TEST_F(HelpTest, EveryFieldOfTheWorkerScreenHasItsPlace) {
  struct Fields : Form {
    using Form::Form;
    ControlArray<TextBox> Text1{*this, "Text1"};
    ControlArray<Grid> Grid1{*this, "Grid1"};
    Button Grabar{*this, "Grabar"};
    Button Situaciones{*this, "Situaciones"};
  } fields(host, host, "Campos");
  fields.Situaciones.SetCaption("Situaciones del trabajador");
  fields.Grabar.SetCaption("&Grabar");
  std::vector<const Control*> controls = {&fields.Grid1.Add(kHijos), &fields.Grid1.Add(kAscendientes), &fields.Grabar,
                                          &fields.Situaciones};
  for (const Campo& campo : CamposTrabajador()) {
    TextBox& text = fields.Text1.Add(campo.indice);
    text.SetCaption(campo.rotulo);
    controls.push_back(&text);
  }
  for (const Control* control : controls) {
    const HelpPlace place = AyudaDe(*control);
    host.ShowHelp({}, kWorkers, place);
    ASSERT_EQ(Browser().extraSelections().size(), 1) << control->Id() << " " << place.words;
    EXPECT_EQ("#" + HeadingAbove(Browser().extraSelections().front().cursor.block()).toStdString(), place.link)
        << control->Id() << " " << place.words;
  }
}

TEST_F(HelpTest, SearchIgnoresCaseAndAccentsAndEnterMarksTheHit) {
  host.ShowHelp({}, 0, {});
  auto& line = *Window().findChild<QLineEdit*>();
  auto& found = *Window().findChild<QListWidget*>();
  const auto count = [&](const char* words) {
    line.setText(QString::fromUtf8(words));
    return found.count();
  };
  const int plain = count("conyuge");
  EXPECT_GT(plain, 0);
  EXPECT_EQ(count("CÓNYUGE"), plain);
  EXPECT_EQ(count("cónyuge xyz"), 0);
  EXPECT_GT(count("minimo hijos"), 0);  // words that do not stand together
  EXPECT_EQ(count("  "), 0);

  ASSERT_GT(count("digitos de control no corresponden"), 0);
  EXPECT_TRUE(found.item(0)->text().startsWith("Trabajadores: ")) << found.item(0)->text().toStdString();
  Press(line, key::kEnter);
  EXPECT_EQ(Browser().source().fileName(), "trabajadores.md");
  EXPECT_EQ(Marked(), "dígitos de control no corresponden");
  EXPECT_TRUE(Browser().isBackwardAvailable());
}

TEST_F(HelpTest, AMessageIsExplained) {
  const std::pair<const char*, const char*> cases[] = {
      {"EL NÚMERO DE CUENTA ES INCORRECTO", "avisos-al-salir-de-un-campo"},
      {"Debe introducir el centro de trabajo", "avisos-al-grabar"},
      {"No se puede registrar la nueva situacion, la situación 002 no esta finalizada", "avisos-al-grabar"},
      {"El Tipo Calculado es 7,61\n ¿Quiere aplicarlo? ", "otros-avisos"},
      {"29/02/01 ,Fecha Incorrecta", "avisos-sobre-fechas"},
      {"3024  No se pudo encontrar el archivo 'C:\\DATOS\\N0000155.MDB'.", "errores"},
  };
  for (const auto& [message, section] : cases) {
    Window().Explain(QString::fromUtf8(message));
    ASSERT_FALSE(Browser().extraSelections().isEmpty()) << message;
    EXPECT_EQ(HeadingAbove(Browser().extraSelections().front().cursor.block()).toStdString(), section) << message;
  }
  Soon([] {
    QApplication::processEvents();
    QWidget* box = QApplication::activeModalWidget();
    Press(*box->focusWidget(), key::kF1);
    Press(*box->focusWidget(), key::kEnter);
  });
  host.Show({.text = "Debe introducir el Epigrafe"});
  EXPECT_EQ(Marked(), "Debe introducir el Epigrafe");
  EXPECT_TRUE(Window().isVisible());
  Window().close();
}

TEST_F(HelpTest, ItIsUsableBesideWhateverIsModal) {
  form.HelpContext = kWorkers;
  const auto follows = [&] { return Window().windowHandle()->transientParent() == QGuiApplication::modalWindow(); };
  Play([&](FormWindow& window) {
    QWidget& field = WidgetOf(window, *form.Focus());
    Press(field, key::kF1);
    ASSERT_TRUE(Window().isVisible());
    EXPECT_TRUE(follows());
    hands.Press(form, {.code = 'A', .shift = 0, .text = "a"});
    EXPECT_TRUE(Window().isVisible());
    EXPECT_NE(form.Focus()->ShownText().find('a'), std::string::npos);

    Soon([&] {
      QApplication::processEvents();
      QWidget* box = QApplication::activeModalWidget();
      EXPECT_NE(box, &window);
      EXPECT_TRUE(follows());
      Press(*box->focusWidget(), key::kEnter);
    });
    host.Show({.text = "Aviso"});
    QApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), &window);
    EXPECT_TRUE(follows());
    Press(Browser(), key::kEsc);
    EXPECT_FALSE(Window().isVisible());
    EXPECT_TRUE(window.isVisible());
  });
}

}  // namespace
}  // namespace zendara
