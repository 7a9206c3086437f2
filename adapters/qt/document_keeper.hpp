// Keeps the record of a screen, and what stands behind a box, as a PDF.
#pragma once

#include <QString>
#include <functional>

#include "adapters/qt/file_keeper.hpp"
#include "print/document_writer.hpp"
#include "zendara/ports.hpp"

namespace zendara {

class FormWindow;

class DocumentKeeper {
 public:
  // Neither is owned.
  DocumentKeeper(const print::DocumentWriter& documents, FileKeeper& files) : documents_(documents), files_(files) {}

  // All of the form, wherever it stands; its status says where it went.
  void KeepRecord(FormWindow& window);
  // What stands behind a box over that form's window, which may be null. What to say then, nothing if it was not kept.
  QString KeepDetail(const Box& box, const FormWindow* window, QWidget& over);

 private:
  QString Keep(const std::function<print::Document()>& make, QWidget& over);

  const print::DocumentWriter& documents_;
  FileKeeper& files_;
};

}  // namespace zendara
