// A host application without a desktop: the public headers and the library alone. It shows the worker screen to a
// script, and to a user of its own that reads what happened before it says what to do next.
#include "sample_host.hpp"
#include "zendara/automation.hpp"

// The argument is the application's folder, which holds DATOS.
int main(int /*argc*/, char** argv) {
  SampleHost host(argv[1]);

  // No place to show screens is no silence.
  Expect("the mark was handed back", host.ShowWorkers(), true);
  Expect("number of boxes without a place", host.boxes.texts.size(), 1U);
  host.boxes.texts.clear();

  std::string events;
  const auto note = [&](std::string_view line) { events += line; };
  const auto script = zendara::MakeAutomation(
      "type \"3\\n\"\nshow Text1(1)\nclick Salir\n"
      "sql Nom00001.MDB \"SELECT Campo0 FROM TrabajadoresFijo WHERE Campo0 = '00003'\"\nexpect Text1(1) \"7\"",
      note);
  script->Install(host.platform);
  host.ShowWorkers();
  Expect("first screen", events,
         "screen Trabajadores open\nfocus Text1(1)\nfocus Text1(2)\nvalue Text1(1)=\"00003\"\n"
         "screen Trabajadores closed\n");
  Expect("status so far", script->Result().status, 0);
  events.clear();
  host.ShowWorkers();
  Expect("second screen", events, "screen Trabajadores open\nfocus Text1(1)\n00003\n");
  Expect("fault", script->Result().message, "5: Text1(1) is \"\", not \"7\"");
  events.clear();
  host.ShowWorkers();
  Expect("screen after the end", events, "");
  Expect("refused script", zendara::MakeAutomation("type \"\nopen A", note)->Result().message,
         "1: a quote is not closed");

  // The host's own user walks back until the first worker is on the screen, then saves an empty one into the host's
  // box.
  events.clear();
  int asked = 0;
  const auto user = zendara::MakeAutomation(
      [&]() -> std::optional<std::string> {
        ++asked;
        if (asked == 1) return "type \"3\\n\"";
        if (events.ends_with("=\"00001\"\n")) return "click Cancela";
        if (events.ends_with("focus Text1(1)\n"))
          return host.boxes.texts.empty() ? "click Grabar" : "open Trabajadores";
        if (asked > 8) return std::nullopt;
        return asked % 2 == 0 ? "click Anterior" : "show Text1(1)";
      },
      note);
  user->Install(host.platform);
  host.platform.dialogs = &host.boxes;
  host.ShowWorkers();
  Expect("lines asked for", asked, 8);
  Expect("number of the host's boxes", host.boxes.texts.size(), 1U);
  Expect("box of the script", events.find("box"), std::string::npos);
  Expect("fault of the user", user->Result().message, "8: the host opens the session and the screens here, not open");
  return failed ? 1 : 0;
}
