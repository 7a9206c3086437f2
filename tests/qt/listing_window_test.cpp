// The preview of a listing: its pages, its search, its keys, and what it hands on.
#include "adapters/qt/listing_window.hpp"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

#include "adapters/qt/listing_view.hpp"
#include "adapters/qt/message_box.hpp"
#include "adapters/qt/print_dialog.hpp"
#include "print/given_rows.hpp"
#include "qt/demo_form.hpp"
#include "support/errors.hpp"
#include "support/pdf.hpp"
#include "support/temp_folder.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr int kRows = 3000;

struct FakePrinters : Printers {
  std::vector<Printer> List() const override { return there; }
  void Send(const PrintJob& job, const std::string& path) const override {
    if (refuses) throw RuntimeError(kDeviceIoError);
    jobs.push_back(job);
    texts.push_back(PdfText(path));
  }
  std::vector<Printer> there;
  bool refuses = false;
  mutable std::vector<PrintJob> jobs;
  mutable std::vector<std::string> texts;
};

// Fails behind that many rows.
class BreakingRows : public print::ListingRows {
 public:
  explicit BreakingRows(int rows) : left_(rows) {}
  bool Next(print::Texts& cells) override {
    if (--left_ < 0) throw RuntimeError(kDiskOrNetwork);
    cells = {"a", "b"};
    return true;
  }

 private:
  int left_;
};

// A slow disk, until `hurry`.
class SlowRows : public print::ListingRows {
 public:
  SlowRows(std::unique_ptr<print::ListingRows> rows, const bool& hurry) : rows_(std::move(rows)), hurry_(hurry) {}
  bool Next(print::Texts& cells) override {
    if (++read_ > print::PagedListing::kSample && !hurry_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return rows_->Next(cells);
  }

 private:
  std::unique_ptr<print::ListingRows> rows_;
  const bool& hurry_;
  std::size_t read_ = 0;
};

class ListingWindowTest : public QtTest {
 protected:
  ListingWindowTest() {
    host.UsePrinters(printers);
    host.OnChooseFile([this](QWidget&, const std::string& offered, std::span<const FileFormat> kinds) {
      proposed = offered;
      for (const FileFormat& kind : kinds) offered_kinds.push_back(kind.suffix);
      return chosen;
    });
  }

  static std::unique_ptr<print::ListingRows> Rows(int count) {
    std::vector<print::Texts> rows;
    for (int i = 1; i <= count; ++i) {
      rows.push_back({std::to_string(i), i % 1000 == 0 ? "Ángel, núm. " + std::to_string(i) : "Nadie"});
    }
    return std::make_unique<print::GivenRows>(std::move(rows));
  }
  static const print::Listing& Columns() {
    static const print::Listing listing{
        .title = "Relación: 1/2",
        .columns = {{"Número", print::CellSide::kNumber, 900}, {"Nombre", print::CellSide::kText, 4000}}};
    return listing;
  }

  // Plays in the preview and closes it by Esc, if it is still there.
  void Show(std::unique_ptr<print::ListingRows> rows, std::function<void()> play) {
    Soon([this, play = std::move(play)] {
      QApplication::processEvents();
      window = dynamic_cast<ListingWindow*>(QApplication::activeModalWidget());
      ASSERT_NE(window, nullptr);
      play();
      if (QApplication::activeModalWidget() == window) Press(key::kEsc);
    });
    host.Preview(Columns(), {"00001", "Empresa", "31/12/2001"}, std::move(rows), nullptr);
    window = nullptr;
  }
  void Press(int code, int shift = 0) const {
    PressKey(window->focusWidget() ? *window->focusWidget() : *window, {.code = code, .shift = shift, .text = {}});
  }
  void ReadAll() const {
    while (Label("de ").endsWith(QChar(0x2026))) QApplication::processEvents();
  }
  QString Label(const char* begin) const {
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      if (label->text().startsWith(QString::fromUtf8(begin))) return label->text();
    }
    return {};
  }
  QLineEdit& Field(const char* name) const {
    for (QLineEdit* field : window->findChildren<QLineEdit*>()) {
      if (field->accessibleName() == QString::fromUtf8(name)) return *field;
    }
    throw std::runtime_error(name);
  }
  std::size_t Page() const { return window->View().Page(); }
  std::string Said() const { return window->findChild<QLabel*>("status")->text().toStdString(); }
  // The box that comes next, closed; what it says.
  void CloseBoxSoon() {
    Soon([this] {
      auto& box = dynamic_cast<MessageBox&>(*QApplication::activeModalWidget());
      boxed = box.findChild<QLabel*>("text")->text().toStdString();
      box.findChild<QPushButton*>()->click();
    });
  }

  FakePrinters printers;
  TempFolder folder;
  std::optional<ChosenFile> chosen;
  std::string proposed;
  std::vector<std::string> offered_kinds;
  std::string boxed;
  ListingWindow* window = nullptr;
};

