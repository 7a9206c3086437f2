#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <functional>
#include <map>
#include <new>
#include <tuple>

#include "adapters/stores/password.hpp"
#include "apps/demo/demo_company.hpp"
#include "apps/zendara/commands/command_error.hpp"
#include "apps/zendara/commands/commands.hpp"
#include "runtime/failure.hpp"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"
#include "zendara/version.h"

namespace zendara {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr std::size_t kCodeWidth = 5;

bool AreDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// A company or worker number, padded with zeros; the error of a validator is its text, empty when all is well.
std::string PadCode(std::string& code) {
  if (!AreDigits(code) || code.size() > kCodeWidth) return "\"" + code + "\" is no number of one to five digits";
  code.insert(0, kCodeWidth - code.size(), '0');
  return {};
}

// "01" as it stands, a year of four digits without its century.
std::string CutYear(std::string& year) {
  const bool two = AreDigits(year) && year.size() == 2;
  const bool four = AreDigits(year) && year.size() == 4 && year >= "1980" && year <= "2079";
  if (!two && !four) return "\"" + year + "\" is no year such as 01 or 2001";
  year = year.substr(year.size() - 2);
  return {};
}

// Of a centre or a section.
std::string RefuseShortCode(std::string& code) {
  if (AreDigits(code) && code.size() <= 3) return {};
  return "\"" + code + "\" is no number of one to three digits";
}

std::string RefuseSeed(std::string& seed) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(seed.data(), seed.data() + seed.size(), number);
  if (error == std::errc() && end == seed.data() + seed.size()) return {};
  return "\"" + seed + "\" is no whole number from 0 to " + std::to_string(UINT64_MAX);
}

std::string RefuseOtherBytes(std::string& text) { return IsUtf8(text) ? "" : "the text is no UTF-8"; }

CLI::Validator Transform(std::string (*function)(std::string&)) {
  return CLI::Validator([function](std::string& text) { return function(text); }, "");
}

// The options of one run, and the command that the words chose.
struct CommandLine {
  DemoCommandOptions demo;
  RateOptions rate;
  ListOptions list;
  CreateOptions create;
  CheckOptions check;
  TableOptions load;
  std::string csv;
  TableOptions dump;
  CopyOptions copy;
  std::string rekeyed;  // a server
  RunOptions run;
  std::string library = "libzendara.so." + std::to_string(ZENDARA_VERSION_MAJOR);
  std::function<int(Console&)> chosen;
};

// A folder by an option or a bare word, or a server, as the place that a command works on: one of them.
void AddPlace(CLI::App* command, const std::string& folder, const std::string& what, std::string& place) {
  CLI::Option* dir = command->add_option(folder, place, what)->type_name(folder.starts_with("--") ? "DIR" : "");
  CLI::Option* store =
      command->add_option("--store", place, "The server with the data in place of a folder: postgresql://HOST/DATABASE")
          ->type_name("PLACE");
  store->excludes(dir);
  command->parse_complete_callback([folder, dir, store] {
    if (dir->count() + store->count() == 0) throw CLI::RequiredError(folder + " or --store");
  });
}

void AddDir(CLI::App* command, std::string& place) {
  AddPlace(command, "--dir", "The application's folder; its subfolder DATOS holds the files", place);
}

void AddCode(CLI::App* command, std::string& company) {
  command->add_option("--company", company, "Company number")
      ->required()
      ->type_name("CODE")
      ->transform(Transform(PadCode));
}

void AddCompany(CLI::App* command, CompanyOptions& options) {
  AddDir(command, options.place);
  AddCode(command, options.company);
  command->add_option("--year", options.year, "Working year, such as 01")
      ->required()
      ->type_name("YY")
      ->transform(Transform(CutYear));
}

void AddReadOnly(CLI::App* command, CompanyOptions& options) {
  command->add_flag_callback(
      "--read-only", [&options] { options.access = Access::kRead; },
      "Write nothing; a folder on a network file system can be read so");
}

void AddTable(CLI::App* command, TableOptions& options) {
  AddCompany(command, options.company);
  command->add_option("--file", options.file, "Database file, when the table is in several (default: the first)")
      ->type_name("NAME");
  command->add_option("TABLE", options.table, "Name of the table")->required()->type_name("");
}

void AddDemo(CLI::App& app, CommandLine& line) {
  CLI::App* demo = app.add_subcommand("demo", "Write a demonstration company");
  AddPlace(demo, "DIR", "The application's folder; the files go to its subfolder DATOS", line.demo.place);
  demo->add_option("--workers", line.demo.workers, "Number of workers (default: 60)")
      ->type_name("N")
      ->check(CLI::Range(1, kMaxDemoWorkers).description(""));
  demo->add_option("--seed", line.demo.seed, "Another seed gives other data (default: 1)")
      ->type_name("S")
      ->check(Transform(RefuseSeed));
  demo->callback([&line] { line.chosen = [&line](Console& console) { return Demo(line.demo, console); }; });
}

