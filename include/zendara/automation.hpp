// The screens without windows: calls of the host's, or the commands of a script, take the user's place. For a host
// without a desktop, and for a host's own tests.
//
// This and zendara/windows.hpp are the ready-made places that show screens; zendara/forms.hpp is for one of the host's
// own.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/export.h"
#include "zendara/keys.hpp"
#include "zendara/neighbours.hpp"
#include "zendara/platform.hpp"
#include "zendara/ports.hpp"

namespace zendara {

// What can be read of a control besides its text.
struct ControlFacts {
  std::string caption;   // the words beside it or on it; "&" stands before the access key
  bool visible = false;  // itself and what it stands in; the pages behind count as visible
  bool enabled = false;  // itself and what it stands in
};

// A screen that is being shown, for its user. Controls go by their names in the model: "Text1(7)", "Grabar"; case
// counts. The cells of grids can be read, "Grid1(0)[1,2]", rows and columns from 0, fixed ones too.
//
// Each act returns when all that follows from it is done, which includes the life of a screen that it opens and the
// boxes and lists that it brings up. The screen refuses as it does to a user: a control that is hidden or disabled
// takes nothing, which is no error. Acts throw nothing but these errors, which come before anything was done: 3265 for
// a name that no control has, 5 for an act that its kind does not know, for a text that is not UTF-8 or holds a
// character that no key types, and while another screen, a box or a list stands in front, 380 for an item, a cell or a
// page that is not there, 3420 from everything but Shown once the screen is closed.
class ShownScreen {
 public:
  virtual ~ShownScreen() = default;

  virtual bool Shown() const = 0;        // nobody has closed it yet
  virtual std::string Name() const = 0;  // "Trabajadores"
  virtual std::string Title() const = 0;
  virtual std::string Subject() const = 0;                // whose record it shows: "00900 Peña Güell, Begoña"
  virtual std::string Status() const = 0;                 // the line that the user may read
  virtual bool Unsaved() const = 0;                       // something of its record is not saved
  virtual std::string Focused() const = 0;                // empty: nothing has the focus
  virtual std::vector<std::string> Controls() const = 0;  // in the order of their creation
  virtual ControlFacts Facts(std::string_view control) const = 0;
  // The text of a field, list, cell or label, "0" to "2" of a check box, "0" or "1" of an option, the page in front of
  // tabs.
  virtual std::string Read(std::string_view control) const = 0;

  virtual void Focus(std::string_view control) = 0;
  // Key by key, into what has the focus at each of them: "\n" is Enter, "\t" the tabulator. What is left of it is not
  // typed once the screen has closed, or one of the user's functions has thrown.
  virtual void Type(std::string_view text) = 0;
  virtual void Press(const Key& key) = 0;
  virtual void Paste(std::string_view text) = 0;     // into what has the focus, as much as it has room for
  virtual void Click(std::string_view control) = 0;  // the mouse comes over it and clicks
  virtual void Choose(std::string_view list, std::size_t item) = 0;       // of a list that drops down, from 0
  virtual void Choose(std::string_view list, std::string_view text) = 0;  // its first item of that text
  virtual void Point(std::string_view grid, int row, int column) = 0;     // no fixed cell
  virtual void Turn(std::string_view tabs, int page) = 0;                 // from 0
  virtual void Close() = 0;                                               // the cross of its window
};

// The rows of a list to pick from, rows and columns from 0, the columns in the order in which people read them. What
// reading them throws is the store's error; 9 for a row or a column that is not there.
class ShownRows {
 public:
  virtual ~ShownRows() = default;
  virtual std::size_t Columns() const = 0;
  virtual std::string Heading(std::size_t column) const = 0;  // may be empty
  virtual std::size_t Total() = 0;                            // reads them all
  virtual bool Has(std::size_t row) = 0;                      // reads as far as that row
  virtual std::string Cell(std::size_t row, std::size_t column) = 0;
  virtual std::string Row(std::size_t row) = 0;  // as the list returns it
};

// In the user's place. Its functions run one within the other, as screens, boxes and lists do; what they are given is
// there for the length of the call. What one of them throws ends what it was asked about: a screen closes, a box has
// its default answer, a list gives nothing, a listing is done. It does not pass through the screens, so the act that
// has led there returns as always; it is thrown again by the ScreenAutomation that it was made for.
class ScreenUser {
 public:
  virtual ~ScreenUser() = default;

  // A screen is shown. When this returns it is closed without asking, if it is still there.
  virtual void OnScreen(ShownScreen& screen) = 0;
  // Error 5 for an answer that the box does not offer.
  virtual BoxAnswer OnBox(const Box& box) { return DefaultAnswer(box); }
  // The row to take; nothing to leave without. Error 380 for one that is not there.
  virtual std::optional<std::size_t> OnList(const std::string& /*title*/, ShownRows& /*rows*/) { return std::nullopt; }
  // A listing is ready: what a ListingViewer gets.
  virtual void OnListing(const ListingDescription& /*description*/, const std::string& /*file*/,
                         const std::string& /*table*/) {}
};

class ScreenAutomation : public FrontEnd {
 public:
  // Throws the first exception that the user's functions have thrown since the last call of this; otherwise nothing.
  // Further ones are lines of the log.
  virtual void Rethrow() = 0;
};

// The user outlives it. Lists and listings go to him unless the host has its own, whatever classes the machine has.
// Help and beeps are dropped, nothing that was typed is kept, and no program is started: without a shell of the host's
// the calculator is error 429.
ZENDARA_EXPORT std::unique_ptr<ScreenAutomation> MakeAutomation(ScreenUser& user);

// A script in the user's place, in the language that docs/scripts.md describes and that `zendara run` plays; every
// event is a line of text.

// How far a script came: 0 played to its end or still going on, 1 an `expect` that differs or something that could not
// be opened, 2 a fault of the script. `message` is one line that begins with the number of the script's line; empty for
// 0.
struct ScriptResult {
  int status = 0;
  std::string message;
};

// The next line of the script, without its line feed; nothing at the end. It is asked while a screen waits for its
// user, so whoever gives it has seen what all lines before it did.
using CommandLines = std::function<std::optional<std::string>()>;
// Takes one line with its line feed.
using EventLines = std::function<void(std::string_view line)>;

// REQUIRES: at Install engine and application_folder are set; the command `sql` and listings read there. Boxes, lists
// and listings that the host answers itself are not seen by the script.
class ScriptAutomation : public FrontEnd {
 public:
  // How the script stands. Each screen that Carga_Formulario shows plays it on from where the last one closed; once it
  // has ended, by its last line or a fault, screens close at once and nothing is printed. An exception of the host's
  // two functions ends it too, and is thrown again here.
  virtual ScriptResult Result() const = 0;
};

// Plays the lines as they come. The commands `session` and `open` are the host's part here: they are faults.
ZENDARA_EXPORT std::unique_ptr<ScriptAutomation> MakeAutomation(CommandLines next, EventLines out);
// Plays a text of many lines, read and checked before it begins: a fault in it is the result at once.
ZENDARA_EXPORT std::unique_ptr<ScriptAutomation> MakeAutomation(std::string_view script, EventLines out);

}  // namespace zendara
