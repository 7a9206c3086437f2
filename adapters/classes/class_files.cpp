// The classes of the machine: tables of functions in plain C behind the interfaces of the component.
#include <memory>
#include <string>
#include <string_view>

#include "adapters/plain_c/plain_neighbours.hpp"
#include "zendara/engines.hpp"
#include "zendara/loader.h"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// A new object of a class file, under the interface of that table.
template <typename Table>
struct OutsideObject {
  const Table* table;
};
template <typename Table>
using Outside = std::shared_ptr<OutsideObject<Table>>;

// Null when there is no class file of that name.
template <typename Table>
Outside<Table> Make(const std::string& name, const zendara_guid& interface) {
  zendara_class_file file{};
  file.size = sizeof file;
  if (zendara_loader_find(name.c_str(), &file) == ZENDARA_NOT_REGISTERED) return nullptr;
  void* object = nullptr;
  if (zendara_loader_create(name.c_str(), ZENDARA_VERSION_MAJOR, &interface, &object) < 0) {
    throw RuntimeError(kCannotCreateObject, {}, zendara_loader_error());
  }
  return Outside<Table>(static_cast<OutsideObject<Table>*>(object),
                        [](OutsideObject<Table>* made) { made->table->Release(made); });
}

class ClassFiles : public ClassSource {
 public:
  std::unique_ptr<PickList> MakePickList(std::string_view name) const override {
    const std::string own_name(name);
    const auto object = Make<zendara_pick_list_table>(own_name, ZENDARA_IID_PICK_LIST);
    if (!object) return nullptr;
    return PlainPickList({sizeof(zendara_pick_list), object.get(), object->table->Choose}, own_name, object);
  }
  std::unique_ptr<Banner> MakeBanner(std::string_view name) const override {
    const std::string own_name(name);
    const auto object = Make<zendara_banner_table>(own_name, ZENDARA_IID_BANNER);
    if (!object) return nullptr;
    const auto& table = *object->table;
    return PlainBanner({sizeof(zendara_banner), object.get(), table.PosicionBanner, table.AvisoCierre}, own_name,
                       object);
  }
  std::unique_ptr<ListingViewer> MakeListingViewer(std::string_view name) const override {
    const std::string own_name(name);
    const auto object = Make<zendara_listing_viewer_table>(own_name, ZENDARA_IID_LISTING_VIEWER);
    if (!object) return nullptr;
    return PlainListingViewer({sizeof(zendara_listing_viewer), object.get(), object->table->Visualiza}, own_name,
                              object);
  }
};

}  // namespace

std::shared_ptr<const ClassSource> MakeClassFiles() { return std::make_shared<ClassFiles>(); }

}  // namespace zendara
