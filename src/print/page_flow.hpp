// Lines one below the other on as many pages as they take, under one heading.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "print/page.hpp"
#include "print/text_lines.hpp"

namespace zendara::print {

// A label and what stands behind it.
struct Entry {
  std::string label;
  std::string value;
};

// What every page begins with.
struct Heading {
  std::vector<Entry> setting;  // the company and the year
  std::string title;           // what kind of document it is
  std::string subject;         // of whom; may be empty
  std::string created;         // as Document::created
};

// Title and subject, for the document's title and the proposed name of its file.
std::string NameOf(const Heading& heading);

// How far inside of the others a block stands. Titles and heads of tables stay with what follows them, and stand again
// where the rest of it begins a page.
enum class Level { kTitle, kSubtitle, kTableHead, kBody };

struct Block {
  Level level = Level::kBody;
  int space = 0;  // above it, but at the top of a page
  std::vector<Line> lines;
};

class PageFlow {
 public:
  // REQUIRES: measure outlives it.
  PageFlow(const Heading& heading, const Paper& paper, const TextMeasure& measure);

  int Left() const { return paper_.margin; }
  int Width() const { return paper_.width - 2 * paper_.margin; }
  const TextMeasure& Measure() const { return measure_; }

  // A block of a level ends all titles and heads of that level and those inside it. `again`: its lines where it is
  // repeated. A block that a page has room for is not parted.
  void Add(Block block, std::vector<Line> again = {});
  // The table has ended.
  void EndTable() { EndFrom(Level::kTableHead); }

  // With the numbers of the pages. The last call.
  Document Finish();

 private:
  void EndFrom(Level level);
  void PlaceWaiting();
  void Place(const Line& line);
  void BeginPage(Level before);
  int Bottom() const;

  std::string title_;
  std::string created_;
  Paper paper_;
  const TextMeasure& measure_;
  std::vector<Line> head_;
  std::vector<Block> waiting_;                                                   // titles, for what follows them
  std::array<std::vector<Line>, static_cast<std::size_t>(Level::kBody)> again_;  // by level
  std::vector<Page> pages_;
  int y_ = 0;      // of the next line
  int begun_ = 0;  // where the body of the page began
};

}  // namespace zendara::print
