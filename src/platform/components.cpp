#include <utility>

#include "runtime/text.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
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
  registered_[LCase(name)] = std::move(factory);
}

void Components::Register(std::string_view name, Factory<Banner> factory) {
  registered_[LCase(name)] = std::move(factory);
}

void Components::Register(std::string_view name, Factory<ListingViewer> factory) {
  registered_[LCase(name)] = std::move(factory);
}

bool Components::Has(std::string_view name) const { return registered_.contains(LCase(name)); }

void Components::Offer(std::string_view name, Factory<PickList> factory) { offered_[LCase(name)] = std::move(factory); }

void Components::Offer(std::string_view name, Factory<Banner> factory) { offered_[LCase(name)] = std::move(factory); }

void Components::Offer(std::string_view name, Factory<ListingViewer> factory) {
  offered_[LCase(name)] = std::move(factory);
}

template <typename T>
std::unique_ptr<T> Components::Create(std::string_view name,
                                      std::unique_ptr<T> (ClassSource::*make)(std::string_view) const) const {
  const auto made_in = [key = LCase(name)](const Factories& factories, bool& found) -> std::unique_ptr<T> {
    const auto entry = factories.find(key);
    found = entry != factories.end();
    const auto* factory = found ? std::get_if<Factory<T>>(&entry->second) : nullptr;
    return factory && *factory ? (*factory)() : nullptr;
  };
  bool found = false;
  std::unique_ptr<T> object = made_in(registered_, found);
  if (!found && source_) object = (*source_.*make)(name);
  if (!found && !object) object = made_in(offered_, found);
  if (!object) throw RuntimeError(kCannotCreateObject, {}, "no class " + std::string(name) + " is registered");
  return object;
}

std::unique_ptr<PickList> CreatePickList(const Components& components, std::string_view name) {
  return components.Create<PickList>(name, &ClassSource::MakePickList);
}

std::unique_ptr<Banner> CreateBanner(const Components& components, std::string_view name) {
  return components.Create<Banner>(name, &ClassSource::MakeBanner);
}

std::unique_ptr<ListingViewer> CreateListingViewer(const Components& components, std::string_view name) {
  return components.Create<ListingViewer>(name, &ClassSource::MakeListingViewer);
}

}  // namespace zendara
