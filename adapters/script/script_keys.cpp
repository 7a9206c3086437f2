#include "adapters/script/script_keys.hpp"

#include <algorithm>

#include "platform/record/names.hpp"
#include "runtime/text.hpp"

namespace zendara {
namespace {

struct NamedKey {
  std::string_view name;
  int code;
};
constexpr NamedKey kKeys[] = {
    {"Enter", key::kEnter}, {"Tab", key::kTab},        {"Esc", key::kEsc},       {"Up", key::kUp},
    {"Down", key::kDown},   {"Left", key::kLeft},      {"Right", key::kRight},   {"Home", key::kHome},
    {"End", key::kEnd},     {"Delete", key::kDelete},  {"Insert", key::kInsert}, {"PageUp", key::kPageUp},
    {"F1", key::kF1},       {"Backspace", key::kBack}, {"F2", key::kF2},         {"PageDown", key::kPageDown},
};
constexpr NamedKey kModifiers[] = {{"Shift+", key::kShift}, {"Ctrl+", key::kControl}, {"Alt+", key::kAlt}};

}  // namespace

std::optional<Key> KeyByName(std::string_view name) {
  int shift = 0;
  for (bool found = true; found;) {
    found = false;
    for (const NamedKey& modifier : kModifiers) {
      if (!SameName(name.substr(0, modifier.name.size()), modifier.name)) continue;
      shift |= modifier.code;
      name.remove_prefix(modifier.name.size());
      found = true;
    }
  }
  if (SameName(name, "Space")) name = " ";
  if (Len(name) == 1) {
    Key key = KeyOfCharacter(name);
    key.shift = shift;
    return key;
  }
  const auto* named = std::ranges::find_if(kKeys, [&](const NamedKey& key) { return SameName(key.name, name); });
  if (named == std::end(kKeys)) return std::nullopt;
  return Key{.code = named->code, .shift = shift, .text = {}};
}

Key KeyOfCharacter(std::string_view character) {
  if (character == "\n") return {.code = key::kEnter, .shift = 0, .text = {}};
  if (character == "\t") return {.code = key::kTab, .shift = 0, .text = {}};
  const char c = character.size() == 1 ? character.front() : '\0';
  const bool lower = c >= 'a' && c <= 'z';
  const bool plain = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ';
  return {.code = lower ? c - 'a' + 'A' : plain ? c : 0, .shift = 0, .text = std::string(character)};
}

}  // namespace zendara
