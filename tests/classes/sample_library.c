/* A library of somebody else's with one class, whose objects are banner, pick list and listing viewer. */
#include <stdatomic.h>
#include <stdio.h>
#include <string.h>

#include "zendara/zendara.h"

static const zendara_guid ids[] = {ZENDARA_IID_UNKNOWN, ZENDARA_IID_CLASS_FACTORY, ZENDARA_IID_BANNER,
                                   ZENDARA_IID_PICK_LIST, ZENDARA_IID_LISTING_VIEWER};
static const zendara_guid clsid = {0x11223344, 0x5566, 0x7788, {0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF, 0x00}};

static atomic_uint uses;

static zendara_result Give(void *self, const zendara_guid *iid, void **object);
static uint32_t AddRef(void *self) { return (void)self, ++uses; }
static uint32_t Release(void *self) { return (void)self, --uses; }

/* Shown at the left edge. Window 7 is refused with a number, window 8 without one. */
static zendara_result PosicionBanner(void *self, int32_t window, zendara_banner_place *place) {
  (void)self;
  place->left = 15;
  if (window == 7) zendara_set_error(70, "no paint");
  return window == 7 || window == 8 ? ZENDARA_FAILED : ZENDARA_OK;
}

/* The row whose second cell is the title; row 99 for "past". */
static zendara_result Choose(void *self, zendara_list *list, uint64_t *row) {
  const char *text = NULL;
  char title[100];
  (void)self;
  zendara_list_title(list, &text);
  snprintf(title, sizeof title, "%s", text);
  *row = strcmp(title, "past") == 0 ? 99 : 0;
  if (*row == 99) return ZENDARA_OK;
  for (zendara_result result; (result = zendara_list_cell(list, *row, 1, &text)) == ZENDARA_OK; ++*row) {
    if (strcmp(text, title) == 0) return ZENDARA_OK;
  }
  return ZENDARA_FALSE;
}

/* Says what it was given, as an error. */
static zendara_result Visualiza(void *self, const zendara_listing *listing) {
  char all[300];
  (void)self;
  snprintf(all, sizeof all, "%s %u %s %d %d %d %s %s %s", listing->title, (unsigned)listing->column_count,
           listing->columns[1].title, (int)listing->columns[1].width, (int)listing->columns[1].number,
           (int)listing->pending, listing->file, listing->table, listing->form);
  zendara_set_error(61, all);
  return ZENDARA_FAILED;
}

static zendara_result CreateInstance(void *self, void *outer, const zendara_guid *iid, void **object) {
  (void)outer;
  return Give(self, iid, object);
}
static zendara_result LockServer(void *self, int32_t lock) { return (void)self, (void)lock, ZENDARA_OK; }

static const zendara_class_factory_table factory_table = {Give, AddRef, Release, CreateInstance, LockServer};
static const zendara_banner_table banner_table = {Give, AddRef, Release, PosicionBanner, NULL};
static const zendara_pick_list_table list_table = {Give, AddRef, Release, Choose};
static const zendara_listing_viewer_table viewer_table = {Give, AddRef, Release, Visualiza};
static const void *objects[] = {&factory_table, &factory_table, &banner_table, &list_table, &viewer_table};

static zendara_result Give(void *self, const zendara_guid *iid, void **object) {
  (void)self;
  for (size_t i = 0; i < sizeof ids / sizeof *ids; ++i) {
    if (memcmp(iid, &ids[i], sizeof *iid) != 0) continue;
    *object = &objects[i];
    ++uses;
    return ZENDARA_OK;
  }
  return ZENDARA_NO_INTERFACE;
}

zendara_result DllGetClassObject(const zendara_guid *cls, const zendara_guid *iid, void **object) {
  return memcmp(cls, &clsid, sizeof clsid) == 0 ? Give(NULL, iid, object) : ZENDARA_NO_CLASS;
}
zendara_result DllCanUnloadNow(void) { return uses == 0 ? ZENDARA_OK : ZENDARA_FALSE; }

#ifdef OWN_VERSION
const char *zendara_version(void) { return OWN_VERSION; }
#endif
