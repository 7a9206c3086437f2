#include "adapters/script/script_player.hpp"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "adapters/csv/csv.hpp"
#include "adapters/csv/stored_text.hpp"
#include "adapters/drafts/file_drafts.hpp"
#include "adapters/drafts/memory_drafts.hpp"
#include "adapters/hosting/application.hpp"
#include "adapters/hosting/current_session.hpp"
#include "adapters/script/script_keys.hpp"
#include "adapters/script/script_values.hpp"
#include "print/record_document.hpp"
#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

constexpr std::array<std::string_view, 5> kIconNames = {"none", "critical", "question", "exclamation", "information"};
constexpr std::array<std::string_view, 3> kAnswerNames = {"ok", "yes", "no"};

std::string_view AnswerName(BoxAnswer answer) { return kAnswerNames[static_cast<std::size_t>(answer)]; }

BoxAnswer AnswerByName(std::string_view name) {
  return static_cast<BoxAnswer>(std::ranges::find(kAnswerNames, name) - kAnswerNames.begin());
}

BoxAnswer DefaultAnswer(const Box& box) {
  if (box.buttons == BoxButtons::kOk) return BoxAnswer::kOk;
  return box.default_button == 2 ? BoxAnswer::kNo : BoxAnswer::kYes;
}

std::string BoxLine(const Box& box, BoxAnswer answer) {
  std::string line = "box icon=" + std::string(kIconNames[static_cast<std::size_t>(box.icon)]);
  line += box.buttons == BoxButtons::kOk ? " buttons=ok" : " buttons=yesno";
  if (DefaultAnswer(box) == BoxAnswer::kNo) line += " default=no";
  line += " title=" + Quoted(box.title.empty() ? kApplicationTitle : box.title);
  return line + " text=" + Quoted(box.text) + " -> " + std::string(AnswerName(answer));
}

std::string FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/");
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string RowText(Recordset& rows, int columns) {
  std::string line;
  for (int i = 0; i < columns; ++i) {
    if (i > 0) line += ',';
    AppendStored(rows.Fields(i).Get(), line);
  }
  return line;
}

int ToNumber(const ScriptWord& word) { return std::stoi(word.text); }

template <typename T>
T& FindKind(const Form& form, const ScriptWord& word, std::string_view what) {
  auto* control = dynamic_cast<T*>(&FindControl(form, word.text));
  if (!control) throw ScriptError(word.text + " is no " + std::string(what));
  return *control;
}

int ItemOf(const ComboBox& combo, const std::string& text) {
  const auto same = [&](const std::string& item) { return RTrim(item) == RTrim(text); };
  const auto item = std::ranges::find_if(combo.Items(), same);
  if (item == combo.Items().end()) throw ScriptError(combo.Id() + " has no item " + Quoted(text));
  return static_cast<int>(item - combo.Items().begin());
}

}  // namespace

ScriptPlayer::ScriptPlayer(Commands next, ScriptDriver& driver, const print::DocumentWriter& documents, Sink out)
    : next_(std::move(next)), driver_(driver), documents_(documents), out_(std::move(out)) {}

// Playing.

ScriptResult ScriptPlayer::Run(CompanyHost& company) {
  company_ = &company;
  Play(nullptr);
  return Result();
}

ScriptResult ScriptPlayer::Result() const {
  if (failure_) std::rethrow_exception(failure_);
  return result_;
}

void ScriptPlayer::Play(const Form* form) {
  while (!ended_ && (!form || form->Loaded())) {
    PrintStatus();
    PrintFocus();
    if (ended_) return;
    if (const auto command = Next()) {
      Execute(*command);
    } else {
      ended_ = true;
    }
  }
}

std::optional<ScriptCommand> ScriptPlayer::Next() {
  try {
    return next_();
  } catch (const ScriptError& error) {
    End(error.status(), error.what());
  } catch (...) {
    failure_ = std::current_exception();
  }
  return std::nullopt;
}

