#include "adapters/hosting/company_host.hpp"

#include <utility>

#include "frame/sesion_anfitrion.hpp"
#include "runtime/date.hpp"
#include "runtime/number.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

class Session : public Morlane {
 public:
  explicit Session(SessionValues values) : values_(std::move(values)) {}

  std::string CodigoEmpresa() override { return values_.company; }
  Value NombreEmpresa() override { return values_.name; }
  std::string Retorno() override { return values_.currency; }
  Value Ejercicio() override { return values_.year; }
  void Retorno(const std::string& text) override { values_.currency = text; }
  Value Valor8() override { return ""; }
  Value Valor1() override { return ""; }
  Value Cambio() override { return values_.exchange; }
  std::int16_t ValorEntero() override { return 0; }
  Value FechaTrabajo() override { return values_.date; }
  std::string Programa() override { return values_.program; }

 private:
  SessionValues values_;
};

}  // namespace

CompanyHost::CompanyHost(Platform platform) : platform_(std::move(platform)), files_(platform_) {
  InstallPlatform(platform_);
}

CompanyHost::~CompanyHost() { InstallPlatform({}); }

void CompanyHost::Open(const SessionValues& values) {
  has_session_ = false;
  Sesion opened(platform_);
  AbreEmpresa(opened, values.company, values.year);
  values_ = values;
  if (values_.date.empty()) values_.date = "31/12/" + values_.year;
  CDate(values_.date, opened.VentanaFechas);
  files_ = std::move(opened);
  has_session_ = true;
}

void CompanyHost::Show(const std::string& screen) {
  Session session(values_);
  RecordsetArray slots{.lower_bound = 0, .items = {files_.Tablas.begin(), files_.Tablas.end()}};
  ClsZendara().Carga_Formulario(screen, files_.BDEmpresa, files_.BDSegunda, slots, session);
  values_.currency = session.Retorno();
}

YearWindow CompanyHost::Years() const { return files_.VentanaFechas; }

}  // namespace zendara
