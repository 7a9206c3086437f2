#include "random/clerk.hpp"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <vector>

#include "random/incident_table.hpp"
#include "runtime/date.hpp"
#include "runtime/format.hpp"
#include "runtime/text.hpp"
#include "workers/trabajador_consultas.hpp"
#include "workers/trabajadores.hpp"

namespace zendara {
namespace {

using enum CampoTrabajador;

std::string Named(const std::string& array, IndiceCampo index) { return array + "(" + std::to_string(index) + ")"; }

constexpr std::string_view kCharacters = "0123456789,.-aLmSnxñÑáÜç€'(&%*/ #ª·\"ß😀";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kKeys[] = {
    "Enter",       "Enter",     "Enter",    "Tab",     "Tab",    "Shift+Tab", "Up",        "Down",
    "Left",        "Right",     "Home",     "End",     "Delete", "Delete",    "Shift+End", "Shift+Home",
    "Shift+Left",  "Backspace", "Space",    "F1",      "F2",     "F2",        "PageUp",    "PageDown",
    "Alt+Left",    "Alt+Right", "Alt+Home", "Alt+End", "Ctrl+A", "Esc",       "Insert",    "Ctrl+PageDown",
    "Ctrl+PageUp", "Ctrl+F",    "Ctrl+N",   "Ctrl+Z",  "Ctrl+Y"};
constexpr std::string_view kAccessKeys = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kHostile[] = {"",         " ",         "'",          "O'Donnell' OR 'a'='a",
                                         "\"",       "%",         "*",          "áéíóúñÑü",
                                         "31/02/01", "290201",    "310401",     "000000",
                                         "999999",   "01/01/01",  "1e400",      "-1",
                                         "0",        "12.34,5",   "9999999999", "100,5",
                                         "1,5,5",    "-,-",       "00000",      "ABCDE",
                                         "€ 5",      "e\xCC\x81", "😀😀😀",     "campo0"};
constexpr std::string_view kNames[] = {"García", "Núñez", "O'Shea", "de la Peña", "Ibáñez", "Ña", "López Übeda"};
constexpr std::string_view kCells = "sN0125";

// As six digits.
std::string Day(int day) { return FormatDate(Date{DayOf(day)}, "ddmmyy"); }

enum class At { kAnywhere, kWorkers, kDated, kVariable };

At PlaceOf(const Form& form) {
  if (form.Name() == kPantallaTrabajadores) return At::kWorkers;
  const IncidentTable* table = IncidentTableOf(form.Name());
  return !table ? At::kAnywhere : table->dated() ? At::kDated : At::kVariable;
}

class Clerk {
 public:
  Clerk(Hands& hands, Form& form) : hands_(hands), random_(hands.random), form_(form) {}

  void Act();

 private:
  struct Habit {
    int weight;
    At at;
    std::function<void(Clerk&)> act;
  };
  static const Habit kHabits[];

  std::string AnyOf(std::string_view characters) {
    return Mid(characters, random_.Between(1, static_cast<int>(Len(characters))), 1);
  }
  std::string AnyHostile() { return std::string(random_.Pick(kHostile)); }
  // Each kind of control is as likely as another.
  Control& AnyControl() {
    std::map<ControlKind, std::vector<Control*>> kinds;
    for (Control* control : form_.Controls()) kinds[control->Kind()].push_back(control);
    return *random_.Pick(std::next(kinds.begin(), random_.Between(0, static_cast<int>(kinds.size()) - 1))->second);
  }

  // On any form.

  void TypeSomething() {
    const auto* box = dynamic_cast<const TextBox*>(form_.Focus());
    const double digits = box && box->Alignment() == Alignment::kRight ? 80 : 40;
    std::string text;
    for (int length = random_.Between(1, 8); length > 0; --length)
      text += AnyOf(random_.Chance(digits) ? kDigits : kCharacters);
    hands_.Type(form_, text);
  }

  void PressKey() {
    const std::string_view key = random_.Pick(kKeys);
    for (int times = random_.Chance(20) ? random_.Between(2, 15) : 1; times > 0; --times) hands_.Press(form_, key);
  }

  void PressAccessKey() { hands_.Press(form_, "Alt+" + AnyOf(kAccessKeys)); }

  void PointTo(Grid& grid, int row, int column) {
    hands_.Do(form_, "cell " + grid.Id() + " " + std::to_string(row) + " " + std::to_string(column),
              [&] { form_.PointTo(grid, row, column); });
  }

