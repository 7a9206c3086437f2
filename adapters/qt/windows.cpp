#include "zendara/windows.hpp"

#include "adapters/cairo/cairo_writer.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/qt/look.hpp"
#include "adapters/qt/qt_host.hpp"

namespace zendara {
namespace {

class QtWindows final : public Windows {
 public:
  void Install(Platform& platform) override {
    platform.dialogs = &host_;
    platform.forms = &host_;
    platform.shell = &host_;
    platform.components = &host_.Neighbours();
  }

 private:
  CairoWriter documents_;
  FileDrafts drafts_{DraftsFolder()};
  QtHost host_{documents_, &drafts_};
};

}  // namespace

std::unique_ptr<Windows> MakeWindows() {
  InstallLook();
  return std::make_unique<QtWindows>();
}

}  // namespace zendara
