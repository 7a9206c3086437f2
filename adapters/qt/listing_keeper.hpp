// A listing on its way out of the window: into files, to printers.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/cairo/pango_text.hpp"
#include "adapters/cups/printers.hpp"
#include "adapters/qt/file_keeper.hpp"
#include "print/listing_writer.hpp"
#include "zendara/value.hpp"

class QWidget;

namespace zendara {

// A kind of file that a listing can be kept as.
struct ListingFile {
  FileFormat kind;
  std::unique_ptr<print::ListingWriter> writer;
};

// All that there are; the first one is what goes to printers. `years`: of dates with two digits for the year.
// REQUIRES: measure outlives them.
std::vector<ListingFile> ListingFiles(const PangoMeasure& measure, YearWindow years);

class ListingKeeper {
 public:
  // None is owned.
  ListingKeeper(const std::vector<ListingFile>& kinds, const Printers& printers, FileKeeper& files)
      : kinds_(kinds), printers_(printers), files_(files) {}

  // Asks where, or on which printer, and does it. Who has to wait can stop it. What to say then, nothing if it did not
  // come to that.
  QString Save(print::PagedListing& listing, QWidget& over);
  QString Print(print::PagedListing& listing, QWidget& over);

 private:
  const std::vector<ListingFile>& kinds_;
  const Printers& printers_;
  FileKeeper& files_;
};

}  // namespace zendara
