/* A host that loads the component by its path and unloads it again: when nothing is in use it leaves memory, and when a
 * screen is shown it stays. The arguments are the library and the application's folder, which holds DATOS. */
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zendara/zendara.h"

static void Expect(int holds, const char *what) {
  if (holds) return;
  fprintf(stderr, "unload_host: %s\n", what);
  exit(1);
}

static void *library;
static const char *path;

static void *Symbol(const char *name) {
  void *symbol = dlsym(library, name);
  Expect(symbol != NULL, name);
  return symbol;
}

static int InMemory(void) {
  void *again = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
  if (again) dlclose(again);
  return again != NULL;
}

static zendara_result Company(void *self, zendara_variant *value) {
  zendara_result (*set_text)(zendara_variant *, const char *);
  *(void **)&set_text = Symbol("zendara_variant_set_text");
  (void)self;
  return set_text(value, "00001");
}

/* The screen is there, and the host lets go of the library. */
static zendara_result LetGo(void *self, zendara_screen *screen) {
  zendara_result (*type)(zendara_screen *, const char *);
  *(void **)&type = Symbol("zendara_screen_type");
  if (*(int *)self) dlclose(library);
  Expect(InMemory(), "it has gone while its screen is shown");
  Expect(type(screen, "1\n") == ZENDARA_OK, "the screen does not answer");
  return ZENDARA_OK;
}

/* All of a session; `let_go`: the host unloads the library while its screen is shown. */
static void Session(const char *folder, int let_go) {
  zendara_result (*engine_open)(const char *, uint32_t, zendara_engine **);
  zendara_result (*automation)(const zendara_user *, zendara_screens **);
  zendara_result (*install)(const zendara_platform *);
  zendara_result (*company_open)(zendara_engine *, const char *, const char *, const char *, zendara_company **);
  zendara_result (*show)(zendara_company *, const char *, const zendara_session *);
  zendara_result (*can_unload)(void);
  void (*release)(void *);
  zendara_engine *engine;
  zendara_screens *screens;
  zendara_company *company;
  zendara_user user = {sizeof user, NULL, LetGo, NULL, NULL, NULL};
  zendara_session session;
  zendara_platform platform;
  memset(&session, 0, sizeof session);
  memset(&platform, 0, sizeof platform);

  library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  Expect(library != NULL, "it cannot be loaded");
  *(void **)&engine_open = Symbol("zendara_engine_open");
  *(void **)&automation = Symbol("zendara_automation");
  *(void **)&install = Symbol("zendara_install");
  *(void **)&company_open = Symbol("zendara_company_open");
  *(void **)&show = Symbol("zendara_show");
  *(void **)&can_unload = Symbol("DllCanUnloadNow");
  *(void **)&release = Symbol("zendara_release");
  Expect(can_unload() == ZENDARA_OK, "it is in use from the start");

  user.self = &let_go;
  platform.size = sizeof platform;
  platform.application_folder = folder;
  session.size = sizeof session;
  session.CodigoEmpresa = Company;
  Expect(engine_open(NULL, ZENDARA_WRITE, &engine) == ZENDARA_OK, "no engine");
  Expect(automation(&user, &screens) == ZENDARA_OK, "no automation");
  platform.engine = engine;
  platform.screens = screens;
  Expect(install(&platform) == ZENDARA_OK, "no platform");
  Expect(company_open(engine, folder, "00001", "01", &company) == ZENDARA_OK, "no company");
  Expect(show(company, "Trabajadores", &session) == ZENDARA_OK, "no screen");
  release(company);
  release(screens);
  release(engine);
  Expect(can_unload() == ZENDARA_FALSE, "a platform is installed");
  Expect(install(NULL) == ZENDARA_OK, "the platform stays");
  if (let_go) return; /* it stays for good */
  Expect(can_unload() == ZENDARA_OK, "something is still in use");
  dlclose(library);
  Expect(!InMemory(), "it does not leave memory");
}

int main(int argc, char **argv) {
  int round;
  if (argc != 3) return 2;
  path = argv[1];
  for (round = 0; round < 3; ++round) Session(argv[2], 0);
  Session(argv[2], 1);
  Expect(InMemory(), "it has gone without being asked");
  return 0;
}
