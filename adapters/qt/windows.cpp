#include "zendara/windows.hpp"

#include <memory>
#include <string>
#include <string_view>

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"
#include "runtime/surroundings.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/version.h"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

struct Parts {
  CairoWriter documents;
  FileDrafts drafts{DraftsFolder()};
  QtHost host{documents, &drafts};
};

class QtWindows final : public FrontEnd {
 public:
  QtWindows() = default;
  ~QtWindows() override {
    if (!parts_->host.Top()) return;
    // Those who show it are still to come back here.
    LogLine("the windows end while a screen is shown: what shows it stays in memory");
    static_cast<void>(parts_.release());
  }
  QtWindows(const QtWindows&) = delete;
  QtWindows& operator=(const QtWindows&) = delete;

  void Install(Platform& platform) override {
    QtHost& host = parts_->host;
    platform.forms = &host;
    if (!platform.dialogs) platform.dialogs = &host;
    if (!platform.shell) platform.shell = &host;
    host.OfferNeighbours(platform.components);
  }

 private:
  std::unique_ptr<Parts> parts_ = std::make_unique<Parts>();
};

}  // namespace

std::unique_ptr<FrontEnd> MakeWindows(Look look) {
  if (Version() != std::string_view(ZENDARA_VERSION)) {
    throw RuntimeError(kInternalError, {},
                       std::string("libzendara is ") + Version() + ", libzendara-windows is " + ZENDARA_VERSION);
  }
  if (look == Look::kZendara) InstallLook();
  return std::make_unique<QtWindows>();
}

}  // namespace zendara
