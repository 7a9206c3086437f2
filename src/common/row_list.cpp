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

// Small letters with the marks that a search does not ask for; ñ is a letter of its own.
constexpr std::pair<std::string_view, char> kPlainLetters[] = {
    {"á", 'a'}, {"à", 'a'}, {"â", 'a'}, {"ä", 'a'}, {"ã", 'a'}, {"å", 'a'}, {"é", 'e'}, {"è", 'e'}, {"ê", 'e'},
    {"ë", 'e'}, {"í", 'i'}, {"ì", 'i'}, {"î", 'i'}, {"ï", 'i'}, {"ó", 'o'}, {"ò", 'o'}, {"ô", 'o'}, {"ö", 'o'},
    {"õ", 'o'}, {"ú", 'u'}, {"ù", 'u'}, {"û", 'u'}, {"ü", 'u'}, {"ý", 'y'}, {"ÿ", 'y'}, {"ç", 'c'},
};

std::string Plain(std::string_view text) {
  const std::string small = LCase(text);
  std::string plain;
  for (std::size_t i = 0; i < small.size();) {
    const std::string_view two = std::string_view(small).substr(i, 2);
    const auto letter = std::ranges::find(kPlainLetters, two, &std::pair<std::string_view, char>::first);
    const bool marked = letter != std::end(kPlainLetters);
    plain += marked ? letter->second : small[i];
    i += marked ? 2 : 1;
  }
  return plain;
}

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

}  // namespace

RowList::RowList(Engine& engine, const std::string& base, const std::string& sql,
                 const std::vector<std::string>& columns, const std::vector<RowPlace>& places) {
  if (columns.size() != places.size()) throw RuntimeError(kInvalidCall);
  int next = 1;
  for (const RowPlace& place : places) {
    if (place.start < next || place.width < 0) throw RuntimeError(kInvalidCall);
    next = place.start + place.width;
  }
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
    columns_.push_back({kind - '0', ordinal, places[i]});
  }
}

RowList::RowList(std::vector<std::string> lines) : columns_(1), lines_(std::move(lines)), complete_(true) {}

bool RowList::Reach(std::size_t row) {
  while (!complete_ && reached_.size() <= row) {
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
  return rs_ ? TextOf(Stored(row, column)) : lines_[row];
}

std::string RowList::Row(std::size_t row) const {
  if (!rs_) return lines_[row];
  std::string text;
  std::size_t width = 0;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const RowPlace& place = columns_[i].place;
    const auto start = static_cast<std::size_t>(place.start - 1);
    text.append(start - width, ' ');
    text += Fit(Cell(row, i), static_cast<std::size_t>(place.width));
    width = start + static_cast<std::size_t>(place.width);
  }
  return text;
}

std::optional<std::size_t> RowList::Find(std::size_t column, std::string_view text, std::size_t from) {
  const std::string wanted = Plain(text);
  const int length = static_cast<int>(Len(text));
  for (std::size_t row = from; Reach(row); ++row) {
    if (Plain(Left(Cell(row, column), length)) == wanted) return row;
  }
  return std::nullopt;
}

}  // namespace zendara
