// A front end of a host's own: screens as text, with commands from standard input.
//
//   g++ -std=c++20 -I include examples/host-cpp/own_front_end.cpp -lzendara -o own_front_end
//   own_front_end FOLDER          (which holds DATOS; company 00001, year 2001)
//
// A line that begins with ":" is a command, any other is typed and ended by Enter:
//   :click NAME    :focus NAME    :page NAME NUMBER    :tab    :f2    :close
//
// The lists and the banner are those of the automation, whose user answers in the same way.
#include <functional>
#include <iostream>
#include <sstream>
#include <utility>

#include "zendara/automation.hpp"
#include "zendara/company.hpp"
#include "zendara/engines.hpp"
#include "zendara/forms.hpp"

using namespace zendara;

class TextScreens : public FormHost, public ScreenUser {
 public:
  void ShowModal(Form& form) override {
    struct View : FormView {
      void ControlChanged(const Control&) override { changed = true; }
      void FocusMoved() override { changed = true; }
      void FormChanged() override { changed = true; }
      bool changed = true;
    } view;
    form.SetView(&view);
    for (std::string line; form.Loaded();) {
      if (std::exchange(view.changed, false)) Print(form);
      if (!std::getline(std::cin, line)) form.Unload();
      if (form.Loaded()) Do(form, line);
    }
    form.SetView(nullptr);
    std::cout << "(" << form.Name() << " is closed)\n";
  }
  void DoEvents() override {}
  void ShowHelp(const std::string& file, int context, const HelpPlace&) override {
    std::cout << "(help: " << file << " " << context << ")\n";
  }

  // Of the automation. Its screens are shown above.
  void OnScreen(ShownScreen&) override {}
  BoxAnswer OnBox(const Box& box) override {
    std::cout << "# " << box.text << "\n";
    if (box.buttons == BoxButtons::kOk) return BoxAnswer::kOk;
    std::string line;
    std::cout << "# (s/n)\n";
    return std::getline(std::cin, line) && line == "s" ? BoxAnswer::kYes : BoxAnswer::kNo;
  }
  std::optional<std::size_t> OnList(const std::string& title, ShownRows& rows) override {
    std::cout << "# " << title << "\n";
    for (std::size_t row = 0; row < 20 && rows.Has(row); ++row) std::cout << row << "  " << rows.Row(row) << "\n";
    std::string line;
    std::size_t chosen = 0;
    if (!std::getline(std::cin, line) || !(std::istringstream(line) >> chosen) || !rows.Has(chosen)) return {};
    return chosen;
  }

 private:
  static void Press(Form& form, int code) { form.Press({.code = code}); }

  static void Do(Form& form, const std::string& line) {
    if (!line.starts_with(':')) {
      // Character by character, of UTF-8.
      for (std::size_t at = 0, next; at < line.size(); at = next) {
        for (next = at + 1; next < line.size() && (line[next] & 0xC0) == 0x80;) ++next;
        form.Press({.text = line.substr(at, next - at)});
      }
      return Press(form, key::kEnter);
    }
    std::istringstream words(line.substr(1));
    std::string command, name;
    int page = 0;
    words >> command >> name >> page;
    if (command == "close") return form.Close();
    if (command == "tab") return Press(form, key::kTab);
    if (command == "f2") return Press(form, key::kF2);
    Control* control = form.Find(name);
    if (!control) return void(std::cout << "# there is no \"" << name << "\"\n");
    if (command == "click") {
      form.MouseOver(*control);
      form.Click(*control);
    }
    if (command == "page" && page >= 0 && page < control->PageCount()) form.TurnTo(*control, page);
    if (command == "focus" && control->CanFocus()) form.Run([&] { form.SetFocus(*control); });
  }

  static void Print(const Form& form) {
    if (!form.Loaded()) return;
    std::cout << "\n== " << form.Title() << "  " << form.Subject() << (form.Unsaved() ? " *" : "") << "\n";
    Print(form.GetLayout(), "");
    if (!form.Status().empty()) std::cout << "-- " << form.Status() << "\n";
    if (form.Focus()) std::cout << "-> " << form.Focus()->Id() << "  " << form.Expected() << "\n";
  }
  static void Print(const Layout& part, const std::string& indent) {
    if (part.control && !part.control->Visible()) return;
    if (part.kind == LayoutKind::kTabs) {
      const auto& tabs = dynamic_cast<const Tabs&>(*part.control);
      const auto page = static_cast<std::size_t>(tabs.Tab());
      std::cout << indent << tabs.Id() << ": page " << page << ", " << tabs.Titles().at(page) << "\n";
      return Print(part.children.at(page), indent + "  ");
    }
    if (part.control) Print(*part.control, part.attached, indent);
    for (const Layout& child : part.children) Print(child, part.control ? indent + "  " : indent);
  }
  static void Print(const Control& control, const std::vector<Control*>& attached, const std::string& indent) {
    std::cout << indent << control.Id() << (control.Usable() ? " " : " (-) ") << control.Caption();
    if (control.IsEntered()) std::cout << " [" << control.ShownText() << "]";
    for (const Control* other : attached) std::cout << " " << other->Id() << " " << other->ShownText();
    std::cout << "\n";
    if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
      for (int row = 0; row < grid->Rows(); ++row) {
        std::cout << indent << "  ";
        for (int column = 0; column < grid->Columns(); ++column) std::cout << grid->Cell(row, column) << " | ";
        std::cout << "\n";
      }
    }
  }
};

struct Session : Morlane {
  std::string CodigoEmpresa() override { return "00001"; }
  Value NombreEmpresa() override { return "Talleres Sur"; }
  std::string Retorno() override { return "P"; }
  Value Ejercicio() override { return "2001"; }
  void Retorno(const std::string&) override {}
  Value Valor8() override { return ""; }
  Value Valor1() override { return ""; }
  Value Cambio() override { return "166,386"; }
  std::int16_t ValorEntero() override { return 0; }
  Value FechaTrabajo() override { return "31/12/2001"; }
  std::string Programa() override { return "01"; }
};

int main(int count, char** arguments) try {
  if (count != 2) return std::cerr << "usage: own_front_end FOLDER\n", 2;
  const auto engine = MakeEngine();
  const auto files = MakeHostFiles();
  TextScreens screens;
  const auto automation = MakeAutomation(screens);
  Platform platform{.engine = engine.get(), .files = files.get(), .application_folder = arguments[1]};
  automation->Install(platform);
  platform.forms = &screens;
  InstallPlatform(platform);
  const OpenedCompany company = OpenCompany(*engine, arguments[1], "00001", "2001");
  Session session;
  ClsZendara().Carga_Formulario("Trabajadores", company.company, company.general, company.recordsets, session);
  const CallReport report = LastCall();
  InstallPlatform({});
  if (!report.reason.empty()) std::cerr << "own_front_end: " << report.reason << "\n";
  return static_cast<int>(report.status);
} catch (const std::exception& error) {
  std::cerr << "own_front_end: " << error.what() << "\n";
  return 1;
}
