#include "print/record_document.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "print/record_outline.hpp"
#include "print/table.hpp"
#include "runtime/text.hpp"

namespace zendara::print {
namespace {

constexpr Font kText = {9, false};
constexpr Font kPageTitle = {11, true};
constexpr Font kFrameTitle = {9, true};
constexpr int kAbovePage = 240;
constexpr int kAboveFrame = 100;
constexpr int kAboveRow = 30;
constexpr int kUnderTitle = 50;
constexpr int kBetween = 360;          // the two columns of fields
constexpr int kGap = 120;              // a label and its value
constexpr std::size_t kMostLines = 2;  // of a value that stands behind another field, as what a code stands for

constexpr std::string_view kEmpty = "–";
constexpr std::string_view kStep = " · ";
constexpr std::string_view kContinued = " (continuación)";

bool IsEmpty(const Part& part) {
  if (const auto* entry = std::get_if<Entry>(&part)) return entry->value.empty();
  const auto& table = std::get<Table>(part);
  return table.rows.size() <= table.heads;
}

bool IsEmpty(const Section& section) {
  return std::ranges::all_of(section.parts, [](const Part& part) { return IsEmpty(part); });
}

std::string Path(const std::vector<std::string>& titles) {
  std::string path;
  for (const std::string& title : titles) path.append(path.empty() ? "" : kStep).append(title);
  return path;
}

bool Inside(const std::vector<std::string>& titles, const std::vector<std::string>& outer) {
  return titles.size() > outer.size() && std::equal(outer.begin(), outer.end(), titles.begin());
}

// The lines that are no question to whoever is at the screen.
std::string Said(std::string_view text) {
  std::string said;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line = Trim(text.substr(0, end));
    if (!line.empty() && !line.starts_with("¿")) said.append(said.empty() ? "" : "\n").append(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return said;
}

// The fields of a form, and what stands between them.
class RecordPages {
 public:
  RecordPages(PageFlow& flow, const Outline& outline) : flow_(flow), outline_(outline) {
    const int most = (Column() - kGap) / 2;
    for (const Section& section : outline.sections) {
      for (const Part& part : section.parts) {
        const auto* entry = std::get_if<Entry>(&part);
        if (entry) label_ = std::max(label_, std::min(FullWidth(entry->label, kText, flow.Measure()), most));
      }
    }
  }

  void Add() {
    const Section* before = nullptr;
    const Section* empty = nullptr;
    for (const Section& section : outline_.sections) {
      if (!section.pages.empty() && (!before || before->pages != section.pages)) AddPageTitle(section);
      before = &section;
      if (empty && empty->pages == section.pages && Inside(section.frames, empty->frames) && IsEmpty(section)) continue;
      empty = IsEmpty(section) && !section.frames.empty() ? &section : nullptr;
      AddFrameTitle(section, empty != nullptr);
      if (!empty) AddParts(section);
    }
  }

 private:
  const TextMeasure& Measure() const { return flow_.Measure(); }
  int Column() const { return (flow_.Width() - kBetween) / 2; }

  void AddPageTitle(const Section& section) {
    const auto lines = [&](const std::string& title) {
      std::vector<Line> made = LinesOf(title, {flow_.Left(), flow_.Width(), kPageTitle}, Measure());
      made.push_back({kUnderTitle, {Rule{flow_.Left(), kUnderTitle / 2, flow_.Width()}}});
      return made;
    };
    const std::string title = Path(section.pages);
    flow_.Add({Level::kTitle, kAbovePage, lines(title)}, lines(title + std::string(kContinued)));
  }

  void AddFrameTitle(const Section& section, bool empty) {
    const std::string title = Path(section.frames);
    std::vector<Line> lines;
    if (!title.empty()) lines = LinesOf(title, {flow_.Left(), flow_.Width(), kFrameTitle}, Measure());
    if (!empty) return flow_.Add({Level::kSubtitle, title.empty() ? 0 : kAboveFrame, lines}, lines);
    const int x = flow_.Left() + std::min(FullWidth(title, kFrameTitle, Measure()), flow_.Width() - kBetween) + kGap;
    PutBeside(lines, LinesOf(kEmpty, {x, kBetween, kText, Tone::kQuiet}, Measure()));
    flow_.Add({Level::kBody, kAboveFrame, std::move(lines)});
  }

  void AddParts(const Section& section) {
    std::optional<std::vector<Line>> left;  // a field that waits for one beside it
    const auto flush = [&] {
      if (left) flow_.Add({Level::kBody, kAboveRow, *std::exchange(left, std::nullopt)});
    };
    for (const Part& part : section.parts) {
      const auto* entry = std::get_if<Entry>(&part);
      if (entry && left && FitsBeside(*entry, kMostLines)) {
        PutBeside(*left, EntryLines(*entry, flow_.Left() + Column() + kBetween, Column()));
        flush();
        continue;
      }
      flush();
      if (!entry) {
        AddGrid(std::get<Table>(part));
      } else if (FitsBeside(*entry, 1)) {
        left = EntryLines(*entry, flow_.Left(), Column());
      } else {
        flow_.Add({Level::kBody, kAboveRow, EntryLines(*entry, flow_.Left(), flow_.Width())});
      }
    }
    flush();
  }

  void AddGrid(const Table& table) {
    if (!IsEmpty(table)) return AddTable(flow_, table);
    flow_.Add({Level::kBody, kAboveRow, EntryLines({}, flow_.Left(), flow_.Width())});
  }

  // In one of the two columns, on so many lines and with no word broken.
  bool FitsBeside(const Entry& entry, std::size_t lines) const {
    const int room = entry.label.empty() ? Column() : Column() - label_ - kGap;
    return WordWidth(entry.value, kText, Measure()) <= room &&
           Wrap(entry.value, room, kText, Measure()).size() <= lines;
  }

  std::vector<Line> EntryLines(const Entry& entry, int x, int width) const {
    const int before = entry.label.empty() ? 0 : label_ + kGap;
    std::vector<Line> lines;
    if (before > 0) lines = LinesOf(entry.label, {x, label_, kText, Tone::kQuiet}, Measure());
    const bool empty = entry.value.empty();
    PutBeside(lines, LinesOf(empty ? kEmpty : entry.value,
                             {x + before, width - before, kText, empty ? Tone::kQuiet : Tone::kNormal}, Measure()));
    return lines;
  }

  PageFlow& flow_;
  const Outline& outline_;
  int label_ = 0;  // width of what stands before the values
};

}  // namespace

Heading HeadingOf(const Form& form, const std::string& created) {
  const std::string& title = form.Title().empty() ? form.Name() : form.Title();
  return {OutlineOf(form).setting, title, Trim(form.Subject()), created};
}

Document RecordDocument(const Form& form, const std::string& created, const TextMeasure& measure) {
  PageFlow flow(HeadingOf(form, created), Paper(), measure);
  const Outline outline = OutlineOf(form);
  RecordPages(flow, outline).Add();
  return flow.Finish();
}

Document DetailDocument(const Heading& heading, const std::string& text, const std::vector<BoxDetail>& rows,
                        const TextMeasure& measure) {
  PageFlow flow(heading, Paper(), measure);
  if (const std::string said = Said(text); !said.empty()) {
    flow.Add({Level::kBody, kAboveFrame, LinesOf(said, {flow.Left(), flow.Width(), kText}, measure)});
  }
  Table table{.columns = {Side::kLeft, Side::kRight, Side::kLeft},
              .heads = 1,
              .names = 0,
              .rows = {{"Concepto", "Importe", "De dónde sale"}},
              .result = true};
  for (const BoxDetail& row : rows) table.rows.push_back({row.label, row.figure, row.source});
  AddTable(flow, table);
  return flow.Finish();
}

}  // namespace zendara::print
