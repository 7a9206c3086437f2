#include "runtime/failure.hpp"

#include <algorithm>
#include <exception>
#include <new>
#include <string>

#include "runtime/surroundings.hpp"

namespace zendara {

RuntimeError CurrentError() {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return RuntimeError(kOutOfMemory);
  } catch (const std::exception& error) {
    return RuntimeError(kInternalError, {}, error.what());
  } catch (...) {
    return RuntimeError(kInternalError, {}, "an exception of an unknown kind");
  }
}

std::string OneLine(const RuntimeError& error) {
  return error.detail().empty() ? error.what() : std::string(error.what()) + " (" + error.detail() + ")";
}

void LogDetail(const RuntimeError& error) {
  if (error.detail().empty()) return;
  std::string line = "error " + std::to_string(error.number()) + ": " + error.detail();
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  LogLine(line);
}

void LogCurrentError() noexcept {
  try {
    LogDetail(CurrentError());
  } catch (...) {
    // Without the memory for a line.
  }
}

}  // namespace zendara
