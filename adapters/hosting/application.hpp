// What all hosts of this project show in the same words.
#pragma once

#include <string>
#include <string_view>

#include "zendara/runtime_error.hpp"

namespace zendara {

// Title of boxes that give none.
inline constexpr std::string_view kApplicationTitle = "Zendara";

// Number and text, and the store's own words behind them.
inline std::string OneLine(const RuntimeError& error) {
  return error.detail().empty() ? error.what() : std::string(error.what()) + " (" + error.detail() + ")";
}

}  // namespace zendara
