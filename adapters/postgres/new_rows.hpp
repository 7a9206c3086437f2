// Rows that wait to be sent together: one statement, however many they are.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "adapters/icu/spanish_order.hpp"
#include "adapters/postgres/link.hpp"
#include "adapters/postgres/relation.hpp"

namespace zendara::postgres {

// What the key column of a value gets.
void BindKey(const Value& value, const SpanishOrder& order, Parameters& parameters);

class NewRows {
 public:
  void Add(const Relation& relation, const std::vector<Value>& row);
  bool HasAnyOf(const std::vector<const Relation*>& relations) const {
    return std::ranges::any_of(relations, [this](const Relation* relation) { return rows_.contains(relation); });
  }
  bool Empty() const { return rows_.empty(); }
  // There is no reason to let more wait.
  bool Full() const { return count_ >= kMost; }
  // In the order of writing within a table.
  void Send(Link& link, const std::string& file, const SpanishOrder& order);
  void Clear();
  // When they are committed: has the server count what it knows too little of by now. It plans by such figures, and
  // counts by itself only a minute later.
  void RefreshFigures(Link& link);

 private:
  static constexpr std::size_t kMost = 1000;

  std::map<const Relation*, std::vector<std::vector<Value>>> rows_;
  std::map<const Relation*, std::int64_t> sent_;  // rows of each since the last commit
  std::size_t count_ = 0;
};

}  // namespace zendara::postgres
