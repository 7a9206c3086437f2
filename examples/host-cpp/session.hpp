// The session object of this host: what the component asks about company, year and currency.
#pragma once

#include <string>
#include <utility>

#include "zendara/morlane.hpp"

class Session : public zendara::Morlane {
 public:
  Session(std::string company, std::string year) : company_(std::move(company)), year_(std::move(year)) {}

  std::string CodigoEmpresa() override { return company_; }
  zendara::Value NombreEmpresa() override { return "Empresa de prueba"; }
  std::string Retorno() override { return currency_; }
  zendara::Value Ejercicio() override { return year_; }
  void Retorno(const std::string& text) override { currency_ = text; }
  zendara::Value Valor8() override { return ""; }
  zendara::Value Valor1() override { return ""; }
  zendara::Value Cambio() override { return "166,386"; }
  std::int16_t ValorEntero() override { return 0; }
  zendara::Value FechaTrabajo() override { return "15/03/01"; }
  std::string Programa() override { return "01"; }

 private:
  std::string company_;
  std::string year_;
  std::string currency_ = "P";
};
