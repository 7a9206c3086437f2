// The number of the run-time error that a call raises, 0 if it raises none.
#pragma once

#include <utility>

#include "zendara/runtime_error.hpp"

namespace zendara {

template <typename Call>
int ErrorOf(Call&& call) {
  try {
    std::forward<Call>(call)();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace zendara