TEST_F(ListingWindowTest, KeysLeadThroughThePages) {
  bool hurry = false;
  Show(std::make_unique<SlowRows>(Rows(kRows), hurry), [&] {
    EXPECT_EQ(window->windowTitle(), "Relación: 1/2");
    // The last page is not known yet, and is gone to when it is.
    EXPECT_EQ(Label("de ").back(), QChar(0x2026));
    Press(key::kEnd, key::kControl);
    hurry = true;
    ReadAll();
    const std::size_t last = Page();
    EXPECT_EQ("de " + std::to_string(last + 1), Label("de ").toStdString());
    EXPECT_THAT(window->View().TextOfPage().toStdString(), HasSubstr("3000\tÁngel, núm. 3000"));
    const struct {
      int code;
      int shift;
      std::size_t page;
    } steps[] = {{key::kPageDown, 0, last},     {key::kPageUp, 0, last - 1}, {key::kHome, key::kControl, 0},
                 {key::kPageUp, 0, 0},          {key::kPageDown, 0, 1},      {key::kPageDown, 0, 2},
                 {'0', key::kControl, 2},       {key::kPageDown, 0, 3},      {key::kHome, 0, 0},
                 {'F', key::kControl, 0},       {key::kPageDown, 0, 1},      {key::kEnd, key::kControl, last},
                 {key::kHome, key::kControl, 0}};
    for (const auto& [code, shift, page] : steps) {
      Press(code, shift);
      EXPECT_EQ(Page(), page) << code;
      EXPECT_EQ(Field("Página").text().toULongLong(), page + 1) << code;
    }
    // By number; one that is too large is the last one.
    QLineEdit& field = Field("Página");
    for (const auto& [typed, page] : {std::pair{"4", std::size_t{3}}, {"0", 0}, {"9999", last}}) {
      field.setFocus();
      field.selectAll();
      for (const char c : std::string(typed)) PressKey(field, {.code = c, .shift = 0, .text = {c}});
      Press(key::kEnter);
      EXPECT_EQ(Page(), page) << typed;
    }
  });
}

TEST_F(ListingWindowTest, SizeOfThePaper) {
  Show(Rows(200), [this] {
    ListingView& view = window->View();
    const int fitting = view.Percent();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
    Press(key::kPageDown);
    PressKey(view, {.code = 0, .shift = key::kControl, .text = "+"});
    QKeyEvent plus(QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier);
    QApplication::sendEvent(&view, &plus);
    EXPECT_GT(view.Percent(), fitting);
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(Page(), 1U);
    Press('0', key::kControl);
    EXPECT_EQ(view.Percent(), 100);
    view.SetPercent(100'000);
    EXPECT_EQ(view.Percent(), 400);
    view.FitWidth();
    EXPECT_EQ(view.Percent(), fitting);
    window->resize(window->width() - 200, window->height());
    QApplication::processEvents();
    EXPECT_LT(view.Percent(), fitting);
    // Black on white at the place where the model has the title, whatever the size.
    const QImage picture = view.viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 20), QColor(Qt::white));
  });
}

TEST_F(ListingWindowTest, WhatIsLookedForIsFoundAndMarked) {
  Show(Rows(kRows), [this] {
    Press('F', key::kControl);
    QLineEdit& field = Field("Buscar");
    ASSERT_EQ(window->focusWidget(), &field);
    field.setText("ANGEL");
    EXPECT_EQ(Label("Línea"), "Línea 1.000");
    ReadAll();
    const std::size_t first = Page();
    EXPECT_GT(first, 0U);
    const struct {
      int code;
      int shift;
      const char* line;
      bool round;
    } steps[] = {{key::kF1 + 2, 0, "Línea 2.000", false},
                 {key::kEnter, 0, "Línea 3.000", false},
                 {key::kF1 + 2, 0, "Línea 1.000", true},
                 {key::kF1 + 2, key::kShift, "Línea 3.000", true},
                 {key::kF1 + 2, key::kShift, "Línea 2.000", false}};
    for (const auto& [code, shift, line, round] : steps) {
      Press(code, shift);
      EXPECT_EQ(Label("Línea").toStdString(), line);
      EXPECT_EQ(Said().empty(), !round) << line;
    }
    // Where the mark is, there is its colour; a page that the user turned to is where it goes on.
    const QImage marked = window->View().viewport()->grab().toImage();
    int found = 0;
    for (int y = 0; y < marked.height(); ++y) {
      for (int x = 0; x < marked.width(); ++x) {
        found += marked.pixelColor(x, y) == ColourOf(Role::kFound, Colours::kLight) ? 1 : 0;
      }
    }
    EXPECT_GT(found, 100);
    Press(key::kHome, key::kControl);
    Press(key::kF1 + 2);
    EXPECT_EQ(Label("Línea"), "Línea 1.000");

    field.setText("nada de eso");
    EXPECT_EQ(Label("No"), "No está");
    EXPECT_THAT(Said(), HasSubstr("«nada de eso»"));
    field.clear();
    EXPECT_EQ(Label("No"), "");
  });
}

