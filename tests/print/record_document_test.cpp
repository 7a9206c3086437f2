// Pages of forms with a control of every kind, of random lengths.
#include "print/record_document.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <utility>

#include "platform/form/screen_parts.hpp"
#include "print/fixed_measure.hpp"
#include "runtime/format.hpp"
#include "support/fake_form_host.hpp"

namespace zendara::print {
namespace {

const std::string kNow = "2026-11-21T18:05:09";
const std::string kLongFigure(45, '7');
const std::string kLetters[] = {"a", "ñ", "É", "7"};

std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

// What stands below each other at one place, of all pages: blanks are left out, since lines end in place of them.
class Said {
 public:
  explicit Said(const Document& document) {
    for (const Page& page : document.pages) {
      for (const Mark& mark : page.marks) {
        if (const auto* run = std::get_if<TextRun>(&mark)) columns_[run->x] += WithoutBlanks(run->text);
      }
    }
  }
  bool Has(const std::string& text) const {
    const auto holds = [&](const auto& column) { return column.second.find(WithoutBlanks(text)) != std::string::npos; };
    return std::ranges::any_of(columns_, holds);
  }

 private:
  std::map<int, std::string> columns_;
};

std::vector<TextRun> Runs(const Page& page) {
  std::vector<TextRun> runs;
  for (const Mark& mark : page.marks) {
    if (const auto* run = std::get_if<TextRun>(&mark)) runs.push_back(*run);
  }
  return runs;
}

void ExpectInOrder(const Document& document) {
  const FixedMeasure measure;
  const auto& [width, height, margin] = document.paper;
  for (std::size_t number = 1; number <= document.pages.size(); ++number) {
    const std::vector<TextRun> runs = Runs(document.pages[number - 1]);
    for (std::size_t i = 0; i < runs.size(); ++i) {
      const auto right = [&](const TextRun& run) { return run.x + measure.Width(run.text, run.font); };
      const auto top = [&](const TextRun& run) { return run.baseline - measure.Ascent(run.font); };
      const auto bottom = [&](const TextRun& run) { return top(run) + measure.LineHeight(run.font); };
      EXPECT_TRUE(runs[i].x >= margin && right(runs[i]) <= width - margin && top(runs[i]) >= margin &&
                  bottom(runs[i]) <= height - margin)
          << "outside of the margins: " << runs[i].text;
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_TRUE(right(runs[i]) <= runs[j].x || right(runs[j]) <= runs[i].x || bottom(runs[i]) <= top(runs[j]) ||
                    bottom(runs[j]) <= top(runs[i]))
            << runs[i].text << " over " << runs[j].text;
      }
    }
    ASSERT_GE(runs.size(), 3U);
    EXPECT_FALSE(number < document.pages.size() && runs[runs.size() - 3].font.bold)
        << "a title alone at the end of a page";
    EXPECT_EQ(runs[runs.size() - 2].text, "Impreso el 21/11/2026 a las 18:05");
    EXPECT_EQ(runs.back().text, "Página " + std::to_string(number) + " de " + std::to_string(document.pages.size()));
  }
}

class RandomForm : public Form {
 public:
  RandomForm(FormHost& host, Dialogs& dialogs, unsigned seed) : Form(host, dialogs, "Fichas"), random_(seed) {
    SetTitle("Fichas");
    Year.SetCaption("Año");
    Year.SetText("01");
    Year.SetEnabled(false);
    Outer.SetTitles({"Primera", "&Segunda"});
    Inner.SetTitles({"Dentro", "Fuera"});
    Group.SetCaption("Grupo");
    Hidden.SetCaption("Marco oculto");
    Hidden.SetVisible(false);
    Secret.SetText("secreto");
    Long.SetCaption("Observaciones");
    std::string words;
    for (int i = 0; i < 1500; ++i) words += Word(9) + " ";
    Long.SetText(words);
    Figure.SetCaption("Cifra ..........:");
    Figure.SetText(kLongFigure);
    Figure.SetGrouped(true);
    List.SetCaption("&Lista:");
    List.SetEditable(true);
    List.SetText("1");
    Meaning.SetCaption("Pasaporte");
    Check.SetCaption("Prestaciones");
    Check.SetValue(1);
    Free.SetCaption("Texto suelto");
    Print.SetCaption("Listado");
    FillGrid();
    std::vector<Layout> first = Fields(30);
    first.push_back(Place(Long));
    first.push_back(Place(Figure));
    std::vector<Layout> group = Fields(25);
    group.push_back(Place(List, {&Meaning}));
    group.push_back(Place(Table));
    std::vector<Layout> page = Fields(7);
    page.push_back(Framed(Group, std::move(group)));
    page.push_back(Framed(Hidden, {Place(Secret)}));
    page.push_back(Place(Check));
    SetLayout(
        Column({Row({Place(Year)}), Column(Fields(3)),
                Pages(Outer, {Column(std::move(first)), Pages(Inner, {Column(std::move(page)), Column(Fields(9))})}),
                Place(Free), Place(Print)}));
  }

