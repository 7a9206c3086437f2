#include "runtime/plain_text.hpp"

#include <algorithm>

#include "runtime/characters.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

// The characters U+00C0 to U+00FF without their marks and their case; a dot stands for those that stay.
constexpr std::string_view kUnmarked = "aaaaaa.ceeeeiiii..ooooo..uuuuy..aaaaaa.ceeeeiiii..ooooo..uuuuy.y";
constexpr int kFirstMarked = 0xC0;
constexpr int kCapitalYDiaeresis = 0x178;  // its small letter is the last of them

char Unmarked(int character) {
  if (character == kCapitalYDiaeresis) return kUnmarked.back();
  const int marked = character - kFirstMarked;
  return marked >= 0 && marked < static_cast<int>(kUnmarked.size()) ? kUnmarked[static_cast<std::size_t>(marked)] : '.';
}

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
    const std::string_view character = TakeCharacter(text);
    const char letter = Unmarked(CodePoint(character));
    letter == '.' ? unmarked += LCase(character) : unmarked += letter;
  }
}

}  // namespace zendara
