#include "print/record_outline.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "runtime/format.hpp"
#include "runtime/text.hpp"

namespace zendara::print {
namespace {

// Without the mark of an access key.
std::string Words(std::string_view caption) {
  std::string words(caption);
  std::erase(words, '&');
  return Trim(words);
}

// A caption before a field, with one colon in place of the dots and colons that lead to the field.
std::string LabelOf(const Control& control) {
  std::string label = Words(control.Caption());
  const std::size_t last = label.find_last_not_of(" .:");
  if (last == std::string::npos) return {};
  // The dot of an abbreviation stays: "I.R.P.F.:"
  const bool dot = label.size() > last + 1 && label[last + 1] == '.' && label.find('.', last + 2) == std::string::npos;
  label.erase(last + (dot ? 2 : 1));
  return label + ":";
}

std::string Marked(int value) { return value == 0 ? "No" : value == 1 ? "Sí" : ""; }

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }

Side SideOf(Alignment alignment) {
  return alignment == Alignment::kRight ? Side::kRight : alignment == Alignment::kCenter ? Side::kCenter : Side::kLeft;
}

// Of the columns on the left: the fixed ones, and those that have no head where others have one.
int NamesOf(const Grid& grid) {
  const auto headless = [&](int column) {
    for (int row = 0; row < grid.FixedRows(); ++row) {
      if (!IsBlank(grid.Cell(row, column))) return false;
    }
    return grid.FixedRows() > 0;
  };
  int names = grid.FixedColumns();
  while (names < grid.Columns() && headless(names)) ++names;
  return names < grid.Columns() ? names : grid.FixedColumns();
}

// Rows without an entry are left out, then columns without a text.
Table TableOf(const Grid& grid) {
  const int names = NamesOf(grid);
  const auto filled = [&](int row) {
    for (int column = names; column < grid.Columns(); ++column) {
      if (!IsBlank(grid.Cell(row, column))) return true;
    }
    return false;
  };
  std::vector<int> rows;
  for (int row = 0; row < grid.Rows(); ++row) {
    if (row < grid.FixedRows() || filled(row)) rows.push_back(row);
  }
  Table table{.columns = {}, .heads = static_cast<std::size_t>(grid.FixedRows()), .names = 0, .rows = {}};
  table.rows.resize(rows.size());
  for (int column = 0; column < grid.Columns(); ++column) {
    if (std::ranges::all_of(rows, [&](int row) { return IsBlank(grid.Cell(row, column)); })) continue;
    table.columns.push_back(SideOf(grid.ColumnAt(column).alignment));
    if (column < names) ++table.names;
    for (std::size_t i = 0; i < rows.size(); ++i) table.rows[i].push_back(Trim(grid.Cell(rows[i], column)));
  }
  return table;
}

class Reader {
 public:
  Outline Read(const Layout& layout) {
    outline_.sections.emplace_back();
    Walk(layout, 0);
    std::erase_if(outline_.sections, [](const Section& section) { return section.parts.empty(); });
    return std::move(outline_);
  }

 private:
  void Walk(const Layout& layout, std::size_t section) {
    if (!layout.control) return WalkInto(layout, section);  // columns and rows
    const Control& control = *layout.control;
    if (!control.Visible()) return;
    if (layout.kind == LayoutKind::kControl) Add(control, layout.attached, section);
    if (layout.kind == LayoutKind::kFrame) {
      const std::string title = Words(control.Caption());
      WalkInto(layout, title.empty() ? section : Inner(section, &Section::frames, title));
    }
    if (layout.kind == LayoutKind::kTabs) {
      const auto& titles = static_cast<const Tabs&>(control).Titles();
      for (std::size_t page = 0; page < layout.children.size(); ++page) {
        const std::string title = page < titles.size() ? Words(titles[page]) : std::string();
        Walk(layout.children[page], Inner(section, &Section::pages, title));
      }
    }
  }

  void WalkInto(const Layout& layout, std::size_t section) {
    for (const Layout& child : layout.children) Walk(child, section);
  }

  // What comes behind it in the section around it goes before it: under its title it would seem to be its own.
  std::size_t Inner(std::size_t section, std::vector<std::string> Section::*titles, const std::string& title) {
    Section inner = {outline_.sections[section].pages, outline_.sections[section].frames, {}};
    (inner.*titles).push_back(title);
    outline_.sections.push_back(std::move(inner));
    return outline_.sections.size() - 1;
  }

  void Add(const Control& control, const std::vector<Control*>& attached, std::size_t section) {
    std::vector<Part>& parts = outline_.sections[section].parts;
    if (control.HasCaptionBefore()) {
      Entry entry = {LabelOf(control), Value(control, attached)};
      const bool begins = outline_.sections.size() == 1 && parts.empty();
      if (begins && !control.Enabled()) {
        if (!entry.value.empty()) outline_.setting.push_back(std::move(entry));
      } else if (!entry.label.empty() || !entry.value.empty()) {
        parts.emplace_back(std::move(entry));
      }
    } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
      parts.emplace_back(Entry{LabelOf(control), Marked(check->Value())});
    } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
      parts.emplace_back(Entry{LabelOf(control), Marked(option->Value() ? 1 : 0)});
    } else if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
      parts.emplace_back(TableOf(*grid));
    } else if (const std::string words = LabelWords(control); !words.empty()) {
      parts.emplace_back(Entry{{}, words});
    }
  }

  // What a label says; other controls say nothing by themselves.
  static std::string LabelWords(const Control& control) {
    return dynamic_cast<const Label*>(&control) ? Words(control.Caption()) : std::string();
  }

  static std::string Value(const Control& control, const std::vector<Control*>& attached) {
    const auto* box = dynamic_cast<const TextBox*>(&control);
    std::string value = Trim(control.ShownText());
    if (box && box->Grouped()) value = GroupThousands(value);
    for (const Control* behind : attached) {
      if (!behind->Visible()) continue;
      const std::string more = behind->HasCaptionBefore() ? Trim(behind->ShownText()) : LabelWords(*behind);
      if (!more.empty()) value += (value.empty() ? "" : "  ") + more;
    }
    return value;
  }

  Outline outline_;
};

}  // namespace

Outline OutlineOf(const Form& form) { return Reader().Read(form.GetLayout()); }

}  // namespace zendara::print
