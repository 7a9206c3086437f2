#include "adapters/entry/screens.hpp"

#include <dlfcn.h>

#include <string>
#include <utility>

#include "adapters/entry/install.hpp"
#include "adapters/entry/structure.hpp"
#include "adapters/entry/user.hpp"
#include "zendara/interop.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/windows.h"

using namespace zendara;

zendara_screens::zendara_screens(std::unique_ptr<FrontEnd> front) : front_(std::move(front)) {}

zendara_screens::zendara_screens(std::unique_ptr<ScreenUser> user) : user_(std::move(user)) {
  auto automation = MakeAutomation(*user_);
  automation_ = automation.get();
  front_ = std::move(automation);
}

FrontEnd& zendara_screens::Front() const {
  if (!front_) throw RuntimeError(kObjectNotSet, {}, "these screens are neither windows nor automation");
  return *front_;
}

void zendara_screens::RethrowOfUser() const {
  if (automation_) automation_->Rethrow();
}

namespace {

// The windows of the library beside this one, which is loaded at the first use and stays.
zendara_screens* OpenWindows(std::uint32_t look) {
  const std::string name = "libzendara-windows.so." + std::to_string(ZENDARA_VERSION_MAJOR);
  void* library = dlopen(name.c_str(), RTLD_NOW);
  if (!library) throw RuntimeError(kCannotCreateObject, {}, dlerror());
  const auto make = reinterpret_cast<decltype(&zendara_windows)>(dlsym(library, "zendara_windows"));
  if (!make) throw RuntimeError(kCannotCreateObject, {}, "the library of the windows makes none");
  zendara_screens* screens = nullptr;
  Demand(make(look, &screens));
  return screens;
}

}  // namespace

std::span<const Member<zendara_screens>> zendara_screens::Members() {
  static constexpr Member<zendara_screens> kMembers[] = {
      {"Automation", ZENDARA_METHOD, 1, 1,
       [](auto&, auto& given, auto& result) {
         PutObject(result, Make<zendara_screens>(UserOf(given.AnyObject(0))).HandOver());
       }},
      {"Windows", ZENDARA_METHOD, 0, 1,
       [](auto&, auto& given, auto& result) {
         const std::int32_t look = given.Lacks(0) ? ZENDARA_LOOK_HOST : given.Long(0);
         PutObject(result, OpenWindows(static_cast<std::uint32_t>(look)));
       }},
      {"Install", ZENDARA_METHOD, 2, 2,
       [](auto& self, auto& given, auto&) {
         const std::string folder = given.Text(1);
         zendara_platform platform{};
         platform.size = sizeof platform;
         if (!given.Lacks(0)) platform.engine = &given.template Own<zendara_engine>(0);
         platform.application_folder = folder.c_str();
         platform.screens = &self;
         Demand(Install(platform));
       }},
      {"Uninstall", ZENDARA_METHOD, 0, 0, [](auto&, auto&, auto&) { Demand(Uninstall()); }},
  };
  return kMembers;
}

namespace zendara {

zendara_screens* ToC(std::unique_ptr<FrontEnd> front) { return Make<zendara_screens>(std::move(front)).HandOver(); }

}  // namespace zendara

extern "C" {

zendara_result zendara_automation(const zendara_user* user, zendara_screens** screens) {
  return AnswerInThread([&] {
    Needed(screens) = nullptr;
    GiveObject(screens, Make<zendara_screens>(UserOf(CopyOf(user))));
  });
}
}
