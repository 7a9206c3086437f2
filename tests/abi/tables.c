/* The tables of objects, which the functions hand out as plain pointers: here they are in a signature. */
#include "zendara/zendara.h"

ZENDARA_EXPORT void zendara_tables(const zendara_dispatch_table *dispatch, const zendara_class_table *zendara,
                                   const zendara_class_factory_table *factory, const zendara_banner_table *banner,
                                   const zendara_pick_list_table *list, const zendara_listing_viewer_table *viewer);

void zendara_tables(const zendara_dispatch_table *dispatch, const zendara_class_table *zendara,
                    const zendara_class_factory_table *factory, const zendara_banner_table *banner,
                    const zendara_pick_list_table *list, const zendara_listing_viewer_table *viewer) {
  (void)dispatch, (void)zendara, (void)factory, (void)banner, (void)list, (void)viewer;
}
