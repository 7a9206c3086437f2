// Drafts that last as long as this object.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "zendara/forms/drafts.hpp"

namespace zendara {

class MemoryDrafts : public DraftKeeper {
 public:
  std::string Keep(const std::string& id, const Draft& draft) override {
    std::string name = id.empty() ? std::to_string(++made_) : id;
    Drop(name);
    drafts_.insert(drafts_.begin(), {.kept = {.id = name, .when = {}, .draft = draft}, .left = false});
    return name;
  }
  void Leave(const std::string& id) override {
    for (Entry& entry : drafts_) entry.left = entry.left || entry.kept.id == id;
  }
  void Drop(const std::string& id) override {
    std::erase_if(drafts_, [&](const Entry& entry) { return entry.kept.id == id; });
  }
  std::vector<KeptDraft> Left(const DraftFilter& wanted) override {
    std::vector<KeptDraft> left;
    for (const auto& [kept, is_left] : drafts_) {
      if (is_left && wanted(kept)) left.push_back(kept);
    }
    return left;
  }
  std::string TakeTrouble() override { return {}; }

 private:
  struct Entry {
    KeptDraft kept;
    bool left;
  };
  std::vector<Entry> drafts_;  // the last one first
  int made_ = 0;
};

}  // namespace zendara
