// Rows of texts in one block of memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace zendara::print {

class PackedRows {
 public:
  std::size_t size() const { return starts_.size(); }

  // Whatever fails, there is the whole row or nothing of it.
  void Add(const std::vector<std::string>& cells) {
    packed_.clear();
    for (const std::string& cell : cells) {
      const auto length = static_cast<Length>(cell.size());
      packed_.append(reinterpret_cast<const char*>(&length), sizeof length);
      packed_ += cell;
    }
    starts_.push_back(block_.size());
    try {
      block_ += packed_;
    } catch (...) {
      starts_.pop_back();
      throw;
    }
  }

  // Valid until the next Add.
  void Read(std::size_t row, std::vector<std::string_view>& cells) const {
    cells.clear();
    const std::size_t end = row + 1 < size() ? starts_[row + 1] : block_.size();
    for (std::size_t at = starts_[row]; at < end;) {
      Length length = 0;
      std::memcpy(&length, block_.data() + at, sizeof length);
      at += sizeof length;
      cells.push_back(std::string_view(block_).substr(at, length));
      at += length;
    }
  }

 private:
  using Length = std::uint32_t;

  std::string block_;  // each text behind its length
  std::string packed_;
  std::vector<std::size_t> starts_;
};

}  // namespace zendara::print
