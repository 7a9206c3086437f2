#include "adapters/script/user_neighbours.hpp"

#include <memory>
#include <utility>

#include "adapters/hosting/silent_banner.hpp"

namespace zendara {
namespace {

class TakenListing : public ListingViewer {
 public:
  explicit TakenListing(TakeListing take) : take_(std::move(take)) {}

  void Visualiza(ListingDescription& descripcion) override { take_(descripcion, file_, table_); }
  void FicheroDatos(const std::string& ruta) override { file_ = ruta; }
  void TablaDatos(const std::string& tabla) override { table_ = tabla; }
  void FormularioPadre(Form* /*formulario*/) override {}

 private:
  TakeListing take_;
  std::string file_;
  std::string table_;
};

}  // namespace

void OfferUserNeighbours(Components& components, ChooseRow choose, TakeListing take) {
  if (!components.Has(kPickListClass)) RegisterPickList(components, std::move(choose));
  if (!components.Has(kListingViewerClass)) {
    components.Register(kListingViewerClass, [take = std::move(take)]() -> std::unique_ptr<ListingViewer> {
      return std::make_unique<TakenListing>(take);
    });
  }
  OfferSilentBanner(components);
}

}  // namespace zendara
