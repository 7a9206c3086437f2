// Where a document is to be kept.
#pragma once

#include <functional>
#include <optional>
#include <string>

class QWidget;

namespace zendara {

// What the user chose: a file whose name ends in .pdf. Nothing when they gave up.
using ChooseFile = std::function<std::optional<std::string>(QWidget& over, const std::string& path)>;

// The desktop's dialog, or the toolkit's own one in Spanish, with that path proposed. Whether a file that is there may
// be replaced is not asked here.
std::optional<std::string> ChooseFileInDialog(QWidget& over, const std::string& path);

}  // namespace zendara
