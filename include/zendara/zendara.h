/* The component in plain C: for hosts of another compiler or language. This is the binary contract of libzendara.so.1,
 * kept for as long as its major number.
 *
 * Texts are UTF-8 that ends in a zero byte; they come in as they are written and are checked: bad UTF-8 is
 * ZENDARA_INVALID. A text that goes out belongs to the caller, who frees it with zendara_free, but for those that a
 * function calls borrowed. Dates are days since 30/12/1899, the time of day as the fraction.
 *
 * Structures begin with `size`: whose structure it is sets it to sizeof of the one that he knows, also where the other
 * side fills it in, which writes no more than that. What lies behind it counts as zero. A size that is smaller than the
 * first version of a structure is ZENDARA_INVALID. A null function in a table is one that its owner does not serve.
 *
 * Results are 0 or more when it was done, negative when not; then zendara_last_error says why. No C++ exception and no
 * signal crosses this interface, in either direction; a function of the host's must not leave by longjmp.
 *
 * Objects are counted: who gets one releases it once, with zendara_release. Each begins with a pointer to its table and
 * answers to ZENDARA_IID_UNKNOWN and, but for class factories, ZENDARA_IID_DISPATCH. A handle of another class than the
 * one that is asked for is ZENDARA_INVALID.
 *
 * Threads: all calls come in the thread that called zendara_install; in another one they are ZENDARA_WRONG_THREAD. Any
 * thread may make those of the entry, of errors, texts and variants, QueryInterface, AddRef and Release; before
 * zendara_install and after zendara_install(NULL) it may make all, one thread at a time. An object whose last count
 * another thread releases goes with the next call in the right one. */
#ifndef ZENDARA_ZENDARA_H
#define ZENDARA_ZENDARA_H

#include <stddef.h>
#include <stdint.h>

#include "zendara/export.h"
#include "zendara/version.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Results ------------------------------------------------------------------------------------------------------ */

typedef int32_t zendara_result;

#define ZENDARA_OK ((zendara_result)0)
#define ZENDARA_FALSE ((zendara_result)1)                        /* done, and the answer is no */
#define ZENDARA_NO_INTERFACE ((zendara_result)0x80004002)        /* the object has no interface of that identifier */
#define ZENDARA_NULL_POINTER ((zendara_result)0x80004003)        /* an argument that may not be null */
#define ZENDARA_FAILED ((zendara_result)0x80004005)              /* a run-time error: its number in zendara_last_error */
#define ZENDARA_WRONG_THREAD ((zendara_result)0x8001010E)
#define ZENDARA_NO_MEMBER ((zendara_result)0x80020003)           /* no member of that number, or not of that use */
#define ZENDARA_WRONG_TYPE ((zendara_result)0x80020005)          /* an argument that cannot be converted */
#define ZENDARA_NO_NAME ((zendara_result)0x80020006)             /* no member of that name */
#define ZENDARA_EXCEPTION ((zendara_result)0x80020009)           /* a called member failed: as ZENDARA_FAILED */
#define ZENDARA_WRONG_COUNT ((zendara_result)0x8002000E)         /* too many or too few arguments */
#define ZENDARA_NO_AGGREGATION ((zendara_result)0x80040110)
#define ZENDARA_NO_CLASS ((zendara_result)0x80040111)            /* the library has no class of that identifier */
#define ZENDARA_NOT_REGISTERED ((zendara_result)0x80040154)      /* no class of that name */
#define ZENDARA_NOT_WRITTEN ((zendara_result)0x80040201)         /* the class files could not be written or removed */
#define ZENDARA_BUSY ((zendara_result)0x80040202)                /* a screen is being shown */
#define ZENDARA_NOT_INSTALLED ((zendara_result)0x80040203)       /* the platform lacks what screens need */
#define ZENDARA_NO_SCREEN ((zendara_result)0x80040204)           /* no screen of that name */
#define ZENDARA_WRONG_VERSION ((zendara_result)0x80040205)       /* of another major number */
#define ZENDARA_NOT_LOADED ((zendara_result)0x80040206)          /* the library of a class is not there, or is no such */
#define ZENDARA_BAD_CLASS_FILE ((zendara_result)0x80040207)
#define ZENDARA_OUT_OF_MEMORY ((zendara_result)0x8007000E)
#define ZENDARA_INVALID ((zendara_result)0x80070057)             /* a wrong size, bad UTF-8, a value out of its range */