void AddRate(CLI::App& app, CommandLine& line) {
  static const std::map<std::string, RateFormat> formats = {
      {"text", RateFormat::kText}, {"csv", RateFormat::kCsv}, {"json", RateFormat::kJson}};
  CLI::App* rate = app.add_subcommand("rate", "Work out the withholding rate of stored workers");
  AddCompany(rate, line.rate.company);
  AddReadOnly(rate, line.rate.company);
  rate->add_option("--currency", line.rate.currency, "P for pesetas (default), anything else for the other currency")
      ->type_name("MARK");
  CLI::Option* worker = rate->add_option("--worker", line.rate.worker, "Worker number (default: all workers)")
                            ->type_name("N")
                            ->transform(Transform(PadCode));
  rate->add_flag("--explain", line.rate.explain, "Give the steps of each calculation");
  rate->add_option_function<std::string>(
          "--format", [&line](const std::string& name) { line.rate.format = formats.at(name); },
          "text (default), csv or json")
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"text", "csv", "json"}).description(""));
  rate->add_option("--pdf", line.rate.pdf, "Also write the steps for --worker to a new PDF file")
      ->type_name("FILE")
      ->needs(worker);
  rate->callback([&line] { line.chosen = [&line](Console& console) { return Rate(line.rate, console); }; });
}

// One of two words; the second one sets the mark.
void AddChoice(CLI::App* command, const char* option, const char* usual, const char* other, bool& mark,
               const std::string& what) {
  command
      ->add_option_function<std::string>(
          option, [&mark, other](const std::string& word) { mark = word == other; },
          what + ": " + usual + " (default) or " + other)
      ->type_name("WORD")
      ->check(CLI::IsMember({usual, other}).description(""));
}

void AddList(CLI::App& app, CommandLine& line) {
  static constexpr std::tuple<const char*, const char*, ListKind> kinds[] = {
      {"it", "Sickness, maternity and accidents of workers", ListKind::kIncidents},
      {"esp", "Holidays and strikes of workers", ListKind::kSpecialIncidents},
      {"var", "Variable concepts of workers in a month", ListKind::kVariableIncidents},
      {"workers", "Workers by centre and section", ListKind::kWorkers}};
  CLI::App* list = app.add_subcommand("list", "Print a listing of the screens, or write it to new files");
  list->require_subcommand(1);
  for (const auto& [name, help, kind] : kinds) {
    CLI::App* command = list->add_subcommand(name, help);
    ListOptions& options = line.list;
    AddCompany(command, options.company);
    const auto add = [command](const char* option, std::string& value, const char* what, const char* type) {
      return command->add_option(option, value, what)->type_name(type);
    };
    if (kind == ListKind::kWorkers) {
      add("--centre-from", options.centre_from, "First centre (default: the first one)", "CODE")
          ->check(Transform(RefuseShortCode));
      add("--centre-to", options.centre_to, "Last centre (default: the last one)", "CODE")
          ->check(Transform(RefuseShortCode));
      add("--section-from", options.section_from, "First section (default: the first one)", "CODE")
          ->check(Transform(RefuseShortCode));
      add("--section-to", options.section_to, "Last section (default: the last one)", "CODE")
          ->check(Transform(RefuseShortCode));
      AddChoice(command, "--data", "fixed", "variable", options.variable, "Data of the worker, or of his situaciones");
      command->add_flag("--only-active", options.only_active, "Of situaciones those that end today or later");
      AddChoice(command, "--by", "name", "number", options.by_number, "Order of the workers");
      AddChoice(command, "--group", "centre", "section", options.by_section, "What comes first in the order");
    } else {
      if (kind == ListKind::kVariableIncidents) {
        add("--month", options.month, "Month, 1 to 12 (default: the last one with incidents)", "MM")
            ->check(CLI::Range(1, 12).description(""));
      }
      add("--from", options.from, "First worker (default: the first one with incidents)", "N")
          ->transform(Transform(PadCode));
      add("--to", options.to, "Last worker (default: the last one with incidents)", "N")->transform(Transform(PadCode));
    }
    add("--pdf", options.pdf, "Write pages to a new PDF file", "FILE");
    add("--xlsx", options.xlsx, "Write a spreadsheet to a new file", "FILE");
    CLI::Option* csv = add("--csv", options.csv, "Write CSV to a new file", "FILE");
    command->add_flag("--bom", options.bom, "CSV for Spanish spreadsheets: semicolons, and a byte order mark")
        ->needs(csv);
    command->add_flag_callback(
        "--read-only",
        [] {
          throw CLI::ValidationError("--read-only",
                                     "the rows of a listing are first written to a table of the company");
        },
        "Not possible: the rows of a listing are first written to a table of the company");
    command->callback([&line, kind = kind] {
      line.list.kind = kind;
      line.chosen = [&line](Console& console) { return List(line.list, console); };
    });
  }
}

