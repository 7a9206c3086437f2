// A host that links neither library and keeps the names of each to itself: whichever it loads first, the component is
// there once. The arguments are the two libraries.
#include <dlfcn.h>

#include <iostream>

#include "zendara/zendara.hpp"

namespace {

template <typename Function>
Function* Find(void* library, const char* name) {
  void* found = library ? dlsym(library, name) : nullptr;
  if (!found) std::cerr << dlerror() << '\n';
  return reinterpret_cast<Function*>(found);
}

}  // namespace

int main(int /*argc*/, char** argv) {
  void* first = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
  void* second = dlopen(argv[2], RTLD_NOW | RTLD_LOCAL);
  auto* install = Find<void(zendara::Platform)>(first, "_ZN7zendara15InstallPlatformENS_8PlatformE");
  auto* session = Find<zendara::SessionFacts()>(second, "_ZN7zendara14CurrentSessionEv");
  if (!install || !session) return 1;
  char nothing = 0;
  zendara::Platform platform;
  platform.engine = reinterpret_cast<zendara::Engine*>(&nothing);  // nobody asks it
  install(platform);
  const bool seen = session().engine == platform.engine;
  install({});
  if (!seen) std::cerr << "what was installed through one library is not seen through the other\n";
  return seen ? 0 : 1;
}
