// A host with a desktop: a window of its own with a button that shows the screen "Trabajadores" in Zendara's windows,
// and boxes of its own.
//
//   windows_host FOLDER [--try]     FOLDER holds DATOS; --try closes the screen by itself
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <iostream>
#include <string>

#include "session.hpp"
#include "zendara/company.hpp"
#include "zendara/engines.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/windows.hpp"
#include "zendara/zendara.hpp"

namespace {

// Every box of the screens comes here.
class HostBoxes : public zendara::Dialogs {
 public:
  zendara::BoxAnswer Show(const zendara::Box& box) override {
    const auto buttons = box.buttons == zendara::BoxButtons::kOk
                             ? QMessageBox::StandardButtons(QMessageBox::Ok)
                             : QMessageBox::StandardButtons(QMessageBox::Yes | QMessageBox::No);
    QMessageBox shown(QMessageBox::NoIcon, "Nóminas", QString::fromStdString(box.text), buttons,
                      QApplication::activeWindow());
    switch (shown.exec()) {
      case QMessageBox::Yes:
        return zendara::BoxAnswer::kYes;
      case QMessageBox::No:
        return zendara::BoxAnswer::kNo;
      default:
        return box.buttons == zendara::BoxButtons::kOk ? zendara::BoxAnswer::kOk : zendara::BoxAnswer::kNo;
    }
  }
  void Beep() override { QApplication::beep(); }
};

}  // namespace

int main(int argc, char** argv) try {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) throw std::runtime_error("usage: windows_host FOLDER [--try]");
  const std::string folder = arguments[1].toStdString();

  const auto engine = zendara::MakeEngine();
  const auto files = zendara::MakeHostFiles();
  const auto windows = zendara::MakeWindows();  // the application keeps its look
  HostBoxes boxes;
  zendara::Platform platform;
  platform.engine = engine.get();
  platform.files = files.get();
  platform.application_folder = folder;
  platform.dialogs = &boxes;
  windows->Install(platform);  // screens, lists, listings, calculator; the boxes stay the host's
  zendara::InstallPlatform(platform);

  const zendara::OpenedCompany company = zendara::OpenCompany(*engine, folder, "00001", "01");
  QPushButton button("Trabajadores");
  QObject::connect(&button, &QPushButton::clicked, [&] {
    Session session("00001", "2001");
    zendara::ClsZendara().Carga_Formulario("Trabajadores", company.company, company.general, company.recordsets,
                                           session);
    if (zendara::LastCall().status != zendara::CallStatus::kDone) {
      std::cerr << zendara::LastCall().reason << "\n";
      QApplication::exit(1);
    }
  });
  button.show();

  if (arguments.contains("--try")) {
    QTimer::singleShot(0, &button, &QPushButton::click);
    auto* user = new QTimer(&application);
    user->callOnTimeout([&button, shown = false]() mutable {
      QWidget* screen = QApplication::activeModalWidget();
      if (screen) {
        screen->close();
        shown = true;
      } else if (shown) {
        button.close();
      }
    });
    user->start(100);
  }
  const int code = QApplication::exec();
  zendara::InstallPlatform({});
  return code;
} catch (const std::exception& error) {
  std::cerr << "windows_host: " << error.what() << "\n";
  return 1;
}