typedef struct {
  uint32_t size;
  int32_t number;     /* of the run-time library or the record engine, see zendara/runtime_error.hpp; a call that is
                         refused has the one that says the same, as 5 for ZENDARA_INVALID; 0: there is none */
  const char *text;   /* for the user, in Spanish; may be empty */
  const char *detail; /* for a log, in English; may be empty */
} zendara_error;

/* The last failure in this thread, of whatever call; number 0 and empty texts before the first. The texts are borrowed
 * until the next call in this thread that fails. */
ZENDARA_EXPORT zendara_result zendara_last_error(zendara_error *error);
/* For a function of the host's that is about to give a negative result: the error that the component then raises in its
 * place, 51 without it. The detail, which may be null, goes to the log and to zendara_last_error. */
ZENDARA_EXPORT void zendara_set_error(int32_t number, const char *detail);

/* "1.0.0": of the library that is loaded. Borrowed, always valid. */
ZENDARA_EXPORT const char *zendara_version(void);

/* ---- Values ------------------------------------------------------------------------------------------------------- */

typedef struct {
  uint32_t a;
  uint16_t b, c;
  uint8_t d[8];
} zendara_guid;

typedef struct zendara_unknown zendara_unknown;
typedef struct zendara_variant zendara_variant;

enum {
  ZENDARA_EMPTY = 0, /* a variant whose bytes are all zero */
  ZENDARA_NULL = 1,
  ZENDARA_I2 = 2,
  ZENDARA_I4 = 3,
  ZENDARA_R8 = 5,
  ZENDARA_DATE = 7,
  ZENDARA_TEXT = 8,
  ZENDARA_OBJECT = 9,
  ZENDARA_BOOL = 11,     /* 0 or -1 */
  ZENDARA_ARRAY = 0x2000, /* of variants, one-dimensional */
  ZENDARA_BY_REF = 0x4000 /* alone, in arguments: `by_ref` points to the variant that is meant, which is no other one */
};

typedef struct {
  int32_t lower_bound;
  uint32_t count;
  zendara_variant *items; /* of zendara_alloc */
} zendara_array;

struct zendara_variant {
  uint16_t type;
  uint16_t reserved[3]; /* 0 */
  union {
    int16_t i2;
    int32_t i4;
    double r8;
    double date;
    int16_t boolean;
    char *text;              /* of zendara_text; null is the empty text */
    zendara_unknown *object; /* counted once for this variant; may be null */
    zendara_array *array;    /* of zendara_alloc */
    zendara_variant *by_ref; /* borrowed */
  } value;
};

/* Memory that may change hands across this interface, and back: null when there is none left. zendara_free of null does
 * nothing. */
ZENDARA_EXPORT void *zendara_alloc(size_t bytes);
ZENDARA_EXPORT void zendara_free(void *memory);
/* A copy of a text. Null for null, or when there is no memory left. */
ZENDARA_EXPORT char *zendara_text(const char *utf8);
/* Frees what it owns and makes it ZENDARA_EMPTY. */
ZENDARA_EXPORT void zendara_variant_clear(zendara_variant *value);
/* Each clears the variant first. What is refused leaves it empty: bad UTF-8, a date outside of 01/01/100 to
 * 31/12/9999. */
ZENDARA_EXPORT zendara_result zendara_variant_set_text(zendara_variant *value, const char *utf8);
ZENDARA_EXPORT zendara_result zendara_variant_set_i2(zendara_variant *value, int16_t number);
ZENDARA_EXPORT zendara_result zendara_variant_set_date(zendara_variant *value, double serial);
ZENDARA_EXPORT zendara_result zendara_variant_set_object(zendara_variant *value, void *object); /* counts it once more */

