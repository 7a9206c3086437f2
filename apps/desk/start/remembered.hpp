// What the desktop remembers from one run to the next, in a file of the user's.
#pragma once

#include <QString>
#include <string>

#include "adapters/qt/window_places.hpp"

namespace zendara {

struct Remembered {
  std::string folder;  // or the connection of a server; empty: none was chosen yet
  std::string company;
  std::string year;  // two digits
  int zoom = 100;    // percent
  WindowPlaces windows;
};

// In the user's configuration folder.
QString RememberedFile();

// What cannot be read, or is no sensible value, is as on a first run.
Remembered ReadRemembered(const QString& file);
// False if the file cannot be written. Nobody but its user can read it, and a connection with a password is not
// written.
bool WriteRemembered(const QString& file, const Remembered& remembered);

}  // namespace zendara
