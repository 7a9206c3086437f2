// The order of texts in the stored tables: Spanish, without regard to case and trailing blanks.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct UCollator;

namespace zendara {

class SpanishOrder {
 public:
  // Opens the collator, which takes some milliseconds: make one for an engine. Error 429 when ICU has no data for it.
  SpanishOrder();
  ~SpanishOrder();
  SpanishOrder(const SpanishOrder&) = delete;
  SpanishOrder& operator=(const SpanishOrder&) = delete;

  // Negative, zero or positive. ñ comes after n; accents separate only texts that are otherwise equal.
  int Compare(std::string_view a, std::string_view b) const;
  // Appends bytes whose order is that of the texts; equal for texts that are. At least one.
  void AppendKey(std::string_view text, std::string& bytes) const;
  // Keys of different versions cannot be compared.
  std::string KeyVersion() const;

 private:
  int CompareByCollator(std::string_view a, std::string_view b) const;

  UCollator* collator_ = nullptr;
  // Place of each ASCII character in the collator's order, equal for the two cases of a letter; 0 where the collator
  // must decide. Keys are digits and most names plain letters, so few comparisons need more than this.
  std::array<std::uint8_t, 128> rank_{};
};

}  // namespace zendara