/* ---- Objects ------------------------------------------------------------------------------------------------------ */

#define ZENDARA_UNKNOWN_MEMBERS                                                                       \
  /* The object under another of its interfaces, counted once more; null and ZENDARA_NO_INTERFACE. */ \
  zendara_result (*QueryInterface)(void *self, const zendara_guid *iid, void **object);               \
  /* Both give the new count. */                                                                      \
  uint32_t (*AddRef)(void *self);                                                                     \
  uint32_t (*Release)(void *self)

typedef struct {
  ZENDARA_UNKNOWN_MEMBERS;
} zendara_unknown_table;

struct zendara_unknown {
  const zendara_unknown_table *table;
};

/* What a member is used for. A call may name several, as languages do that cannot tell a method from a getter. */
enum { ZENDARA_METHOD = 1, ZENDARA_GET = 2, ZENDARA_PUT = 4 };

/* Calls by name. */
typedef struct {
  ZENDARA_UNKNOWN_MEMBERS;
  /* Numbers of members by their names, without regard to case. ZENDARA_NO_NAME when one is not there; its number is
   * then -1. */
  zendara_result (*GetIDsOfNames)(void *self, const char *const *names, uint32_t count, int32_t *ids);
  /* Arguments in their order, the value of a put last; they stay the caller's. `result` is null or a variant, which is
   * cleared first and then the caller's. Texts, numbers and dates are converted to what the member takes.
   * ZENDARA_NO_MEMBER, ZENDARA_WRONG_COUNT, ZENDARA_WRONG_TYPE, ZENDARA_INVALID before anything was done,
   * ZENDARA_EXCEPTION for a run-time error. */
  zendara_result (*Invoke)(void *self, int32_t id, uint32_t use, zendara_variant *arguments, uint32_t count,
                           zendara_variant *result);
} zendara_dispatch_table;

typedef struct {
  const zendara_dispatch_table *table;
} zendara_dispatch;

/* `object` is any of this interface, or null. */
ZENDARA_EXPORT void zendara_release(void *object);
/* GetIDsOfNames and Invoke in one, of any object that answers to calls by name. */
ZENDARA_EXPORT zendara_result zendara_call(void *object, const char *member, uint32_t use, zendara_variant *arguments,
                                           uint32_t count, zendara_variant *result);

/* By name. What stands in brackets are arguments, "=" marks what can be put, "()" a method.
 *
 *   Engine      OpenDatabase(path), OpenCompany(folder, code, year): objects
 *   Database    OpenRecordset(source, type), which is ZENDARA_QUERY if it is left out; Name; Close()
 *   Recordset   Index =; Seek(keys...); NoMatch; MoveFirst(), MoveLast(), MoveNext(), MovePrevious(); Bof; Eof;
 *               RecordCount; Fields[column], by name or by number from 0; Close()
 *   Company     Company, General: databases; Slots: an array of recordsets, empty where a slot is
 *   Screens     Automation(user), Windows(look): screens; Install(engine, folder), with the default engine for an empty
 *               one; Uninstall(). An object of the class Zendara.Screens makes others and shows nothing itself.
 *
 * So a language that can do nothing but call by name does all of a session: "Zendara.Engine" opens the company,
 * "Zendara.Screens" makes screens, those install themselves, "Zendara.ClsZendara" shows one. Its own object is the user
 * of an automation, with those of these methods that it needs:
 *
 *   OnScreen(screen)                                    what the user does; the screen closes afterwards
 *   OnBox(text, buttons, icon, default_button, title)   a ZENDARA_ANSWER_...; empty: the default button
 *   OnList(list)                                        the row that is taken, from 0; empty or negative: none
 *   OnListing(title, file, table, form)
 *
 *   the screen  Shown; Name; Title; Subject; Status; Unsaved; Focused; Controls: an array of texts; Caption[control];
 *               Usable[control]; Read(control); Focus(control); Type(text); Press(code, shift, text), of which the last
 *               two may be left out; Paste(text); Click(control); Choose(list, text or number of the item);
 *               Point(grid, row, column); Turn(tabs, page); Close()
 *   the list    Title; Columns; Count; Heading[column]; Cell[row, column]
 *
 * Both are error 3420 once the call that got them has returned. */
