#include "adapters/sqlite/query_cache.hpp"

#include <algorithm>

namespace zendara::sqlite {
namespace {

constexpr std::size_t kQueries = 64;
constexpr std::size_t kLongestText = 4096;

}  // namespace

std::shared_ptr<PreparedQuery> QueryCache::Find(std::string_view shape) {
  const auto found =
      std::ranges::find(queries_, shape, [](const auto& query) { return std::string_view(query->shape); });
  if (found == queries_.end()) return nullptr;
  std::rotate(queries_.begin(), found, found + 1);
  return queries_.front();
}

void QueryCache::Keep(const std::shared_ptr<PreparedQuery>& query) {
  if (query->shape.size() > kLongestText) return;
  if (queries_.size() == kQueries) queries_.pop_back();
  queries_.insert(queries_.begin(), query);
}

}  // namespace zendara::sqlite
