// Why a command ends with exit status 1, in one line of English. Errors of the store stay RuntimeError.
#pragma once

#include <stdexcept>

namespace zendara {

class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace zendara