typedef struct zendara_engine zendara_engine;
typedef struct zendara_database zendara_database;
typedef struct zendara_recordset zendara_recordset;
typedef struct zendara_company zendara_company;
typedef struct zendara_screens zendara_screens; /* a front end */

/* ---- The session of the host -------------------------------------------------------------------------------------- */

/* The eleven operations of the session object, in their order. A getter puts a value into the variant, which is empty
 * when it comes and freed by the component; what it may hold is as zendara/morlane.hpp says. A negative result, which
 * goes to the log, and a null function leave the value of the call before. */
typedef struct {
  uint32_t size;
  void *self; /* handed to each */
  zendara_result (*CodigoEmpresa)(void *self, zendara_variant *value);
  zendara_result (*NombreEmpresa)(void *self, zendara_variant *value);
  zendara_result (*Retorno)(void *self, zendara_variant *value);
  zendara_result (*Ejercicio)(void *self, zendara_variant *value);
  zendara_result (*PonRetorno)(void *self, const char *text); /* borrowed for the call */
  zendara_result (*Valor8)(void *self, zendara_variant *value);
  zendara_result (*Valor1)(void *self, zendara_variant *value);
  zendara_result (*Cambio)(void *self, zendara_variant *value);
  zendara_result (*ValorEntero)(void *self, zendara_variant *value);
  zendara_result (*FechaTrabajo)(void *self, zendara_variant *value);
  zendara_result (*Programa)(void *self, zendara_variant *value);
} zendara_session;

/* ---- The class ---------------------------------------------------------------------------------------------------- */

/* The host's open recordsets by slot: the item of index i stands at i - lower_bound; null is an empty slot. Borrowed
 * for the call, which counts what it keeps. */
typedef struct {
  uint32_t size;
  int32_t lower_bound;
  uint32_t count;
  zendara_recordset *const *items;
} zendara_slots;

/* An instance of ClsZendara under ZENDARA_IID_CLASS. By name (ZENDARA_IID_DISPATCH): 1 Carga_Formulario, a method of
 * five arguments by reference or not: text, database or empty, database or empty, array of recordsets with its lower
 * bound, an object that answers to the eleven names of the session (Retorno also by put); 2 NumBas, put; 3 fich2, get;
 * 4 Fch, get. By name Carga_Formulario fails for its arguments and for what the user of an automation fails with, and
 * otherwise tells by its value how it came out: one of the results below. */
typedef struct {
  ZENDARA_UNKNOWN_MEMBERS;
  /* Shows the screen of that name and returns when the user has closed it: see ClsZendara in zendara/zendara.hpp.
   * `company` and `second` may be null, session and slots not. ZENDARA_OK, ZENDARA_NO_SCREEN, ZENDARA_BUSY,
   * ZENDARA_NOT_INSTALLED, ZENDARA_FAILED. */
  zendara_result (*Carga_Formulario)(void *self, const char *screen, zendara_database *company,
                                     zendara_database *second, const zendara_slots *slots,
                                     const zendara_session *session);
  zendara_result (*NumBas)(void *self, int16_t value);
  zendara_result (*fich2)(void *self, int16_t *value);
  zendara_result (*Fch)(void *self, char **text);
} zendara_class_table;

typedef struct {
  const zendara_class_table *table;
} zendara_class;

/* What DllGetClassObject gives. */
typedef struct {
  ZENDARA_UNKNOWN_MEMBERS;
  /* A new instance, counted once. `outer` must be null (ZENDARA_NO_AGGREGATION). */
  zendara_result (*CreateInstance)(void *self, void *outer, const zendara_guid *iid, void **object);
  /* Keeps the library in memory while locked more often than unlocked. Unlocking what is not locked is ZENDARA_FALSE and
   * changes nothing. */
  zendara_result (*LockServer)(void *self, int32_t lock);
} zendara_class_factory_table;

