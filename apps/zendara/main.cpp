#include <unistd.h>

#include <csignal>
#include <iostream>

#include "apps/zendara/commands/commands.hpp"

int main(int argc, char** argv) {
  // A reader that goes away and a file that may not grow show in the write that fails.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  std::ios::sync_with_stdio(false);
  return zendara::Run({argv + (argc > 0 ? 1 : 0), argv + argc}, std::cout, std::cerr, isatty(STDERR_FILENO) == 1);
}
