// What the machine's refusals mean for database files.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace zendara::sqlite {

// Throws the error with that path in its text, the machine's words as the detail.
[[noreturn]] void Fail(const std::error_code& error, std::string_view path);

// 3043: the programs that share a file share memory, which two machines never do.
void RefuseNetwork(const std::filesystem::path& place, std::string_view path);

}  // namespace zendara::sqlite
