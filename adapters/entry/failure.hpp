// How a call in plain C ends: no exception leaves, and what went wrong is kept for zendara_last_error.
#pragma once

#include <string_view>

#include "adapters/entry/use.hpp"
#include "zendara/zendara.h"

namespace zendara {

// A call that is refused with that result; `why` is a line for the log, a literal.
struct Refusal {
  zendara_result result;
  const char* why;
};
[[noreturn]] inline void Refuse(zendara_result result, const char* why) { throw Refusal{result, why}; }

// What is kept already, and has that result.
struct KeptFailure {
  zendara_result result;
};
inline void Demand(zendara_result result) {
  if (result < 0) throw KeptFailure{result};
}

// Keeps it as the last failure of this thread, and gives it back. The number is that of the run-time error that says
// the same, if there is one.
zendara_result Failed(zendara_result result, std::string_view detail) noexcept;
// The same for the exception that is being handled.
zendara_result CurrentFailure() noexcept;

// The result of `body`, or ZENDARA_OK where it gives none.
template <typename Body>
zendara_result Answer(Body body) noexcept {
  try {
    if constexpr (requires { zendara_result(body()); }) {
      return body();
    } else {
      body();
      return ZENDARA_OK;
    }
  } catch (...) {
    return CurrentFailure();
  }
}

// The same for the calls that come in the thread of the component alone.
void BeginTurn();
template <typename Body>
zendara_result AnswerInThread(Body body) noexcept {
  return Answer([&] {
    BeginTurn();
    return body();
  });
}

// What a host may not leave out.
template <typename T>
T& Needed(T* given, const char* why = "an argument is null") {
  if (!given) Refuse(ZENDARA_NULL_POINTER, why);
  return *given;
}

}  // namespace zendara
