#include "adapters/qt/qt_listing_viewer.hpp"

#include "adapters/hosting/current_session.hpp"
#include "adapters/qt/qt_host.hpp"
#include "print/listing.hpp"

namespace zendara {

void QtListingViewer::Visualiza(ListingDescription& descripcion) {
  print::Listing listing = print::ReadDescription(descripcion);
  auto rows = print::StagedRows(EngineOfComponent(), file_, table_, listing.columns.size(), YearsOfComponent());
  host_.Preview(std::move(listing), HeadOfComponent(), std::move(rows), form_);
}

}  // namespace zendara
