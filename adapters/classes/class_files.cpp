// The classes of the machine: tables of functions in plain C behind the interfaces of the component.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/hosting/row_pick_list.hpp"
#include "adapters/hosting/shown_row_list.hpp"
#include "adapters/plain_c/list_handle.hpp"
#include "adapters/plain_c/outside_call.hpp"
#include "adapters/plain_c/plain_listing.hpp"
#include "platform/form/form.hpp"
#include "zendara/engines.hpp"
#include "zendara/loader.h"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// An object of an outside library under the interface of that table; released at the end.
template <typename Table>
class OutsideObject {
 public:
  OutsideObject(std::string name, void* object) : name_(std::move(name)), object_(static_cast<Object*>(object)) {}
  ~OutsideObject() { object_->table->Release(object_); }
  OutsideObject(const OutsideObject&) = delete;
  OutsideObject& operator=(const OutsideObject&) = delete;

  // The result is not negative; errors as CallOutside.
  template <typename... Parameters, typename... Arguments>
  zendara_result Call(std::string_view member, zendara_result (*Table::*function)(void* self, Parameters...),
                      Arguments... arguments) const {
    return CallOutside(name_ + ": " + std::string(member), object_->table->*function, object_, arguments...);
  }
  const std::string& Name() const { return name_; }

 private:
  struct Object {
    const Table* table;
  };

  std::string name_;
  Object* object_;
};

template <typename Table>
using Outside = std::shared_ptr<const OutsideObject<Table>>;

// Null when there is no class file of that name.
template <typename Table>
Outside<Table> Make(std::string_view name, const zendara_guid& interface) {
  std::string own_name(name);
  zendara_class_file file{};
  file.size = sizeof file;
  if (zendara_loader_find(own_name.c_str(), &file) == ZENDARA_NOT_REGISTERED) return nullptr;
  void* object = nullptr;
  if (zendara_loader_create(own_name.c_str(), ZENDARA_VERSION_MAJOR, &interface, &object) < 0) {
    throw RuntimeError(kCannotCreateObject, {}, zendara_loader_error());
  }
  return std::make_shared<OutsideObject<Table>>(std::move(own_name), object);
}

class OutsideBanner : public Banner {
 public:
  explicit OutsideBanner(Outside<zendara_banner_table> object) : object_(std::move(object)) {}

  void PosicionBanner(std::int32_t handle, BannerPlace& lugar) override {
    zendara_banner_place place{sizeof place, lugar.left, lugar.top, lugar.width, lugar.height};
    object_->Call("PosicionBanner", &zendara_banner_table::PosicionBanner, handle, &place);
    lugar = {place.left, place.top, place.width, place.height};
  }
  void AvisoCierre(std::int32_t handle) override {
    object_->Call("AvisoCierre", &zendara_banner_table::AvisoCierre, handle);
  }

 private:
  Outside<zendara_banner_table> object_;
};

std::optional<std::size_t> Choose(const OutsideObject<zendara_pick_list_table>& object, const std::string& title,
                                  RowList& rows) {
  ShownRowList shown(rows);
  zendara_list list{title, shown};
  std::uint64_t row = 0;
  const zendara_result result = object.Call("Choose", &zendara_pick_list_table::Choose, &list, &row);
  if (result == ZENDARA_FALSE) return std::nullopt;
  if (rows.Reach(row)) return row;
  throw RuntimeError(kInvalidPropertyValue, {}, object.Name() + ": Choose takes a row that the list does not have");
}

class OutsideListingViewer : public ListingViewer {
 public:
  explicit OutsideListingViewer(Outside<zendara_listing_viewer_table> object) : object_(std::move(object)) {}

  void Visualiza(ListingDescription& descripcion) override {
    const PlainListing listing(descripcion, file_, table_, form_);
    object_->Call("Visualiza", &zendara_listing_viewer_table::Visualiza, listing.Get());
  }
  void FicheroDatos(const std::string& ruta) override { file_ = ruta; }
  void TablaDatos(const std::string& tabla) override { table_ = tabla; }
  void FormularioPadre(Form* formulario) override { form_ = formulario ? formulario->Name() : std::string(); }

 private:
  Outside<zendara_listing_viewer_table> object_;
  std::string file_;
  std::string table_;
  std::string form_;
};

class ClassFiles : public ClassSource {
 public:
  std::unique_ptr<PickList> MakePickList(std::string_view name) const override {
    const auto object = Make<zendara_pick_list_table>(name, ZENDARA_IID_PICK_LIST);
    if (!object) return nullptr;
    return std::make_unique<RowPickList>(
        [object](const std::string& title, RowList& rows) { return Choose(*object, title, rows); });
  }
  std::unique_ptr<Banner> MakeBanner(std::string_view name) const override {
    auto object = Make<zendara_banner_table>(name, ZENDARA_IID_BANNER);
    return object ? std::make_unique<OutsideBanner>(std::move(object)) : nullptr;
  }
  std::unique_ptr<ListingViewer> MakeListingViewer(std::string_view name) const override {
    auto object = Make<zendara_listing_viewer_table>(name, ZENDARA_IID_LISTING_VIEWER);
    return object ? std::make_unique<OutsideListingViewer>(std::move(object)) : nullptr;
  }
};

}  // namespace

std::shared_ptr<const ClassSource> MakeClassFiles() { return std::make_shared<ClassFiles>(); }

}  // namespace zendara
