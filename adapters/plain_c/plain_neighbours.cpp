#include "adapters/plain_c/plain_neighbours.hpp"

#include <utility>

#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/shown_row_list.hpp"
#include "adapters/plain_c/list_handle.hpp"
#include "adapters/plain_c/outside_call.hpp"
#include "adapters/plain_c/plain_listing.hpp"
#include "zendara/forms.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

class TableBanner final : public Banner {
 public:
  TableBanner(const zendara_banner& table, std::string name, std::shared_ptr<const void> keep)
      : table_(table), name_(std::move(name)), keep_(std::move(keep)) {}

  void PosicionBanner(std::int32_t handle, BannerPlace& lugar) override {
    if (!table_.PosicionBanner) return void(lugar = {});
    zendara_banner_place place{sizeof place, lugar.left, lugar.top, lugar.width, lugar.height};
    CallOutside(name_ + ": PosicionBanner", table_.PosicionBanner, table_.self, handle, &place);
    lugar = {place.left, place.top, place.width, place.height};
  }
  void AvisoCierre(std::int32_t handle) override {
    if (table_.AvisoCierre) CallOutside(name_ + ": AvisoCierre", table_.AvisoCierre, table_.self, handle);
  }

 private:
  zendara_banner table_;
  std::string name_;
  std::shared_ptr<const void> keep_;
};

class TableListingViewer final : public ListingViewer {
 public:
  TableListingViewer(const zendara_listing_viewer& table, std::string name, std::shared_ptr<const void> keep)
      : table_(table), name_(std::move(name)), keep_(std::move(keep)) {}

  void Visualiza(ListingDescription& descripcion) override {
    const PlainListing listing(descripcion, file_, rows_, form_);
    CallOutside(name_ + ": Visualiza", table_.Visualiza, table_.self, listing.Get());
  }
  void FicheroDatos(const std::string& ruta) override { file_ = ruta; }
  void TablaDatos(const std::string& tabla) override { rows_ = tabla; }
  void FormularioPadre(Form* formulario) override { form_ = formulario ? formulario->Name() : std::string(); }

 private:
  zendara_listing_viewer table_;
  std::string name_;
  std::shared_ptr<const void> keep_;
  std::string file_, rows_, form_;
};

}  // namespace

std::unique_ptr<PickList> PlainPickList(const zendara_pick_list& table, std::string name,
                                        std::shared_ptr<const void> keep) {
  return PickListOver([table, name = std::move(name), keep = std::move(keep)](
                          const std::string& title, RowList& rows) -> std::optional<std::size_t> {
    ShownRowList shown(rows);
    zendara_list list{title, shown};
    std::uint64_t row = 0;
    if (CallOutside(name + ": Choose", table.Choose, table.self, &list, &row) != ZENDARA_OK) return std::nullopt;
    if (!shown.Has(row)) throw RuntimeError(kInvalidPropertyValue, {}, name + " takes a row that is not there");
    return row;
  })();
}

std::unique_ptr<Banner> PlainBanner(const zendara_banner& table, std::string name, std::shared_ptr<const void> keep) {
  return std::make_unique<TableBanner>(table, std::move(name), std::move(keep));
}

std::unique_ptr<ListingViewer> PlainListingViewer(const zendara_listing_viewer& table, std::string name,
                                                  std::shared_ptr<const void> keep) {
  return std::make_unique<TableListingViewer>(table, std::move(name), std::move(keep));
}

}  // namespace zendara
