// The stored tables as data: every file of the catalogue with its tables, columns, widths, keys and indexes. From here
// files are created and checked, and list widths are known.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zendara/record_engine.hpp"

namespace zendara {

enum class FileKind {
  kCompany,     // Nom<code>.MDB, one per company
  kYear,        // N<code><yy>.MDB, one per company and year
  kDocuments,   // DOC<code>.MDB, one per company
  kOfficial,    // Nom00a<yy>.MDB, one per year
  kTaxReturns,  // HACIEN<yy>.MDB, one per year
  kEmpresa,     // Empresa.MDB, general tables as the catalogue opens them
  kEmpresas,    // Empresas.mdb, general tables as the screens read them
};

struct StoredFile {
  FileKind kind;
  std::vector<TableDef> tables;
};

// All files, in the order of FileKind.
const std::vector<StoredFile>& StoredFiles();
const StoredFile& FileOf(FileKind kind);
// Definition of a table of that file, nullptr if it has none of that name (any case).
const TableDef* StoredTable(FileKind kind, std::string_view table);
// The first file, in the order of FileKind, that holds the table.
const StoredFile* FileWithTable(std::string_view table);

// File name without a folder. `code` has five characters, `year` two digits; each is used where the pattern has it.
std::string FileName(FileKind kind, std::string_view code, std::string_view year);
// The same for a name in another spelling, with the marks "<code>" and "<yy>".
std::string FillFileName(std::string_view pattern, std::string_view code, std::string_view year);

}  // namespace zendara
