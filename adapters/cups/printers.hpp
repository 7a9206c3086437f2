// The printers of the machine.
#pragma once

#include <string>
#include <vector>

namespace zendara {

struct Printer {
  std::string name;
  std::string place;  // what its keeper says of it; may be empty
  bool usual = false;
};

struct PrintJob {
  std::string printer;
  std::string title;
  int copies = 1;
  std::string pages{};  // as "1-4,7"; empty: all
};

class Printers {
 public:
  virtual ~Printers() = default;
  // None where there are none, or nobody who keeps them.
  virtual std::vector<Printer> List() const = 0;
  // Hands a PDF over; the file is not needed any more then. RuntimeError 57 when nobody takes it.
  virtual void Send(const PrintJob& job, const std::string& path) const = 0;
};

// Those of CUPS.
class CupsPrinters : public Printers {
 public:
  std::vector<Printer> List() const override;
  void Send(const PrintJob& job, const std::string& path) const override;
};

}  // namespace zendara
