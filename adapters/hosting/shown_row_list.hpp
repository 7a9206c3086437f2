// A list over rows as its user outside of the project sees it: columns in the order in which people read them.
#pragma once

#include <cstddef>
#include <string>

#include "common/row_list.hpp"
#include "zendara/automation.hpp"

namespace zendara {

class ShownRowList : public ShownRows {
 public:
  // The list outlives it.
  explicit ShownRowList(RowList& rows) : rows_(rows) {}

  std::size_t Columns() const override { return rows_.Reading().size(); }
  std::string Heading(std::size_t column) const override {
    const auto& headings = rows_.View().headings;
    const std::size_t own = rows_.Reading()[column];
    return own < headings.size() ? headings[own] : std::string();
  }
  std::size_t Total() override { return rows_.Total(); }
  bool Has(std::size_t row) override { return rows_.Reach(row); }
  std::string Cell(std::size_t row, std::size_t column) override { return rows_.Cell(row, rows_.Reading()[column]); }
  std::string Row(std::size_t row) override { return rows_.Row(row); }

 private:
  RowList& rows_;
};

}  // namespace zendara
