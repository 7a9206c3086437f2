// Files that get their name only when they are whole, and a name that is taken only when that is asked for.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "adapters/host/descriptor.hpp"

namespace zendara {

// A file that is written piece by piece. Whatever fails, whenever the program ends, and when this object goes before
// Commit was successful, nothing of it is left, and what had its name is as it was.
class NewFile {
 public:
  enum class Taken { kKeep, kReplace };

  NewFile(std::filesystem::path path, Taken taken);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  // What failed first, in making the file too, is given again by each further call. Pieces may be small.
  std::error_code Append(std::string_view contents);
  // Durable, still without its name; all that can lack room is done.
  std::error_code Sync();
  // Durable with its name when it returns. EEXIST when the name is taken and is to be kept, EISDIR when it is that of a
  // folder. The last call.
  std::error_code Commit();

 private:
  std::error_code Write(std::string_view contents);
  std::error_code GiveName(const std::filesystem::path& path);
  std::error_code ReplaceByName();

  std::filesystem::path path_;
  Taken taken_;
  std::filesystem::path beside_;  // the name that it has for the time being; empty: none
  Descriptor file_;
  std::string waiting_;
  std::error_code error_;
};

// The same for contents in memory: a file that is not there yet, and one in place of what there is.
std::error_code WriteNewFile(const std::filesystem::path& path, std::string_view contents);
std::error_code ReplaceFile(const std::filesystem::path& path, std::string_view contents);

// Gives a file another name in the same file system; durable when it returns. EEXIST when the name is taken.
std::error_code RenameFile(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace zendara
