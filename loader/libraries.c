#define _GNU_SOURCE
#include "loader/libraries.h"

#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>

#include "loader/failure.h"
#include "loader/own_function.h"

static pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
static Library *loaded; /* by the mutex */

/* The system's words without the path before them, where it has put it there. */
static const char *WordsOfSystem(const char *path) {
  const char *words = dlerror();
  if (!words) return "it cannot be loaded";
  const size_t length = strlen(path);
  return strncmp(words, path, length) == 0 && strncmp(words + length, ": ", 2) == 0 ? words + length + 2 : words;
}

static zendara_result Open(const zendara_class_file *file, void **handle) {
  struct stat state;
  const int error = stat(file->library, &state) == 0 ? 0 : errno;
  if (error || !S_ISREG(state.st_mode)) {
    return LoaderFails(ZENDARA_NOT_LOADED, "%s: %s: %s", file->file, file->library,
                       error ? strerrordesc_np(error) : "it is no file");
  }
  *handle = dlopen(file->library, RTLD_NOW | RTLD_LOCAL);
  if (*handle) return ZENDARA_OK;
  return LoaderFails(ZENDARA_NOT_LOADED, "%s: %s: %s", file->file, file->library, WordsOfSystem(file->library));
}

static zendara_result Load(const zendara_class_file *file, Library **library) {
  void *handle = NULL;
  const zendara_result opened = Open(file, &handle);
  if (opened != ZENDARA_OK) return opened;
  Library *const made = calloc(1, sizeof *made + strlen(file->library) + 1);
  if (!made) {
    dlclose(handle);
    return LoaderFails(ZENDARA_OUT_OF_MEMORY, "%s: there is not enough memory", file->file);
  }
  strcpy(made->path, file->library);
  made->handle = handle;
  static const char *const names[] = {"DllGetClassObject", "DllCanUnloadNow", "zendara_version"};
  void *functions[3];
  for (size_t i = 0; i < 3; ++i) functions[i] = OwnFunction(handle, names[i]);
  /* The way that POSIX has to make functions of pointers to data. */
  *(void **)&made->get_class_object = functions[0];
  *(void **)&made->can_unload_now = functions[1];
  *(void **)&made->version = functions[2];
  if (functions[0] && functions[1]) {
    *library = made;
    return ZENDARA_OK;
  }
  free(made);
  dlclose(handle);
  return LoaderFails(ZENDARA_NOT_LOADED, "%s: %s: it has no %s", file->file, file->library,
                     names[functions[0] ? 1 : 0]);
}

/* REQUIRES: the mutex. */
static Library *Find(const char *path) {
  Library *library = loaded;
  while (library && strcmp(library->path, path) != 0) library = library->next;
  return library;
}

/* Among the loaded ones, unless another thread has been faster: then that one, and this one goes. REQUIRES: the
 * mutex. */
static Library *Enter(Library *library) {
  Library *const there = Find(library->path);
  if (there) {
    /* It stays in memory: each of the two was opened. */
    dlclose(library->handle);
    free(library);
    return there;
  }
  library->next = loaded;
  return loaded = library;
}

/* Nothing of a library runs under the mutex, so that it may ask for classes itself. */
zendara_result BeginCall(const zendara_class_file *file, Library **library) {
  pthread_mutex_lock(&mutex);
  *library = Find(file->library);
  if (*library) ++(*library)->calls;
  pthread_mutex_unlock(&mutex);
  if (*library) return ZENDARA_OK;
  const zendara_result result = Load(file, library);
  if (result != ZENDARA_OK) return result;
  pthread_mutex_lock(&mutex);
  *library = Enter(*library);
  ++(*library)->calls;
  pthread_mutex_unlock(&mutex);
  return ZENDARA_OK;
}

void EndCall(Library *library) {
  pthread_mutex_lock(&mutex);
  --library->calls;
  pthread_mutex_unlock(&mutex);
}

/* Those that no call is in work of, taken away from the loaded ones: who asks for one meanwhile opens it once more. */
static Library *TakeIdle(int *busy) {
  Library *idle = NULL, *kept = NULL;
  while (loaded) {
    Library *const library = loaded;
    loaded = library->next;
    Library **const list = library->calls == 0 ? &idle : &kept;
    library->next = *list;
    *list = library;
  }
  loaded = kept;
  *busy = kept != NULL;
  return idle;
}

zendara_result zendara_loader_unload(void) {
  int stay = 0;
  pthread_mutex_lock(&mutex);
  Library *idle = TakeIdle(&stay);
  pthread_mutex_unlock(&mutex);
  while (idle) {
    Library *const library = idle;
    idle = library->next;
    if (library->can_unload_now() == ZENDARA_OK) {
      dlclose(library->handle);
      free(library);
      continue;
    }
    stay = 1;
    pthread_mutex_lock(&mutex);
    Enter(library);
    pthread_mutex_unlock(&mutex);
  }
  return stay ? ZENDARA_FALSE : ZENDARA_OK;
}
