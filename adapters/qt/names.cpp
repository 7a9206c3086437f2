#include "adapters/qt/names.hpp"

#include <QStringList>
#include <algorithm>

#include "adapters/qt/text.hpp"

namespace zendara {
namespace {

QString Title(std::string_view caption) { return PlainCaption(caption).simplified(); }

// Titles of groups, and of pages if they are wanted, from the innermost out.
QStringList Around(const Control& control, bool pages) {
  QStringList titles;
  int page = control.Page();
  for (const Control* outer = control.Container(); outer; outer = outer->Container()) {
    if (const auto* tabs = dynamic_cast<const Tabs*>(outer)) {
      if (pages && page < tabs->PageCount()) titles << Title(tabs->Titles()[static_cast<std::size_t>(page)]);
    } else if (!outer->Caption().empty()) {
      titles << Title(outer->Caption());
    }
    page = outer->Page();
  }
  titles.erase(std::unique(titles.begin(), titles.end()), titles.end());  // a page that is one group
  return titles;
}

const QString kBetween = QStringLiteral(", ");

}  // namespace

QString NameOf(const Control& control) {
  if (control.PageCount() > 0) {
    const QStringList around = Around(control, true);
    return around.isEmpty() ? QStringLiteral("Páginas") : QStringLiteral("Páginas de ") + around.first();
  }
  QStringList words = {Title(control.Caption())};
  words << Around(control, false);
  words.removeAll(QString());
  return words.join(kBetween);
}

QString NameOfCell(const Grid& grid, int row, int column) {
  const auto heading = [](bool there, const std::string& text, const QString& otherwise) {
    const QString words = there ? Title(text) : QString();
    return words.isEmpty() ? otherwise : words;
  };
  const int rows = grid.FixedRows();
  const int columns = grid.FixedColumns();
  return heading(columns > 0, grid.Cell(row, 0), QStringLiteral("fila %1").arg(row - rows + 1)) + kBetween +
         heading(rows > 0, grid.Cell(0, column), QStringLiteral("columna %1").arg(column - columns + 1));
}

QString NameAndPlace(const Control& control) {
  QStringList place = Around(control, true);
  std::reverse(place.begin(), place.end());
  QString name = Title(control.Caption());
  const auto* grid = dynamic_cast<const Grid*>(&control);
  if (grid && grid->IsCell(grid->Row(), grid->Col())) name = NameOfCell(*grid, grid->Row(), grid->Col());
  QString where = place.join(kBetween);
  if (name.isEmpty()) return where;
  name = QStringLiteral("«%1»").arg(name);
  return where.isEmpty() ? name : name + QStringLiteral(", en ") + where;
}

}  // namespace zendara
