// The commands of the program `zendara`. Each prints to the console and returns the exit status.
//
// CommandError, RuntimeError and OutputError go to the caller.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "apps/zendara/commands/console.hpp"
#include "zendara/engines.hpp"

namespace zendara {

// The files that a command works on. A place is an application's folder, whose subfolder DATOS holds the files, or the
// connection of a server, as OpenStore takes them.
struct CompanyOptions {
  std::string place;
  std::string company;  // five characters
  std::string year;     // two digits
  Access access = Access::kWrite;
};

struct DemoCommandOptions {
  std::string place;
  int workers = 60;
  std::uint64_t seed = 1;
};
int Demo(const DemoCommandOptions& options, Console& console);

enum class RateFormat { kText, kCsv, kJson };

struct RateOptions {
  CompanyOptions company;
  std::string currency = "P";
  std::string worker;  // five characters; empty: all
  bool explain = false;
  RateFormat format = RateFormat::kText;
  std::string pdf;  // path of a file that the explained calculation of `worker` goes to as well; empty: none
};
// 1 when a worker's rate could not be worked out; the others are printed all the same.
int Rate(const RateOptions& options, Console& console);

enum class ListKind { kIncidents, kSpecialIncidents, kVariableIncidents, kWorkers };

// What the request screen is asked for. What is empty is as the screen proposes it.
struct ListOptions {
  CompanyOptions company;
  ListKind kind = ListKind::kWorkers;
  // Of incidents: worker numbers of five characters, and a month.
  std::string from;
  std::string to;
  std::string month;
  // Of workers.
  std::string centre_from;
  std::string centre_to;
  std::string section_from;
  std::string section_to;
  bool variable = false;
  bool only_active = false;
  bool by_number = false;
  bool by_section = false;
  // Paths of new files; without any the listing is printed as text.
  std::string pdf;
  std::string xlsx;
  std::string csv;
  bool bom = false;  // the kind of CSV for spreadsheets
};
// Plays the screens, which write the company's staging table. What they say in a box is the error.
int List(const ListOptions& options, Console& console);

struct CreateOptions {
  CompanyOptions company;
  std::string name;  // company name for the general tables; empty: no row is written
};
int DataCreate(const CreateOptions& options, Console& console);

struct CheckOptions {
  CompanyOptions company;
  bool json = false;
};
// 1 when anything is missing or malformed. Advice on workers, situaciones and incidents changes nothing of it.
int DataCheck(const CheckOptions& options, Console& console);

struct TableOptions {
  CompanyOptions company;
  std::string table;
  std::string file;  // name of the database file; empty: the first one that holds the table
};
int DataLoad(const TableOptions& options, const std::string& csv_path, Console& console);
int DataDump(const TableOptions& options, Console& console);

struct CopyOptions {
  std::string from;  // places
  std::string to;
  std::string company;  // five characters
};
// All years of a company. 1 when what was written is not what was read.
int DataCopy(const CopyOptions& options, Console& console);
// `server` as MakeSortKeys takes it.
int DataRekey(const std::string& server, Console& console);

struct RunOptions {
  std::string place;
  std::string script;  // path
};
// 1 when an expectation fails or something cannot be opened, 2 for a fault of the script.
int RunScript(const RunOptions& options, Console& console);

// Has the library write its class files, or remove them. A name without a folder is looked for as the system does.
int Register(const std::string& library, Console& console);
int Unregister(const std::string& library, Console& console);
// 1 when a class of the machine cannot be created, for what the class file says or the library lacks.
int Classes(Console& console);

// Runs the command line without the program's name. 2 on wrong usage. `terminal`: `err` is a terminal.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, bool terminal = false);

}  // namespace zendara
