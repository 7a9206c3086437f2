// A host application as its maker writes it: the public headers, the library with windows, and nothing else.
#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <iostream>

#include "zendara/engines.hpp"
#include "zendara/windows.hpp"
#include "zendara/zendara.hpp"

namespace {

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

}  // namespace

// The argument is the application's folder, which holds DATOS.
int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const std::string folder = argv[1];
  const auto engine = zendara::MakeEngine();
  const auto files = zendara::MakeHostFiles();
  const auto windows = zendara::MakeWindows();
  zendara::Platform platform;
  platform.engine = engine.get();
  platform.files = files.get();
  platform.application_folder = folder;
  windows->Install(platform);
  zendara::InstallPlatform(platform);

  const auto company = engine->Workspaces(0)->OpenDatabase(folder + "\\DATOS\\Nom00001.MDB");
  zendara::RecordsetArray recordsets{0, std::vector<std::shared_ptr<zendara::Recordset>>(501)};
  recordsets.items[402] = company->OpenRecordset("TrabajadoresFijo", zendara::RecordsetType::kTable);
  recordsets.items[402]->SetIndex("Icampo0");
  recordsets.items[442] = company->OpenRecordset("TrabajadoresVar", zendara::RecordsetType::kTable);
  recordsets.items[442]->SetIndex("Icampo0_1");

  // The user looks at the screen and closes it.
  std::string shown;
  QTimer user;
  user.callOnTimeout([&] {
    if (QWidget* window = QApplication::activeWindow()) {
      shown = window->windowTitle().toStdString();
      window->close();
    }
  });
  user.start(50);

  Session session;
  zendara::ClsZendara zendara_class;
  zendara_class.Carga_Formulario("Trabajadores", company, nullptr, recordsets, session);
  if (shown == "Trabajadores" && session.returned == "P") return 0;
  std::cerr << "shown \"" << shown << "\", returned \"" << session.returned << "\"\n";
  return 1;
}
