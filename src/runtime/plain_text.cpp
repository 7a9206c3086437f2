#include "runtime/plain_text.hpp"

#include <algorithm>

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
  AddUnmarked(text, plain);
  std::ranges::transform(plain, plain.begin(), FoldCase);
  return plain;
}

void AddUnmarked(std::string_view text, std::string& unmarked) {
  while (!text.empty()) {
    const auto plain = std::ranges::find_if(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    unmarked.append(text.begin(), plain);
    text = std::string_view(plain, text.end());
    if (text.empty()) break;
    const std::string small = LCase(TakeCharacter(text));
    const int marked = CodePoint(small) - kFirstMarked;
    const bool known = marked >= 0 && marked < static_cast<int>(kUnmarked.size());
    const char letter = known ? kUnmarked[static_cast<std::size_t>(marked)] : '.';
    letter == '.' ? unmarked += small : unmarked += letter;
  }
}

}  // namespace zendara
