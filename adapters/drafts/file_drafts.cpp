#include "adapters/drafts/file_drafts.hpp"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <system_error>
#include <tuple>
#include <utility>

#include "adapters/drafts/draft_file.hpp"

namespace zendara {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

// How long a key waits for the thread that writes to begin with the one before it, and for a disk to end with it; and a
// list of drafts for all that was given.
constexpr milliseconds kPatienceWithAThread{2};
constexpr milliseconds kPatienceWithADisk{40};
constexpr milliseconds kPatienceOfAList{200};

constexpr std::string_view kExtension = ".draft";
constexpr std::int64_t kNano = 1'000'000'000;
constexpr std::int64_t kSecondsOfADay = 86'400;

std::string Padded(std::int64_t number, std::size_t digits) {
  std::string text = std::to_string(number);
  return text.size() >= digits ? text : std::string(digits - text.size(), '0') + text;
}

// "21/11/26 a las 17:40"
std::string When(std::int64_t nanoseconds) {
  const std::time_t seconds = nanoseconds / kNano;
  std::tm time{};
  if (!localtime_r(&seconds, &time)) return {};
  return Padded(time.tm_mday, 2) + "/" + Padded(time.tm_mon + 1, 2) + "/" + Padded(time.tm_year % 100, 2) + " a las " +
         Padded(time.tm_hour, 2) + ":" + Padded(time.tm_min, 2);
}

std::vector<fs::path> DraftsIn(const fs::path& folder) {
  std::vector<fs::path> paths;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    if (entry->path().extension() == kExtension) paths.push_back(entry->path());
  }
  return paths;
}

// Of no other draft, of this program or another.
std::string NewId() {
  static std::atomic<int> made = 0;
  return Padded(std::time(nullptr), 12) + "-" + std::to_string(getpid()) + "-" + Padded(++made, 6) +
         std::string(kExtension);
}

std::string TroubleOf(int error) {
  return "Lo que escriba y no grabe no se podrá recuperar: " + (error == ENOSPC || error == EDQUOT || error == EFBIG
                                                                    ? std::string("el disco está lleno.")
                                                                    : "la carpeta de borradores no admite escritura.");
}

}  // namespace

FileDrafts::FileDrafts(fs::path folder, int days) : folder_(std::move(folder)), days_(days) {
  jobs_.push_back({.deed = Deed::kRemoveOld, .id = {}, .draft = {}});
  syncer_ = std::thread([this] { Sync(); });
  writer_ = std::thread([this] { Write(); });
}

FileDrafts::~FileDrafts() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  given_.notify_all();
  writer_.join();
  {
    const std::lock_guard lock(mutex_);
    all_written_ = true;
  }
  dirty_.notify_all();
  syncer_.join();
}

// What the form's thread does.

std::string FileDrafts::Keep(const std::string& id, const Draft& draft) {
  std::string name = id.empty() ? NewId() : id;
  {
    std::unique_lock lock(mutex_);
    const auto caught_up = [this] { return jobs_.empty() && !busy_; };
    done_.wait_for(lock, kPatienceWithAThread, caught_up);
    // The machine has no time for the other thread: this one has.
    while (!busy_ && !jobs_.empty()) DoNext(lock);
    done_.wait_for(lock, kPatienceWithADisk, caught_up);
    if (!id.empty() && !open_.contains(id)) {
      // One that was left, unless it waits for its first line.
      const bool waits = std::ranges::any_of(jobs_, [&](const Job& job) { return job.id == id; });
      if (auto file = waits ? nullptr : DraftFile::Open(PathOf(id))) {
        open_[id] = std::move(file);
      } else if (!waits) {
        name = NewId();
      }
    }
  }
  Give({.deed = Deed::kKeep, .id = name, .draft = draft});
  return name;
}

void FileDrafts::Leave(const std::string& id) { Give({.deed = Deed::kLeave, .id = id, .draft = {}}); }

void FileDrafts::Drop(const std::string& id) { Give({.deed = Deed::kDrop, .id = id, .draft = {}}); }

void FileDrafts::Give(Job job) {
  {
    const std::lock_guard lock(mutex_);
    // Behind a slow disk the states of a draft make one.
    if (!jobs_.empty() && job.deed == Deed::kKeep && jobs_.back().deed == Deed::kKeep && jobs_.back().id == job.id) {
      jobs_.back() = std::move(job);
    } else {
      jobs_.push_back(std::move(job));
    }
  }
  given_.notify_all();
}

