#include "runtime/plain_text.hpp"

#include "runtime/characters.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

// The characters U+00E0 to U+00FF without their marks; a dot stands for those that stay.
constexpr std::string_view kUnmarked = "aaaaaa.ceeeeiiii..ooooo..uuuuy.y";
constexpr int kFirstMarked = 0xE0;

}  // namespace

std::string PlainText(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  while (!text.empty()) {
    if (static_cast<unsigned char>(text.front()) < 0x80) {
      plain += FoldCase(text.front());
      text.remove_prefix(1);
      continue;
    }
    const std::string small = LCase(TakeCharacter(text));
    const int marked = CodePoint(small) - kFirstMarked;
    const bool known = marked >= 0 && marked < static_cast<int>(kUnmarked.size());
    const char letter = known ? kUnmarked[static_cast<std::size_t>(marked)] : '.';
    letter == '.' ? plain += small : plain += letter;
  }
  return plain;
}

}  // namespace zendara
