// What says where the server is.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zendara/engines.hpp"

namespace zendara::postgres {

// A connection text with what the engine adds to it: limits of waiting, so that a server that is gone is noticed, and
// who the desk is, for those who wait for it.
class Conninfo {
 public:
  // Error 3170 for a text that libpq does not take.
  Conninfo(std::string_view text, Access access);

  // Keywords and values for libpq, each list ended by a null pointer; values given in the text come first.
  std::vector<const char*> Keywords() const;
  std::vector<const char*> Values() const;

  // "postgresql://host:port/database", for errors and for the folder of an installation: neither user nor password.
  const std::string& Name() const { return name_; }
  Access access() const { return access_; }

 private:
  std::vector<std::pair<std::string, std::string>> settings_;
  std::string name_;
  Access access_;
};

}  // namespace zendara::postgres