typedef struct {
  const zendara_class_factory_table *table;
} zendara_class_factory;

/* {00000000-0000-0000-C000-000000000046} and {00000001-0000-0000-C000-000000000046} */
#define ZENDARA_IID_UNKNOWN {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}
#define ZENDARA_IID_CLASS_FACTORY {0x00000001, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}}
/* {6C1B83D4-52E7-4F0A-9B3D-27E45A90C8xx}: 11 the class ClsZendara with D4, and the interfaces below */
#define ZENDARA_CLSID_ZENDARA {0x6C1B83D4, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}}
#define ZENDARA_CLSID_ENGINE {0x6C1B83D4, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x12}}
#define ZENDARA_CLSID_SCREENS {0x6C1B83D4, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x13}}
#define ZENDARA_IID_CLASS {0x6C1B83D6, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}}
#define ZENDARA_IID_DISPATCH {0x6C1B83D7, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}}
#define ZENDARA_IID_BANNER {0x6C1B83D8, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}}
#define ZENDARA_IID_PICK_LIST {0x6C1B83D9, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}}
#define ZENDARA_IID_LISTING_VIEWER {0x6C1B83DA, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}}

/* ---- The entry: for loaders, from any thread ---------------------------------------------------------------------- */

/* Not declared for C++, where zendara/zendara.hpp has them with its own types. */
#ifndef __cplusplus
/* The factory of a class of the library, as ZENDARA_IID_CLASS_FACTORY or ZENDARA_IID_UNKNOWN. ZENDARA_NO_CLASS for one
 * that it does not have. The instances of ClsZendara give out ZENDARA_IID_CLASS, and all ZENDARA_IID_DISPATCH. */
ZENDARA_EXPORT zendara_result DllGetClassObject(const zendara_guid *clsid, const zendara_guid *iid, void **object);
/* ZENDARA_OK when no object lives, nothing is locked, zendara_install has nothing installed and no screen is shown,
 * otherwise ZENDARA_FALSE. Only after ZENDARA_OK does unloading the library take it out of memory; a host that unloads
 * it earlier leaves it there, and whatever is in use goes on. Who has unloaded it asks this no more. */
ZENDARA_EXPORT zendara_result DllCanUnloadNow(void);
/* Writes the class files of this library, all or none, as zendara/loader.h describes them: into the first folder of
 * ZENDARA_CLASS_PATH if that is set, otherwise into the system's for root, and into the user's for everybody else.
 * Removes those that name this library from there, and nobody else's. ZENDARA_NOT_WRITTEN says why by
 * zendara_last_error. */
ZENDARA_EXPORT zendara_result DllRegisterServer(void);
ZENDARA_EXPORT zendara_result DllUnregisterServer(void);
#endif

/* Identifier of a class of this library, by name without regard to case: "Zendara.ClsZendara", "Zendara.Engine",
 * "Zendara.Screens". */
ZENDARA_EXPORT zendara_result zendara_class_id(const char *name, zendara_guid *clsid);
/* An object of a class of this library. */
ZENDARA_EXPORT zendara_result zendara_create(const char *name, const zendara_guid *iid, void **object);

/* ---- Files and companies ------------------------------------------------------------------------------------------ */

enum { ZENDARA_WRITE = 0, ZENDARA_READ = 1 };
enum { ZENDARA_TABLE = 1, ZENDARA_QUERY = 2, ZENDARA_FORWARD = 8 };

/* As MakeEngine of zendara/engines.hpp: `place` null or empty is the default engine, "postgresql://..." a server, which
 * also has the files beside the databases and stands for the folder. Error 3170 for another kind. */
ZENDARA_EXPORT zendara_result zendara_engine_open(const char *place, uint32_t access, zendara_engine **engine);
/* The operations of the same names in zendara/record_engine.hpp. */
ZENDARA_EXPORT zendara_result zendara_database_open(zendara_engine *engine, const char *path,
                                                    zendara_database **database);
