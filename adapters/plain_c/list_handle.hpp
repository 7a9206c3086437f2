// The list to pick from as functions in plain C get it.
#pragma once

#include <string>

#include "zendara/automation.hpp"
#include "zendara/zendara.h"

struct zendara_list {
  const std::string& title;
  zendara::ShownRows& rows;
  std::string text{};  // the one that was handed out last
};
