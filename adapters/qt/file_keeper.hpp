// Keeps what a window shows as a file: asks where, has it written, says so. What goes wrong is shown in a box.
#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <utility>

#include "adapters/qt/save_dialog.hpp"
#include "print/document_writer.hpp"
#include "zendara/ports.hpp"

namespace zendara {

class FileKeeper {
 public:
  // Not owned.
  explicit FileKeeper(Dialogs& dialogs) : dialogs_(dialogs) {}

  void OnChoose(ChooseFile choose) { choose_ = std::move(choose); }

  // Gives the title, which proposes the name; what it throws is shown.
  using Begin = std::function<std::string()>;
  // False: the user has stopped it.
  using Write =
      std::function<bool(const std::string& path, std::size_t kind, print::DocumentWriter::Existing existing)>;
  // What to say then, nothing if it was not kept.
  QString Keep(const Begin& begin, std::span<const FileFormat> kinds, const Write& write, QWidget& over);
  // A box about the exception that is being handled, after these words. REQUIRES: called in a catch clause.
  void ShowFailure(const std::string& words);

 private:
  bool MayReplace(const std::string& path);

  Dialogs& dialogs_;
  ChooseFile choose_ = ChooseFileInDialog;
  std::string chosen_last_;
};

}  // namespace zendara
