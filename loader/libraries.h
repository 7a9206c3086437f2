/* The libraries that were loaded for their classes. Safe for several threads. */
#ifndef ZENDARA_LOADER_LIBRARIES_H
#define ZENDARA_LOADER_LIBRARIES_H

#include "zendara/loader.h"

typedef zendara_result (*GetClassObject)(const zendara_guid *clsid, const zendara_guid *iid, void **object);

typedef struct Library {
  struct Library *next;
  void *handle; /* of dlopen */
  GetClassObject get_class_object;
  zendara_result (*can_unload_now)(void);
  const char *(*version)(void); /* null: it has none */
  unsigned calls;               /* that are in work */
  char path[];
} Library;

/* The library of that class, loaded if it is not yet, with one more call in work. ZENDARA_NOT_LOADED,
 * ZENDARA_OUT_OF_MEMORY. */
zendara_result BeginCall(const zendara_class_file *file, Library **library);
void EndCall(Library *library);

#endif
