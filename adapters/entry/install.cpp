#include "adapters/entry/install.hpp"

#include <utility>

#include "adapters/entry/class_object.hpp"
#include "adapters/entry/ports.hpp"
#include "adapters/entry/structure.hpp"
#include "adapters/plain_c/plain_neighbours.hpp"
#include "zendara/platform.hpp"

namespace zendara {
namespace {

template <typename Interface, typename Table>
using MakeNeighbour = std::unique_ptr<Interface> (*)(const Table& table, std::string name,
                                                     std::shared_ptr<const void> keep);

template <typename Interface, typename Table>
void Register(Components& components, std::string_view name, const Table* table, MakeNeighbour<Interface, Table> make) {
  if (!table) return;
  components.Register(
      name, [copy = CopyOf(table), own_name = std::string(name), make] { return make(copy, own_name, nullptr); });
}

// A platform, with all that it points to.
class Surroundings {
 public:
  explicit Surroundings(const zendara_platform& given) {
    engine_ =
        given.engine ? Counted<zendara_engine>::OneMore(Handle<zendara_engine>(given.engine)) : MakeEngineObject();
    platform.application_folder = engine_->FolderOf(given.application_folder);
    platform.engine = engine_->engine.get();
    if (given.screens) {
      screens = Counted<zendara_screens>::OneMore(Handle<zendara_screens>(given.screens));
      screens->Front().Install(platform);
    }
    if (given.dialogs) platform.dialogs = (dialogs_ = DialogsOf(CopyOf(given.dialogs), platform.dialogs)).get();
    if (given.shell) platform.shell = (shell_ = ShellOf(CopyOf(given.shell), platform.shell)).get();
    const zendara_files files = given.files ? CopyOf(given.files) : zendara_files{};
    platform.files = (files_ = FilesOf(files, *engine_->files)).get();
    // Tables without their only function.
    const zendara_clock clock = given.clock ? CopyOf(given.clock) : zendara_clock{};
    if (clock.Now) platform.clock = (clock_ = ClockOf(clock)).get();
    const zendara_log log = given.log ? CopyOf(given.log) : zendara_log{};
    if (log.Line) platform.log = (log_ = LogOf(log)).get();
    Register(platform.components, kPickListClass, given.pick_list, PlainPickList);
    Register(platform.components, kBannerClass, given.banner, PlainBanner);
    Register(platform.components, kListingViewerClass, given.listing_viewer, PlainListingViewer);
  }

  Counted<zendara_screens> screens;
  Platform platform;

 private:
  InUse in_use_;
  Counted<zendara_engine> engine_;
  std::unique_ptr<Dialogs> dialogs_;
  std::unique_ptr<Files> files_;
  std::unique_ptr<Shell> shell_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<Log> log_;
};

// Not owned by a static object: a front end must not outlive its toolkit, whatever a process leaves undone at its end.
Surroundings* installed = nullptr;

// The component lets go of the old ones first.
zendara_result Replace(std::unique_ptr<Surroundings> surroundings) {
  InstallPlatform(surroundings ? surroundings->platform : Platform{});
  const zendara_result result = LastCallResult();
  if (result < 0) return result;
  const std::unique_ptr<Surroundings> old(std::exchange(installed, surroundings.release()));
  return result;
}

// Before a front end is asked for anything.
void CheckNotBusy() {
  if (ScreenIsShown()) Refuse(ZENDARA_BUSY, "the platform is exchanged while a screen is shown");
}

}  // namespace

zendara_result Install(const zendara_platform& platform) {
  CheckNotBusy();
  const zendara_result result = Replace(std::make_unique<Surroundings>(platform));
  if (result < 0) return result;
  TakeThread();
  Object::DeleteReleased();
  return result;
}

zendara_result Uninstall() {
  CheckNotBusy();
  const zendara_result result = Replace(nullptr);
  if (result < 0) return result;
  LeaveThread();
  Object::DeleteReleased();
  return result;
}

void RethrowOfUser() {
  if (installed && installed->screens) installed->screens->RethrowOfUser();
}

}  // namespace zendara

extern "C" {

zendara_result zendara_install(const zendara_platform* platform) {
  using namespace zendara;
  return Answer([&] { return platform ? Install(CopyOf(platform)) : Uninstall(); });
}
}