ZENDARA_EXPORT zendara_result zendara_recordset_open(zendara_database *database, const char *source, uint32_t type,
                                                     zendara_recordset **recordset);
ZENDARA_EXPORT zendara_result zendara_recordset_set_index(zendara_recordset *recordset, const char *index);

/* A company's files and every slot of the catalogue: OpenCompany of zendara/company.hpp. `folder` may be null with an
 * engine on a server. */
ZENDARA_EXPORT zendara_result zendara_company_open(zendara_engine *engine, const char *folder, const char *code,
                                                   const char *year, zendara_company **company);
/* Borrowed from the company, which keeps them open for as long as it lives. Each may be null, who does not want it. */
ZENDARA_EXPORT zendara_result zendara_company_parts(zendara_company *company, zendara_database **database,
                                                    zendara_database **general, zendara_slots *slots);
/* Carga_Formulario of a new instance on the company's parts. */
ZENDARA_EXPORT zendara_result zendara_show(zendara_company *company, const char *screen,
                                           const zendara_session *session);

/* ---- The surroundings --------------------------------------------------------------------------------------------- */

enum { ZENDARA_BUTTONS_OK = 0, ZENDARA_BUTTONS_YES_NO = 1 };
enum { ZENDARA_ICON_NONE = 0, ZENDARA_ICON_CRITICAL, ZENDARA_ICON_QUESTION, ZENDARA_ICON_EXCLAMATION,
       ZENDARA_ICON_INFORMATION };
enum { ZENDARA_ANSWER_OK = 0, ZENDARA_ANSWER_YES = 1, ZENDARA_ANSWER_NO = 2 };

/* Everything that a function of the host's gets is borrowed for the call. */

typedef struct {
  const char *label, *figure, *source;
} zendara_box_detail;

typedef struct {
  uint32_t size;
  uint32_t buttons;
  uint32_t icon;
  uint32_t default_button; /* from 1 */
  const char *text;        /* lines are separated by "\n" */
  const char *title;       /* empty: the application's */
  const zendara_box_detail *detail;
  uint32_t detail_count;
} zendara_box;

typedef struct {
  uint32_t size;
  void *self;
  /* Modal. `answer` comes with that of the default button; one that the box does not offer is error 5. Null: the front
   * end's boxes. */
  zendara_result (*Show)(void *self, const zendara_box *box, uint32_t *answer);
  zendara_result (*Beep)(void *self); /* null: silence */
} zendara_dialogs;

/* The rows of a list to pick from, for the length of the call that got them: rows and columns from 0, the columns in
 * the order in which people read them. Texts are borrowed until the next call on the same list. Error 9 for a column
 * that is not there. */
typedef struct zendara_list zendara_list;
ZENDARA_EXPORT zendara_result zendara_list_title(zendara_list *list, const char **title);
ZENDARA_EXPORT zendara_result zendara_list_columns(zendara_list *list, uint32_t *count);
ZENDARA_EXPORT zendara_result zendara_list_heading(zendara_list *list, uint32_t column, const char **text);
ZENDARA_EXPORT zendara_result zendara_list_count(zendara_list *list, uint64_t *rows); /* reads them all */
/* ZENDARA_FALSE behind the last row. */
ZENDARA_EXPORT zendara_result zendara_list_cell(zendara_list *list, uint64_t row, uint32_t column, const char **text);

typedef struct {
  uint32_t size;
  void *self;
  /* Modal. The row that was taken, from 0; ZENDARA_FALSE for none. Error 380 for one that is not there. */
  zendara_result (*Choose)(void *self, zendara_list *list, uint64_t *row);
} zendara_pick_list;

/* In twips, 15 to the pixel of the machine, in the window of a form: see BannerPlace in zendara/neighbours.hpp. */
typedef struct {
  uint32_t size;
  int32_t left, top, width, height;
} zendara_banner_place;

/* Null functions: it has nothing to show, and is told nothing. */
typedef struct {
  uint32_t size;
  void *self;
  zendara_result (*PosicionBanner)(void *self, int32_t window, zendara_banner_place *place);
  zendara_result (*AvisoCierre)(void *self, int32_t window);
} zendara_banner;

