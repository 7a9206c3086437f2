// What the component asks of its surroundings besides the record engine. A host may implement these itself; texts are
// UTF-8, and all calls come in the thread that called the component.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/value.hpp"

namespace zendara {

enum class BoxButtons { kOk, kYesNo };
enum class BoxIcon { kNone, kCritical, kQuestion, kExclamation, kInformation };
enum class BoxAnswer { kOk, kYes, kNo };

// A row of what stands behind a box: what it is, its figure as text, and where the figure comes from.
struct BoxDetail {
  std::string label;
  std::string figure{};
  std::string source{};
};

// A message box. Lines are separated by "\n".
struct Box {
  std::string text;
  BoxButtons buttons = BoxButtons::kOk;
  BoxIcon icon = BoxIcon::kNone;
  std::string title{};     // empty: whoever shows the box puts the application's title there
  int default_button = 1;  // from 1
  // How the figure in the text came about, step by step; the last row is the result. Empty: there is no such figure. A
  // front end that can shows it when the user asks for it, which does not answer the box. Never part of a script's run.
  std::vector<BoxDetail> detail{};
};

// All boxes and beeps of the component go here, those of its screens too.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // Modal. Yes/No cannot be left without an answer.
  virtual BoxAnswer Show(const Box& box) = 0;
  virtual void Beep() = 0;
};

// Files beside the databases. Folders are separated by "\" or "/", names found whatever their case.
class Files {
 public:
  virtual ~Files() = default;
  // Error 70 when a folder on the way may not be entered.
  virtual bool Exists(std::string_view path) const = 0;
  // The first record of a random-access file: exactly `length` bytes, zeros past the end of the file.
  // Error 53 when the file is missing, 76 when its folder is, 70 when it may not be read, 75 when it is a folder, a
  // device or a pipe.
  virtual std::string ReadRecord(std::string_view path, std::size_t length) const = 0;
};

// Programs beside the host's.
class Shell {
 public:
  virtual ~Shell() = default;
  // Window of that class and title, 0 if there is none.
  virtual int FindWindow(std::string_view class_name, std::string_view title) = 0;
  // Starts a program with its window in front; the number of its task. Error 53 when there is no such program.
  virtual int Start(std::string_view program) = 0;
  // Brings a window to the front: of a task that Start gave, or of that title. Nothing where no program may do so.
  virtual void Activate(int task) = 0;
  virtual void Activate(std::string_view title) = 0;
};

// The date and time of the place where the user sits.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date Now() = 0;
};

// For whoever looks after the installation: what the store said about an error, what could not be shown. Each line is
// whole, without a line feed, in English. What it throws is dropped.
class Log {
 public:
  virtual ~Log() = default;
  virtual void Line(std::string_view line) = 0;
};

}  // namespace zendara
