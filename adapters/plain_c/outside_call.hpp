// Calls of functions in plain C that somebody else wrote: a negative result is a run-time error here.
#pragma once

#include <string_view>

#include "zendara/zendara.h"

namespace zendara {

// What the function that is running in this thread says of the negative result that it is about to give.
void SetOutsideError(int number, std::string_view detail) noexcept;
void ForgetOutsideError() noexcept;

// The error that was set, otherwise 51; the detail says what gave which result. It is forgotten.
[[noreturn]] void ThrowOutsideError(std::string_view what, zendara_result result);
[[noreturn]] void ThrowNotServed(std::string_view what);

// `function` of `self` with these arguments: its result, which is not negative. Otherwise the error above, and 438 for
// a null function. `what` names both: "Ravelin.clsRavelin: PosicionBanner".
template <typename... Parameters, typename... Arguments>
zendara_result CallOutside(std::string_view what, zendara_result (*function)(void* self, Parameters...), void* self,
                           Arguments... arguments) {
  if (!function) ThrowNotServed(what);
  ForgetOutsideError();
  const zendara_result result = function(self, arguments...);
  if (result < 0) ThrowOutsideError(what, result);
  ForgetOutsideError();
  return result;
}

}  // namespace zendara
