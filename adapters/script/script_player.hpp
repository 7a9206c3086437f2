// Plays a script on the screens of the component and prints one line for every event, the same for every front end.
//
// The front end's ports pass on to the player what happens, and ask it what to answer:
//
//   FormHost::ShowModal      Modal, between showing the window and hiding it
//   FormHost::ShowHelp       Help
//   FormHost::Untrapped      Error
//   FormHost::Drafts         Drafts
//   Dialogs                  Answer, Beep
//   Shell                    the player itself
//   PickList                 Choose
//   ListingViewer            Listing
//
// Once the script has ended, by its last line or by an error, the forms that are open are unloaded as they come to
// hand: nothing is printed any more, boxes get their default button and forms that are shown are closed at once.
#pragma once

#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "adapters/hosting/company_host.hpp"
#include "adapters/script/script.hpp"
#include "adapters/script/script_driver.hpp"
#include "adapters/script/script_listing.hpp"
#include "common/row_list.hpp"
#include "print/document_writer.hpp"
#include "zendara/automation.hpp"
#include "zendara/forms/drafts.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/ports.hpp"

namespace zendara {

class ScriptPlayer : public Shell {
 public:
  // Takes one line with its line feed. What it throws stops the script and is thrown again by Result.
  using Sink = EventLines;

  // Nothing is owned.
  ScriptPlayer(Commands next, ScriptDriver& driver, const print::DocumentWriter& documents, Sink out);

  // Where `sql` and listings read: its engine and folder.
  void ReadFrom(const Platform& platform) { platform_ = platform; }
  // Plays all of it on a company of its own, whose ports end in this player. Without it the script goes on with each
  // form that somebody shows, and has no `session` and no `open`.
  ScriptResult Run(CompanyHost& company);
  ScriptResult Result() const;
  // Ends the script, with that line as the reason.
  void End(int status, const std::string& message);

  // Of FormHost::ShowModal: prints that the screen is open, plays on it until it unloads, and prints that it closed.
  // Unloads it if the script ends before.
  void Modal(Form& form);
  // Of Dialogs::Show: prints the box and gives its answer.
  BoxAnswer Answer(const Box& box);
  void Beep();
  void Help(int context);
  void Error(int number, const std::string& text);
  // Of a pick list: the row to take, nothing to leave without.
  std::optional<std::size_t> Choose(const std::string& title, RowList& rows);
  // Where drafts are kept: nullptr until the script says so.
  DraftKeeper* Drafts() const { return drafts_.get(); }
  // Of ListingViewer::Visualiza: prints the listing from its table.
  void Listing(const ListingDescription& description, const std::string& file, const std::string& table);
  // The script has ended: windows need not be shown any more.
  bool Ended() const { return ended_; }

  // Programs are printed, never started.
  int FindWindow(std::string_view class_name, std::string_view title) override;
  int Start(std::string_view program) override;
  void Activate(int task) override;
  void Activate(std::string_view title) override;

 private:
  // The choice for a list: nothing to take, a row from 1, or the first row that holds a text.
  using PickChoice = std::variant<std::monostate, std::size_t, std::string>;

  // Until the form unloads; without a form to the end of the script.
  void Play(const Form* form);
  std::optional<ScriptCommand> Next();
  void Execute(const ScriptCommand& command);
  void Act(const ScriptCommand& command);
  void ActOn(Form& form, const ScriptCommand& command);
  void Stop(int status, const std::string& reason);
  void Print(const std::string& line);
  void PrintStatus();
  void PrintFocus();
  std::optional<std::size_t> Chosen(RowList& rows);

  void OpenSession(const ScriptCommand& command);
  void OpenScreen(const std::string& name);
  void Check(Form& form, Control& control, int value);
  void ActOnDrafts(const ScriptCommand& command);
  void ActOnListing(const ScriptCommand& command);
  void QueuePick(const ScriptWord& word);
  void Show(Form& form, const std::string& id);
  void ShowAll(const Form& form);
  void Keep(const Form& form, const std::string& path);
  YearWindow Years() const;
  std::shared_ptr<Database> Open(const std::string& path) const;
  void Sql(const std::string& file, const std::string& query);

  Commands next_;
  int line_ = 0;  // of the command played last
  ScriptDriver& driver_;
  const print::DocumentWriter& documents_;
  Platform platform_;
  CompanyHost* company_ = nullptr;
  Sink out_;
  bool ended_ = false;
  ScriptResult result_;
  std::exception_ptr failure_;  // of the functions that give commands and take lines

  std::vector<Form*> forms_;  // the last is on top
  std::string printed_status_;
  const Control* printed_focus_ = nullptr;
  int screens_shown_ = 0;
  std::unique_ptr<DraftKeeper> drafts_;
  std::unique_ptr<ScriptListing> listing_;  // the last one
  std::deque<BoxAnswer> answers_;
  std::deque<PickChoice> picks_;
  std::vector<std::string> tasks_;
};

}  // namespace zendara