typedef struct {
  const char *title;
  int32_t width;  /* twips */
  int32_t number; /* 1: a column of numbers, 0: of texts */
} zendara_listing_column;

typedef struct {
  uint32_t size;
  const char *title;
  const zendara_listing_column *columns;
  uint32_t column_count;
  int32_t pending;   /* 1: of pending incidents */
  const char *file;  /* database that holds the rows */
  const char *table; /* its table; rows in the order in which they were written, columns Campo0, Campo1, ... */
  const char *form;  /* name of the screen on whose behalf it runs */
} zendara_listing;

typedef struct {
  uint32_t size;
  void *self;
  zendara_result (*Visualiza)(void *self, const zendara_listing *listing);
} zendara_listing_viewer;

/* Files beside the databases; null functions: the machine's, of a server the server's. */
typedef struct {
  uint32_t size;
  void *self;
  zendara_result (*Exists)(void *self, const char *path); /* ZENDARA_FALSE when it is not there */
  /* The first record: exactly `length` bytes, zeros past the end. Errors 53, 70, 75, 76 by zendara_set_error. */
  zendara_result (*ReadRecord)(void *self, const char *path, uint8_t *bytes, size_t length);
} zendara_files;

/* Programs beside: Shell of zendara/ports.hpp. Null functions: the front end's. */
typedef struct {
  uint32_t size;
  void *self;
  zendara_result (*FindWindow)(void *self, const char *class_name, const char *title, int32_t *window);
  zendara_result (*Start)(void *self, const char *program, int32_t *task);
  zendara_result (*ActivateTask)(void *self, int32_t task);
  zendara_result (*ActivateTitle)(void *self, const char *title);
} zendara_shell;

typedef struct {
  uint32_t size;
  void *self;
  zendara_result (*Now)(void *self, double *serial);
} zendara_clock;

typedef struct {
  uint32_t size;
  void *self;
  zendara_result (*Line)(void *self, const char *line);
} zendara_log;

/* What is null is the front end's, a class file's, or the machine's, see zendara/platform.hpp; the folder is needed, but for an engine on a
 * server. The tables are copied; what their `self` points to outlives the platform. The engine and the screens are
 * counted. */
typedef struct {
  uint32_t size;
  zendara_engine *engine;
  const char *application_folder; /* holds DATOS */
  zendara_screens *screens;
  const zendara_dialogs *dialogs;
  const zendara_pick_list *pick_list;
  const zendara_banner *banner;
  const zendara_listing_viewer *listing_viewer;
  const zendara_files *files;
  const zendara_shell *shell;
  const zendara_clock *clock;
  const zendara_log *log;
} zendara_platform;

/* InstallPlatform of zendara/zendara.hpp: what was installed before is replaced, and the component belongs to this
 * thread; null takes it away, and it belongs to none. What is refused leaves what was installed. ZENDARA_BUSY while a
 * screen is shown. */
ZENDARA_EXPORT zendara_result zendara_install(const zendara_platform *platform);

/* The tables of classes that other libraries bring, as their instances give them out: ZENDARA_IID_BANNER,
 * ZENDARA_IID_PICK_LIST, ZENDARA_IID_LISTING_VIEWER. `self` is the object. */
typedef struct {
  ZENDARA_UNKNOWN_MEMBERS;
  zendara_result (*PosicionBanner)(void *self, int32_t window, zendara_banner_place *place);
  zendara_result (*AvisoCierre)(void *self, int32_t window);
} zendara_banner_table;

typedef struct {
  ZENDARA_UNKNOWN_MEMBERS;
  zendara_result (*Choose)(void *self, zendara_list *list, uint64_t *row);
} zendara_pick_list_table;

typedef struct {
  ZENDARA_UNKNOWN_MEMBERS;
  zendara_result (*Visualiza)(void *self, const zendara_listing *listing);
} zendara_listing_viewer_table;

/* ---- Screens without windows -------------------------------------------------------------------------------------- */

