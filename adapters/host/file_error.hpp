// Errors of files that are written, as the run-time library numbers them.
#pragma once

#include <string>
#include <system_error>

#include "zendara/runtime_error.hpp"

namespace zendara {

// 3012 the name is taken, 61 no room on the disk, 70 no permission, 75 a folder of that name, or a medium that only
// reads, 76 no such folder, 57 anything else. The detail has the system's words.
RuntimeError FileError(const std::error_code& error, const std::string& path);

}  // namespace zendara
