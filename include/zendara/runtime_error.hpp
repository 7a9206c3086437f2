// The run-time error: a number and its Spanish text, as the message boxes show them.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "zendara/export.h"

namespace zendara {

// Numbers that the code names. `ErrorText` knows every number of the run-time library and the record engine.
enum ErrorNumber : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kInternalError = 51,
  kFileNotFound = 53,
  kDeviceIoError = 57,
  kDiskFull = 61,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kInvalidUseOfNull = 94,
  kInvalidPropertyValue = 380,
  kCannotCreateObject = 429,
  kNoSuchMember = 438,
  kWrongArgumentCount = 450,
  kTableExists = 3010,
  kObjectNotFound = 3011,
  kObjectExists = 3012,
  kNotAnIndex = 3015,
  kFieldNotFound = 3018,
  kNoActiveIndex = 3019,
  kUpdateWithoutEdit = 3020,
  kNoCurrentRecord = 3021,
  kDuplicateKey = 3022,
  kDatabaseNotFound = 3024,
  kNoDiskSpace = 3026,
  kReadOnly = 3027,
  kNoTransaction = 3034,
  kDiskOrNetwork = 3043,
  kFolderNotFound = 3044,
  kFileInUse = 3045,
  kDamagedFile = 3049,
  kCannotOpenFile = 3051,
  kBadFileName = 3055,
  kNullInKey = 3058,
  kTooFewParameters = 3061,
  kQuerySyntax = 3075,
  kInputTableNotFound = 3078,
  kOutcomeUnknown = 3146,
  kTextTooLong = 3163,
  kRecordDeleted = 3167,
  kNoSuchEngine = 3170,
  kRowChanged = 3197,
  kLocked = 3218,
  kLockedByUser = 3260,
  kItemNotFound = 3265,
  kEmptyTextRefused = 3315,
  kForeignFile = 3343,
  kObjectClosed = 3420,
  kDataConversion = 3421,
};

// The Spanish text of an error number. Each "…" of the text takes the next of `names`; places without a name keep
// the "…". A number that is not of the library gives "Error definido por la aplicación o el objeto".
ZENDARA_EXPORT std::string ErrorText(int number, const std::vector<std::string>& names = {});

// What the component and the record engine throw.
class ZENDARA_EXPORT RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(int number, const std::vector<std::string>& names = {}, std::string_view detail = {},
                        int native = 0);
  ~RuntimeError() override;

  int number() const { return number_; }
  // The Spanish text; what() is number, two blanks and this text.
  const std::string& text() const { return text_; }
  // What the store or the operating system said, for a log line; never for a box. May be empty.
  const std::string& detail() const { return detail_; }
  // The code that the store or the operating system gave for it; 0 if there is none.
  int native() const { return native_; }

 private:
  int number_;
  std::string text_;
  std::string detail_;
  int native_;
};

}  // namespace zendara