// A form is shown from within a command, `open` or a click on a screen below, or by the host. The commands that follow
// are played here, on the form on top, until it unloads; then the command that showed it goes on, in the Play of the
// form below. So the calls nest as the screens do. The status and the focus that were printed last are those of the
// form on top: with another one they are printed anew.
void ScriptPlayer::Modal(Form& form) {
  forms_.push_back(&form);
  ++screens_shown_;
  printed_status_.clear();
  printed_focus_ = nullptr;
  Print("screen " + form.Name() + " open");
  Play(&form);
  form.Unload();
  Print("screen " + form.Name() + " closed");
  forms_.pop_back();
  printed_status_.clear();
  printed_focus_ = nullptr;
}

void ScriptPlayer::Execute(const ScriptCommand& command) {
  line_ = command.line;
  try {
    Act(command);
    driver_.Settle();
  } catch (const ScriptError& error) {
    Stop(error.status(), error.what());
  } catch (...) {
    Stop(1, OneLine(CurrentError()));
  }
}

void ScriptPlayer::Stop(int status, const std::string& reason) { End(status, std::to_string(line_) + ": " + reason); }

void ScriptPlayer::End(int status, const std::string& message) {
  if (ended_) return;
  ended_ = true;
  result_ = {status, message};
}

void ScriptPlayer::Print(const std::string& line) {
  if (ended_) return;
  try {
    out_(line + "\n");
  } catch (...) {
    // Kept from the routines of the screens, which are below on the stack.
    failure_ = std::current_exception();
    ended_ = true;
  }
}

void ScriptPlayer::PrintStatus() {
  if (forms_.empty() || forms_.back()->Status() == printed_status_) return;
  printed_status_ = forms_.back()->Status();
  if (!printed_status_.empty()) Print("status " + Quoted(printed_status_));
}

void ScriptPlayer::PrintFocus() {
  if (forms_.empty() || forms_.back()->Focus() == printed_focus_) return;
  printed_focus_ = forms_.back()->Focus();
  if (printed_focus_) Print("focus " + printed_focus_->Id());
}

// Commands.

void ScriptPlayer::Act(const ScriptCommand& command) {
  const auto& [line, name, words] = command;
  if (name == "session" || name == "open") {
    if (!company_) throw ScriptError("the host opens the session and the screens here, not " + name);
    return name == "session" ? OpenSession(command) : OpenScreen(words[0].text);
  }
  if (name == "pick") return QueuePick(words[0]);
  if (name == "drafts") return ActOnDrafts(command);
  if (name == "listing") return ActOnListing(command);
  if (name == "sql") return Sql(words[0].text, words[1].text);
  if (name == "answer") {
    for (const ScriptWord& word : words) answers_.push_back(AnswerByName(word.text));
    return;
  }
  if (forms_.empty()) throw ScriptError("no screen is open");
  ActOn(*forms_.back(), command);
}

void ScriptPlayer::ActOn(Form& form, const ScriptCommand& command) {
  const auto& [line, name, words] = command;
  if (name == "type") return Type(form, words[0].text);
  if (name == "key") return driver_.Press(form, *KeyByName(words[0].text));
  if (name == "print") return Keep(form, words[0].text);
  if (name == "show") {
    if (words.size() == 1 && words[0].text == "all") return ShowAll(form);
    for (const ScriptWord& word : words) Show(form, word.text);
    return;
  }
  if (name == "expect") {
    const std::string text = ValueOf(form, words[0].text);
    if (text == words[1].text) return;
    throw ScriptError(words[0].text + " is " + Quoted(text) + ", not " + Quoted(words[1].text), 1);
  }
  if (name == "choose") {
    auto& combo = FindKind<ComboBox>(form, words[0], "list");
    return driver_.Pick(form, combo, ItemOf(combo, words[1].text));
  }
  if (name == "cell") {
    auto& grid = FindKind<Grid>(form, words[0], "grid");
    const int row = ToNumber(words[1]);
    const int column = ToNumber(words[2]);
    if (row < grid.FixedRows() || row >= grid.Rows() || column < grid.FixedColumns() || column >= grid.Columns()) {
      throw ScriptError(grid.Id() + " has no cell " + words[1].text + " " + words[2].text + " to click");
    }
    return driver_.PointTo(form, grid, row, column);
  }
  if (name == "page") {
    auto& tabs = FindKind<Tabs>(form, words[0], "set of pages");
    const int page = ToNumber(words[1]);
    if (static_cast<std::size_t>(page) >= tabs.Titles().size()) {
      throw ScriptError(tabs.Id() + " has no page " + words[1].text);
    }
    return driver_.TurnTo(form, tabs, page);
  }
  Control& control = FindControl(form, words[0].text);
  if (name == "check") return Check(form, control, ToNumber(words[1]));
  if (name == "click") return driver_.Click(form, control);
  if (!control.TakesFocus()) throw ScriptError(control.Id() + " never has the focus");
  driver_.Focus(form, control);
}

