#include "print/page_flow.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "runtime/text.hpp"

namespace zendara::print {
namespace {

constexpr Font kSmall = {8, false};
constexpr Font kSubject = {14, true};
constexpr Font kKind = {10, false};
constexpr int kGap = 120;      // between a label and its value
constexpr int kWideGap = 360;  // between entries beside each other
constexpr int kBelowSetting = 120;
constexpr int kBelowHead = 240;
constexpr int kAboveFoot = 200;
constexpr int kBelowAgain = 60;

// yyyy-mm-ddThh:mm:ss as dd/mm/yyyy and the time without seconds.
std::string PrintedOn(const std::string& created) {
  return "Impreso el " + created.substr(8, 2) + "/" + created.substr(5, 2) + "/" + created.substr(0, 4) + " a las " +
         created.substr(11, 5);
}

// Entries one behind the other, as many as a line has room for.
std::vector<Line> SettingLines(const std::vector<Entry>& setting, int left, int width, const TextMeasure& measure) {
  std::vector<Line> lines;
  int x = left;
  for (const Entry& entry : setting) {
    const int label = FullWidth(entry.label, kSmall, measure);
    const int value = FullWidth(entry.value, kSmall, measure);
    if (lines.empty() || x + label + kGap + value > left + width) {
      lines.push_back({measure.LineHeight(kSmall), {}});
      x = left;
    }
    std::vector<Line> both = LinesOf(entry.label, {x, width, kSmall, Tone::kQuiet}, measure);
    x += label + kGap;
    PutBeside(both, LinesOf(entry.value, {x, left + width - x, kSmall}, measure));
    x += value + kWideGap;
    std::vector<Line> last = {std::move(lines.back())};
    PutBeside(last, both);
    lines.pop_back();
    lines.insert(lines.end(), last.begin(), last.end());
  }
  return lines;
}

std::vector<Line> HeadLines(const Heading& heading, int left, int width, const TextMeasure& measure) {
  std::vector<Line> lines = SettingLines(heading.setting, left, width, measure);
  const bool both = !heading.subject.empty();
  const int kind = both ? std::min(FullWidth(heading.title, kKind, measure), width / 2) : 0;
  std::vector<Line> name =
      LinesOf(both ? heading.subject : heading.title, {left, width - kind - (both ? kWideGap : 0), kSubject}, measure);
  if (both) {
    std::vector<Line> title =
        LinesOf(heading.title, {left + width - kind, kind, kKind, Tone::kQuiet, Side::kRight}, measure);
    // On the same baseline.
    for (Line& line : title) {
      for (Mark& mark : line.marks) std::get<TextRun>(mark).baseline = measure.Ascent(kSubject);
    }
    PutBeside(name, title);
  }
  if (!lines.empty()) lines.push_back({kBelowSetting, {}});
  lines.insert(lines.end(), name.begin(), name.end());
  lines.push_back({kBelowHead, {Rule{left, kBelowHead / 4, width}}});
  return lines;
}

}  // namespace

std::string NameOf(const Heading& heading) {
  return heading.subject.empty() ? heading.title : heading.title + " " + heading.subject;
}

PageFlow::PageFlow(const Heading& heading, const Paper& paper, const TextMeasure& measure)
    : title_(NameOf(heading)),
      created_(heading.created),
      paper_(paper),
      measure_(measure),
      head_(HeadLines(heading, Left(), Width(), measure)) {
  BeginPage(Level::kTitle);
}

int PageFlow::Bottom() const { return paper_.height - paper_.margin - measure_.LineHeight(kSmall) - kAboveFoot; }

void PageFlow::EndFrom(Level level) {
  for (auto i = static_cast<std::size_t>(level); i < again_.size(); ++i) again_[i].clear();
}

void PageFlow::BeginPage(Level before) {
  pages_.emplace_back();
  y_ = paper_.margin;
  for (const Line& line : head_) Place(line);
  for (std::size_t i = 0; i < static_cast<std::size_t>(before); ++i) {
    for (const Line& line : again_[i]) Place(line);
    if (!again_[i].empty()) y_ += kBelowAgain;
  }
  begun_ = y_;
}

void PageFlow::Place(const Line& line) {
  for (Mark mark : line.marks) {
    if (auto* text = std::get_if<TextRun>(&mark)) text->baseline += y_;
    if (auto* rule = std::get_if<Rule>(&mark)) rule->y += y_;
    pages_.back().marks.push_back(std::move(mark));
  }
  y_ += line.height;
}

void PageFlow::Add(Block block, std::vector<Line> again) {
  const Level level = block.level;
  waiting_.push_back(std::move(block));
  if (level == Level::kBody) return PlaceWaiting();
  EndFrom(level);
  again_[static_cast<std::size_t>(level)] = std::move(again);
}

void PageFlow::PlaceWaiting() {
  int height = 0;
  for (const Block& block : waiting_) height += block.space + HeightOf(block.lines);
  if (y_ > begun_ && y_ + height > Bottom()) BeginPage(waiting_.front().level);
  for (const Block& block : std::exchange(waiting_, {})) {
    if (y_ > begun_) y_ += block.space;
    for (const Line& line : block.lines) {
      if (y_ > begun_ && y_ + line.height > Bottom()) BeginPage(block.level);
      Place(line);
    }
  }
}

Document PageFlow::Finish() {
  PlaceWaiting();
  const int y = paper_.height - paper_.margin - measure_.LineHeight(kSmall) + measure_.Ascent(kSmall);
  const std::string of = " de " + std::to_string(pages_.size());
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    const std::string number = "Página " + std::to_string(i + 1) + of;
    const int x = Left() + Width() - measure_.Width(number, kSmall);
    pages_[i].marks.emplace_back(TextRun{Left(), y, kSmall, PrintedOn(created_), Tone::kQuiet});
    pages_[i].marks.emplace_back(TextRun{x, y, kSmall, number, Tone::kQuiet});
  }
  return {std::move(title_), std::move(created_), paper_, std::move(pages_)};
}

}  // namespace zendara::print
