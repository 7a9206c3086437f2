#define _GNU_SOURCE
#include "loader/class_folders.h"

#include <pwd.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "zendara/loader.h"

typedef struct {
  const char *list;      /* null: none */
  const char *separator; /* between its folders; empty: it is one folder */
  const char *below;     /* where the class files are in each */
} FolderList;

static const FolderList of_system = {"/usr/local/share:/usr/share", ":", "/zendara/classes"};

/* A variable that says something. A program with more rights than its user takes no libraries from where he says. */
static const char *Variable(const char *name) {
  const char *value = secure_getenv(name);
  return value && *value ? value : NULL;
}

static FolderList OfPath(void) {
  const FolderList folders = {Variable("ZENDARA_CLASS_PATH"), ":", ""};
  return folders;
}

/* `room` keeps the entry of the user. */
static FolderList OfUser(char *room, size_t bytes) {
  FolderList folders = {Variable("XDG_DATA_HOME"), "", "/zendara/classes"};
  /* What is no whole path counts as not set. */
  if (folders.list && folders.list[0] == '/') return folders;
  folders.below = "/.local/share/zendara/classes";
  folders.list = Variable("HOME");
  struct passwd entry, *user = NULL;
  if (!folders.list && getpwuid_r(geteuid(), &entry, room, bytes, &user) == 0 && user) folders.list = user->pw_dir;
  return folders;
}

/* What the folders of the list need at most. */
static size_t RoomOf(const FolderList *folders) {
  size_t room = 0;
  for (const char *c = folders->list; c && *c; ++c) {
    room += c == folders->list || *c == *folders->separator ? strlen(folders->below) + 2 : 1;
  }
  return room;
}

/* Puts those that are whole paths at `end`; gives the new end. */
static char *AddFolders(char *end, const FolderList *folders) {
  for (const char *list = folders->list; list && *list;) {
    const size_t length = strcspn(list, folders->separator);
    if (list[0] == '/' && length + strlen(folders->below) < ZENDARA_PATH_LENGTH) {
      memcpy(end, list, length);
      strcpy(end + length, folders->below);
      end += strlen(end) + 1;
    }
    list += length + (list[length] != '\0');
  }
  return end;
}

static char *FoldersOf(const FolderList *lists, size_t count) {
  size_t room = 1;
  for (size_t i = 0; i < count; ++i) room += RoomOf(&lists[i]);
  char *folders = malloc(room);
  if (!folders) return NULL;
  char *end = folders;
  for (size_t i = 0; i < count; ++i) end = AddFolders(end, &lists[i]);
  *end = '\0';
  return folders;
}

char *ClassFolders(void) {
  char room[4096];
  FolderList system = of_system;
  if (Variable("XDG_DATA_DIRS")) system.list = Variable("XDG_DATA_DIRS");
  const FolderList lists[] = {OfPath(), OfUser(room, sizeof room), system};
  return FoldersOf(lists, 3);
}

const char *NextFolder(const char *folder) { return folder + strlen(folder) + 1; }

char *FolderToRegisterIn(void) {
  char room[4096];
  const FolderList path = OfPath();
  const FolderList folders = path.list ? path : geteuid() == 0 ? of_system : OfUser(room, sizeof room);
  char *first = FoldersOf(&folders, 1);
  if (first && *first) return first;
  free(first);
  return NULL;
}
