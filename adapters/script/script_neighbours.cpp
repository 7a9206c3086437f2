#include "adapters/script/script_neighbours.hpp"

#include <memory>

#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/silent_banner.hpp"

namespace zendara {
namespace {

class ScriptListingViewer : public ListingViewer {
 public:
  explicit ScriptListingViewer(ScriptPlayer& player) : player_(player) {}

  void Visualiza(ListingDescription& descripcion) override { player_.Listing(descripcion, file_, table_); }
  void FicheroDatos(const std::string& ruta) override { file_ = ruta; }
  void TablaDatos(const std::string& tabla) override { table_ = tabla; }
  void FormularioPadre(Form* /*formulario*/) override {}

 private:
  ScriptPlayer& player_;
  std::string file_;
  std::string table_;
};

}  // namespace

void OfferScriptNeighbours(Components& components, ScriptPlayer& player) {
  if (!components.Has(kPickListClass)) {
    RegisterPickList(components,
                     [&player](const std::string& title, RowList& rows) { return player.Choose(title, rows); });
  }
  if (!components.Has(kListingViewerClass)) {
    components.Register(kListingViewerClass, [&player]() -> std::unique_ptr<ListingViewer> {
      return std::make_unique<ScriptListingViewer>(player);
    });
  }
  components.Offer(kBannerClass, []() -> std::unique_ptr<Banner> { return std::make_unique<SilentBanner>(); });
}

}  // namespace zendara
