// What a host includes: the public class of the component, and the functions of an in-process component.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zendara/export.h"
#include "zendara/morlane.hpp"
#include "zendara/platform.hpp"
#include "zendara/record_engine.hpp"

namespace zendara {

// Of the library that was loaded, as ZENDARA_VERSION is of the headers.
ZENDARA_EXPORT const char* Version() noexcept;

// How a call came out.
enum class CallStatus : std::int32_t {
  kDone = 0,          // a screen was shown and closed; the platform was installed
  kNoSuchScreen = 1,  // no screen has that name: nothing was shown
  kBusy = 2,          // a screen is being shown: nothing was done
  kWrongThread = 3,   // not the thread that installed the platform: nothing was done
  kNotInstalled = 4,  // the platform lacks engine, dialogs, files or forms: no screen was shown
  kFailed = 5,        // the screen could not be made or shown
};

struct CallReport {
  CallStatus status = CallStatus::kDone;
  std::string reason{};  // one line for a log, in English; empty for kDone
  int number = 0;        // of the run-time error, for kFailed
};

// Of the last call of InstallPlatform or Carga_Formulario in this thread. Each report but kDone and kNoSuchScreen is a
// line of the log too.
ZENDARA_EXPORT CallReport LastCall();

// Gives the component its surroundings, which it copies, before the first screen is shown; a later call replaces them,
// an empty platform takes them away. From here on the component belongs to the calling thread. While a screen is being
// shown it is refused (kBusy).
// REQUIRES: engine, dialogs, files and forms are set; a front end of zendara/windows.hpp or zendara/automation.hpp
// fills in dialogs and forms.
ZENDARA_EXPORT void InstallPlatform(Platform platform);

// The host's open recordsets by slot: the item of index i stands at i - lower_bound. Empty handles are allowed: a
// routine that needs one is error 91, which the screen shows. src/frame/catalogo.cpp says which table, on which index,
// a slot holds.
struct ZENDARA_EXPORT RecordsetArray {
  int lower_bound = 0;
  std::vector<std::shared_ptr<Recordset>> items;

  // Error 9 outside of the array.
  const std::shared_ptr<Recordset>& At(int index) const;
};

// The public class. An instance has no data of its own: all instances share the component's state, and what NumBas
// stored outlives them. One thread.
class ZENDARA_EXPORT ClsZendara {
 public:
  // Takes over the host's databases (the company's, and a second one that may be empty), the slots 1 to 500 and the
  // session's values; shows the screen of that name, waits until the user has closed it, and hands the currency mark
  // back to the session. Names are "Trabajadores", "MIncidencias", "MIncidenciasESP" and "MIncidenciasVAR"; case
  // counts, and any other name shows nothing.
  //
  // Handles. They are shared and kept until the next call, never closed. The session's window of years, that of its
  // working year, is set on each of them (SetYearWindow) and stays there. Recordsets are moved and get other indexes.
  //
  // A call while a screen is being shown, as from a timer of the host, and one from another thread than that of
  // InstallPlatform do nothing: no handle and no value is taken, the session object is not asked.
  //
  // Errors. None reaches the caller; who wants to know how the call came out asks LastCall. What the user does is
  // answered by boxes. A step of taking over that fails, as a slot outside of the array or a session object that
  // throws, leaves the value of the call before, and the next step is done; what the error has as its detail is a line
  // of the log. Where the installed surroundings lack engine, dialogs, files or forms no screen is shown, and a box
  // says so if there are dialogs. The currency mark is handed back all the same.
  void Carga_Formulario(const std::string& NombreForm, const std::shared_ptr<Database>& MiBD,
                        const std::shared_ptr<Database>& MiBE, const RecordsetArray& MiT, Morlane& ObjMorlane) noexcept;
  // Write only: the number that fich2 reads back.
  void NumBas(std::int16_t valor) noexcept;
  // Read only: the number last stored through NumBas of any instance, 0 before.
  std::int16_t fich2() const noexcept;
  // Read only: always the empty text.
  std::string Fch() const;
};

// What the last Carga_Formulario took over, for what a host shows beside the screens: its own front end, viewer of
// listings, lists to pick from.
struct SessionFacts {
  std::string company;  // code, without blanks around it
  std::string name;
  Date date;                 // working date
  YearWindow years;          // what two-digit years mean
  Engine* engine = nullptr;  // of the platform
};
ZENDARA_EXPORT SessionFacts CurrentSession();

// An in-process component as a loader sees it: reference-counted objects whose operations stand in a fixed order.
// Objects delete themselves at the Release that brings their count to 0.

using Result = std::int32_t;
inline constexpr Result kResultOk = 0;
inline constexpr Result kResultFalse = 1;
inline constexpr Result kNoInterface = static_cast<Result>(0x80004002);
inline constexpr Result kNullPointer = static_cast<Result>(0x80004003);
inline constexpr Result kOutOfMemoryResult = static_cast<Result>(0x8007000E);
inline constexpr Result kNoAggregation = static_cast<Result>(0x80040110);
inline constexpr Result kClassNotAvailable = static_cast<Result>(0x80040111);

struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0;
  std::uint16_t data3 = 0;
  std::uint8_t data4[8] = {};

