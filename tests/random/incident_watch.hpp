// Holds the screens of incidents to what they must store: a model of their buttons beside the tables themselves.
//
// Saving puts the fields into the row of their key, or is refused; no other row changes. What was typed stays on the
// screen, is stored, or an error was shown. The store fails now and then: then one of these holds as well.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "random/hands.hpp"
#include "random/incident_table.hpp"
#include "random/other_program.hpp"

namespace zendara {

class IncidentWatch {
 public:
  // `year` of two digits. Nothing is owned.
  IncidentWatch(Hands& hands, OtherProgram& other, std::string year)
      : hands_(hands), other_(other), year_(std::move(year)) {}

  // The routines of its buttons are watched from here on, if it is one of these screens.
  void Attach(Form& form);
  // Between events and where the screen lets them run: the other program may come.
  void Pause(Form& form, double percent);
  // The other program changes the row on the screen.
  void ChangeShown(Form& form);

 private:
  using Row = std::vector<std::string>;  // by column, as it is stored; empty: Null

  std::string Place(std::string_view table) const;
  std::optional<Row> Stored(std::string_view table, const std::string& key) const;
  Row On(const Form& form) const;
  std::string KeyOf(const Row& row) const;
  bool Complete(const Row& row) const;
  bool Collides(const Row& row) const;

  void Wrap(Form& form, std::string_view button, void (IncidentWatch::*check)(Form&));
  // With trouble of the store, at times.
  void Run(const std::function<void()>& routine);
  void CheckSave(Form& form);
  void CheckRemoval(Form& form);
  void CheckStep(Form& form);
  void CheckRow(const std::optional<Row>& before, const Row& after);
  void CheckEmptied(const Form& form, std::string_view status);
  void Fail(const std::string& what) { hands_.Fail(std::string(table_->screen) + ": " + what); }
  void Met(std::string_view what) {
    hands_.Found().writes.insert(std::string(table_->screen) + " " + std::string(what));
  }

  Hands& hands_;
  OtherProgram& other_;
  std::string year_;
  const IncidentTable* table_ = nullptr;  // of the screen
  bool in_routine_ = false;
  bool saving_ = false;
  bool trouble_ = false;   // the store failed in the routine
  bool foreign_ = false;   // somebody else has changed rows since the screen was opened
  Row before_;             // on the screen when the routine began
  bool shown_ = false;     // it was a stored row, as the screen says
  std::size_t boxes_ = 0;  // shown before it
  struct Foreign {
    Row shown;  // on the screen then
    int column;
    std::string text;
  };
  std::optional<Foreign> changed_;  // by the other program, in the row on the screen
};

}  // namespace zendara
