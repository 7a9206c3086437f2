/* The class of a name, and all classes. */
#define _GNU_SOURCE
#include <dirent.h>
#include <stdlib.h>
#include <string.h>

#include "loader/class_file.h"
#include "loader/class_folders.h"
#include "loader/class_name.h"
#include "loader/failure.h"

static const char no_memory[] = "there is not enough memory";

zendara_result zendara_loader_find(const char *name, zendara_class_file *found) {
  if (!name || !found) return LoaderFails(ZENDARA_NULL_POINTER, "the name or the place for what is found is missing");
  if (found->size < sizeof *found) return LoaderFails(ZENDARA_INVALID, "the size of zendara_class_file is not set");
  if (!IsUtf8(name, strlen(name))) return LoaderFails(ZENDARA_INVALID, "the name of the class is no text of UTF-8");
  if (!IsClassName(name)) return LoaderFails(ZENDARA_NOT_REGISTERED, "no class can be called %.*s", 200, name);
  char file_name[CLASS_NAME_MOST + sizeof CLASS_FILE_ENDING];
  ClassFileName(name, file_name);
  char *folders = ClassFolders();
  if (!folders) return LoaderFails(ZENDARA_OUT_OF_MEMORY, no_memory);
  const char *folder = folders;
  while (*folder && !HasClassFile(folder, file_name)) folder = NextFolder(folder);
  const zendara_result result =
      *folder ? ReadClassFile(folder, file_name, found)
              : LoaderFails(ZENDARA_NOT_REGISTERED, "%s: no class folder has a file %s", name, file_name);
  free(folders);
  return result;
}

static int IsClassFile(const struct dirent *entry) {
  const size_t length = strlen(entry->d_name), ending = sizeof CLASS_FILE_ENDING - 1;
  return length > ending && strcmp(entry->d_name + length - ending, CLASS_FILE_ENDING) == 0;
}

static int ByBytes(const struct dirent **one, const struct dirent **other) {
  return strcmp((*one)->d_name, (*other)->d_name);
}

/* Whether a folder before this one has a file of that name. */
static int IsHidden(const char *folders, const char *folder, const char *file_name) {
  while (folders != folder && !HasClassFile(folders, file_name)) folders = NextFolder(folders);
  return folders != folder;
}

zendara_result zendara_loader_each(zendara_result (*each)(void *context, const zendara_class_file *file,
                                                          zendara_result result),
                                   void *context) {
  if (!each) return LoaderFails(ZENDARA_NULL_POINTER, "the function is missing");
  char *folders = ClassFolders();
  if (!folders) return LoaderFails(ZENDARA_OUT_OF_MEMORY, no_memory);
  zendara_result said = ZENDARA_OK;
  for (const char *folder = folders; *folder && said == ZENDARA_OK; folder = NextFolder(folder)) {
    struct dirent **entries = NULL;
    /* A folder that is not there, or not for this user, has nothing. */
    const int count = scandir(folder, &entries, IsClassFile, ByBytes);
    for (int i = 0; i < count; ++i) {
      zendara_class_file file = {.size = sizeof file};
      if (said == ZENDARA_OK && !IsHidden(folders, folder, entries[i]->d_name)) {
        const zendara_result result = ReadClassFile(folder, entries[i]->d_name, &file);
        said = each(context, &file, result);
      }
      free(entries[i]);
    }
    free(entries);
  }
  free(folders);
  return said;
}
