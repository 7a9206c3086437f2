// A listing on its way out of the window: into files, to printers.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/cups/printers.hpp"
#include "adapters/qt/file_keeper.hpp"
#include "print/listing_writer.hpp"

class QWidget;

namespace zendara {

// A kind of file that a listing can be kept as.
struct ListingFile {
  FileKind kind;
  std::unique_ptr<print::ListingWriter> writer;
};

class ListingKeeper {
 public:
  // None is owned. The first kind is what goes to printers.
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