  // As its kind is used.
  void UseControl() {
    Control& control = AnyControl();
    if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
      const int item = random_.Between(-1, static_cast<int>(combo->Items().size()) - 1);
      hands_.Do(form_, "choose " + combo->Id() + " " + std::to_string(item), [&] { form_.Pick(*combo, item); });
    } else if (auto* tabs = dynamic_cast<Tabs*>(&control)) {
      const int page = random_.Between(0, tabs->PageCount() - 1);
      hands_.Do(form_, "page " + tabs->Id() + " " + std::to_string(page), [&] { form_.TurnTo(*tabs, page); });
    } else if (auto* grid = dynamic_cast<Grid*>(&control); grid && grid->Rows() > grid->FixedRows()) {
      const int row = random_.Between(grid->FixedRows(), grid->Rows() - 1);
      PointTo(*grid, row, random_.Between(grid->FixedColumns(), grid->Columns() - 1));
    } else {
      hands_.Click(form_, control);
    }
  }

  void PasteHostile() { hands_.Paste(form_, AnyHostile()); }

  void CloseWindow() {
    hands_.Do(form_, "close the window", [&] { form_.Close(); });
  }

  // Out of a field that refuses to be left.
  void EmptyField() {
    if (auto* box = dynamic_cast<TextBox*>(form_.Focus())) hands_.Fill(form_, *box, "");
  }

  // On the worker screen.

  void Fill(CampoTrabajador field, const std::string& text) {
    auto* box = dynamic_cast<TextBox*>(form_.Find(Named("Text1", field)));
    if (box && !random_.Chance(3)) hands_.Fill(form_, *box, random_.Chance(3) ? AnyHostile() : text);
  }
  // From its list, if it has one that loads no record.
  void Fill(CampoTrabajador field) {
    const ConsultaTrabajador* list = ConsultaDeCampo(field);
    if (!list || list->carga || random_.Chance(5)) return Fill(field, Likely(field));
    hands_.Click(form_, *form_.Find(Named("Image1", field)));
  }

  void ClickNamed(std::string_view button, double yes = 100) {
    hands_.wish = random_.Chance(yes) ? BoxAnswer::kYes : BoxAnswer::kNo;
    hands_.Click(form_, *form_.Find(button));
    hands_.wish.reset();
  }

  std::string Amount() {
    const std::string whole = std::to_string(random_.Between(0, random_.Chance(50) ? 120 : 9'000'000));
    return random_.Chance(30) ? whole + "," + std::to_string(random_.Between(0, 99)) : whole;
  }

  // What clerks enter into a field that no list fills.
  std::string Likely(CampoTrabajador field) {
    if (field == kNumero) return std::to_string(random_.Between(1, kRandomWorkers + 4));
    if (field == kSituacion) return std::to_string(random_.Between(1, 4));
    if (field == kDiasParcial) return random_.Chance(50) ? "lmxJV" : std::to_string(random_.Between(1, 31));
    const Campo& rules = *std::ranges::find_if(CamposTrabajador(),
                                               [&](const Campo& campo) { return campo.indice == IndiceCampo(field); });
    if (rules.Tiene(kFecha)) return Day(random_.Between(0, kLastDay));
    if (rules.Tiene(kImporte)) return Amount();
    return rules.Tiene(kCeros) ? std::to_string(random_.Between(0, 9999)) : std::string(random_.Pick(kNames));
  }

  void ShowWorker() {
    Fill(kNumero);
    hands_.Press(form_, random_.Chance(90) ? "Enter" : "Shift+Tab");
  }

  void ShowSituacion() {
    Fill(kSituacion);
    hands_.Press(form_, "Enter");
  }

  void FillFields() {
    for (int fields = random_.Between(1, 4); fields > 0; --fields)
      Fill(CampoTrabajador(int{random_.Pick(CamposTrabajador()).indice}));
    if (random_.Chance(70)) hands_.Press(form_, "Enter");
  }

  // Types of one number of contract, with bonuses one after the other.
  void FillContracts(int day) {
    Fill(kNumeroContrato);
    for (const CampoTrabajador type : {kTipo1, kTipo2, kTipo3}) {
      Fill(type);
      const auto* bonus = dynamic_cast<TextBox*>(form_.Find(Named("Text1", type + (kBonificacion1 - kTipo1))));
      if ((bonus && !bonus->Text().empty()) || random_.Chance(20)) {
        Fill(type + (kInicioBonificacion1 - kTipo1), Day(day += random_.Between(0, 30)));
        if (random_.Chance(70)) Fill(type + (kFinBonificacion1 - kTipo1), Day(day += random_.Between(0, 200)));
      }
      if (random_.Chance(70)) return;
    }
  }

