/* Objects of classes. */
#include <stdlib.h>

#include "loader/check.h"
#include "loader/failure.h"
#include "loader/libraries.h"

static const zendara_guid iid_class_factory = ZENDARA_IID_CLASS_FACTORY;

/* The number before the first dot; 0 for what says none. */
static unsigned long Major(const char *version) { return version ? strtoul(version, NULL, 10) : 0; }

/* `library` null: it is not loaded yet. */
static zendara_result CheckVersions(const zendara_class_file *file, const Library *library, unsigned long wanted) {
  const unsigned long of_file = Major(file->version);
  if (wanted != 0 && of_file != 0 && of_file != wanted) {
    return LoaderFails(ZENDARA_WRONG_VERSION, "%s: its version is %s, not %lu", file->file, file->version, wanted);
  }
  const char *const has = library && library->version ? library->version() : NULL;
  const unsigned long of_library = Major(has);
  const unsigned long needed = of_file != 0 ? of_file : wanted;
  if (of_library == 0 || needed == 0 || of_library == needed) return ZENDARA_OK;
  return LoaderFails(ZENDARA_WRONG_VERSION, "%s: the version of %s is %s, not %lu", file->file, file->library, has,
                     needed);
}

/* What the library answers. */
static zendara_result Answer(const zendara_class_file *file, const char *function, zendara_result result,
                             const void *object) {
  if (result >= 0 && object) return ZENDARA_OK;
  if (result >= 0)
    return LoaderFails(ZENDARA_FAILED, "%s: %s of %s gives nothing", file->file, function, file->library);
  return LoaderFails(result, "%s: %s of %s gives 0x%08lX", file->file, function, file->library,
                     (unsigned long)(uint32_t)result);
}

/* The factory, with a call in work until EndCall(*library). */
static zendara_result BeginFactory(const zendara_class_file *file, uint32_t version, Library **library,
                                   zendara_class_factory **factory) {
  zendara_result result = CheckVersions(file, NULL, version);
  if (result == ZENDARA_OK) result = BeginCall(file, library);
  if (result != ZENDARA_OK) return result;
  result = CheckVersions(file, *library, version);
  if (result == ZENDARA_OK) {
    void *got = NULL;
    result = (*library)->get_class_object(&file->id, &iid_class_factory, &got);
    result = Answer(file, "DllGetClassObject", result, got);
    *factory = got;
  }
  if (result != ZENDARA_OK) EndCall(*library);
  return result;
}

zendara_result CheckClass(const zendara_class_file *file, uint32_t version) {
  Library *library = NULL;
  zendara_class_factory *factory = NULL;
  const zendara_result result = BeginFactory(file, version, &library, &factory);
  if (result != ZENDARA_OK) return result;
  factory->table->Release(factory);
  EndCall(library);
  return ZENDARA_OK;
}

zendara_result zendara_loader_create(const char *name, uint32_t version, const zendara_guid *iid, void **object) {
  if (!object) return LoaderFails(ZENDARA_NULL_POINTER, "the place for the object is missing");
  *object = NULL;
  if (!iid) return LoaderFails(ZENDARA_NULL_POINTER, "the identifier of the interface is missing");
  zendara_class_file file = {.size = sizeof file};
  Library *library = NULL;
  zendara_class_factory *factory = NULL;
  zendara_result result = zendara_loader_find(name, &file);
  if (result == ZENDARA_OK) result = BeginFactory(&file, version, &library, &factory);
  if (result != ZENDARA_OK) return result;
  void *made = NULL;
  result = factory->table->CreateInstance(factory, NULL, iid, &made);
  factory->table->Release(factory);
  EndCall(library);
  result = Answer(&file, "CreateInstance", result, made);
  if (result == ZENDARA_OK) *object = made;
  return result;
}
