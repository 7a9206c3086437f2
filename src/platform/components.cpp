#include <utility>

#include "runtime/text.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

// The factory of that name, if it makes objects of that kind, makes one.
template <typename T, typename Factories>
std::unique_ptr<T> Create(const Factories& factories, std::string_view name) {
  if (const auto found = factories.find(LCase(name)); found != factories.end()) {
    const auto* factory = std::get_if<Components::Factory<T>>(&found->second);
    if (factory && *factory) {
      if (std::unique_ptr<T> object = (*factory)()) return object;
    }
  }
  throw RuntimeError(kCannotCreateObject, {}, "no class " + std::string(name) + " is registered");
}

const Components& Registered(const Components* components) {
  static const Components none;
  return components ? *components : none;
}

}  // namespace

std::string LayOutRow(const std::vector<std::string>& texts, const std::vector<RowPlace>& places) {
  std::string row;
  std::size_t width = 0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const auto start = static_cast<std::size_t>(places[i].start - 1);
    row.append(start - width, ' ');
    row += Fit(texts[i], static_cast<std::size_t>(places[i].width));
    width = start + static_cast<std::size_t>(places[i].width);
  }
  return row;
}

void Components::Register(std::string_view name, Factory<PickList> factory) {
  factories_[LCase(name)] = std::move(factory);
}

void Components::Register(std::string_view name, Factory<Banner> factory) {
  factories_[LCase(name)] = std::move(factory);
}

void Components::Register(std::string_view name, Factory<ListingViewer> factory) {
  factories_[LCase(name)] = std::move(factory);
}

std::unique_ptr<PickList> CreatePickList(const Components* components, std::string_view name) {
  return Create<PickList>(Registered(components).factories_, name);
}

std::unique_ptr<Banner> CreateBanner(const Components* components, std::string_view name) {
  return Create<Banner>(Registered(components).factories_, name);
}

std::unique_ptr<ListingViewer> CreateListingViewer(const Components* components, std::string_view name) {
  return Create<ListingViewer>(Registered(components).factories_, name);
}

}  // namespace zendara