  void FillFamily() {
    const bool children = random_.Chance(70);
    auto& grid = dynamic_cast<Grid&>(*form_.Find(children ? "Grid1(0)" : "Grid1(1)"));
    PointTo(grid, random_.Between(1, kFilasRejilla), kPrimeraColumna);
    hands_.Type(form_, children ? std::to_string(random_.Between(1975, 2002)) : AnyOf(kDigits));
    for (int column = kPrimeraColumna + 1; column < grid.Columns(); ++column) {
      hands_.Press(form_, "Right");
      hands_.Type(form_, AnyOf(kCells));
    }
    hands_.Press(form_, random_.Chance(70) ? "Enter" : "Backspace");
  }

  void NewWorker() {
    Fill(kNumero, std::to_string(random_.Between(1, 2 * kRandomWorkers)));
    const int start = random_.Between(0, kLastDay);
    for (const CampoTrabajador field : {kApellido1, kNombre, kIdentificacion}) Fill(field);
    if (random_.Chance(30)) FillFields();
    if (random_.Chance(30)) FillFamily();
    for (CampoTrabajador field = kEntidad; field <= kFormaPago && random_.Chance(90); field = field + 1) Fill(field);
    Fill(kSituacion, "1");
    Fill(kFechaInicio, Day(start));
    if (random_.Chance(50)) Fill(kFechaFin, Day(start + random_.Between(-5, 300)));
    for (const CampoTrabajador field : {kConvenio, kCategoria, kEpigrafe, kGrupoTarifa}) Fill(field);
    FillContracts(start);
    Fill(kCentro);
    if (random_.Chance(20)) ClickNamed("CmdCalcular");
    ClickNamed("Grabar");
  }

  void ChangeWorker() {
    ShowWorker();
    FillFields();
    hands_.Press(form_, random_.Chance(20) ? "Esc" : "Alt+G");
  }

  // The worker's last situación ends, the next one follows with what stands in it.
  void NewSituacion() {
    const std::string worker = Likely(kNumero);
    const int end = random_.Between(300, kLastDay);
    if (random_.Chance(80)) {
      Fill(kNumero, worker);
      Fill(kFechaFin, Day(end));
      ClickNamed("Grabar");
    }
    Fill(kNumero, worker);
    ClickNamed("CmdNuevo");
    Fill(kFechaInicio, Day(end + random_.Between(0, 60)));
    if (random_.Chance(20)) Fill(kFechaFin, Day(end + random_.Between(0, 400)));
    if (random_.Chance(20)) FillContracts(end);
    ClickNamed(random_.Chance(85) ? "Grabar" : random_.Chance(50) ? "Salir" : "Cancela");
  }

  void Calculate() {
    if (random_.Chance(70)) ShowWorker();
    ClickNamed("CmdCalcular", 70);
  }

  void Regularise() {
    if (random_.Chance(80)) ShowWorker();
    ClickNamed("Regulariza");
    for (int figures = random_.Between(0, 3); figures > 0; --figures) {
      auto& box = dynamic_cast<TextBox&>(*form_.Find("Text2(" + std::to_string(random_.Between(1, 7)) + ")"));
      hands_.Fill(form_, box, random_.Chance(10) ? AnyHostile() : Amount());
    }
    if (random_.Chance(80)) ClickNamed("CalcularRegula", 70);
  }

  void Remove() {
    ShowWorker();
    if (random_.Chance(40)) ShowSituacion();
    ClickNamed(random_.Chance(70) ? "CmdBorrar" : "Borrar");
  }

  void OpenIncidents() {
    ShowWorker();
    constexpr std::string_view kButtons[] = {"CmdIncidenciasIT", "CmdIncidenciasESP", "CmdIncidenciasVar"};
    ClickNamed(random_.Pick(kButtons));
  }

  // On the screens of incidents.

  void Put(int index, const std::string& text) {
    if (!random_.Chance(2)) FillBox(index, random_.Chance(2) ? AnyHostile() : text);
  }
  void FillBox(int index, const std::string& text) {
    auto* box = dynamic_cast<TextBox*>(form_.Find(Named("Text1", index)));
    if (box) hands_.Fill(form_, *box, text);
  }
  std::string TextOf(int index) { return dynamic_cast<TextBox&>(*form_.Find(Named("Text1", index))).Text(); }
  // Few, so that their incidents meet.
  std::string WorkerWithIncidents() {
    return std::to_string(random_.Chance(70) ? random_.Between(1, 6) : random_.Between(1, kRandomWorkers));
  }

  void Save() {
    const int way = random_.Between(0, 9);
    way < 6 ? ClickNamed("Grabar") : hands_.Press(form_, way < 9 ? "Alt+G" : "Esc");
  }

  void ChooseType() {
    hands_.Click(form_, *form_.Find("Combo1"));
    hands_.Type(form_, std::to_string(random_.Between(1, 5)));
  }

