// The number of the run-time error that an action raises, 0 if it raises none.
#pragma once

#include "zendara/runtime_error.hpp"

namespace zendara {

template <typename Action>
int ErrorOf(Action action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace zendara