/* A screen that is being shown, for the length of the call that got it: ShownScreen in zendara/automation.hpp, with its
 * errors. Controls go by their names: "Text1(7)", "Grabar", "Grid1(0)[1,2]". */
typedef struct zendara_screen zendara_screen;

/* ZENDARA_FALSE once it is closed. */
ZENDARA_EXPORT zendara_result zendara_screen_shown(zendara_screen *screen);
/* Texts that the caller frees. */
ZENDARA_EXPORT zendara_result zendara_screen_name(zendara_screen *screen, char **text);
ZENDARA_EXPORT zendara_result zendara_screen_title(zendara_screen *screen, char **text);
ZENDARA_EXPORT zendara_result zendara_screen_subject(zendara_screen *screen, char **text);
ZENDARA_EXPORT zendara_result zendara_screen_status(zendara_screen *screen, char **text);
ZENDARA_EXPORT zendara_result zendara_screen_focused(zendara_screen *screen, char **control);
/* The words beside a control or on it. */
ZENDARA_EXPORT zendara_result zendara_screen_caption(zendara_screen *screen, const char *control, char **text);
ZENDARA_EXPORT zendara_result zendara_screen_read(zendara_screen *screen, const char *control, char **text);
/* The name of the control of that number, from 0; ZENDARA_FALSE behind the last one. */
ZENDARA_EXPORT zendara_result zendara_screen_control(zendara_screen *screen, uint32_t number, char **control);
/* ZENDARA_FALSE when it is hidden, or disabled. */
ZENDARA_EXPORT zendara_result zendara_screen_usable(zendara_screen *screen, const char *control);
/* ZENDARA_FALSE when all that was typed is saved. */
ZENDARA_EXPORT zendara_result zendara_screen_unsaved(zendara_screen *screen);

ZENDARA_EXPORT zendara_result zendara_screen_focus(zendara_screen *screen, const char *control);
ZENDARA_EXPORT zendara_result zendara_screen_type(zendara_screen *screen, const char *text);
ZENDARA_EXPORT zendara_result zendara_screen_press(zendara_screen *screen, int32_t code, int32_t shift,
                                                   const char *text); /* text: what the key types, may be null */
ZENDARA_EXPORT zendara_result zendara_screen_paste(zendara_screen *screen, const char *text);
ZENDARA_EXPORT zendara_result zendara_screen_click(zendara_screen *screen, const char *control);
ZENDARA_EXPORT zendara_result zendara_screen_choose(zendara_screen *screen, const char *list, const char *text);
ZENDARA_EXPORT zendara_result zendara_screen_choose_item(zendara_screen *screen, const char *list, uint32_t item);
ZENDARA_EXPORT zendara_result zendara_screen_point(zendara_screen *screen, const char *grid, int32_t row,
                                                   int32_t column);
ZENDARA_EXPORT zendara_result zendara_screen_turn(zendara_screen *screen, const char *tabs, int32_t page);
ZENDARA_EXPORT zendara_result zendara_screen_close(zendara_screen *screen);

/* In the user's place: ScreenUser in zendara/automation.hpp. A negative result ends what was asked: a screen closes, a
 * box has its default answer, nothing is taken. The first of them makes the zendara_show around it ZENDARA_FAILED, with
 * the error of zendara_set_error. */
typedef struct {
  uint32_t size;
  void *self;
  /* A screen is shown; when this returns it is closed, if it is still there. */
  zendara_result (*Screen)(void *self, zendara_screen *screen);
  /* As Show of zendara_dialogs; null: the default button. */
  zendara_result (*Box)(void *self, const zendara_box *box, uint32_t *answer);
  /* As Choose of zendara_pick_list; null: none is taken. */
  zendara_result (*List)(void *self, zendara_list *list, uint64_t *row);
  /* A listing is ready; null: nothing is done. */
  zendara_result (*Listing)(void *self, const zendara_listing *listing);
} zendara_user;

ZENDARA_EXPORT zendara_result zendara_automation(const zendara_user *user, zendara_screens **screens);

#ifdef __cplusplus
}
#endif

#endif