TEST_F(ListingWindowTest, ScreenReadersHearThePage) {
  Show(Rows(200), [this] {
    ReadAll();
    Press(key::kPageDown);
    QAccessibleInterface* pages = QAccessible::queryAccessibleInterface(&window->View());
    EXPECT_EQ(pages->role(), QAccessible::Document);
    EXPECT_THAT(pages->text(QAccessible::Name).toStdString(), HasSubstr("Relación: 1/2, página 2 de "));
    EXPECT_THAT(pages->text(QAccessible::Value).toStdString(), HasSubstr("\tNadie\n"));
    for (const QPushButton* button : window->findChildren<QPushButton*>()) {
      const QString name =
          QAccessible::queryAccessibleInterface(const_cast<QPushButton*>(button))->text(QAccessible::Name);
      EXPECT_THAT(name.toStdString(), testing::ContainsRegex("[[:alpha:]]{5}"));
      EXPECT_FALSE(button->toolTip().isEmpty()) << name.toStdString();
    }
  });
}

TEST_F(ListingWindowTest, IsKeptAsWhatTheUserChooses) {
  Show(Rows(1500), [this] {
    Press('S', key::kControl);
    EXPECT_THAT(proposed, testing::EndsWith("/Relación 1 2.pdf"));
    EXPECT_THAT(offered_kinds, testing::ElementsAre("pdf", "xlsx", "csv", "csv"));
    const struct {
      std::size_t kind;
      const char* begins;
    } kinds[] = {{0, "%PDF"}, {1, "PK"}, {2, "Número,Nombre"}, {3, "\xEF\xBB\xBFNúmero;Nombre"}};
    for (const auto& [kind, begins] : kinds) {
      chosen = ChosenFile{folder / ("listado" + std::to_string(kind)), kind};
      Press('S', key::kControl);
      EXPECT_EQ(Said(), "Guardado en " + chosen->path);
      std::ifstream file(chosen->path, std::ios::binary);
      std::string start(std::strlen(begins), ' ');
      file.read(start.data(), static_cast<std::streamsize>(start.size()));
      EXPECT_EQ(start, begins);
    }
    EXPECT_THAT(PdfText(folder / "listado0"), HasSubstr("1.500 líneas"));
    chosen->path = folder / "nada/listado.csv";
    CloseBoxSoon();
    Press('S', key::kControl);
    EXPECT_THAT(boxed, testing::AllOf(HasSubstr(chosen->path), HasSubstr("76  ")));
    EXPECT_EQ(QApplication::activeModalWidget(), window);
  });
}

TEST_F(ListingWindowTest, GoesToThePrinterThatTheUserChooses) {
  Show(Rows(100), [this] {
    Press('P', key::kControl);
    EXPECT_EQ(Said(), "No hay ninguna impresora en este equipo.");

    printers.there = {{"una", "", false}, {"otra", "planta 2", true}};
    const auto print = [&](const char* pages, bool possible) {
      Soon([pages, possible] {
        auto& dialog = dynamic_cast<PrintDialog&>(*QApplication::activeModalWidget());
        dialog.findChildren<QLineEdit*>().at(1)->setText(QString::fromLatin1(pages));
        auto* button = dialog.findChildren<QPushButton*>().at(0);
        EXPECT_EQ(button->isEnabled(), possible) << pages;
        possible ? button->click() : dialog.reject();
      });
      Press('P', key::kControl);
    };
    for (const char* wrong : {"0", "3-1", "1-", "a", "1,,2"}) print(wrong, false);
    EXPECT_TRUE(printers.jobs.empty());
    print("1-2, 4", true);
    ASSERT_EQ(printers.jobs.size(), 1U);
    EXPECT_EQ(printers.jobs[0].printer, "otra");
    EXPECT_EQ(printers.jobs[0].title, "Relación: 1/2");
    EXPECT_EQ(printers.jobs[0].pages, "1-2,4");
    EXPECT_THAT(printers.texts[0], HasSubstr("100 líneas"));
    EXPECT_EQ(Said(), "Enviado a la impresora otra");

    printers.refuses = true;
    Soon([this] {
      CloseBoxSoon();
      dynamic_cast<PrintDialog&>(*QApplication::activeModalWidget()).accept();
    });
    Press('P', key::kControl);
    EXPECT_THAT(boxed, HasSubstr("57  "));
  });
}

TEST_F(ListingWindowTest, EmptyListingsFaultsAndHaste) {
  Show(Rows(0), [this] {
    EXPECT_EQ(Label("de "), "de 1");
    for (const int code : {key::kPageDown, key::kPageUp, key::kEnd, key::kF1 + 2}) Press(code);
    Field("Buscar").setText("x");
    EXPECT_EQ(Label("No"), "No está");
  });
  // Closed while it reads, and once more at once.
  for (int i = 0; i < 2; ++i) Show(Rows(kRows), [] {});
  // A fault of the first rows shows nothing, a later one closes the window; the caller gets both.
  EXPECT_EQ(ErrorOf([&] { host.Preview(Columns(), {}, std::make_unique<BreakingRows>(10), nullptr); }), kDiskOrNetwork);
  EXPECT_EQ(ErrorOf([&] { host.Preview(Columns(), {}, std::make_unique<BreakingRows>(2000), nullptr); }),
            kDiskOrNetwork);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace zendara
