#include "adapters/classes/class_registration.hpp"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "adapters/classes/own_library.hpp"
#include "adapters/host/file_error.hpp"
#include "adapters/host/new_file.hpp"
#include "adapters/plain_c/own_classes.hpp"
#include "loader/class_file.h"
#include "loader/class_folders.h"
#include "loader/class_name.h"
#include "runtime/text.hpp"
#include "zendara/runtime_error.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;

void Demand(const std::error_code& error, const fs::path& path) {
  if (error) throw FileError(error, path.string());
}

fs::path Folder() {
  const std::unique_ptr<char, decltype(&std::free)> folder(FolderToRegisterIn(), std::free);
  if (!folder) throw RuntimeError(kPathNotFound, {}, "there is no class folder: it has to be a whole path");
  return folder.get();
}

std::string FileNameOf(const OwnClass& own) {
  char name[CLASS_NAME_MOST + sizeof CLASS_FILE_ENDING];
  ClassFileName(std::string(own.name).c_str(), name);
  return name;
}

void AddHex(std::string& text, std::uint64_t number, int digits) {
  while (digits-- > 0) text += "0123456789ABCDEF"[number >> (4 * digits) & 0xF];
}

std::string IdText(const zendara_guid& id) {
  std::string text = "{";
  AddHex(text, id.a, 8);
  AddHex(text += '-', id.b, 4);
  AddHex(text += '-', id.c, 4);
  for (int i = 0; i < 8; ++i) AddHex(i == 0 || i == 2 ? text += '-' : text, id.d[i], 2);
  return text + "}";
}

std::string TextOf(const OwnClass& own, const std::string& library) {
  return "[Class]\nName=" + std::string(own.name) + "\nId=" + IdText(own.id) + "\nLibrary=" + library +
         "\nVersion=" ZENDARA_VERSION "\n";
}

// A path that a line of a class file can hold.
void CheckPath(const std::string& library) {
  const auto is_control = [](char c) { return static_cast<unsigned char>(c) < ' '; };
  if (library.size() < ZENDARA_PATH_LENGTH && IsUtf8(library) && std::ranges::none_of(library, is_control)) return;
  throw RuntimeError(kInternalError, {}, library + ": no class file can name this path");
}

// A class file that is being put in the place of what there is, unless it is undone.
class Replacement {
 public:
  Replacement(fs::path path, const std::string& text) : path_(std::move(path)), new_(path_, NewFile::Taken::kReplace) {
    new_.Append(text);
    Demand(new_.Sync(), path_);
    std::error_code none;
    if (!fs::is_regular_file(path_, none)) return;
    // What cannot be read could not be put back.
    std::ifstream old(path_, std::ios::binary);
    if (!old) Demand(std::make_error_code(std::errc::permission_denied), path_);
    old_ = std::string(std::istreambuf_iterator<char>(old), {});
  }

  void Commit() {
    touched_ = true;
    Demand(new_.Commit(), path_);
  }
  void Undo() {
    if (!touched_) return;
    // What fails here has no better end.
    if (old_) {
      ReplaceFile(path_, *old_);
    } else {
      unlink(path_.c_str());
    }
  }

 private:
  fs::path path_;
  NewFile new_;
  std::optional<std::string> old_;
  bool touched_ = false;
};

}  // namespace

void RegisterClasses() {
  const std::string library = OwnLibrary();
  CheckPath(library);
  const fs::path folder = Folder();
  std::error_code error;
  fs::create_directories(folder, error);
  Demand(error, folder);
  std::vector<std::unique_ptr<Replacement>> files;
  for (const OwnClass& own : kOwnClasses) {
    files.push_back(std::make_unique<Replacement>(folder / FileNameOf(own), TextOf(own, library)));
  }
  try {
    for (const auto& file : files) file->Commit();
  } catch (...) {
    for (const auto& file : files) file->Undo();
    throw;
  }
}

void UnregisterClasses() {
  const std::string library = OwnLibrary();
  const fs::path folder = Folder();
  for (const OwnClass& own : kOwnClasses) {
    zendara_class_file file{};
    file.size = sizeof file;
    if (ReadClassFile(folder.c_str(), FileNameOf(own).c_str(), &file) != ZENDARA_OK) continue;
    std::error_code unlike;
    if (file.library != library && !fs::equivalent(file.library, library, unlike)) continue;
    if (unlink(file.file) != 0 && errno != ENOENT) throw FileError({errno, std::generic_category()}, file.file);
  }
}

}  // namespace zendara
