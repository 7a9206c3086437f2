// A PDF that is written page after page: no more of it is in memory than a page and the letters that were used.
#pragma once

#include <string>

#include "adapters/cairo/page_drawing.hpp"
#include "adapters/host/new_file.hpp"
#include "print/document_writer.hpp"

namespace zendara {

class PdfFile {
 public:
  struct Facts {
    std::string title;
    std::string created;  // as Document::created
    print::Paper paper;
  };

  // REQUIRES: measure outlives it. Errors, here and below, are those of DocumentWriter::WritePdf.
  PdfFile(const Facts& facts, const PangoMeasure& measure, const std::string& path,
          print::DocumentWriter::Existing existing);

  void Add(const print::Page& page);
  // The last call; without it no file is left.
  void Finish();

 private:
  static cairo_status_t Append(void* file, const unsigned char* data, unsigned length);
  void Check(cairo_status_t status);

  std::string path_;
  const PangoMeasure& measure_;
  NewFile file_;
  CairoSurface surface_;  // writes into the file until it goes
  CairoContext cairo_;
};

// Of the clock, as Document::created.
std::string TimeNow();

}  // namespace zendara
