#include "adapters/qt/help_pages.hpp"

#include <QFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>

#include "adapters/qt/text.hpp"
#include "common/ayuda.hpp"

static void InitHelpPages() { Q_INIT_RESOURCE(zendara_help); }

namespace zendara {
namespace {

// What is found as one piece.
struct Piece {
  QUrl page;
  QString title;
  QString text;
  QString folded;
  int block;
  int last_block;
  bool heading;
};

// A row of a table is one piece: its cells belong together.
void AddPieces(const QUrl& address, const QString& title, std::vector<Piece>& pieces) {
  QFile file(QLatin1Char(':') + address.path());
  if (!file.open(QIODevice::ReadOnly)) return;
  QTextDocument page;
  page.setMarkdown(QString::fromUtf8(file.readAll()));
  const QTextTable* table = nullptr;
  int row = -1;
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    if (block.text().trimmed().isEmpty()) continue;
    QTextCursor cursor(block);
    const QTextTable* here = cursor.currentTable();
    const int row_here = here ? here->cellAt(cursor).row() : -1;
    const int number = block.blockNumber();
    if (here && here == table && row_here == row) {
      Piece& piece = pieces.back();
      piece.text += QStringLiteral(" · ") + block.text();
      piece.last_block = number;
    } else {
      pieces.push_back(
          {address, title, block.text().trimmed(), {}, number, number, block.blockFormat().headingLevel() > 0});
    }
    table = here;
    row = row_here;
  }
}

const std::vector<Piece>& Pieces() {
  static const std::vector<Piece> pieces = [] {
    std::vector<Piece> all;
    for (const PaginaAyuda& page : PaginasAyuda()) {
      AddPieces(HelpAddress(ToQt(page.fichero)), ToQt(page.titulo), all);
    }
    for (Piece& piece : all) piece.folded = Folded(piece.text);
    return all;
  }();
  return pieces;
}

QString SentenceAt(const QString& text, qsizetype place) {
  constexpr int kMost = 160;
  qsizetype from = text.lastIndexOf(QLatin1String(". "), place);
  from = from < 0 ? 0 : from + 2;
  qsizetype end = text.indexOf(QLatin1String(". "), place);
  end = end < 0 ? text.size() : end + 1;
  if (end - from <= kMost) return text.mid(from, end - from);
  const qsizetype begin = std::clamp(place - kMost / 3, from, end - kMost);
  return (begin > from ? QStringLiteral("…") : QString()) + text.mid(begin, kMost) +
         (begin + kMost < end ? QStringLiteral("…") : QString());
}

}  // namespace

QUrl HelpAddress(const QString& link) {
  InitHelpPages();
  return QUrl(QStringLiteral("qrc:/help/")).resolved(QUrl(link));
}

QString HelpTitle(const QUrl& address) {
  const QString file = address.fileName();
  const auto pages = PaginasAyuda();
  const auto page = std::ranges::find_if(pages, [&](const PaginaAyuda& p) { return ToQt(p.fichero) == file; });
  return page == pages.end() ? QString() : ToQt(page->titulo);
}

QString AnchorOf(const QString& heading) {
  QString anchor;
  for (const QChar sign : heading.trimmed().toLower()) {
    if (sign.isLetterOrNumber() || sign == QLatin1Char('-') || sign == QLatin1Char('_')) anchor += sign;
    if (sign.isSpace()) anchor += QLatin1Char('-');
  }
  return anchor;
}

QTextBlock HeadingOf(const QTextDocument& page, const QString& anchor) {
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() > 0 && AnchorOf(block.text()) == anchor) return block;
  }
  return {};
}

QString Folded(const QString& text) {
  QString folded = text;
  for (QChar& sign : folded) {
    const QString parts = QString(sign).normalized(QString::NormalizationForm_D);
    sign = parts.at(0).toLower();
  }
  return folded;
}

std::vector<HelpHit> SearchHelp(const QString& words) {
  const QStringList wanted = Folded(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
  if (wanted.isEmpty()) return {};
  const QString phrase = wanted.join(QLatin1Char(' '));
  // Headings, then where the words stand together, then the rest.
  std::vector<const Piece*> found[3];
  for (const Piece& piece : Pieces()) {
    const auto has = [&](const QString& word) { return piece.folded.contains(word); };
    if (!std::ranges::all_of(wanted, has)) continue;
    found[piece.heading ? 0 : has(phrase) ? 1 : 2].push_back(&piece);
  }
  std::vector<HelpHit> hits;
  for (const auto& pieces : found) {
    for (const Piece* piece : pieces) {
      const auto together = piece->folded.indexOf(phrase);
      const auto place = together < 0 ? piece->folded.indexOf(wanted.front()) : together;
      hits.push_back({piece->page, piece->title, SentenceAt(piece->text, place), piece->block, piece->last_block});
    }
  }
  return hits;
}

}  // namespace zendara