  std::string Subject() const override { return "00900 Peña Güell, Begoña"; }

  ControlArray<TextBox> Text{*this, "Text"};
  TextBox Year{*this, "Year"}, Long{*this, "Long"}, Figure{*this, "Figure"}, Secret{*this, "Secret"};
  ComboBox List{*this, "List"};
  Label Meaning{*this, "Meaning"}, Free{*this, "Free"};
  CheckBox Check{*this, "Check"};
  Frame Group{*this, "Group"}, Hidden{*this, "Hidden"};
  Tabs Outer{*this, "Outer"}, Inner{*this, "Inner"};
  Grid Table{*this, "Table"};
  Button Print{*this, "Print"};

 private:
  int Below(int bound) { return std::uniform_int_distribution<>(0, bound - 1)(random_); }
  std::string Word(int longest) {
    std::string word;
    for (int i = Below(longest); i >= 0; --i) word += kLetters[static_cast<std::size_t>(Below(4))];
    return word;
  }

  // Some are wider than a page; the number in front tells them apart.
  std::vector<Layout> Fields(int count) {
    std::vector<Layout> fields;
    for (; count > 0; --count) {
      TextBox& box = Text.Add(Text.UBound() + 1);
      const std::string number = std::to_string(box.Index());
      box.SetCaption("Campo " + number + " " + Word(Below(9) == 0 ? 60 : 12));
      box.SetText(Below(5) == 0 ? "" : "«" + number + " " + Word(12) + " " + Word(Below(9) == 0 ? 200 : 20) + "»");
      fields.push_back(Place(box));
    }
    return fields;
  }

  // Half of the rows are empty but for their name.
  void FillGrid() {
    Table.Resize(161, 13, 1, 1);
    for (int column = 1; column < Table.Columns(); ++column) {
      Table.SetCell(0, column, "Mes " + std::to_string(column));
      if (column % 2 == 0) Table.ColumnAt(column).alignment = Alignment::kRight;
    }
    for (int row = 1; row < Table.Rows(); ++row) {
      Table.SetCell(row, 0, "Fila " + std::to_string(row) + ".");
      for (int column = 1; row % 2 == 0 && column < Table.Columns(); ++column) {
        Table.SetCell(row, column,
                      std::to_string(row * 100 + column) + std::string(static_cast<std::size_t>(Below(12)), '0'));
      }
    }
  }

