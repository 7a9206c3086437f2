// What a host application has before it calls the component: a session, a company's open files, and its own boxes.
#pragma once

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "../../examples/host-cpp/session.hpp"
#include "zendara/engines.hpp"
#include "zendara/zendara.hpp"

// The session of the sample hosts, which keeps the mark that it gets back.
class NotingSession : public Session {
 public:
  NotingSession() : Session("00001", "2001") {}
  using Session::Retorno;
  void Retorno(const std::string& text) override { returned = text; }

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
    NotingSession session;
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
