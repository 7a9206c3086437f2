#include "zendara/windows.hpp"

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"

namespace zendara {
namespace {

class QtWindows final : public FrontEnd {
 public:
  void Install(Platform& platform) override {
    platform.forms = &host_;
    if (!platform.dialogs) platform.dialogs = &host_;
    if (!platform.shell) platform.shell = &host_;
    host_.OfferNeighbours(platform.components);
  }

 private:
  CairoWriter documents_;
  FileDrafts drafts_{DraftsFolder()};
  QtHost host_{documents_, &drafts_};
};

}  // namespace

std::unique_ptr<FrontEnd> MakeWindows(Look look) {
  if (look == Look::kZendara) InstallLook();
  return std::make_unique<QtWindows>();
}

}  // namespace zendara
