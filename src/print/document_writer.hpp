// The port of a renderer: measures what is laid out, and writes it.
#pragma once

#include <string>

#include "print/page.hpp"

namespace zendara::print {

class DocumentWriter {
 public:
  virtual ~DocumentWriter() = default;

  // It lives as long as this object.
  virtual const TextMeasure& Measure() const = 0;
  // For Document::created: the machine's clock.
  virtual std::string Now() const = 0;

  enum class Existing { kKeep, kReplace };
  // A PDF file whose text can be searched and copied. It gets its name when it is whole and on the disk: whatever fails
  // leaves what was there. RuntimeError 3012 when there is a file of that name and it is to be kept, 61 no room on the
  // disk, 70 no permission, 75 a folder of that name, or a medium that only reads, 76 no such folder, 57 anything else.
  virtual void WritePdf(const Document& document, const std::string& path, Existing existing) const = 0;
};

}  // namespace zendara::print
