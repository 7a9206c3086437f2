// The banner of hosts that have nothing to advertise.
#pragma once

#include <memory>

#include "zendara/neighbours.hpp"

namespace zendara {

class SilentBanner : public Banner {
 public:
  void PosicionBanner(std::int32_t /*handle*/, BannerPlace& lugar) override { lugar = {}; }
  void AvisoCierre(std::int32_t /*handle*/) override {}
};

inline void OfferSilentBanner(Components& components) {
  components.Offer(kBannerClass, []() -> std::unique_ptr<Banner> { return std::make_unique<SilentBanner>(); });
}

}  // namespace zendara