  friend bool operator==(const Guid&, const Guid&) = default;
};

static constexpr Guid kUnknownId = {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
static constexpr Guid kClassFactoryId = {0x00000001, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
// The class ClsZendara and the interface of its instances.
static constexpr Guid kZendaraClassId = {0x6C1B83D4, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}};
static constexpr Guid kZendaraId = {0x6C1B83D5, 0x52E7, 0x4F0A, {0x9B, 0x3D, 0x27, 0xE4, 0x5A, 0x90, 0xC8, 0x11}};

class Unknown {
 public:
  // The object under another of its interfaces, counted once more. kNoInterface leaves null in `object`, kNullPointer
  // is for a missing argument.
  virtual Result QueryInterface(const Guid* id, void** object) noexcept = 0;
  // Both give the new count.
  virtual std::uint32_t AddRef() noexcept = 0;
  virtual std::uint32_t Release() noexcept = 0;

 protected:
  ~Unknown() = default;
};

class ClassFactory : public Unknown {
 public:
  // A new instance, counted once. `outer` must be null (kNoAggregation).
  virtual Result CreateInstance(Unknown* outer, const Guid* id, void** object) noexcept = 0;
  // Keeps the component in memory while locked more often than unlocked. Unlocking what is not locked is kResultFalse
  // and changes nothing.
  virtual Result LockServer(std::int32_t lock) noexcept = 0;

 protected:
  ~ClassFactory() = default;
};

// An instance of ClsZendara: its members in their order.
class ZendaraObject : public Unknown {
 public:
  virtual void Carga_Formulario(const std::string& NombreForm, const std::shared_ptr<Database>& MiBD,
                                const std::shared_ptr<Database>& MiBE, const RecordsetArray& MiT,
                                Morlane& ObjMorlane) noexcept = 0;
  virtual void NumBas(std::int16_t valor) noexcept = 0;
  virtual std::int16_t fich2() const noexcept = 0;
  virtual std::string Fch() const = 0;

 protected:
  ~ZendaraObject() = default;
};

}  // namespace zendara

// The four functions that the component exports. zendara/zendara.h has them for plain C.
extern "C" {

// The class factory of kZendaraClassId, or of another class of zendara/zendara.h, as kClassFactoryId or kUnknownId.
// kClassNotAvailable for one that is not there. The instances of kZendaraClassId give out ZendaraObject under
// kZendaraId, whose texts and handles pass in the standard library's types, so that its host is built with the same
// compiler; the interfaces in plain C are those of zendara/zendara.h.
ZENDARA_EXPORT zendara::Result DllGetClassObject(const zendara::Guid* class_id, const zendara::Guid* id,
                                                 void** object) noexcept;
// kResultOk when no object lives, nothing is locked, zendara_install has nothing installed and no screen is shown,
// otherwise kResultFalse.
ZENDARA_EXPORT zendara::Result DllCanUnloadNow() noexcept;
ZENDARA_EXPORT zendara::Result DllRegisterServer() noexcept;
ZENDARA_EXPORT zendara::Result DllUnregisterServer() noexcept;
}
