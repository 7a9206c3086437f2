// Ctrl+P on a screen and on the detail of a box.
#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <deque>
#include <fstream>

#include "adapters/qt/detail_window.hpp"
#include "adapters/qt/message_box.hpp"
#include "qt/demo_form.hpp"
#include "support/pdf.hpp"
#include "support/temp_folder.hpp"

namespace zendara {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

const Key kKeep{.code = 'P', .shift = key::kControl, .text = {}};

class DocumentKeeperTest : public QtTest {
 protected:
  DocumentKeeperTest() {
    host.OnChooseFile([this](QWidget&, const std::string& offered, auto) -> std::optional<ChosenFile> {
      proposed.push_back(offered);
      if (chosen.empty()) return std::nullopt;
      const std::string next = chosen.front();
      chosen.pop_front();
      return ChosenFile{next, 0};
    });
  }
  // The box that comes next, closed by that button.
  void AnswerSoon(int button) {
    Soon([this, button] {
      const QWidget* box = QApplication::activeModalWidget();
      ASSERT_NE(box, nullptr);
      said = box->findChild<QLabel*>("text")->text().toStdString();
      EXPECT_EQ(box->findChild<QLabel*>("about"), nullptr);  // no field's
      box->findChildren<QPushButton*>().at(button)->click();
    });
  }

  TempFolder folder;
  const std::string path = folder / "ficha.pdf";
  std::deque<std::string> chosen;  // nothing more: the user gives up
  std::vector<std::string> proposed;
  std::string said;
};

TEST_F(DocumentKeeperTest, AScreenIsKeptWhereTheUserSays) {
  form.SetTitle("Fichas: ñ/1");
  form.Text1(2).SetText("Peña");
  Play([&](FormWindow&) {
    hands.Press(form, kKeep);
    EXPECT_EQ(form.Status(), "");
    chosen = {path};
    hands.Press(form, kKeep);
    EXPECT_EQ(form.Status(), "Guardado en " + path);
    EXPECT_THAT(PdfText(path), testing::ContainsRegex("Campo 2: +Peña"));

    // The file is there: no, then yes.
    std::ofstream(path) << "otra cosa";
    chosen = {path};
    AnswerSoon(1);
    hands.Press(form, kKeep);
    EXPECT_THAT(said, HasSubstr("Ya existe un archivo con ese nombre:\n" + path));
    EXPECT_EQ(PdfText(path), "");
    chosen = {path};
    AnswerSoon(0);
    hands.Press(form, kKeep);
    EXPECT_THAT(PdfText(path), HasSubstr("Peña"));

    chosen = {folder / "nada/ficha.pdf"};
    AnswerSoon(0);
    hands.Press(form, kKeep);
    EXPECT_THAT(said, testing::AllOf(HasSubstr(folder / "nada/ficha.pdf"), HasSubstr("76  ")));
    EXPECT_EQ(form.Status(), "Guardado en " + path);
  });
  EXPECT_THAT(proposed.front(), EndsWith("/Fichas ñ 1.pdf"));
  EXPECT_EQ(proposed.back(), folder / "Fichas ñ 1.pdf") << "beside the one before";
}

TEST_F(DocumentKeeperTest, SoIsTheDetailOfABox) {
  const Box question{.text = "Sale 2,01\n¿Quiere aplicarlo?",
                     .buttons = BoxButtons::kYesNo,
                     .title = "Tipo",
                     .detail = {{"Base", "582300", "sueldo"}, {"Tipo", "2,01", "cuota"}}};
  form.Text1(1).SetText("00900");
  Play([&](FormWindow&) {
    chosen = {path};
    Soon([&] {
      QWidget* box = QApplication::activeModalWidget();
      PressKey(*box, {.code = key::kF1, .shift = 0, .text = {}});
      QApplication::processEvents();
      auto* detail = dynamic_cast<DetailWindow*>(QApplication::activeModalWidget());
      ASSERT_NE(detail, nullptr);
      PressKey(*detail->focusWidget(), kKeep);
      EXPECT_EQ(detail->findChild<QLabel*>()->toolTip().toStdString(), "Guardado en " + path);
      detail->close();
      QApplication::processEvents();
      PressKey(*box, {.code = 'N', .shift = 0, .text = "n"});
    });
    EXPECT_EQ(host.Show(question), BoxAnswer::kNo);
  });
  EXPECT_THAT(PdfText(path), testing::AllOf(testing::ContainsRegex("Tipo +2,01 +cuota"), HasSubstr("Sale 2,01"),
                                            testing::Not(HasSubstr("aplicarlo"))));
}

}  // namespace
}  // namespace zendara
