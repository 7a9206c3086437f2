// The screen that is shown, as functions in plain C get it.
#pragma once

#include "zendara/automation.hpp"
#include "zendara/zendara.h"

struct zendara_screen {
  zendara::ShownScreen& screen;
};
