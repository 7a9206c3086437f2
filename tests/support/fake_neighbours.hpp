// Neighbours that do nothing, for screens that need some.
#pragma once

#include <string>

#include "zendara/neighbours.hpp"

namespace zendara {

struct FakeBanner : Banner {
  void PosicionBanner(std::int32_t, BannerPlace&) override {}
  void AvisoCierre(std::int32_t) override {}
};

struct FakeViewer : ListingViewer {
  void Visualiza(ListingDescription&) override {}
  void FicheroDatos(const std::string&) override {}
  void TablaDatos(const std::string&) override {}
  void FormularioPadre(Form*) override {}
};

}  // namespace zendara
