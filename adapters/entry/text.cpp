#include "adapters/entry/text.hpp"

#include <cstdlib>
#include <cstring>

#include "adapters/entry/failure.hpp"
#include "runtime/text.hpp"
#include "zendara/zendara.h"
#include "zendara/zendara.hpp"

namespace zendara {

std::string TakeText(const char* utf8) {
  const std::string_view text = &Needed(utf8, "a text is null");
  if (!IsUtf8(text)) Refuse(ZENDARA_INVALID, "a text is not UTF-8");
  return std::string(text);
}

std::string TakeTextOrEmpty(const char* utf8) { return utf8 ? TakeText(utf8) : std::string(); }

void GiveText(char** place, std::string_view text) {
  char*& given = Needed(place);
  given = nullptr;
  given = static_cast<char*>(GiveMemory(text.size() + 1));
  text.copy(given, text.size());
  given[text.size()] = '\0';
}

void* GiveMemory(std::size_t bytes) {
  void* memory = zendara_alloc(bytes);
  if (!memory) Refuse(ZENDARA_OUT_OF_MEMORY, "");
  return memory;
}

}  // namespace zendara

extern "C" {

void* zendara_alloc(size_t bytes) { return std::malloc(bytes == 0 ? 1 : bytes); }

void zendara_free(void* memory) { std::free(memory); }

char* zendara_text(const char* utf8) {
  if (!utf8) return nullptr;
  const std::size_t bytes = std::strlen(utf8) + 1;
  void* copy = zendara_alloc(bytes);
  return copy ? static_cast<char*>(std::memcpy(copy, utf8, bytes)) : nullptr;
}

const char* zendara_version(void) { return zendara::Version(); }
}
