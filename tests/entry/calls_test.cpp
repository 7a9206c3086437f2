// What the functions in plain C refuse, what they take, and what they say of it.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <thread>

#include "apps/demo/demo_company.hpp"
#include "entry/script_object.hpp"
#include "runtime/surroundings.hpp"
#include "support/temp_folder.hpp"
#include "zendara/engines.hpp"
#include "zendara/zendara.hpp"

namespace zendara {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A host with tables of functions.
struct Host {
  static Host& Of(void* self) { return *static_cast<Host*>(self); }

  Host() {
    WriteDemoCompany(*MakeEngine(), {.folder = folder.path().string(), .workers = 3});
    EXPECT_EQ(zendara_engine_open("", ZENDARA_WRITE, &engine), ZENDARA_OK);
    EXPECT_EQ(zendara_automation(&user, &screens), ZENDARA_OK);
    platform.engine = engine;
    platform.application_folder = path.c_str();
    platform.screens = screens;
    EXPECT_EQ(zendara_company_open(engine, path.c_str(), "00001", "01", &company), ZENDARA_OK) << LastError().detail;
  }
  ~Host() {
    EXPECT_EQ(zendara_install(nullptr), ZENDARA_OK);
    zendara_release(company);
    zendara_release(screens);
    zendara_release(engine);
    EXPECT_EQ(DllCanUnloadNow(), kResultOk);
  }
  zendara_result Show(const char* screen = "Trabajadores") {
    zendara_session session{};
    session.size = sizeof session;
    session.self = this;
    session.CodigoEmpresa = [](void*, zendara_variant* value) { return zendara_variant_set_text(value, "00001"); };
    session.Ejercicio = [](void*, zendara_variant* value) { return zendara_variant_set_i2(value, 2001); };
    session.FechaTrabajo = [](void*, zendara_variant* value) { return zendara_variant_set_date(value, 36965); };
    session.Retorno = [](void*, zendara_variant* value) { return zendara_variant_set_text(value, "\xFF"); };
    session.PonRetorno = [](void* self, const char* text) {
      Of(self).marks.emplace_back(text);
      return ZENDARA_OK;
    };
    return zendara_show(company, screen, &session);
  }

