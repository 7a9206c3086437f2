// The pages of the help as texts: anchors of their headings, and a search over all of them.
#pragma once

#include <QString>
#include <QUrl>
#include <vector>

class QTextBlock;
class QTextDocument;

namespace zendara {

// Address of a page, or of a place in it: a link from the help's folder.
QUrl HelpAddress(const QString& link);
// Title of the page at that address; empty for none of the help.
QString HelpTitle(const QUrl& address);

// Anchor of a heading, as code hosts make it: small letters, a hyphen for each blank, no punctuation.
QString AnchorOf(const QString& heading);
// The heading with that anchor; not valid if there is none.
QTextBlock HeadingOf(const QTextDocument& page, const QString& anchor);

// Without case and accents, every character in its place.
QString Folded(const QString& text);

struct HelpHit {
  QUrl page;
  QString title;     // of the page
  QString sentence;  // with the first of the words
  int block;         // number of the paragraph in the page, of the first cell for a row of a table
  int last_block;
};

// Paragraphs and rows of tables that have every one of the words, without case and accents: headings first, then those
// where the words stand together. Nothing for an empty text.
std::vector<HelpHit> SearchHelp(const QString& words);

}  // namespace zendara