void AddData(CLI::App& app, CommandLine& line) {
  CLI::App* data = app.add_subcommand("data", "Make, check, fill and read the stored tables");
  data->require_subcommand(1);

  CLI::App* create = data->add_subcommand("create", "Make the files that are missing; none is overwritten");
  AddCompany(create, line.create.company);
  create->add_option("--name", line.create.name, "Company name, entered in the general tables")
      ->type_name("N")
      ->check(Transform(RefuseOtherBytes));
  create->callback([&line] { line.chosen = [&line](Console& console) { return DataCreate(line.create, console); }; });

  CLI::App* check = data->add_subcommand(
      "check",
      "Print what is missing or malformed, a line each (status 1 if any), and advice on workers and incidents");
  AddCompany(check, line.check.company);
  AddReadOnly(check, line.check.company);
  check
      ->add_option_function<std::string>(
          "--format", [&line](const std::string& name) { line.check.json = name == "json"; },
          "text (default) or json: faults and advice in one document")
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"text", "json"}).description(""));
  check->footer(
      "Advice, which does not change the exit status: codes without a row in their table, situaciones that overlap,\n"
      "run backwards or have no concepts in the year, workers without one and the reverse, bank accounts, N.I.F. and\n"
      "affiliation numbers whose control characters do not check; incidents that overlap over both tables, are open\n"
      "beside another open one, run backwards, lie outside every situación or have no worker, and those of variable\n"
      "concepts without a worker, a situación or a concept. Lines begin with \"advice:\", a count follows them.");
  check->callback([&line] { line.chosen = [&line](Console& console) { return DataCheck(line.check, console); }; });

  CLI::App* load = data->add_subcommand("load", "Add the rows of a CSV file to a table, all or none");
  AddTable(load, line.load);
  load->add_option("CSV", line.csv, "Text in UTF-8 with a header of column names")->required()->type_name("");
  load->callback([&line] { line.chosen = [&line](Console& c) { return DataLoad(line.load, line.csv, c); }; });

  CLI::App* dump =
      data->add_subcommand("dump", "Print a table as CSV; status 1 if a value in it is none of its column");
  AddTable(dump, line.dump);
  AddReadOnly(dump, line.dump.company);
  dump->callback([&line] { line.chosen = [&line](Console& console) { return DataDump(line.dump, console); }; });

  CLI::App* copy = data->add_subcommand("copy", "Copy a company with all its years to another folder or server");
  copy->add_option("--from", line.copy.from, "Folder or server that has the company")->required()->type_name("PLACE");
  copy->add_option("--to", line.copy.to, "Folder or server that has not")->required()->type_name("PLACE");
  AddCode(copy, line.copy.company);
  copy->footer(
      "A PLACE is an application's folder, or postgresql://HOST/DATABASE. All files of the company are written or "
      "none,\n"
      "then read again and compared, value by value: status 1 if any differs. Files that companies share stay where\n"
      "they are there; the rows of the company in the general tables are added, and what differs is printed.");
  copy->callback([&line] { line.chosen = [&line](Console& console) { return DataCopy(line.copy, console); }; });

  CLI::App* rekey =
      data->add_subcommand("rekey", "Make the sort keys of a server's rows anew, after an upgrade of ICU");
  rekey->add_option("--store", line.rekeyed, "The server: postgresql://HOST/DATABASE")->required()->type_name("PLACE");
  rekey->footer("Nobody else may be connected. When it is interrupted no program opens a file until it is done again.");
  rekey->callback([&line] { line.chosen = [&line](Console& console) { return DataRekey(line.rekeyed, console); }; });

  for (CLI::App* command : {load, dump}) {
    command->footer(
        "CSV as in RFC 4180: an unquoted empty field is Null, a quoted one the empty text,\n"
        "dates are yyyy-mm-dd or yyyy-mm-ddThh:mm:ss, numbers have a decimal point.");
  }
}

void AddRun(CLI::App& app, CommandLine& line) {
  CLI::App* run = app.add_subcommand("run", "Play a script on the screens, without windows");
  run->add_option("SCRIPT", line.run.script, "The script; a line for every event goes to standard output")
      ->required()
      ->type_name("");
  AddDir(run, line.run.place);
  run->footer(
      "Exit status: 0 played to the end, 1 a value differs from the expected or a file cannot be opened,\n"
      "2 a fault of the script.");
  run->callback([&line] { line.chosen = [&line](Console& console) { return RunScript(line.run, console); }; });
}

