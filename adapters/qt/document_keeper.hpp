// Keeps what a window shows as a PDF: asks where, writes it, says so. What goes wrong is shown in a box.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <utility>

#include "adapters/qt/save_dialog.hpp"
#include "print/document_writer.hpp"
#include "zendara/ports.hpp"

namespace zendara {

class FormWindow;

class DocumentKeeper {
 public:
  // Neither is owned.
  DocumentKeeper(const print::DocumentWriter& documents, Dialogs& dialogs) : documents_(documents), dialogs_(dialogs) {}

  void OnChoose(ChooseFile choose) { choose_ = std::move(choose); }

  // All of the form, wherever it stands; its status says where it went.
  void KeepRecord(FormWindow& window);
  // What stands behind a box over that form's window, which may be null. What to say then, nothing if it was not kept.
  QString KeepDetail(const Box& box, const FormWindow* window, QWidget& over);

 private:
  QString Keep(const std::function<print::Document()>& make, QWidget& over);
  bool MayReplace(const std::string& path);

  const print::DocumentWriter& documents_;
  Dialogs& dialogs_;
  ChooseFile choose_ = ChooseFileInDialog;
  std::string chosen_last_;
};

}  // namespace zendara
