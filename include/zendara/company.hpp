// A company opened whole, for hosts that do not open its files themselves.
#pragma once

#include <memory>
#include <string_view>

#include "zendara/export.h"
#include "zendara/record_engine.hpp"
#include "zendara/zendara.hpp"

namespace zendara {

// What Carga_Formulario takes: the company's database, the general one, and every slot of the catalogue with its table
// open on its index, 501 items from index 0.
struct OpenedCompany {
  std::shared_ptr<Database> company;
  std::shared_ptr<Database> general;
  RecordsetArray recordsets;
};

// `folder` holds DATOS, as Platform::application_folder; `code` is the company's, of up to five characters; `year` has
// two or four digits. Errors: 3044 with the name of the folder, 3024 with that of the file, 3011 with that of the
// table; whatever Workspace::OpenDatabase has besides.
ZENDARA_EXPORT OpenedCompany OpenCompany(Engine& engine, std::string_view folder, std::string_view code,
                                         std::string_view year);

}  // namespace zendara
