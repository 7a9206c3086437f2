// Many short texts, one behind the other in few blocks of memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zendara {

// Texts count from 0.
class TextBlock {
 public:
  // Begins another text: what is put behind the block from then on.
  std::string& Begin() {
    if (Size() % kTextsOfABlock == 0) AddBlock();
    starts_.push_back(static_cast<std::uint32_t>(blocks_.back().size()));
    return blocks_.back();
  }

  std::size_t Size() const { return starts_.size(); }
  std::string_view operator[](std::size_t text) const {
    const std::string_view block = blocks_[text / kTextsOfABlock];
    const bool is_last = (text + 1) % kTextsOfABlock == 0 || text + 1 == Size();
    return block.substr(starts_[text], (is_last ? block.size() : starts_[text + 1]) - starts_[text]);
  }

 private:
  static constexpr std::size_t kTextsOfABlock = 512;

  // Few blocks are as long as the first one of all: what the last one took is room enough for most.
  void AddBlock() {
    const std::size_t room = blocks_.empty() ? 0 : blocks_.back().size();
    blocks_.emplace_back().reserve(room + room / 8);
  }

  std::vector<std::string> blocks_;
  std::vector<std::uint32_t> starts_;  // in its block
};

}  // namespace zendara
