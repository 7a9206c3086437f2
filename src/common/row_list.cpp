#include "common/row_list.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "runtime/characters.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

std::string TextOf(const Value& value) {
  if (value.IsNull()) return {};
  return value.IsDate() ? ShortDate(value.AsDate()) : CStr(value);
}

// Ordinal of the column that a code names, or -1.
int OrdinalOf(const std::vector<ColumnDef>& columns, std::string_view code) {
  if (code.size() != 3 || !std::ranges::all_of(code, IsDigit)) throw RuntimeError(kInvalidCall);
  const std::string name = "campo" + std::to_string((code[0] - '0') * 10 + (code[1] - '0'));
  const auto found = std::ranges::find_if(columns, [&](const ColumnDef& c) { return LCase(c.name) == name; });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

// A code without the zeros on its left.
std::string_view Stripped(std::string_view code) {
  code.remove_prefix(std::min(code.find_first_not_of('0'), code.size()));
  return code;
}

}  // namespace

void RowList::TakeColumns(const std::vector<std::string>& columns, const std::vector<RowPlace>& places) {
  if (columns.size() != places.size()) throw RuntimeError(kInvalidCall);
  int next = 1;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (places[i].start < next || places[i].width < 0 || columns[i].empty()) throw RuntimeError(kInvalidCall);
    next = places[i].start + places[i].width;
    columns_.push_back({.kind = columns[i].back() - '0'});
  }
  places_ = places;
  Present({});
}

RowList::RowList(Engine& engine, const std::string& base, const std::string& sql,
                 const std::vector<std::string>& columns, const std::vector<RowPlace>& places) {
  TakeColumns(columns, places);
  rs_ = engine.Workspaces(0)->OpenDatabase(base)->OpenRecordset(sql);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    int ordinal = -1;
    char kind = '0';
    for (std::string_view rest = columns[i]; ordinal < 0 && !rest.empty();) {
      const std::string_view code = rest.substr(0, rest.find(','));
      ordinal = OrdinalOf(rs_->Columns(), code);
      kind = code.back();
      rest.remove_prefix(std::min(code.size() + 1, rest.size()));
    }
    if (ordinal < 0) throw RuntimeError(kItemNotFound, {}, "no column " + columns[i] + " in: " + sql);
    columns_[i].kind = kind - '0';
    columns_[i].ordinal = ordinal;
  }
}

RowList::RowList(PickRows& rows, const std::vector<std::string>& columns, const std::vector<RowPlace>& places)
    : made_(&rows) {
  TakeColumns(columns, places);
}

RowList::RowList(const std::vector<std::string>& lines) : columns_(1), complete_(true) {
  for (const std::string& line : lines) lines_.Begin() += line;
  Present({});
}

void RowList::Present(PickView view) {
  view_ = std::move(view);
  if (view_.reading.empty()) {
    for (std::size_t i = 0; i < columns_.size(); ++i) view_.reading.push_back(i);
  }
  reads_as_made_ = view_.reading.size() == columns_.size() && std::ranges::is_sorted(view_.reading);
}

bool RowList::Reach(std::size_t row) {
  while (made_ && !complete_ && lines_.Size() <= row) {
    complete_ = !made_->Siguiente(texts_);
    if (complete_) break;
    std::string& line = lines_.Begin();
    for (const std::string& text : texts_) (line += text) += kTextEnd;
  }
  while (rs_ && !complete_ && reached_.size() <= row) {
    if (!reached_.empty()) {
      rs_->GoTo(reached_.back());
      rs_->MoveNext();
    }
    complete_ = rs_->Eof();
    if (!complete_) reached_.push_back(rs_->Bookmark());
  }
  return row < Reached();
}

std::size_t RowList::Total() {
  Reach(std::numeric_limits<std::size_t>::max());
  return Reached();
}

Value RowList::Stored(std::size_t row, std::size_t column) const {
  rs_->GoTo(reached_[row]);
  return rs_->Fields(columns_[column].ordinal).Get();
}

std::string RowList::Cell(std::size_t row, std::size_t column) const {
  if (rs_) return TextOf(Stored(row, column));
  std::string_view line = lines_[row];
  if (!made_) return std::string(line);
  for (; column > 0; --column) line.remove_prefix(line.find(kTextEnd) + 1);
  return std::string(line.substr(0, line.find(kTextEnd)));
}

std::string_view RowList::Line(std::size_t row) {
  if (made_ && reads_as_made_) return lines_[row];
  line_.clear();
  for (const std::size_t column : view_.reading) {
    try {
      line_ += Cell(row, column);
    } catch (const RuntimeError& error) {
      if (error.number() != kDataConversion) throw;
    }
    line_ += kTextEnd;
  }
  return line_;
}

std::string RowList::Row(std::size_t row) const {
  if (places_.empty()) return std::string(lines_[row]);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < columns_.size(); ++i) texts.push_back(Cell(row, i));
  return LayOutRow(texts, places_);
}

std::size_t RowList::PresentIn(std::size_t row) const {
  const auto has = [&](const PlacedText& wanted) {
    const auto column = std::ranges::find(places_, wanted.place);
    const std::string held =
        Trim(column != places_.end() ? Cell(row, static_cast<std::size_t>(column - places_.begin()))
                                     : Mid(Row(row), wanted.place.start, wanted.place.width));
    return !held.empty() && Stripped(held) == Stripped(wanted.text);
  };
  return static_cast<std::size_t>(std::ranges::find_if_not(view_.present, has) - view_.present.begin());
}

}  // namespace zendara
