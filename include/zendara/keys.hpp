// Codes of keys and states of shift keys, as the screens test them.
#pragma once

#include <string>

namespace zendara {

namespace key {
inline constexpr int kBack = 8, kTab = 9, kEnter = 13, kEsc = 27, kSpace = 32, kPageUp = 33, kPageDown = 34, kEnd = 35,
                     kHome = 36, kLeft = 37, kUp = 38, kRight = 39, kDown = 40, kInsert = 45, kDelete = 46, kF1 = 112,
                     kF2 = 113;
inline constexpr int kShift = 1, kControl = 2, kAlt = 4;
}  // namespace key

// A key as it is pressed. `text` is what it types, one character of UTF-8, empty for keys that type nothing; `code` may
// be 0 for keys that only type. Letters with Control or Alt have the code of the capital letter, and Alt the letter as
// text.
struct Key {
  int code = 0;
  int shift = 0;
  std::string text;
};

}  // namespace zendara
