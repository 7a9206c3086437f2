/* The folders that have class files. */
#ifndef ZENDARA_LOADER_CLASS_FOLDERS_H
#define ZENDARA_LOADER_CLASS_FOLDERS_H

#ifdef __cplusplus
extern "C" {
#endif

/* Their whole paths in the order in which they are searched, each with a zero byte at its end, an empty one behind the
 * last. The caller frees it; null when there is no memory left. */
char *ClassFolders(void);
/* The folder behind this one. */
const char *NextFolder(const char *folder);

/* The folder that libraries are registered in: the first of ZENDARA_CLASS_PATH, the system's for root, otherwise the
 * user's. The caller frees it; null when there is none. */
char *FolderToRegisterIn(void);

#ifdef __cplusplus
}
#endif

#endif
