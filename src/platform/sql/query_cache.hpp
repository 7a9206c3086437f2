// What an engine has made of the statements that it ran before.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zendara::sql {

// By the statement's shape (Tokens::shape), and whatever else an engine adds so that what was checked once stays right.
template <typename Query>
class QueryCache {
 public:
  // nullptr if it is not there.
  std::shared_ptr<Query> Find(std::string_view key) {
    const auto found =
        std::ranges::find(queries_, key, [](const auto& query) { return std::string_view(query.first); });
    if (found == queries_.end()) return nullptr;
    std::rotate(queries_.begin(), found, found + 1);
    return queries_.front().second;
  }

  // The query that was not used for longest goes when there are many. One of a very long text is not kept.
  void Keep(std::string key, std::shared_ptr<Query> query) {
    if (key.size() > kLongestKey) return;
    if (queries_.size() == kQueries) queries_.pop_back();
    queries_.emplace(queries_.begin(), std::move(key), std::move(query));
  }

  void Clear() { queries_.clear(); }

 private:
  static constexpr std::size_t kQueries = 64;
  static constexpr std::size_t kLongestKey = 4096;

  std::vector<std::pair<std::string, std::shared_ptr<Query>>> queries_;  // the last used first
};

}  // namespace zendara::sql
