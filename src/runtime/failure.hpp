// What becomes of a failure, whatever kind of exception it came as.
#pragma once

#include <string>

#include "zendara/runtime_error.hpp"

namespace zendara {

// The exception that is being handled, as a run-time error: itself, 7 when memory ran out, and for any other one 51
// with its own words as the detail. REQUIRES: called in a catch clause.
RuntimeError CurrentError();

// Number and text, and the store's own words behind them.
std::string OneLine(const RuntimeError& error);
// A line of the log with the detail of an error, if it has any.
void LogDetail(const RuntimeError& error);
// The same for the exception that is being handled.
void LogCurrentError() noexcept;

}  // namespace zendara
