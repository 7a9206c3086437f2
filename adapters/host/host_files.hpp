// Paths of the system's own spelling on the machine's file system.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace zendara {

// The path with its separators turned into the machine's, nothing looked up.
std::filesystem::path MachinePath(std::string_view path);

// The file or folder that the path means: each part is found whatever its case, the spelling as given first. Nothing if
// there is none.
std::optional<std::filesystem::path> FindPath(std::string_view path);

}  // namespace zendara
