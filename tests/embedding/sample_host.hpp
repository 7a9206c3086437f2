// What a host application has before it calls the component: a session, a company's open files, and its own boxes.
#pragma once

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "zendara/engines.hpp"
#include "zendara/zendara.hpp"

class Session : public zendara::Morlane {
 public:
  std::string CodigoEmpresa() override { return "00001"; }
  zendara::Value NombreEmpresa() override { return "Empresa de prueba"; }
  std::string Retorno() override { return "P"; }
  zendara::Value Ejercicio() override { return "2001"; }
  void Retorno(const std::string& text) override { returned = text; }
  zendara::Value Valor8() override { return ""; }
  zendara::Value Valor1() override { return ""; }
  zendara::Value Cambio() override { return "166,386"; }
  std::int16_t ValorEntero() override { return 0; }
  zendara::Value FechaTrabajo() override { return "15/03/01"; }
  std::string Programa() override { return "01"; }

  std::string returned;
};

class HostBoxes : public zendara::Dialogs {
 public:
  zendara::BoxAnswer Show(const zendara::Box& box) override {
    texts.push_back(box.text);
    return box.buttons == zendara::BoxButtons::kOk ? zendara::BoxAnswer::kOk : zendara::BoxAnswer::kNo;
  }
  void Beep() override {}

  std::vector<std::string> texts;
};

class SampleHost {
 public:
  // The application's folder, which holds DATOS.
  explicit SampleHost(const std::string& folder) {
    platform.engine = engine_.get();
    platform.dialogs = &boxes;
    platform.files = files_.get();
    platform.application_folder = folder;
    company_ = engine_->Workspaces(0)->OpenDatabase(folder + "\\DATOS\\Nom00001.MDB");
    recordsets_.items[402] = company_->OpenRecordset("TrabajadoresFijo", zendara::RecordsetType::kTable);
    recordsets_.items[402]->SetIndex("Icampo0");
    recordsets_.items[442] = company_->OpenRecordset("TrabajadoresVar", zendara::RecordsetType::kTable);
    recordsets_.items[442]->SetIndex("Icampo0_1");
  }

  // True when the session got its mark back.
  bool ShowWorkers() {
    zendara::InstallPlatform(platform);
    Session session;
    zendara::ClsZendara().Carga_Formulario("Trabajadores", company_, nullptr, recordsets_, session);
    return session.returned == "P";
  }

 private:
  std::unique_ptr<zendara::Engine> engine_ = zendara::MakeEngine();
  std::unique_ptr<zendara::Files> files_ = zendara::MakeHostFiles();
  std::shared_ptr<zendara::Database> company_;
  zendara::RecordsetArray recordsets_{0, std::vector<std::shared_ptr<zendara::Recordset>>(501)};

 public:
  zendara::Platform platform;
  HostBoxes boxes;
};

inline bool failed = false;

template <typename A, typename B>
void Expect(const char* what, const A& found, const B& expected) {
  if (found == expected) return;
  std::cerr << what << " is \"" << found << "\", not \"" << expected << "\"\n";
  failed = true;
}
