#include "adapters/icu/spanish_order.hpp"

#include <gtest/gtest.h>
#include <unicode/ucol.h>

#include <random>
#include <string>
#include <vector>

namespace zendara {
namespace {

int Sign(int number) { return (number > 0) - (number < 0); }

// The quick comparison of plain characters must never tell anything else than the collator, whatever stands next to it.
TEST(SpanishOrder, AgreesWithTheCollatorOnTextsOfAllKinds) {
  const std::vector<std::string> characters = {"a", "A", "b", "n", "N", "o", "z", "0", "1", "9",      " ",
                                               "-", ".", "'", "_", "/", "á", "ñ", "Ñ", "ü", "\u0303", "ß"};
  UErrorCode status = U_ZERO_ERROR;
  UCollator* collator = ucol_open("es", &status);
  ucol_setStrength(collator, UCOL_SECONDARY);
  const SpanishOrder order;
  std::mt19937 random(3);
  const auto text = [&] {
    std::string result;
    for (auto i = random() % 5; i > 0; --i) result += characters[random() % characters.size()];
    while (result.ends_with(' ')) result.pop_back();
    return result;
  };
  for (int i = 0; i < 200000; ++i) {
    const std::string a = text();
    const std::string b = text();
    const int expected = ucol_strcollUTF8(collator, a.data(), static_cast<int32_t>(a.size()), b.data(),
                                          static_cast<int32_t>(b.size()), &status);
    ASSERT_EQ(Sign(order.Compare(a, b)), Sign(expected)) << '"' << a << "\" and \"" << b << '"';
    ASSERT_EQ(order.Compare(a + "  ", a), 0);
  }
  ucol_close(collator);
}

}  // namespace
}  // namespace zendara
