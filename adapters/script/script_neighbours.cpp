#include "adapters/headless/script_neighbours.hpp"

#include <memory>

#include "adapters/headless/row_pick_list.hpp"

namespace zendara {
namespace {

class ScriptPickList : public RowPickList {
 public:
  explicit ScriptPickList(ScriptPlayer& player) : player_(player) {}

 private:
  std::optional<std::size_t> Choose(const std::string& title, ListaFilas& rows) override {
    return player_.Choose(title, rows);
  }

  ScriptPlayer& player_;
};

// Paints nothing.
class SilentBanner : public Banner {
 public:
  void PosicionBanner(std::int32_t /*handle*/, BannerPlace& /*lugar*/) override {}
  void AvisoCierre(std::int32_t /*handle*/) override {}
};

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

void RegisterScriptNeighbours(Components& components, ScriptPlayer& player) {
  components.Register(kPickListClass,
                      [&player]() -> std::unique_ptr<PickList> { return std::make_unique<ScriptPickList>(player); });
  components.Register(kBannerClass, []() -> std::unique_ptr<Banner> { return std::make_unique<SilentBanner>(); });
  components.Register(kListingViewerClass, [&player]() -> std::unique_ptr<ListingViewer> {
    return std::make_unique<ScriptListingViewer>(player);
  });
}

}  // namespace zendara
