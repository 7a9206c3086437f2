#define _GNU_SOURCE
#include "loader/own_function.h"

#include <dlfcn.h>
#include <link.h>
#include <stddef.h>

void *OwnFunction(void *handle, const char *name) {
  void *const function = dlsym(handle, name);
  struct link_map *own = NULL, *owner = NULL;
  Dl_info unused;
  if (!function || dlinfo(handle, RTLD_DI_LINKMAP, &own) != 0) return NULL;
  if (!dladdr1(function, &unused, (void **)&owner, RTLD_DL_LINKMAP)) return NULL;
  return own == owner ? function : NULL;
}
