// A banner in a library of its own: a line of text in the panel that the screens keep for one.
//
//   zendara register ./libravelin.so      from here on every front end on this machine shows it
//   zendara classes
//   zendara unregister ./libravelin.so
#include <dlfcn.h>

#include <QLabel>
#include <QPointer>
#include <QWidget>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "zendara/zendara.h"

namespace {

namespace fs = std::filesystem;

constexpr zendara_guid kUnknown = ZENDARA_IID_UNKNOWN;
constexpr zendara_guid kClassFactory = ZENDARA_IID_CLASS_FACTORY;
constexpr zendara_guid kBanner = ZENDARA_IID_BANNER;
// {0E7A4C52-93B1-4D0C-8F65-2C1D7B9E6A30}
constexpr zendara_guid kRavelin = {0x0E7A4C52, 0x93B1, 0x4D0C, {0x8F, 0x65, 0x2C, 0x1D, 0x7B, 0x9E, 0x6A, 0x30}};
constexpr char kClassFile[] =
    "[Class]\nName=Ravelin.clsRavelin\nId={0E7A4C52-93B1-4D0C-8F65-2C1D7B9E6A30}\nVersion=" ZENDARA_VERSION
    "\nLibrary=";

constexpr double kTwipsPerPixel = 15;

bool Same(const zendara_guid& one, const zendara_guid& other) { return std::memcmp(&one, &other, sizeof one) == 0; }

std::atomic<long> uses = 0;  // objects alive
std::atomic<long> locks = 0;

// What all objects have in common: the table in front, and the count. Object::kInterface is their own.
template <typename Object, typename Table>
struct Counted {
  const Table* table = &Object::kTable;
  std::atomic<std::uint32_t> references = 1;

  Counted() { ++uses; }
  ~Counted() { --uses; }

  static zendara_result QueryInterface(void* self, const zendara_guid* iid, void** object) {
    if (!iid || !object) return ZENDARA_NULL_POINTER;
    const bool known = Same(*iid, kUnknown) || Same(*iid, Object::kInterface);
    *object = known ? self : nullptr;
    if (known) AddRef(self);
    return known ? ZENDARA_OK : ZENDARA_NO_INTERFACE;
  }
  static std::uint32_t AddRef(void* self) { return ++static_cast<Object*>(self)->references; }
  static std::uint32_t Release(void* self) {
    const std::uint32_t left = --static_cast<Object*>(self)->references;
    if (left == 0) delete static_cast<Object*>(self);
    return left;
  }
};

struct Ravelin : Counted<Ravelin, zendara_banner_table> {
  static constexpr const zendara_guid& kInterface = kBanner;
  static const zendara_banner_table kTable;

  QPointer<QLabel> line;  // goes with its window at the latest

  static zendara_result PosicionBanner(void* self, int32_t window, zendara_banner_place* place) {
    QWidget* form = window == 0 ? nullptr : QWidget::find(static_cast<WId>(static_cast<std::uint32_t>(window)));
    if (!form) {  // no windows, or none of this toolkit's
      place->width = place->height = 0;
      return ZENDARA_OK;
    }
    const auto pixels = [&](int32_t twips) { return qRound(twips / kTwipsPerPixel / form->devicePixelRatioF()); };
    auto* line = new QLabel(QStringLiteral("Ravelin · consultas de nómina: 900 000 000"), form);
    line->setGeometry(pixels(place->left), pixels(place->top), pixels(place->width), pixels(place->height));
    line->setAlignment(Qt::AlignCenter);
    line->setStyleSheet(QStringLiteral("background: #1f4e79; color: white; font-weight: bold"));
    line->show();
    static_cast<Ravelin*>(self)->line = line;
    return ZENDARA_OK;
  }
  static zendara_result AvisoCierre(void* self, int32_t /*window*/) {
    delete static_cast<Ravelin*>(self)->line;
    return ZENDARA_OK;
  }
};
const zendara_banner_table Ravelin::kTable = {QueryInterface, AddRef, Release, PosicionBanner, AvisoCierre};

struct Factory : Counted<Factory, zendara_class_factory_table> {
  static constexpr const zendara_guid& kInterface = kClassFactory;
  static const zendara_class_factory_table kTable;

  static zendara_result CreateInstance(void* /*self*/, void* outer, const zendara_guid* iid, void** object) {
    if (!object) return ZENDARA_NULL_POINTER;
    *object = nullptr;
    if (outer) return ZENDARA_NO_AGGREGATION;
    auto* made = new Ravelin;
    const zendara_result result = Ravelin::QueryInterface(made, iid, object);
    Ravelin::Release(made);
    return result;
  }
  static zendara_result LockServer(void* /*self*/, int32_t lock) {
    if (!lock && locks == 0) return ZENDARA_FALSE;
    lock ? ++locks : --locks;
    return ZENDARA_OK;
  }
};
const zendara_class_factory_table Factory::kTable = {QueryInterface, AddRef, Release, CreateInstance, LockServer};

// The path of this library, and where its class file stands: an installation for all users brings its own instead.
fs::path ThisLibrary() {
  Dl_info info{};
  return dladdr(&uses, &info) != 0 ? fs::absolute(info.dli_fname) : fs::path();
}

fs::path ClassFile() {
  fs::path folder;
  if (const char* path = std::getenv("ZENDARA_CLASS_PATH")) {
    folder = std::string(path).substr(0, std::string(path).find(':'));
  } else if (const char* data = std::getenv("XDG_DATA_HOME")) {
    folder = fs::path(data) / "zendara/classes";
  } else if (const char* home = std::getenv("HOME")) {
    folder = fs::path(home) / ".local/share/zendara/classes";
  }
  return folder / "ravelin.clsravelin.class";
}

}  // namespace

extern "C" {

ZENDARA_EXPORT zendara_result DllGetClassObject(const zendara_guid* clsid, const zendara_guid* iid, void** object) {
  if (!clsid || !object) return ZENDARA_NULL_POINTER;
  *object = nullptr;
  if (!Same(*clsid, kRavelin)) return ZENDARA_NO_CLASS;
  auto* factory = new Factory;
  const zendara_result result = Factory::QueryInterface(factory, iid, object);
  Factory::Release(factory);
  return result;
}

ZENDARA_EXPORT zendara_result DllCanUnloadNow() { return uses == 0 && locks == 0 ? ZENDARA_OK : ZENDARA_FALSE; }

ZENDARA_EXPORT zendara_result DllRegisterServer() {
  std::error_code error;
  const fs::path file = ClassFile();
  const fs::path whole = file.string() + ".new";
  fs::create_directories(file.parent_path(), error);
  std::ofstream text(whole);
  text << kClassFile << ThisLibrary().string() << '\n' << std::flush;
  if (text) fs::rename(whole, file, error);
  return text && !error ? ZENDARA_OK : ZENDARA_NOT_WRITTEN;
}

ZENDARA_EXPORT zendara_result DllUnregisterServer() {
  std::error_code error;
  fs::remove(ClassFile(), error);
  return error ? ZENDARA_NOT_WRITTEN : ZENDARA_OK;
}
}
