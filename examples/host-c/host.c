/* A host in plain C: it opens a company, shows the screen "Trabajadores" to a user made of functions, changes a worker's
 * street and sees that it was saved.
 *
 *   cc -std=c99 -o host host.c $(pkg-config --cflags --libs zendara)
 *   host FOLDER            FOLDER holds DATOS; `zendara demo FOLDER` makes one to try
 *
 * Built with -DWITH_WINDOWS and zendara-windows in place of zendara, it shows the screen to whoever sits there:
 *
 *   host --windows FOLDER */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zendara/zendara.h"
#ifdef WITH_WINDOWS
#include "zendara/windows.h"
#endif

/* Of zendara/keys.hpp. */
enum { kEnd = 35, kHome = 36, kShift = 1 };
static const char *const kStreetField = "Text1(11)";
static const char *const kStreet = "Calle del Puerto";

/* ---- What goes wrong ---- */

static void Fail(const char *what) {
  zendara_error error = {sizeof error, 0, NULL, NULL};
  zendara_last_error(&error);
  fprintf(stderr, "host: %s: %d %s (%s)\n", what, (int)error.number, error.text, error.detail);
  exit(1);
}

static void Check(zendara_result result, const char *what) {
  if (result < 0) Fail(what);
}

static void Expect(int holds, const char *what) {
  if (holds) return;
  fprintf(stderr, "host: not as expected: %s\n", what);
  exit(1);
}

/* ---- The session: what the component asks about company, year and currency ---- */

struct session {
  const char *company, *year;
  char currency[2];
};

static zendara_result Company(void *self, zendara_variant *value) {
  return zendara_variant_set_text(value, ((struct session *)self)->company);
}
static zendara_result Year(void *self, zendara_variant *value) {
  return zendara_variant_set_text(value, ((struct session *)self)->year);
}
static zendara_result Currency(void *self, zendara_variant *value) {
  return zendara_variant_set_text(value, ((struct session *)self)->currency);
}
/* The component hands the currency back at the end. */
static zendara_result TakeCurrency(void *self, const char *text) {
  strncpy(((struct session *)self)->currency, text, 1);
  return ZENDARA_OK;
}
static zendara_result Rate(void *self, zendara_variant *value) {
  (void)self;
  return zendara_variant_set_text(value, "166,386");
}
static zendara_result WorkingDate(void *self, zendara_variant *value) {
  (void)self;
  return zendara_variant_set_date(value, 36965); /* 15/03/2001 */
}
static zendara_result Program(void *self, zendara_variant *value) {
  (void)self;
  return zendara_variant_set_text(value, "01");
}

/* ---- The user: what a clerk would do. Every act returns when the screen has answered it. ---- */

struct clerk {
  int boxes;
  char saved[128]; /* the street as the screen shows it in the end */
};

static void Print(zendara_screen *screen, const char *label, const char *control) {
  char *text = NULL;
  Check(zendara_screen_read(screen, control, &text), control);
  printf("%s: %s\n", label, text);
  zendara_free(text);
}

static zendara_result OnScreen(void *self, zendara_screen *screen) {
  struct clerk *clerk = self;
  char *text = NULL;
  Check(zendara_screen_type(screen, "15\n"), "the number of the worker");
  Print(screen, "number", "Text1(1)");
  Print(screen, "name", "Text1(4)");
  Check(zendara_screen_click(screen, "CmdCalcular"), "the calculation of the rate"); /* asks in a box */
  Print(screen, "rate", "Text1(135)");
  Check(zendara_screen_focus(screen, kStreetField), "the street");
  Check(zendara_screen_press(screen, kEnd, 0, NULL), "the end of the street");
  Check(zendara_screen_press(screen, kHome, kShift, NULL), "all of the street"); /* is selected */
  Check(zendara_screen_paste(screen, kStreet), "another street");
  Expect(zendara_screen_unsaved(screen) == ZENDARA_OK, "there is something to save");
  Check(zendara_screen_click(screen, "Grabar"), "Grabar");
  Expect(zendara_screen_unsaved(screen) == ZENDARA_FALSE, "it is saved");
  Check(zendara_screen_status(screen, &text), "the status line");
  printf("%s\n", text);
  zendara_free(text);
  Check(zendara_screen_type(screen, "15\n"), "the same worker again");
  Check(zendara_screen_read(screen, kStreetField, &text), "the street");
  strncpy(clerk->saved, text, sizeof clerk->saved - 1);
  zendara_free(text);
  /* A control that is not there is an error that the host can read. */
  Expect(zendara_screen_click(screen, "Ninguno") == ZENDARA_FAILED, "no such control");
  return ZENDARA_OK; /* and the screen closes */
}

