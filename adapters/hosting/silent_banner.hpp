// The banner of hosts that have nothing to advertise.
#pragma once

#include "zendara/neighbours.hpp"

namespace zendara {

class SilentBanner : public Banner {
 public:
  void PosicionBanner(std::int32_t /*handle*/, BannerPlace& lugar) override { lugar = {}; }
  void AvisoCierre(std::int32_t /*handle*/) override {}
};

}  // namespace zendara
