#include "adapters/entry/failure.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <new>
#include <string>

#include "adapters/entry/object.hpp"
#include "adapters/entry/structure.hpp"
#include "adapters/plain_c/outside_call.hpp"
#include "runtime/failure.hpp"
#include "zendara/interop.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// Plain memory, as what has a destructor would keep the library loaded until the thread ends.
template <std::size_t N>
struct PlainText {
  char bytes[N];

  void Set(std::string_view text) noexcept {
    std::size_t length = std::min(text.size(), N - 1);
    // No half of a character.
    while (length < text.size() && length > 0 && (text[length] & 0xC0) == 0x80) --length;
    text.copy(bytes, length);
    bytes[length] = '\0';
  }
};

struct LastFailure {
  int number;
  PlainText<1000> text;
  PlainText<1000> detail;
};
thread_local LastFailure last{};

// What the run-time library calls a refusal.
constexpr struct {
  zendara_result result;
  int number;
} kNumbers[] = {
    {ZENDARA_NULL_POINTER, kInvalidCall},      {ZENDARA_INVALID, kInvalidCall},
    {ZENDARA_NO_MEMBER, kNoSuchMember},        {ZENDARA_NO_NAME, kNoSuchMember},
    {ZENDARA_WRONG_TYPE, kTypeMismatch},       {ZENDARA_WRONG_COUNT, kWrongArgumentCount},
    {ZENDARA_OUT_OF_MEMORY, kOutOfMemory},     {ZENDARA_NO_CLASS, kCannotCreateObject},
    {ZENDARA_FAILED, kInternalError},          {ZENDARA_NOT_REGISTERED, kCannotCreateObject},
    {ZENDARA_NOT_LOADED, kCannotCreateObject},
};

void Keep(int number, std::string_view text, std::string_view detail) noexcept {
  last.number = number;
  last.text.Set(text);
  last.detail.Set(detail);
}

}  // namespace

zendara_result Failed(zendara_result result, std::string_view detail) noexcept {
  const auto* row = std::ranges::find(kNumbers, result, [](const auto& entry) { return entry.result; });
  const int number = row == std::end(kNumbers) ? 0 : row->number;
  try {
    Keep(number, number == 0 ? std::string() : ErrorText(number), detail);
  } catch (...) {
    Keep(number, {}, detail);
  }
  return result;
}

zendara_result CurrentFailure() noexcept {
  try {
    try {
      throw;
    } catch (const Refusal& refusal) {
      return Failed(refusal.result, refusal.why);
    } catch (const KeptFailure& kept) {
      return kept.result;
    } catch (const std::bad_alloc&) {
      return Failed(ZENDARA_OUT_OF_MEMORY, {});
    } catch (...) {
      const RuntimeError error = CurrentError();
      Keep(error.number(), error.text(), error.detail());
      return ZENDARA_FAILED;
    }
  } catch (...) {
    return Failed(ZENDARA_OUT_OF_MEMORY, {});
  }
}

zendara_result ResultOfException() noexcept { return CurrentFailure(); }
zendara_result ResultOfRefusal(zendara_result result, std::string_view why) noexcept { return Failed(result, why); }

void BeginTurn() {
  if (!InThread()) Refuse(ZENDARA_WRONG_THREAD, "not the thread that has installed the platform");
  Object::DeleteReleased();
}

}  // namespace zendara

extern "C" {

zendara_result zendara_last_error(zendara_error* error) {
  using zendara::last;
  return zendara::FillOut(error, zendara_error{sizeof(zendara_error), last.number, last.text.bytes, last.detail.bytes});
}

void zendara_set_error(int32_t number, const char* detail) { zendara::SetOutsideError(number, detail ? detail : ""); }
}
