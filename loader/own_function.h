#ifndef ZENDARA_LOADER_OWN_FUNCTION_H
#define ZENDARA_LOADER_OWN_FUNCTION_H

#ifdef __cplusplus
extern "C" {
#endif

/* A function of the library of that handle of dlopen; null when it has none. dlsym gives those of the libraries that it
 * stands on too. */
void *OwnFunction(void *handle, const char *name);

#ifdef __cplusplus
}
#endif

#endif
