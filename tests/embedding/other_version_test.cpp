// The windows do not stand on a component of another version: one that says so takes the place of the library's.
#include <string>

#include "sample_host.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/version.h"
#include "zendara/windows.hpp"

const char* zendara::Version() noexcept { return "0.9.0"; }

int main() {
  try {
    zendara::MakeWindows();
    Expect("an error", false, true);
  } catch (const zendara::RuntimeError& error) {
    Expect("its number", error.number(), 51);
    Expect("its detail", error.detail(), "libzendara is 0.9.0, libzendara-windows is " ZENDARA_VERSION);
  }
  return failed ? 1 : 0;
}
