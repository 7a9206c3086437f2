#include "adapters/postgres/conninfo.hpp"

#include <libpq-fe.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "zendara/runtime_error.hpp"

namespace zendara::postgres {
namespace {

struct FreeOptions {
  void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
};

// A server that is gone is noticed within these, also when nothing says so: in seconds, the last one in milliseconds.
constexpr std::array<std::pair<const char*, const char*>, 5> kLimits = {{{"connect_timeout", "5"},
                                                                         {"keepalives_idle", "30"},
                                                                         {"keepalives_interval", "5"},
                                                                         {"keepalives_count", "3"},
                                                                         {"tcp_user_timeout", "15000"}}};

// "zendara ana@despacho2", which others see who wait for this desk.
std::string DeskName() {
  std::array<char, 256> machine{};
  gethostname(machine.data(), machine.size() - 1);
  const passwd* user = getpwuid(geteuid());
  return "zendara " + std::string(user ? user->pw_name : "?") + "@" + machine.data();
}

}  // namespace

Conninfo::Conninfo(std::string_view text, Access access) : access_(access) {
  char* refusal = nullptr;
  const std::unique_ptr<PQconninfoOption, FreeOptions> options(PQconninfoParse(std::string(text).c_str(), &refusal));
  // libpq's own words hold parts of the text, which may be a password.
  PQfreemem(refusal);
  if (!options) throw RuntimeError(kNoSuchEngine, {}, "the connection is not written as the server's library takes it");
  std::string host;
  std::string port;
  std::string database;
  for (const PQconninfoOption* option = options.get(); option->keyword; ++option) {
    if (!option->val) continue;
    const std::string keyword = option->keyword;
    settings_.emplace_back(keyword, option->val);
    if (keyword == "host" || (keyword == "hostaddr" && host.empty())) host = option->val;
    if (keyword == "port") port = option->val;
    if (keyword == "dbname") database = option->val;
    if (keyword == "service" && host.empty()) host = option->val;
  }
  const auto add = [this](const char* keyword, const std::string& value) {
    const auto given = std::ranges::find(settings_, keyword, [](const auto& setting) { return setting.first; });
    if (given == settings_.end()) settings_.emplace_back(keyword, value);
  };
  for (const auto& [keyword, value] : kLimits) add(keyword, value);
  add("application_name", DeskName());
  add("client_encoding", "UTF8");
  if (access == Access::kWrite) add("target_session_attrs", "read-write");
  name_ = "postgresql://" + host + (port.empty() ? "" : ":" + port) + "/" + database;
}

std::vector<const char*> Conninfo::Keywords() const {
  std::vector<const char*> keywords;
  for (const auto& [keyword, value] : settings_) keywords.push_back(keyword.c_str());
  keywords.push_back(nullptr);
  return keywords;
}

std::vector<const char*> Conninfo::Values() const {
  std::vector<const char*> values;
  for (const auto& [keyword, value] : settings_) values.push_back(value.c_str());
  values.push_back(nullptr);
  return values;
}

}  // namespace zendara::postgres
