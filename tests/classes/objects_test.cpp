// Objects of another library in the places of the component's neighbours.
#include <gmock/gmock.h>

#include "classes/class_folders_fixture.hpp"
#include "zendara/engines.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

class Objects : public ClassFolders {
 protected:
  Objects() {
    for (const std::string& name : {std::string(kBannerClass), std::string(kPickListClass),
                                    std::string(kListingViewerClass), std::string("Faulty.Class")}) {
      std::string file = name;
      for (char& c : file) c = static_cast<char>(std::tolower(c));
      Write(path_ / (file + ".class"),
            ClassText(name, "1", name == "Faulty.Class" ? folder_ / "gone" : SAMPLE_LIBRARY));
    }
    components_.LookIn(MakeClassFiles());
  }

  // "number detail", empty when there is none.
  template <typename Call>
  static std::string ErrorOf(Call call) {
    try {
      call();
    } catch (const RuntimeError& error) {
      return std::to_string(error.number()) + " " + error.detail();
    }
    return {};
  }

  Components components_;
};

struct OwnBanner : Banner {
  void PosicionBanner(std::int32_t, BannerPlace& lugar) override { lugar.left = 77; }
  void AvisoCierre(std::int32_t) override {}
};

TEST_F(Objects, TheHostComesFirstAndTheFrontEndLast) {
  const auto left = [&] {
    BannerPlace place;
    CreateBanner(components_)->PosicionBanner(1, place);
    return place.left;
  };
  components_.Offer(kBannerClass, [] { return std::unique_ptr<Banner>(new OwnBanner); });
  EXPECT_EQ(left(), 15);
  components_.Register(kBannerClass, [] { return std::unique_ptr<Banner>(new OwnBanner); });
  EXPECT_EQ(left(), 77);
  // What is there and cannot be made hides what the front end has; what is not there does not.
  for (const std::string name : {"Faulty.Class", "None.Class"}) {
    components_.Offer(name, [] { return std::unique_ptr<Banner>(new OwnBanner); });
  }
  EXPECT_THAT(ErrorOf([&] { CreateBanner(components_, "faulty.CLASS"); }),
              testing::AllOf(testing::StartsWith("429 "), testing::HasSubstr("No such file or directory")));
  EXPECT_EQ(ErrorOf([&] { CreateBanner(components_, "None.Class"); }), "");
}

TEST_F(Objects, AFailingCallIsARuntimeError) {
  const auto banner = CreateBanner(components_);
  BannerPlace place{1, 2, 3, 4};
  EXPECT_EQ(ErrorOf([&] { banner->PosicionBanner(7, place); }),
            "70 Ravelin.clsRavelin: PosicionBanner gives 0x80004005: no paint");
  EXPECT_EQ(ErrorOf([&] { banner->PosicionBanner(8, place); }),
            "51 Ravelin.clsRavelin: PosicionBanner gives 0x80004005");
  EXPECT_EQ(place, (BannerPlace{1, 2, 3, 4}));

  const auto viewer = CreateListingViewer(components_);
  viewer->FicheroDatos("a.mdb");
  viewer->TablaDatos("Rows");
  viewer->FormularioPadre(nullptr);
  ListingDescription listing = {"2", "A", std::int16_t{0}, "100", "B", std::int16_t{1}, "200", "Title", true};
  EXPECT_EQ(ErrorOf([&] { viewer->Visualiza(listing); }),
            "61 ClsVisorListado: Visualiza gives 0x80004005: Title 2 B 200 1 1 a.mdb Rows ");
}

struct TwoColumns : PickRows {
  bool Siguiente(std::vector<std::string>& textos) override {
    textos = {"00" + std::to_string(++row), std::string(1, static_cast<char>('A' + row - 1))};
    return row <= 3;
  }
  int row = 0;
};

TEST_F(Objects, APickListTakesARow) {
  const auto chosen = [&](const std::string& title) {
    TwoColumns rows;
    std::string taken = "before";
    CreatePickList(components_)->ConsultaFilas({"001", "010"}, rows, {{1, 3}, {5, 2}}, title, 1, taken);
    return taken;
  };
  EXPECT_EQ(chosen("B"), "002 B ");
  EXPECT_EQ(chosen("none"), "");
  EXPECT_THAT(ErrorOf([&] { chosen("past"); }), testing::StartsWith("380 ObjLista"));
}

}  // namespace
}  // namespace zendara