void ScriptPlayer::OpenSession(const ScriptCommand& command) {
  if (!forms_.empty()) throw ScriptError("a screen is open");
  SessionValues values;
  const std::array<std::pair<std::string_view, std::string*>, 7> places = {{{"company", &values.company},
                                                                            {"year", &values.year},
                                                                            {"name", &values.name},
                                                                            {"currency", &values.currency},
                                                                            {"exchange", &values.exchange},
                                                                            {"program", &values.program},
                                                                            {"date", &values.date}}};
  for (const ScriptWord& word : command.words) {
    *std::ranges::find(places, word.name, &std::pair<std::string_view, std::string*>::first)->second = word.text;
  }
  const auto digits = [](const std::string& text, std::size_t most) {
    return !text.empty() && text.size() <= most && text.find_first_not_of("0123456789") == std::string::npos;
  };
  if (!digits(values.company, 5)) throw ScriptError("company=00001 is missing, or no number of one to five digits");
  if (!digits(values.year, 2) || values.year.size() != 2) throw ScriptError("year=01 is missing, or no two digits");
  values.company.insert(0, 5 - values.company.size(), '0');
  try {
    company_->Open(values);
  } catch (const RuntimeError& error) {
    if (error.number() == kTypeMismatch) throw ScriptError("date=" + Quoted(values.date) + " is no date");
    throw;
  }
}

void ScriptPlayer::OpenScreen(const std::string& name) {
  if (!forms_.empty()) throw ScriptError("screen " + forms_.back()->Name() + " is open");
  if (!company_->HasSession()) throw ScriptError("there is no session yet");
  const int shown = screens_shown_;
  company_->Show(name);
  if (shown == screens_shown_) throw ScriptError("there is no screen " + name + ", or it does not open");
}

void ScriptPlayer::Type(Form& form, const std::string& text) {
  for (std::string_view rest = text; !rest.empty() && !ended_ && form.Loaded();) {
    driver_.Press(form, KeyOfCharacter(TakeCharacter(rest)));
  }
}

void ScriptPlayer::Check(Form& form, Control& control, int value) {
  if (const auto* option = dynamic_cast<OptionButton*>(&control)) {
    if (value != 1) throw ScriptError(control.Id() + " is an option: only 1 can be chosen");
    if (!option->Value()) driver_.Click(form, control);
    return;
  }
  const auto* box = dynamic_cast<CheckBox*>(&control);
  if (!box) throw ScriptError(control.Id() + " is no check box or option");
  if (value > 1) throw ScriptError("a check box is set to 0 or 1");
  // A greyed box is empty after one click, ticked after two.
  const bool twice = box->Value() == 2 && value == 1;
  if (box->Value() != value) driver_.Click(form, control);
  if (twice && form.Loaded()) driver_.Click(form, control);
}

