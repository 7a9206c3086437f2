// Documents drawn with Pango and cairo, in DejaVu Sans. It needs neither a display nor a toolkit of windows.
#pragma once

#include <memory>
#include <string>

#include "adapters/cairo/pango_text.hpp"
#include "print/document_writer.hpp"

namespace zendara {

// The fonts are loaded when something is measured or drawn first.
class CairoWriter : public print::DocumentWriter {
 public:
  CairoWriter();
  ~CairoWriter() override;
  CairoWriter(const CairoWriter&) = delete;
  CairoWriter& operator=(const CairoWriter&) = delete;

  const PangoMeasure& Measure() const override;
  std::string Now() const override;
  void WritePdf(const print::Document& document, const std::string& path, Existing existing) const override;

 private:
  mutable std::unique_ptr<PangoMeasure> measure_;
};

}  // namespace zendara
