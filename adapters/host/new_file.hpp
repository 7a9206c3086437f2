// Files that get their name only when they are whole, and a name that is taken only when that is asked for.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace zendara {

// Writes a file that is not there yet; durable with its name when it returns. Whatever fails, and whenever the program
// ends, nothing of that name is left. EEXIST when the name is taken.
std::error_code WriteNewFile(const std::filesystem::path& path, std::string_view contents);

// The same, in place of a file of that name if there is one: it stays as it was until the new one is whole. EISDIR when
// it is a folder.
std::error_code ReplaceFile(const std::filesystem::path& path, std::string_view contents);

// Gives a file another name in the same file system; durable when it returns. EEXIST when the name is taken.
std::error_code RenameFile(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace zendara
