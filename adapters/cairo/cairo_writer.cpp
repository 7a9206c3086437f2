#include "adapters/cairo/cairo_writer.hpp"

#include "adapters/cairo/pango_text.hpp"
#include "adapters/cairo/pdf_file.hpp"

namespace zendara {

CairoWriter::CairoWriter() = default;
CairoWriter::~CairoWriter() = default;

const PangoMeasure& CairoWriter::Measure() const {
  if (!measure_) measure_ = std::make_unique<PangoMeasure>();
  return *measure_;
}

std::string CairoWriter::Now() const { return TimeNow(); }

void CairoWriter::WritePdf(const print::Document& document, const std::string& path, Existing existing) const {
  PdfFile file({.title = document.title, .created = document.created, .paper = document.paper}, Measure(), path,
               existing);
  for (const print::Page& page : document.pages) file.Add(page);
  file.Finish();
}

}  // namespace zendara