static zendara_result OnBox(void *self, const zendara_box *box, uint32_t *answer) {
  ++((struct clerk *)self)->boxes;
  printf("box: %s\n", box->text);
  /* `answer` comes with that of the default button. */
  if (box->buttons == ZENDARA_BUTTONS_YES_NO) *answer = ZENDARA_ANSWER_YES;
  return ZENDARA_OK;
}

int main(int argc, char **argv) {
  const int windows = argc == 3 && strcmp(argv[1], "--windows") == 0;
  const char *place = argv[argc - 1]; /* a folder of the machine, or "postgresql://host/database" */
  const int server = strstr(place, "://") != NULL;
  const char *folder = server ? NULL : place;
  zendara_engine *engine = NULL;
  zendara_screens *screens = NULL;
  zendara_company *company = NULL;
  struct clerk clerk = {0, ""};
  zendara_user user = {sizeof user, &clerk, OnScreen, OnBox, NULL, NULL};
  zendara_platform platform = {0};
  struct session own = {"00001", "2001", "P"};
  zendara_session session = {0}; /* what is null leaves the value of the call before */

  if (argc != 2 && !windows) {
    fprintf(stderr, "usage: host [--windows] PLACE\n");
    return 2;
  }
  printf("zendara %s\n", zendara_version());

  /* Once, at the start: what the component stands on. */
  Check(zendara_engine_open(server ? place : NULL, ZENDARA_WRITE, &engine), "the engine");
  if (windows) {
#ifdef WITH_WINDOWS
    Check(zendara_windows(ZENDARA_LOOK_ZENDARA, &screens), "the windows");
#else
    Expect(0, "built with -DWITH_WINDOWS");
#endif
  } else {
    Check(zendara_automation(&user, &screens), "the automation");
  }
  platform.size = sizeof platform;
  platform.engine = engine;
  platform.screens = screens;
  platform.application_folder = folder;
  Check(zendara_install(&platform), "the platform");

  /* Once a company and year: its files, and the recordsets that the screens work on. */
  Check(zendara_company_open(engine, folder, own.company, "01", &company), "the company");

  /* Once a screen. */
  session.size = sizeof session;
  session.self = &own;
  session.CodigoEmpresa = Company;
  session.Ejercicio = Year;
  session.Retorno = Currency;
  session.PonRetorno = TakeCurrency;
  session.Cambio = Rate;
  session.FechaTrabajo = WorkingDate;
  session.Programa = Program;
  Check(zendara_show(company, "Trabajadores", &session), "the screen");
  Expect(windows || strcmp(clerk.saved, kStreet) == 0, "the street is saved");
  Expect(windows || clerk.boxes == 1, "one box asked about the rate");
  Expect(strcmp(own.currency, "P") == 0, "the currency came back");

  /* What was got is released, what was installed is taken away. */
  zendara_release(company);
  zendara_release(screens);
  Check(zendara_install(NULL), "the end");
  zendara_release(engine);
  Expect(DllCanUnloadNow() == ZENDARA_OK, "nothing is in use");
  return 0;
}