  std::mt19937 random_;
};

class RecordDocumentTest : public testing::Test {
 protected:
  FakeFormHost host_;
  FixedMeasure measure_;
};

TEST_F(RecordDocumentTest, SaysWhatTheFormSaysOnEveryPageOfIt) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    SCOPED_TRACE(seed);
    const RandomForm form(host_, host_, seed);
    const Document document = RecordDocument(form, kNow, measure_);
    EXPECT_EQ(document.title, "Fichas 00900 Peña Güell, Begoña");
    EXPECT_GT(document.pages.size(), 5U);
    ExpectInOrder(document);
    const Said said(document);
    for (const auto& [index, box] : form.Text) {
      EXPECT_TRUE(said.Has(box->Caption() + ":")) << box->Caption();
      EXPECT_TRUE(said.Has(box->Text())) << box->Text();
    }
    EXPECT_TRUE(said.Has(form.Long.Text()));
    for (const char* text : {"Observaciones:", "Cifra:", "Lista:", "1 Pasaporte", "Prestaciones:", "Sí", "Texto suelto",
                             "Primera", "Segunda · Dentro", "Segunda · Fuera", "Grupo", "01"}) {
      EXPECT_TRUE(said.Has(text)) << text;
    }
    for (const char* text : {"Marco oculto", "secreto", "Listado", "&", "Fila 7."}) {
      EXPECT_FALSE(said.Has(text)) << text;
    }
    std::multiset<std::string> texts;
    for (const Page& page : document.pages) {
      for (const TextRun& run : Runs(page)) texts.insert(run.text);
    }
    EXPECT_TRUE(texts.contains(GroupThousands(kLongFigure)));
    for (int row = 2; row < form.Table.Rows(); row += 2) {
      for (int column = 0; column < form.Table.Columns(); ++column) {
        EXPECT_TRUE(texts.contains(form.Table.Cell(row, column)));
      }
    }
    EXPECT_TRUE(texts.contains("Primera (continuación)"));
    EXPECT_GT(texts.count("Mes 1"), 1U) << "the head of the grid, on each of its pages";
  }
}

TEST_F(RecordDocumentTest, AGroupInWhichNothingIsFilledInIsItsTitle) {
  RandomForm form(host_, host_, 1);
  for (const auto& [index, box] : form.Text) box->SetText("");
  form.List.SetText("");
  form.Meaning.SetCaption("");
  form.Table.Resize(3, 3, 1, 1);
  const Document document = RecordDocument(form, kNow, measure_);
  ExpectInOrder(document);
  const Said said(document);
  EXPECT_TRUE(said.Has("Grupo"));
  EXPECT_FALSE(said.Has("Lista"));
  EXPECT_TRUE(said.Has("Campo 0 "));  // of the form itself
}

TEST_F(RecordDocumentTest, TheDetailOfABox) {
  std::vector<BoxDetail> rows;
  for (std::size_t i = 0; i < 90; ++i) {
    rows.push_back({"Paso " + std::to_string(i), std::to_string(i * i) + ",5", std::string(3 * i, 'x') + " × 24 %"});
  }
  const Heading heading = {{{"Año:", "01"}}, "Tipo de IRPF", "00900 Peña Güell", kNow};
  const Document document = DetailDocument(heading, "Sale 13,85\n ¿Quiere aplicarlo? ", rows, measure_);
  ExpectInOrder(document);
  ASSERT_GT(document.pages.size(), 1U);
  const Said said(document);
  EXPECT_TRUE(said.Has("Sale 13,85"));
  EXPECT_FALSE(said.Has("¿"));
  const auto end = [&](const std::string& text) {
    for (const Page& page : document.pages) {
      for (const TextRun& run : Runs(page)) {
        if (run.text == text) return run.x + measure_.Width(text, run.font);
      }
    }
    return 0;
  };
  for (const BoxDetail& row : rows) {
    EXPECT_TRUE(said.Has(row.label) && said.Has(row.source)) << row.label;
    EXPECT_EQ(end(row.figure), end("Importe"));
  }
  const std::vector<TextRun> last = Runs(document.pages.back());
  const auto result = std::ranges::find(last, "Paso 89", &TextRun::text);
  ASSERT_NE(result, last.end());
  EXPECT_TRUE(result->font.bold);
}

}  // namespace
}  // namespace zendara::print
