// The part of a host application: a company's files open, a session, and the call of the component.
#pragma once

#include <string>

#include "frame/sesion.hpp"
#include "zendara/platform.hpp"
#include "zendara/value.hpp"
#include "zendara/zendara.hpp"

namespace zendara {

struct SessionValues {
  std::string company;  // five characters
  std::string year;     // two digits
  std::string name;
  std::string currency = "P";
  std::string exchange = "166,386";
  std::string program = "01";
  std::string date;  // dd/mm/yy; empty: the last day of the working year
};

class CompanyHost {
 public:
  // Installs the platform; it is taken away when the host ends.
  explicit CompanyHost(Platform platform);
  ~CompanyHost();
  CompanyHost(const CompanyHost&) = delete;
  CompanyHost& operator=(const CompanyHost&) = delete;

  // Opens the files and fills the slots, in place of those of an earlier session. RuntimeError as AbreEmpresa, 13 for a
  // date that is none; the host has no session then.
  void Open(const SessionValues& values);
  bool HasSession() const { return has_session_; }
  // Carga_Formulario: returns when the screen was closed.
  void Show(const std::string& screen);
  // What two-digit years mean in its session.
  YearWindow Years() const;

 private:
  Platform platform_;
  SessionValues values_;
  Sesion files_;
  bool has_session_ = false;
};

}  // namespace zendara
