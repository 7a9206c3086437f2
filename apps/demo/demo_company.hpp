// A company to try the system on: every file of company "00001" with the years 00 and 01 in pesetas and 02 in euros.
//
// The data stand as of 31/12/2002. They depend on the seed and the worker's number alone, so a larger company begins
// with the same workers. Names, numbers and amounts are invented; tax_year.cpp says which figures of the withholding
// table are published ones.
//
// The annual figures of a worker are in pesetas, those of who entered in 2002 in euros: rates of the years 00 and 01
// are meaningful for the former, rates of 02 for the latter.
//
// Pay data, variable incidents and history stand for every month of the three years for the first 1000 workers, for
// the last month of each situación in a year for the others. `zendara data check` has no advice on any of it.
//
// The first workers, of any seed, are known cases. What they earn and what the withholding depends on is fixed:
//
//   00001  married, spouse without income, two children, open-ended contract: 3.200.000 pesetas
//   00002  single, no children: 1.800.000
//   00003  part-time, below the no-withholding limit: 900.000
//   00004  just above the limit, so the cap applies: 1.300.000
//   00005  contract class "I" below the limit: the minimum rate for contracts under a year
//   00006  contract class "R" with a low rate: the minimum rate for special relations
//   00007  pensioner, over 65
//   00008  unemployed
//   00009  manager in the last bracket of the scale: 15.000.000
//   00010  disability grade 3
//   00011  ten children of all ages, por entero and not, with and without a grade
//   00012  four ascendants shared among one to nine persons, with and without a grade
//   00013  four situaciones, the last with a chain of three contracts
//   00014  left the company on 30/06/2001: no open situación
//   00015  regularised in 01: figures so far, and history rows of both currencies in that year
//   00016  entered in 2002: figures in euros; identified by a residence permit
//   00017  surnames and given name that fill their fields
//   00018  foreign resident with an N.I.E.; surname with an apostrophe
//   00019  sick since 02/12/2002: an open incident, beside closed ones of every type
//   00020  income in Ceuta, pension to the former spouse, annuities to children
//   00021  nothing entered on the withholding pages yet
//   00022  eight children, disability grade 1; identified by a passport
//   00023  eight children of the ages in between, disability grade 2; identified by a community residence card
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "zendara/record_engine.hpp"

namespace zendara {

inline constexpr int kMaxDemoWorkers = 100'000;  // the last one has the number "00000"
inline constexpr int kDemoCases = 23;

struct DemoOptions {
  std::string folder;  // Store::folder; one of the machine is made if need be, its files go to the subfolder DATOS
  int workers = 60;    // 1 to kMaxDemoWorkers
  std::uint64_t seed = 1;
};

// Writes all files or none. Errors of CompanyFiles, 3012 when there is a file of such a name already: nothing is
// touched then; std::runtime_error for a wrong number of workers. `progress` may be empty; it gets now and then how
// many workers are done, of how many: first 0, last all of them, when the files stand. What it throws ends the run.
void WriteDemoCompany(Engine& engine, const DemoOptions& options,
                      const std::function<void(int done, int of)>& progress = {});

}  // namespace zendara