void AddClasses(CLI::App& app, CommandLine& line) {
  static constexpr std::tuple<const char*, const char*, int (*)(const std::string&, Console&)> changes[] = {
      {"register", "Have a library write class files, by which hosts find its classes", Register},
      {"unregister", "Have a library remove its class files", Unregister}};
  for (const auto& [name, help, change] : changes) {
    CLI::App* command = app.add_subcommand(name, help);
    command->add_option("LIBRARY", line.library, "The library (default: " + line.library + " of the system)")
        ->type_name("");
    command->footer(
        "The class files go to the first folder of ZENDARA_CLASS_PATH if that is set, for root to\n"
        "/usr/local/share/zendara/classes, otherwise to zendara/classes in the data folder of the user.");
    command->callback([&line, change = change] {
      line.chosen = [&line, change](Console& console) { return change(line.library, console); };
    });
  }
  CLI::App* classes = app.add_subcommand("classes", "Print the classes that hosts find by class files");
  classes->footer(
      "A line each: name, version, library, class file. One that cannot be created is followed by a line\n"
      "\"fault: ...\", which is all that there is of a class file that cannot be read; then the status is 1.");
  classes->callback([&line] { line.chosen = [](Console& console) { return Classes(console); }; });
}

// The command that the words lead to, as far as they name one; "" or the first word that does not.
struct Reached {
  const CLI::App* command;
  std::string name;
  std::string unknown;
};
Reached Follow(const CLI::App& app, const std::vector<std::string>& words) {
  Reached reached{&app, app.get_name(), {}};
  for (const std::string& word : words) {
    if (reached.command->get_subcommands({}).empty()) break;
    const auto named = reached.command->get_subcommands([&](const CLI::App* c) { return c->get_name() == word; });
    if (named.empty()) {
      reached.unknown = word;
      break;
    }
    reached.command = named.front();
    reached.name += " " + word;
  }
  return reached;
}

std::string UsageError(const CLI::App& app, const std::vector<std::string>& words, const CLI::ParseError& error) {
  const Reached reached = Follow(app, words);
  std::string cause = error.what();
  if (!reached.unknown.empty() && !reached.unknown.starts_with("-")) cause = "there is no command " + reached.unknown;
  return cause + " (see " + reached.name + " --help)";
}

// What the failed command printed so far goes out before its error line.
int Fail(Console& console, const std::string& cause) {
  try {
    console.Flush();
  } catch (const OutputError&) {
    // The cause says more.
  }
  console.Error(cause);
  return kFailed;
}

std::string WhatWasDone(const Console& console) { return console.Doing().empty() ? "" : console.Doing() + ": "; }

int RunCommand(const std::function<int(Console&)>& command, Console& console) {
  try {
    const int status = command(console);
    console.Doing("");
    console.Flush();
    return status;
  } catch (const OutputError& error) {
    // A reader such as `head` that wants no more is no fault to speak of.
    if (error.system_error != EPIPE)
      console.Error("standard output: " + std::string(std::strerror(error.system_error)));
    return kFailed;
  } catch (const RuntimeError& error) {
    return Fail(console, WhatWasDone(console) + OneLine(error));
  } catch (const CommandError& error) {
    return Fail(console, error.what());
  } catch (const std::filesystem::filesystem_error& error) {
    return Fail(console, WhatWasDone(console) + error.path1().string() + ": " + error.code().message());
  } catch (const std::bad_alloc&) {
    return Fail(console, WhatWasDone(console) + "there is not enough memory");
  } catch (const std::exception& error) {
    return Fail(console, WhatWasDone(console) + error.what());
  }
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, bool terminal) {
  CLI::App app("Withholding rates and stored tables of a Spanish payroll", "zendara");
  app.require_subcommand(1);
  app.set_version_flag("--version", "zendara " ZENDARA_VERSION, "Print the version and exit");
  app.get_formatter()->label("REQUIRED", "(required)");
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("Subcommands", "Commands");
  app.footer("Exit status: 0 done, 1 failed (one line on standard error says why), 2 wrong usage.");
  CommandLine line;
  AddDemo(app, line);
  AddRate(app, line);
  AddList(app, line);
  AddData(app, line);
  AddRun(app, line);
  AddClasses(app, line);

  Console console(out, err, terminal);
  if (std::ranges::any_of(arguments, WordHoldsPassword)) {
    console.Error(kNoPasswords);
    return kWrongUsage;
  }
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    return RunCommand([&](Console& c) { return c.Out(app.help()), 0; }, console);
  } catch (const CLI::CallForVersion& version) {
    return RunCommand([&](Console& c) { return c.Out(version.what() + std::string("\n")), 0; }, console);
  } catch (const CLI::ParseError& error) {
    console.Error(UsageError(app, arguments, error));
    return kWrongUsage;
  }
  return RunCommand(line.chosen, console);
}

}  // namespace zendara
