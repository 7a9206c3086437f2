/* libzendara-loader.so.1: objects by the name of their class, from libraries that class files name. Plain C, of nothing
 * but the system's own library.
 *
 * A class file is a text of UTF-8, NAME.class in a class folder, NAME that of the class in small letters:
 *
 *   [Class]
 *   Name=Zendara.ClsZendara
 *   Id={6C1B83D4-52E7-4F0A-9B3D-27E45A90C811}
 *   Library=/usr/lib/x86_64-linux-gnu/libzendara.so.1
 *   Version=1.0.0
 *
 * Name, Id and Library are required, the library with its whole path; other lines are passed over, those that begin
 * with "#" too. The class folders, the first that has the file wins: those of ZENDARA_CLASS_PATH, separated by ":";
 * zendara/classes in XDG_DATA_HOME, or in ~/.local/share; zendara/classes in each of XDG_DATA_DIRS, or in
 * /usr/local/share and /usr/share. Folders that are not whole paths are passed over.
 *
 * A library has DllGetClassObject and DllCanUnloadNow of zendara/zendara.h. One that has zendara_version must say the
 * major number of its class file. */
#ifndef ZENDARA_LOADER_H
#define ZENDARA_LOADER_H

#include "zendara/zendara.h"

#ifdef __cplusplus
extern "C" {
#endif

#define ZENDARA_PATH_LENGTH 4096

typedef struct {
  uint32_t size;
  char name[256];                     /* as the file has it */
  zendara_guid id;
  char library[ZENDARA_PATH_LENGTH];
  char version[32];                   /* empty: the file says none */
  char file[ZENDARA_PATH_LENGTH];     /* the class file itself */
} zendara_class_file;

/* The class of that name, without regard to case. ZENDARA_NOT_REGISTERED; ZENDARA_BAD_CLASS_FILE for one that is there
 * and cannot be read, which hides those of later folders. */
ZENDARA_EXPORT zendara_result zendara_loader_find(const char *name, zendara_class_file *found);

/* Calls `each` for every class file of the folders that is not hidden by an earlier one, also for those that cannot be
 * read, with the reason in `result` and the rest empty but for `file`; stops at a result of `each` that is not
 * ZENDARA_OK, and gives it. */
ZENDARA_EXPORT zendara_result zendara_loader_each(zendara_result (*each)(void *context, const zendara_class_file *file,
                                                                         zendara_result result),
                                                  void *context);

/* An object of that class, counted once. `version`: the major number that the caller was made for, 0 for any; another
 * one is ZENDARA_WRONG_VERSION. Otherwise as zendara_loader_find, ZENDARA_NOT_LOADED with the system's words, and
 * whatever the library answers. The library stays loaded until zendara_loader_unload. */
ZENDARA_EXPORT zendara_result zendara_loader_create(const char *name, uint32_t version, const zendara_guid *iid,
                                                    void **object);

/* Unloads the libraries that answer ZENDARA_OK to DllCanUnloadNow. ZENDARA_FALSE when some stay. Not while another thread
 * is releasing the last object of one. */
ZENDARA_EXPORT zendara_result zendara_loader_unload(void);

/* One line, in English, on the last failure in this thread; empty before the first. Borrowed until the next one. */
ZENDARA_EXPORT const char *zendara_loader_error(void);

#ifdef __cplusplus
}
#endif

#endif
