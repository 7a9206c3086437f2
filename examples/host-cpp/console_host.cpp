// A host without a desktop: it opens a company, shows the screen "Trabajadores" to a user made of code, changes a
// worker's street and reads from the stored tables that it was saved.
//
//   console_host FOLDER      FOLDER holds DATOS; `zendara demo FOLDER` makes one to try
#include <iostream>
#include <stdexcept>

#include "session.hpp"
#include "zendara/automation.hpp"
#include "zendara/company.hpp"
#include "zendara/engines.hpp"
#include "zendara/keys.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/zendara.hpp"

namespace {

constexpr const char* kWorker = "00003";
constexpr const char* kStreet = "Calle del Ejemplo";
constexpr const char* kStreetField = "Text1(11)";

void Expect(bool held, const std::string& what) {
  if (!held) throw std::runtime_error(what);
}

// What a clerk would do. Every act returns when the screen has answered it.
class Clerk : public zendara::ScreenUser {
 public:
  void OnScreen(zendara::ShownScreen& screen) override {
    std::cout << screen.Title() << " is open\n";
    screen.Type("3\n");
    Expect(screen.Read("Text1(1)") == kWorker, "the worker is not on the screen");
    std::cout << screen.Subject() << "\n";
    screen.Focus(kStreetField);
    while (!screen.Read(kStreetField).empty()) screen.Press({.code = zendara::key::kBack});
    screen.Paste(kStreet);
    Expect(screen.Unsaved(), "nothing is to be saved");
    screen.Click("Grabar");
    std::cout << screen.Status() << "\n";
    Expect(!screen.Unsaved(), "it was not saved");
  }

  zendara::BoxAnswer OnBox(const zendara::Box& box) override {
    std::cout << "box: " << box.text << "\n";
    return ScreenUser::OnBox(box);
  }
};

// A folder of the machine, or "postgresql://host/database".
void Run(const std::string& place) {
  // Once, at the start: what the component stands on. All of it outlives the last call.
  const zendara::Store store = zendara::OpenStore(place);
  Clerk clerk;
  const auto screens = zendara::MakeAutomation(clerk);
  zendara::Platform platform;
  platform.engine = store.engine.get();
  platform.files = store.files.get();
  platform.application_folder = store.folder;
  screens->Install(platform);
  zendara::InstallPlatform(platform);

  // Once a company and year: its files, and the recordsets that the screens work on.
  const zendara::OpenedCompany company = zendara::OpenCompany(*store.engine, store.folder, "00001", "01");

  // Once a screen.
  Session session("00001", "2001");
  zendara::ClsZendara().Carga_Formulario("Trabajadores", company.company, company.general, company.recordsets, session);
  screens->Rethrow();
  Expect(zendara::LastCall().status == zendara::CallStatus::kDone, zendara::LastCall().reason);

  const auto row = company.company->OpenRecordset("SELECT * FROM TrabajadoresFijo WHERE Campo0 = '00003'");
  Expect(row->Fields(10).Get() == zendara::Value(kStreet), "the street is not stored");
  zendara::InstallPlatform({});
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) throw std::runtime_error("usage: console_host PLACE");
  Run(argv[1]);
  return 0;
} catch (const std::exception& error) {
  std::cerr << "console_host: " << error.what() << "\n";
  return 1;
}