void ScriptPlayer::ActOnDrafts(const ScriptCommand& command) {
  const std::string& deed = command.words.front().text;
  if (deed == "keep") {
    if (!forms_.empty()) throw ScriptError("a screen is open");
    if (command.words.size() == 1) {
      drafts_ = std::make_unique<MemoryDrafts>();
    } else {
      drafts_ = std::make_unique<FileDrafts>(command.words[1].text);
    }
    return;
  }
  if (!drafts_) throw ScriptError("no drafts are kept");
  if (forms_.empty()) throw ScriptError("no screen is open");
  Form& form = *forms_.back();
  const std::vector<KeptDraft> drafts = form.Drafts();
  if (deed == "restore") {
    const auto number = static_cast<std::size_t>(ToNumber(command.words[1]));
    if (number > drafts.size()) throw ScriptError("there is no draft " + command.words[1].text);
    return form.RestoreDraft(drafts[number - 1].id);
  }
  for (std::size_t i = 0; i < drafts.size(); ++i) {
    std::string line = "draft " + std::to_string(i + 1) + " " + Quoted(drafts[i].draft.title);
    for (const auto& [id, text] : drafts[i].draft.values) line += " " + id + "=" + Quoted(text);
    if (const std::string why = form.WhyNotHere(drafts[i].draft); !why.empty()) line += " elsewhere=" + Quoted(why);
    Print(line);
  }
}

void ScriptPlayer::ActOnListing(const ScriptCommand& command) {
  if (!listing_) throw ScriptError("there is no listing yet");
  if (command.words.front().text == "pages") return Print("pages " + std::to_string(listing_->Pages()));
  const std::string& path = command.words[1].text;
  listing_->Save(path);
  Print("document title=" + Quoted(listing_->Title()) + " file=" + Quoted(FileNameOf(path)) +
        " rows=" + std::to_string(listing_->Rows()));
}

void ScriptPlayer::QueuePick(const ScriptWord& word) {
  if (word.quoted) {
    picks_.emplace_back(word.text);
  } else if (word.text == "none") {
    picks_.emplace_back(std::monostate());
  } else {
    picks_.emplace_back(static_cast<std::size_t>(ToNumber(word)));
  }
}

void ScriptPlayer::Show(const Form& form, const std::string& id) {
  const auto print = [this](const std::string& name, const std::string& text) {
    Print("value " + name + "=" + Quoted(text));
  };
  Control* control = form.Find(id);
  if (control) return ForEachValue(*control, print);
  print(id, ValueOf(form, id));
}

void ScriptPlayer::ShowAll(const Form& form) {
  std::vector<Control*> controls = form.Controls();
  std::erase_if(controls, [](const Control* control) { return !control->IsEntered(); });
  std::ranges::sort(controls, {}, [](const Control* control) { return std::tuple(control->Name(), control->Index()); });
  for (Control* control : controls) {
    ForEachValue(*control, [&](const std::string& id, const std::string& text) {
      if (!text.empty() && !control->IsUnmarked()) Print("value " + id + "=" + Quoted(text));
    });
  }
}

void ScriptPlayer::Keep(const Form& form, const std::string& path) {
  const print::Document document = print::RecordDocument(form, documents_.Now(), documents_.Measure());
  documents_.WritePdf(document, path, print::DocumentWriter::Existing::kKeep);
  Print("document title=" + Quoted(document.title) + " file=" + Quoted(FileNameOf(path)) +
        " pages=" + std::to_string(document.pages.size()));
}

YearWindow ScriptPlayer::Years() const { return company_ ? company_->Years() : YearsOfComponent(); }

std::shared_ptr<Database> ScriptPlayer::Open(const std::string& path) const {
  auto database = platform_.engine->Workspaces(0)->OpenDatabase(path);
  database->SetYearWindow(Years());
  return database;
}

void ScriptPlayer::Sql(const std::string& file, const std::string& query) {
  const auto database = Open(platform_.application_folder + "\\DATOS\\" + file);
  const auto rows = database->OpenRecordset(query);
  const int columns = static_cast<int>(rows->Columns().size());
  for (; !rows->Eof(); rows->MoveNext()) Print(RowText(*rows, columns));
}