  TempFolder folder;
  std::string path = folder.path().string();
  zendara_user user{sizeof user,
                    this,
                    [](void* self, zendara_screen* screen) { return Of(self).on_screen(screen); },
                    [](void* self, const zendara_box* box, uint32_t* answer) { return Of(self).on_box(*box, *answer); },
                    nullptr,
                    nullptr};
  zendara_platform platform{};
  zendara_engine* engine = nullptr;
  zendara_screens* screens = nullptr;
  zendara_company* company = nullptr;
  std::function<zendara_result(zendara_screen*)> on_screen = [](auto) { return ZENDARA_OK; };
  std::function<zendara_result(const zendara_box&, uint32_t&)> on_box = [](auto&, auto&) { return ZENDARA_OK; };
  std::vector<std::string> marks;
};

TEST(PlainC, StructuresOfEverySizeAreTakenFromTheFirstVersionOn) {
  Host host;
  for (const std::uint32_t size : {0U, 8U, static_cast<std::uint32_t>(sizeof(zendara_platform)) - 1}) {
    host.platform.size = size;
    EXPECT_EQ(zendara_install(&host.platform), ZENDARA_INVALID) << size;
  }
  // A later version has more, of which nothing is known.
  struct {
    zendara_platform known;
    std::uint64_t unknown = ~std::uint64_t{0};
  } later;
  later.known = host.platform;
  later.known.size = sizeof later;
  EXPECT_EQ(zendara_install(&later.known), ZENDARA_OK);
  zendara_dialogs dialogs{sizeof dialogs - 1, nullptr, nullptr, nullptr};
  later.known.dialogs = &dialogs;
  EXPECT_EQ(zendara_install(&later.known), ZENDARA_INVALID);
  EXPECT_EQ(host.Show(), ZENDARA_OK) << "the one before is still there: " << LastError().detail;

  struct {
    zendara_error known{sizeof(zendara_error) + 8, 0, nullptr, nullptr};
    std::uint64_t unknown = 7;
  } error;
  EXPECT_EQ(zendara_engine_open("nothing:", ZENDARA_WRITE, nullptr), ZENDARA_NULL_POINTER);
  EXPECT_EQ(zendara_last_error(&error.known), ZENDARA_OK);
  EXPECT_EQ(error.known.number, 5);
  EXPECT_EQ(error.unknown, 7U);
  error.known.size = 4;
  EXPECT_EQ(zendara_last_error(&error.known), ZENDARA_INVALID);
  EXPECT_EQ(zendara_last_error(nullptr), ZENDARA_NULL_POINTER);
}

TEST(PlainC, HandlesAndTextsAreChecked) {
  Host host;
  zendara_database* database = nullptr;
  EXPECT_EQ(zendara_database_open(nullptr, "x", &database), ZENDARA_NULL_POINTER);
  EXPECT_EQ(zendara_database_open(host.engine, nullptr, &database), ZENDARA_NULL_POINTER);
  EXPECT_EQ(zendara_database_open(host.engine, "a\xC3", &database), ZENDARA_INVALID);
  EXPECT_EQ(zendara_database_open(reinterpret_cast<zendara_engine*>(host.company), "x", &database), ZENDARA_INVALID);
  EXPECT_EQ(zendara_database_open(host.engine, (host.path + "\\DATOS\\No.mdb").c_str(), &database), ZENDARA_FAILED);
  EXPECT_EQ(LastError().number, 3024);
  EXPECT_THAT(LastError().text, HasSubstr("No.mdb"));
  EXPECT_EQ(database, nullptr);

  zendara_database *first = nullptr, *second = nullptr;
  zendara_slots slots{sizeof slots, 0, 0, nullptr};
  ASSERT_EQ(zendara_company_parts(host.company, &first, &second, &slots), ZENDARA_OK);
  ASSERT_EQ(slots.count, 501U);
  EXPECT_EQ(slots.items[0], nullptr);
  zendara_recordset* rows = nullptr;
  EXPECT_EQ(zendara_recordset_open(first, "TrabajadoresFijo", 3, &rows), ZENDARA_INVALID);
  EXPECT_EQ(zendara_recordset_open(first, "TrabajadoresFijo", ZENDARA_TABLE, &rows), ZENDARA_OK);
  EXPECT_EQ(zendara_recordset_set_index(rows, "ICAMPO0"), ZENDARA_OK);
  EXPECT_EQ(zendara_recordset_set_index(rows, "none"), ZENDARA_FAILED);
  EXPECT_EQ(LastError().number, 3015);
  zendara_release(rows);
  EXPECT_EQ(zendara_class_id("Zendara.Engine", nullptr), ZENDARA_NULL_POINTER);

  zendara_variant value{};
  EXPECT_EQ(zendara_variant_set_date(&value, std::nan("")), ZENDARA_INVALID);
  EXPECT_EQ(zendara_variant_set_date(&value, 3e6), ZENDARA_INVALID);
  EXPECT_EQ(zendara_variant_set_text(&value, "\xED\xA0\x80"), ZENDARA_INVALID);
  EXPECT_EQ(value.type, ZENDARA_EMPTY);
}

TEST(PlainC, AScreenAnswersItsUserAndNobodyElseMeanwhile) {
  Host host;
  EXPECT_EQ(host.Show(), ZENDARA_NOT_INSTALLED);
  host.platform.size = sizeof host.platform;
  ASSERT_EQ(zendara_install(&host.platform), ZENDARA_OK) << LastError().detail;
  EXPECT_EQ(host.Show("Nada"), ZENDARA_NO_SCREEN);

  int boxes = 0;
  host.on_box = [&](const zendara_box& box, uint32_t& answer) {
    ++boxes;
    EXPECT_EQ(box.buttons, static_cast<uint32_t>(ZENDARA_BUTTONS_YES_NO));
    EXPECT_EQ(answer, static_cast<uint32_t>(ZENDARA_ANSWER_NO)) << "the default";
    EXPECT_GT(box.detail_count, 3U) << "how the rate came about";
    answer = ZENDARA_ANSWER_YES;
    return ZENDARA_OK;
  };
  host.on_screen = [&](zendara_screen* screen) {
    EXPECT_EQ(host.Show(), ZENDARA_BUSY);
    EXPECT_EQ(zendara_install(nullptr), ZENDARA_BUSY);
    EXPECT_EQ(zendara_install(&host.platform), ZENDARA_BUSY);
    EXPECT_EQ(DllCanUnloadNow(), kResultFalse);
    std::thread([&] {
      EXPECT_EQ(zendara_screen_type(screen, "2\n"), ZENDARA_WRONG_THREAD);
      EXPECT_EQ(host.Show(), ZENDARA_WRONG_THREAD);
    }).join();
    EXPECT_EQ(zendara_screen_type(screen, "2\n"), ZENDARA_OK);
    EXPECT_EQ(zendara_screen_click(screen, "CmdCalcular"), ZENDARA_OK);
    char* text = nullptr;
    EXPECT_EQ(zendara_screen_read(screen, "Text1(135)", &text), ZENDARA_OK);
    EXPECT_STRNE(text, "");
    zendara_free(text);
    EXPECT_EQ(zendara_screen_focus(screen, "Text1(11)"), ZENDARA_OK);
    EXPECT_EQ(zendara_screen_paste(screen, "x"), ZENDARA_OK);
    EXPECT_EQ(zendara_screen_unsaved(screen), ZENDARA_OK);
    EXPECT_EQ(zendara_screen_usable(screen, "Grabar"), ZENDARA_OK);
    EXPECT_EQ(zendara_screen_control(screen, 100000, &text), ZENDARA_FALSE);
    EXPECT_EQ(zendara_screen_read(screen, "Text1", &text), ZENDARA_FAILED);
    EXPECT_EQ(LastError().number, 3265);
    EXPECT_EQ(zendara_screen_type(screen, "\xC3"), ZENDARA_INVALID);
    EXPECT_EQ(zendara_screen_close(screen), ZENDARA_OK);
    EXPECT_EQ(zendara_screen_shown(screen), ZENDARA_FALSE);
    EXPECT_EQ(zendara_screen_click(screen, "Grabar"), ZENDARA_FAILED);
    EXPECT_EQ(LastError().number, 3420);
    return ZENDARA_OK;
  };
  EXPECT_EQ(host.Show(), ZENDARA_OK) << LastError().detail;
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(host.marks.size(), 3U) << "refused calls touch no session";
}

TEST(PlainC, WhatAFunctionOfTheHostsFailsWithIsTheResultAroundIt) {
  Host host;
  host.platform.size = sizeof host.platform;
  ASSERT_EQ(zendara_install(&host.platform), ZENDARA_OK);
  host.on_screen = [](auto) {
    zendara_set_error(61, "no room");
    return ZENDARA_FAILED;
  };
  EXPECT_EQ(host.Show(), ZENDARA_FAILED);
  EXPECT_EQ(LastError().number, 61);
  host.on_screen = [](auto) { return ZENDARA_NO_MEMBER; };
  EXPECT_EQ(host.Show(), ZENDARA_FAILED);
  EXPECT_EQ(LastError().number, 51);
  EXPECT_THAT(LastError().detail, HasSubstr("0x80020003"));
  host.on_screen = [](zendara_screen* screen) {
    zendara_screen_type(screen, "2\n");
    return zendara_screen_click(screen, "CmdCalcular");
  };
  host.on_box = [](auto&, uint32_t& answer) {
    answer = 7;
    return ZENDARA_OK;
  };
  EXPECT_EQ(host.Show(), ZENDARA_FAILED);
  EXPECT_EQ(LastError().number, 5) << "no such answer";
  EXPECT_EQ(host.Show("Nada"), ZENDARA_NO_SCREEN) << "and it is said once";
}

TEST(PlainC, TheTablesOfTheHostServeInPlaceOfTheFrontEnds) {
  Host host;
  std::vector<std::string> told;
  const auto tell = [](void* self, const char* line) {
    static_cast<std::vector<std::string>*>(self)->emplace_back(line);
    return ZENDARA_OK;
  };
  const zendara_log log{sizeof log, &told, tell};
  const zendara_banner banner{sizeof banner, &told,
                              [](void* self, int32_t, zendara_banner_place* place) {
                                EXPECT_EQ(place->size, sizeof *place);
                                static_cast<std::vector<std::string>*>(self)->emplace_back("banner");
                                return ZENDARA_OK;
                              },
                              [](void* self, int32_t) {
                                static_cast<std::vector<std::string>*>(self)->emplace_back("closed");
                                return ZENDARA_OK;
                              }};
  const zendara_pick_list lists{sizeof lists, &told, [](void* self, zendara_list* list, uint64_t* row) {
                                  uint64_t rows = 0;
                                  const char* cell = nullptr;
                                  EXPECT_EQ(zendara_list_count(list, &rows), ZENDARA_OK);
                                  EXPECT_EQ(rows, 3U);
                                  EXPECT_EQ(zendara_list_cell(list, 3, 0, &cell), ZENDARA_FALSE);
                                  EXPECT_EQ(zendara_list_cell(list, 0, 99, &cell), ZENDARA_FAILED);
                                  EXPECT_EQ(zendara_list_cell(list, 1, 0, &cell), ZENDARA_OK);
                                  static_cast<std::vector<std::string>*>(self)->emplace_back("list");
                                  *row = 1;
                                  return ZENDARA_OK;
                                }};
  const zendara_dialogs dialogs{sizeof dialogs, &told,
                                [](void* self, const zendara_box*, uint32_t*) {
                                  static_cast<std::vector<std::string>*>(self)->emplace_back("box");
                                  return ZENDARA_OK;
                                },
                                nullptr};
  host.platform.size = sizeof host.platform;
  host.platform.log = &log;
  host.platform.banner = &banner;
  host.platform.pick_list = &lists;
  host.platform.dialogs = &dialogs;
  ASSERT_EQ(zendara_install(&host.platform), ZENDARA_OK);
  host.on_screen = [&](zendara_screen* screen) {
    zendara_screen_click(screen, "Image1(1)");
    zendara_screen_type(screen, "3\n");
    zendara_screen_click(screen, "CmdCalcular");
    return ZENDARA_OK;
  };
  host.on_box = [](auto&, auto&) -> zendara_result {
    ADD_FAILURE() << "the host has its own boxes";
    return ZENDARA_FAILED;
  };
  EXPECT_EQ(host.Show(), ZENDARA_OK) << LastError().detail;
  EXPECT_THAT(told, ElementsAre(HasSubstr("Retorno"), "banner", "list", "box", "closed"));
}

TEST(PlainC, FilesProgramsAndTheClockAreTheHostsAndTheUserGetsListsAndListings) {
  using Lines = std::vector<std::string>;
  Host host;
  Lines told;
  const zendara_files files{sizeof files, &told, nullptr, [](void* self, const char*, uint8_t* bytes, size_t length) {
                              static_cast<Lines*>(self)->push_back("record of " + std::to_string(length));
                              std::fill_n(bytes, length, std::uint8_t{' '});
                              return ZENDARA_OK;
                            }};
  const zendara_shell shell{sizeof shell,
                            &told,
                            [](void*, const char*, const char*, int32_t* window) {
                              *window = 0;
                              return ZENDARA_OK;
                            },
                            [](void* self, const char* program, int32_t* task) {
                              static_cast<Lines*>(self)->emplace_back(program);
                              *task = 5;
                              return ZENDARA_OK;
                            },
                            nullptr,
                            nullptr};
  const zendara_clock clock{sizeof clock, &told, [](void*, double* serial) {
                              *serial = 36965.5;
                              return ZENDARA_OK;
                            }};
  host.user.List = [](void*, zendara_list*, uint64_t* row) {
    *row = 2;
    return ZENDARA_OK;
  };
  host.user.Listing = [](void* self, const zendara_listing* listing) {
    Host::Of(self).marks.emplace_back(std::string(listing->form) + " " + listing->table);
    return ZENDARA_OK;
  };
  zendara_release(host.screens);
  ASSERT_EQ(zendara_automation(&host.user, &host.screens), ZENDARA_OK);
  host.platform.size = sizeof host.platform;
  host.platform.screens = host.screens;
  host.platform.files = &files;
  host.platform.shell = &shell;
  host.platform.clock = &clock;
  ASSERT_EQ(zendara_install(&host.platform), ZENDARA_OK);
  EXPECT_EQ(Now().serial, 36965.5);
  host.on_screen = [&](zendara_screen* screen) {
    char* name = nullptr;
    zendara_screen_name(screen, &name);
    const bool workers = std::string(name) == "Trabajadores";
    zendara_free(name);
    if (!workers) return zendara_screen_click(screen, "Impresora");
    zendara_screen_click(screen, "Image1(1)");
    char* taken = nullptr;
    zendara_screen_read(screen, "Text1(1)", &taken);
    told.emplace_back(taken);
    zendara_free(taken);
    zendara_screen_click(screen, "Calculadora");
    return zendara_screen_click(screen, "Pendientes");
  };
  EXPECT_EQ(host.Show(), ZENDARA_OK) << LastError().detail;
  EXPECT_THAT(told, testing::IsSupersetOf({"record of 256", "record of 300", "Calc.exe"}));
  EXPECT_THAT(told, testing::Contains(testing::StartsWith("0000")));
  EXPECT_THAT(host.marks, testing::Contains("ListadoTrabajador ListadosNom"));
}

}  // namespace
}  // namespace zendara
