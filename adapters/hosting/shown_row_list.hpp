// A list over rows as its user outside of the project sees it: columns in the order in which people read them.
#pragma once

#include <cstddef>
#include <string>

#include "common/row_list.hpp"
#include "zendara/automation.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {

class ShownRowList final : public ShownRows {
 public:
  // The list outlives it.
  explicit ShownRowList(RowList& rows) : rows_(rows) {}

  std::size_t Columns() const override { return rows_.Reading().size(); }
  std::string Heading(std::size_t column) const override {
    const auto& headings = rows_.View().headings;
    const std::size_t own = Own(column);
    return own < headings.size() ? headings[own] : std::string();
  }
  std::size_t Total() override { return rows_.Total(); }
  bool Has(std::size_t row) override { return rows_.Reach(row); }
  std::string Cell(std::size_t row, std::size_t column) override {
    const std::size_t own = Own(column);
    CheckRow(row);
    return rows_.Cell(row, own);
  }
  std::string Row(std::size_t row) override {
    CheckRow(row);
    return rows_.Row(row);
  }

 private:
  std::size_t Own(std::size_t column) const {
    if (column >= Columns()) throw RuntimeError(kSubscriptOutOfRange);
    return rows_.Reading()[column];
  }
  void CheckRow(std::size_t row) {
    if (!Has(row)) throw RuntimeError(kSubscriptOutOfRange);
  }

  RowList& rows_;
};

}  // namespace zendara