// Events.

BoxAnswer ScriptPlayer::Answer(const Box& box) {
  BoxAnswer answer = DefaultAnswer(box);
  if (ended_) return answer;
  if (!answers_.empty()) {
    const BoxAnswer queued = answers_.front();
    answers_.pop_front();
    if ((queued == BoxAnswer::kOk) != (box.buttons == BoxButtons::kOk)) {
      Stop(2, "the box " + Quoted(box.text) + " has no button " + std::string(AnswerName(queued)));
      return answer;
    }
    answer = queued;
  }
  Print(BoxLine(box, answer));
  return answer;
}

void ScriptPlayer::Beep() { Print("beep"); }

void ScriptPlayer::Help(int context) { Print("help " + std::to_string(context)); }

void ScriptPlayer::Error(int number, const std::string& text) {
  Print("error " + std::to_string(number) + " " + Quoted(text));
}

std::optional<std::size_t> ScriptPlayer::Choose(const std::string& title, RowList& rows) {
  if (ended_) return std::nullopt;
  std::optional<std::size_t> chosen;
  try {
    chosen = Chosen(rows);
  } catch (const ScriptError& error) {
    Stop(error.status(), "the list " + Quoted(title) + " has no row " + error.what());
    return std::nullopt;
  }
  Print("list title=" + Quoted(title) + " rows=" + std::to_string(rows.Total()) + " -> " +
        (chosen ? Quoted(rows.Row(*chosen)) : "none"));
  return chosen;
}

std::optional<std::size_t> ScriptPlayer::Chosen(RowList& rows) {
  const PickChoice choice = picks_.empty() ? PickChoice() : picks_.front();
  if (!picks_.empty()) picks_.pop_front();
  if (const auto* number = std::get_if<std::size_t>(&choice)) {
    if (!rows.Reach(*number - 1)) throw ScriptError(std::to_string(*number));
    return *number - 1;
  }
  if (const auto* text = std::get_if<std::string>(&choice)) {
    for (std::size_t row = 0; rows.Reach(row); ++row) {
      if (rows.Row(row).find(*text) != std::string::npos) return row;
    }
    throw ScriptError("that holds " + Quoted(*text));
  }
  return std::nullopt;
}

void ScriptPlayer::Listing(const ListingDescription& description, const std::string& file, const std::string& table) {
  if (ended_) return;
  listing_.reset();
  print::Listing listing = print::ReadDescription(description);
  auto staged = print::StagedRows(*platform_.engine, file, table, listing.columns.size(), Years());
  listing_ = std::make_unique<ScriptListing>(std::move(listing), HeadOfComponent(), std::move(staged),
                                             documents_.Measure(), Years());
  const auto database = Open(file);
  const auto rows = database->OpenRecordset(table, RecordsetType::kTable);
  const int columns = static_cast<int>(listing_->Columns());
  Print("print title=" + Quoted(listing_->Title()) + " file=" + Quoted(FileNameOf(file)) + " table=" + Quoted(table) +
        " columns=" + std::to_string(columns) + " rows=" + std::to_string(rows->RecordCount()));
  for (; !rows->Eof(); rows->MoveNext()) Print(RowText(*rows, columns));
}

int ScriptPlayer::FindWindow(std::string_view, std::string_view) { return 0; }

int ScriptPlayer::Start(std::string_view program) {
  Print("start " + Quoted(program));
  tasks_.emplace_back(program);
  return static_cast<int>(tasks_.size());
}

void ScriptPlayer::Activate(int task) {
  if (task < 1 || static_cast<std::size_t>(task) > tasks_.size()) throw RuntimeError(kInvalidCall);
  Activate(tasks_[static_cast<std::size_t>(task - 1)]);
}

void ScriptPlayer::Activate(std::string_view title) { Print("activate " + Quoted(title)); }

}  // namespace zendara
