#include "print/text_lines.hpp"

#include <algorithm>
#include <cstddef>

#include "runtime/text.hpp"

namespace zendara::print {
namespace {

// A word with what may not be parted from it, as its place in the text.
struct Piece {
  std::size_t begin = 0;
  std::size_t end = 0;
};

bool Leads(std::string_view word) { return word == "×"; }
bool Follows(std::string_view word) { return word.starts_with("%") || word == "×"; }

std::vector<Piece> PiecesOf(std::string_view paragraph) {
  std::vector<Piece> pieces;
  bool leads = false;
  for (std::size_t begin = 0; (begin = paragraph.find_first_not_of(' ', begin)) != std::string_view::npos;) {
    const std::size_t end = std::min(paragraph.find(' ', begin), paragraph.size());
    const std::string_view word = paragraph.substr(begin, end - begin);
    if (!pieces.empty() && (leads || Follows(word))) {
      pieces.back().end = end;
    } else {
      pieces.push_back({begin, end});
    }
    leads = Leads(word);
    begin = end;
  }
  return pieces;
}

// A mark on the letter before it.
bool IsCombining(int code) { return code >= 0x300 && code <= 0x36F; }

// Bytes of the longest beginning that fits, one character at least.
std::size_t Fitting(std::string_view word, int width, const Font& font, const TextMeasure& measure) {
  std::size_t fitting = 1;  // characters
  std::size_t too_many = Len(word) + 1;
  while (too_many - fitting > 1) {
    const std::size_t middle = (fitting + too_many) / 2;
    (measure.Width(word.substr(0, BytesOf(word, middle)), font) <= width ? fitting : too_many) = middle;
  }
  const auto parts_a_letter = [&](std::size_t characters) {
    std::string_view rest = word.substr(BytesOf(word, characters));
    return !rest.empty() && IsCombining(CodePoint(TakeCharacter(rest)));
  };
  while (fitting > 1 && parts_a_letter(fitting)) --fitting;
  return BytesOf(word, fitting);
}

void WrapParagraph(std::string_view paragraph, int width, const Font& font, const TextMeasure& measure,
                   std::vector<std::string>& lines) {
  const auto fits = [&](std::size_t begin, std::size_t end) {
    return measure.Width(paragraph.substr(begin, end - begin), font) <= width;
  };
  const std::vector<Piece> pieces = PiecesOf(paragraph);
  Piece line = pieces.empty() ? Piece() : Piece{pieces.front().begin, pieces.front().begin};
  for (const Piece& piece : pieces) {
    if (fits(line.begin, piece.end)) {
      line.end = piece.end;
      continue;
    }
    if (line.end > line.begin) lines.emplace_back(paragraph.substr(line.begin, line.end - line.begin));
    line = piece;
    while (!fits(line.begin, line.end)) {
      const std::string_view rest = paragraph.substr(line.begin, line.end - line.begin);
      const std::size_t part = Fitting(rest, width, font, measure);
      if (part == rest.size()) break;
      lines.emplace_back(rest.substr(0, part));
      line.begin += part;
    }
  }
  lines.emplace_back(paragraph.substr(line.begin, line.end - line.begin));
}

// Other control characters than line feeds count as blanks.
std::string Printable(std::string_view text) {
  std::string printable(text);
  for (char& c : printable) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte < ' ' && c != '\n') || byte == 127) c = ' ';
  }
  return printable;
}

}  // namespace

std::vector<std::string> Wrap(std::string_view text, int width, const Font& font, const TextMeasure& measure) {
  const std::string printable = Printable(text);
  std::vector<std::string> lines;
  for (std::string_view rest = printable;;) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    WrapParagraph(rest.substr(0, end), width, font, measure, lines);
    if (end == rest.size()) return lines;
    rest.remove_prefix(end + 1);
  }
}

std::vector<Line> LinesOf(std::string_view text, const TextPlace& place, const TextMeasure& measure) {
  std::vector<Line> lines;
  for (std::string& words : Wrap(text, place.width, place.font, measure)) {
    Line& line = lines.emplace_back(Line{measure.LineHeight(place.font), {}});
    if (words.empty()) continue;
    const int room = place.side == Side::kLeft ? 0 : place.width - measure.Width(words, place.font);
    const int x = place.x + (place.side == Side::kCenter ? room / 2 : room);
    line.marks.emplace_back(TextRun{x, measure.Ascent(place.font), place.font, std::move(words), place.tone});
  }
  return lines;
}

int FullWidth(std::string_view text, const Font& font, const TextMeasure& measure) {
  const std::string printable = Printable(text);
  int widest = 0;
  for (std::string_view rest = printable;;) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    widest = std::max(widest, measure.Width(Trim(rest.substr(0, end)), font));
    if (end == rest.size()) return widest;
    rest.remove_prefix(end + 1);
  }
}

int WordWidth(std::string_view text, const Font& font, const TextMeasure& measure) {
  const std::string printable = Printable(text);
  int widest = 0;
  for (std::string_view rest = printable;;) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    for (const Piece& piece : PiecesOf(rest.substr(0, end))) {
      widest = std::max(widest, measure.Width(rest.substr(piece.begin, piece.end - piece.begin), font));
    }
    if (end == rest.size()) return widest;
    rest.remove_prefix(end + 1);
  }
}

void PutBeside(std::vector<Line>& lines, const std::vector<Line>& more) {
  if (lines.size() < more.size()) lines.resize(more.size());
  for (std::size_t i = 0; i < more.size(); ++i) {
    lines[i].height = std::max(lines[i].height, more[i].height);
    lines[i].marks.insert(lines[i].marks.end(), more[i].marks.begin(), more[i].marks.end());
  }
}

int HeightOf(const std::vector<Line>& lines) {
  int height = 0;
  for (const Line& line : lines) height += line.height;
  return height;
}

}  // namespace zendara::print
