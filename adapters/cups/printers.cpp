#include "adapters/cups/printers.hpp"

#include <cups/cups.h>

#include <memory>

#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

struct FreeDestination {
  void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};

// Options of a job, on top of those that the user has set for the printer.
class Options {
 public:
  explicit Options(const cups_dest_t& destination) {
    for (int i = 0; i < destination.num_options; ++i) Add(destination.options[i].name, destination.options[i].value);
  }
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;
  ~Options() { cupsFreeOptions(count_, options_); }

  void Add(const char* name, const char* value) { count_ = cupsAddOption(name, value, count_, &options_); }
  int Count() const { return count_; }
  cups_option_t* Get() const { return options_; }

 private:
  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

[[noreturn]] void Fail() { throw RuntimeError(kDeviceIoError, {}, cupsLastErrorString()); }

}  // namespace

std::vector<Printer> CupsPrinters::List() const {
  cups_dest_t* found = nullptr;
  const int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &found);
  std::vector<Printer> printers;
  for (int i = 0; i < count; ++i) {
    const cups_dest_t& one = found[i];
    // Another set of options for a printer that is there already.
    if (one.instance) continue;
    const char* info = cupsGetOption("printer-info", one.num_options, one.options);
    printers.push_back({.name = one.name, .place = info ? info : "", .usual = one.is_default != 0});
  }
  cupsFreeDests(count, found);
  return printers;
}

void CupsPrinters::Send(const PrintJob& job, const std::string& path) const {
  const std::unique_ptr<cups_dest_t, FreeDestination> printer(
      cupsGetNamedDest(CUPS_HTTP_DEFAULT, job.printer.c_str(), nullptr));
  if (!printer) Fail();
  Options options(*printer);
  options.Add("copies", std::to_string(job.copies).c_str());
  if (!job.pages.empty()) options.Add("page-ranges", job.pages.c_str());
  const int number = cupsPrintFile2(CUPS_HTTP_DEFAULT, job.printer.c_str(), path.c_str(), job.title.c_str(),
                                    options.Count(), options.Get());
  if (number == 0) Fail();
}

}  // namespace zendara