std::vector<KeptDraft> FileDrafts::Left(const DraftFilter& wanted) {
  {
    std::unique_lock lock(mutex_);
    done_.wait_for(lock, kPatienceOfAList, [this] { return jobs_.empty() && !busy_; });
  }
  std::map<std::string, Read> read;
  std::vector<const Read*> left;
  for (const fs::path& path : DraftsIn(folder_)) {
    struct stat state {};
    if (stat(path.c_str(), &state) != 0) continue;
    const std::int64_t changed = state.st_mtim.tv_sec * kNano + state.st_mtim.tv_nsec;
    const std::string id = path.filename().string();
    Read& entry = read[id];
    const auto known = read_.find(id);
    if (known != read_.end() && known->second.changed == changed && known->second.size == state.st_size) {
      entry = std::move(known->second);
    } else {
      entry = {.changed = changed, .size = state.st_size, .kept = {.id = id, .when = When(changed), .draft = {}}};
      entry.kept.draft = ReadDraftFile(path);
    }
    if (!entry.kept.draft.values.empty() && wanted(entry.kept) && !IsWorkedOn(path)) left.push_back(&entry);
  }
  read_ = std::move(read);
  std::ranges::sort(left, [](const Read* a, const Read* b) {
    return std::tie(a->changed, a->kept.id) > std::tie(b->changed, b->kept.id);
  });
  std::vector<KeptDraft> drafts;
  for (const Read* entry : left) drafts.push_back(entry->kept);
  return drafts;
}

std::string FileDrafts::TakeTrouble() {
  const std::lock_guard lock(mutex_);
  return std::exchange(trouble_, {});
}

// What the other two do.

void FileDrafts::Write() {
  std::unique_lock lock(mutex_);
  while (true) {
    given_.wait(lock, [this] { return !busy_ && (ends_ || !jobs_.empty()); });
    if (jobs_.empty()) return;
    DoNext(lock);
  }
}

void FileDrafts::DoNext(std::unique_lock<std::mutex>& lock) {
  const Job job = std::move(jobs_.front());
  jobs_.pop_front();
  busy_ = true;
  lock.unlock();
  Do(job);
  lock.lock();
  busy_ = false;
  done_.notify_all();
  given_.notify_all();
}

void FileDrafts::Sync() {
  std::unique_lock lock(mutex_);
  while (true) {
    dirty_.wait(lock, [this] { return all_written_ || !unsynced_.empty(); });
    if (unsynced_.empty()) return;
    auto files = std::exchange(unsynced_, {});
    lock.unlock();
    for (const auto& file : files) file->Sync();
    files.clear();
    lock.lock();
  }
}

void FileDrafts::Do(const Job& job) {
  if (job.deed == Deed::kRemoveOld) return RemoveOld();
  if (job.deed == Deed::kKeep) return Store(job.id, job.draft);
  std::shared_ptr<DraftFile> file;
  {
    const std::lock_guard lock(mutex_);
    if (auto open = open_.extract(job.id)) file = std::move(open.mapped());
  }
  const fs::path path = PathOf(job.id);
  if (job.deed == Deed::kLeave) {
    if (file) file->Release();
  } else if (file || !IsWorkedOn(path)) {
    unlink(path.c_str());
  }
}

void FileDrafts::Store(const std::string& id, const Draft& draft) {
  std::shared_ptr<DraftFile> file;
  {
    const std::lock_guard lock(mutex_);
    if (const auto open = open_.find(id); open != open_.end()) file = open->second;
  }
  int error = 0;
  if (!file || file->IsGone()) {
    error = MakeDraftsFolder(folder_);
    file = error == 0 ? DraftFile::Make(PathOf(id), error) : nullptr;
  }
  if (file) error = file->Append(draft);
  const std::lock_guard lock(mutex_);
  if (error != 0 && !troubled_) trouble_ = TroubleOf(error);
  troubled_ = error != 0;
  if (!file) return;
  open_[id] = file;
  unsynced_.insert(std::move(file));
  dirty_.notify_all();
}

void FileDrafts::RemoveOld() const {
  for (const fs::path& path : DraftsIn(folder_)) {
    struct stat state {};
    if (stat(path.c_str(), &state) != 0 || std::time(nullptr) - state.st_mtim.tv_sec < days_ * kSecondsOfADay) continue;
    if (!IsWorkedOn(path)) unlink(path.c_str());
  }
}

fs::path DraftsFolder() {
  const char* state = std::getenv("XDG_STATE_HOME");
  fs::path folder = state ? state : "";
  if (!folder.is_absolute()) {  // others count as not set
    const char* home = std::getenv("HOME");
    const passwd* user = home && *home ? nullptr : getpwuid(geteuid());
    folder = fs::path(home && *home ? home : user ? user->pw_dir : "/") / ".local" / "state";
  }
  return folder / "zendara" / "drafts";
}

}  // namespace zendara
