#include "adapters/icu/spanish_order.hpp"

#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <vector>

#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

std::string_view WithoutTrailingBlanks(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

}  // namespace

SpanishOrder::SpanishOrder() {
  UErrorCode status = U_ZERO_ERROR;
  collator_ = ucol_open("es", &status);
  if (U_FAILURE(status)) throw RuntimeError(kCannotCreateObject, {}, u_errorName(status));
  ucol_setStrength(collator_, UCOL_SECONDARY);

  std::vector<char> order;
  for (char c = ' '; c < '\x7f'; ++c) order.push_back(c);
  std::ranges::stable_sort(order, [this](char a, char b) {
    return CompareByCollator(std::string_view(&a, 1), std::string_view(&b, 1)) < 0;
  });
  std::uint8_t rank = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i == 0 || CompareByCollator(std::string_view(&order[i - 1], 1), std::string_view(&order[i], 1)) != 0) ++rank;
    rank_[static_cast<unsigned char>(order[i])] = rank;
  }
}

SpanishOrder::~SpanishOrder() { ucol_close(collator_); }

int SpanishOrder::Compare(std::string_view a, std::string_view b) const {
  a = WithoutTrailingBlanks(a);
  b = WithoutTrailingBlanks(b);
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const auto x = static_cast<unsigned char>(a[i]);
    const auto y = static_cast<unsigned char>(b[i]);
    if (x >= 128 || y >= 128 || rank_[x] == 0 || rank_[y] == 0) return CompareByCollator(a, b);
    if (rank_[x] != rank_[y]) return rank_[x] < rank_[y] ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  // What the longer text goes on with may belong to the character before it, as an accent of its own does.
  const auto next = static_cast<unsigned char>((a.size() > common ? a : b)[common]);
  if (next >= 128 || rank_[next] == 0) return CompareByCollator(a, b);
  return a.size() < b.size() ? -1 : 1;
}

void SpanishOrder::AppendKey(std::string_view text, std::string& bytes) const {
  text = WithoutTrailingBlanks(text);
  std::array<UChar, 256> room;
  std::vector<UChar> more;
  UChar* units = room.data();
  if (text.size() > room.size()) {
    more.resize(text.size());  // a text has at most as many units as bytes
    units = more.data();
  }
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8WithSub(units, static_cast<int32_t>(std::max(text.size(), room.size())), &length, text.data(),
                       static_cast<int32_t>(text.size()), 0xFFFD, nullptr, &status);
  std::array<std::uint8_t, 512> key;
  const int32_t size = ucol_getSortKey(collator_, units, length, key.data(), static_cast<int32_t>(key.size()));
  // Its last byte ends it and tells nothing.
  if (static_cast<std::size_t>(size) <= key.size()) {
    bytes.append(reinterpret_cast<const char*>(key.data()), static_cast<std::size_t>(size - 1));
    return;
  }
  std::vector<std::uint8_t> long_key(static_cast<std::size_t>(size));
  ucol_getSortKey(collator_, units, length, long_key.data(), size);
  bytes.append(reinterpret_cast<const char*>(long_key.data()), static_cast<std::size_t>(size - 1));
}

std::string SpanishOrder::KeyVersion() const {
  UVersionInfo version;
  ucol_getVersion(collator_, version);
  std::array<char, U_MAX_VERSION_STRING_LENGTH> text;
  u_versionToString(version, text.data());
  return text.data();
}

int SpanishOrder::CompareByCollator(std::string_view a, std::string_view b) const {
  UErrorCode status = U_ZERO_ERROR;
  return ucol_strcollUTF8(collator_, a.data(), static_cast<int32_t>(a.size()), b.data(), static_cast<int32_t>(b.size()),
                          &status);
}

}  // namespace zendara
