// Paths of the system's own spelling on the machine's file system.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

namespace zendara {

// The path with its separators turned into the machine's, nothing looked up.
std::filesystem::path MachinePath(std::string_view path);

// The file or folder that the path means: each part is found whatever its case, the spelling as given first. Nothing if
// there is none, or if the machine does not say: `error` is why then, such as a folder that may not be entered.
std::optional<std::filesystem::path> FindPath(std::string_view path, std::error_code& error);

// Error 70 where the machine does not say.
std::optional<std::filesystem::path> FindPath(std::string_view path);

}  // namespace zendara
