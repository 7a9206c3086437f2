// Where something is to be kept, and as what.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>

class QWidget;

namespace zendara {

struct FileFormat {
  std::string words;   // what the user chooses by
  std::string suffix;  // of the file's name, without the point
};

struct ChosenFile {
  std::string path;      // ends in the suffix of its kind, unless the user wrote another one
  std::size_t kind = 0;  // of those that were given
};

// What the user chose, nothing when they gave up.
using ChooseFile =
    std::function<std::optional<ChosenFile>(QWidget& over, const std::string& path, std::span<const FileFormat> kinds)>;

// The desktop's dialog, or the toolkit's own one in Spanish, with that path proposed and the first kind. Whoever writes
// a name with the suffix of another kind means that one. Whether a file that is there may be replaced is not asked
// here.
std::optional<ChosenFile> ChooseFileInDialog(QWidget& over, const std::string& path, std::span<const FileFormat> kinds);

}  // namespace zendara