  void Step() {
    constexpr std::string_view kSteps[] = {"Alt+Home", "Alt+Left", "Alt+Right", "Alt+Right", "Alt+End"};
    for (int steps = random_.Between(1, 4); steps > 0; --steps) hands_.Press(form_, random_.Pick(kSteps));
  }

  void EnterIncident() {
    Put(1, WorkerWithIncidents());
    hands_.Press(form_, "Enter");
    if (random_.Chance(85)) ChooseType();
    const int start = random_.Between(0, kLastDay);
    Put(4, Day(start));
    if (random_.Chance(50)) {
      FillBox(5, "");
    } else {
      Put(5, Day(start + random_.Between(-2, random_.Chance(20) ? 400 : 30)));
    }
    Save();
  }

  // One that comes up open by its worker's number.
  void CloseIncident() {
    Put(1, WorkerWithIncidents());
    hands_.Press(form_, "Enter");
    const auto start = ReadDateStrict(TextOf(4), YearWindow());
    if (!start || !TextOf(5).empty()) return;
    hands_.Fill(form_, dynamic_cast<TextBox&>(*form_.Find("Text1(5)")),
                FormatDate(Date{start->serial + random_.Between(0, 20)}, "ddmmyy"));
    Save();
  }

  void ChangeIncident() {
    Step();
    if (random_.Chance(70)) hands_.ChangeShown(form_);
    random_.Chance(60) ? ChooseType() : Put(5, Day(random_.Between(0, kLastDay)));
    Save();
  }

  void RemoveIncident() {
    Step();
    ClickNamed("Borrar");
  }

  void EnterConcept() {
    Put(1, (random_.Chance(50) ? "0" : "") + std::to_string(random_.Between(1, 12)));
    Put(2, WorkerWithIncidents());
    hands_.Press(form_, "Enter");
    if (random_.Chance(80)) {
      hands_.Click(form_, *form_.Find("Image1(5)"));
    } else {
      Put(5, std::to_string(random_.Between(1, 6)));
    }
    if (random_.Chance(60)) Put(7, Amount());
    Put(8, std::to_string(random_.Between(1, 40)));
    Save();
  }

  void ChangeConcept() {
    hands_.Do(form_, "focus Text1(8)", [&] { form_.Click(*form_.Find("Text1(8)")); });
    Step();
    if (random_.Chance(70)) hands_.ChangeShown(form_);
    if (random_.Chance(50)) Put(7, Amount());
    Put(8, std::to_string(random_.Between(1, 40)));
    Save();
  }

  Hands& hands_;
  Random& random_;
  Form& form_;
};

const Clerk::Habit Clerk::kHabits[] = {
    {24, At::kAnywhere, &Clerk::TypeSomething}, {20, At::kAnywhere, &Clerk::PressKey},
    {2, At::kAnywhere, &Clerk::PressAccessKey}, {28, At::kAnywhere, &Clerk::UseControl},
    {4, At::kAnywhere, &Clerk::PasteHostile},   {1, At::kAnywhere, &Clerk::CloseWindow},
    {3, At::kAnywhere, &Clerk::EmptyField},     {4, At::kWorkers, &Clerk::ShowWorker},
    {1, At::kWorkers, &Clerk::ShowSituacion},   {6, At::kWorkers, &Clerk::FillFields},
    {2, At::kWorkers, &Clerk::NewWorker},       {2, At::kWorkers, &Clerk::ChangeWorker},
    {2, At::kWorkers, &Clerk::NewSituacion},    {2, At::kWorkers, &Clerk::FillFamily},
    {2, At::kWorkers, &Clerk::Calculate},       {2, At::kWorkers, &Clerk::Regularise},
    {1, At::kWorkers, &Clerk::Remove},          {2, At::kWorkers, &Clerk::OpenIncidents},
    {12, At::kDated, &Clerk::EnterIncident},    {6, At::kDated, &Clerk::CloseIncident},
    {4, At::kDated, &Clerk::ChangeIncident},    {2, At::kDated, &Clerk::RemoveIncident},
    {12, At::kVariable, &Clerk::EnterConcept},  {6, At::kVariable, &Clerk::ChangeConcept},
    {2, At::kVariable, &Clerk::RemoveIncident},
};

void Clerk::Act() {
  const At place = PlaceOf(form_);
  const auto weight = [&](const Habit& habit) {
    return habit.at == At::kAnywhere || habit.at == place ? habit.weight : 0;
  };
  int all = 0;
  for (const Habit& habit : kHabits) all += weight(habit);
  int drawn = random_.Between(1, all);
  for (const Habit& habit : kHabits) {
    drawn -= weight(habit);
    if (drawn <= 0) return habit.act(*this);
  }
}

}  // namespace

void ActAtRandom(Hands& hands, Form& form) { Clerk(hands, form).Act(); }

}  // namespace zendara
