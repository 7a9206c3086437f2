// Drafts in a folder of the user's own, a file each, written while typing goes on.
//
// A file is appended to, a line for each change (draft_lines.hpp), by a thread of its own: a key waits for the line of
// the key before it, 40 ms at most when the disk is slow. The disk is asked to make the lines durable behind
// that, as often as it can. So when the program is killed the line of the last key may be missing, and when the machine
// stops those of the last moment.
//
// Whoever works on a draft holds a lock on its file: other programs of the user neither offer nor remove it, until its
// owner is gone.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "zendara/forms/drafts.hpp"

namespace zendara {

class DraftFile;

class FileDrafts : public DraftKeeper {
 public:
  // `folder` is made when it is missing and needed; only its owner can read it. Drafts that nobody has touched for
  // `days` are removed.
  explicit FileDrafts(std::filesystem::path folder, int days = 30);
  // All that was given is written.
  ~FileDrafts() override;
  FileDrafts(const FileDrafts&) = delete;
  FileDrafts& operator=(const FileDrafts&) = delete;

  std::string Keep(const std::string& id, const Draft& draft) override;
  void Leave(const std::string& id) override;
  void Drop(const std::string& id) override;
  std::vector<KeptDraft> Left(const DraftFilter& wanted) override;
  std::string TakeTrouble() override;

 private:
  enum class Deed { kRemoveOld, kKeep, kLeave, kDrop };
  struct Job {
    Deed deed = Deed::kKeep;
    std::string id;
    Draft draft;
  };
  // A draft as it was read from its file in that state.
  struct Read {
    std::int64_t changed = 0;  // nanoseconds
    std::int64_t size = 0;
    KeptDraft kept;
  };

  void Give(Job job);
  void Write();                                     // the thread that writes
  void DoNext(std::unique_lock<std::mutex>& lock);  // of the jobs; `lock` is open meanwhile
  void Sync();                                      // the thread that makes it durable
  void Do(const Job& job);
  void Store(const std::string& id, const Draft& draft);
  void RemoveOld() const;
  std::filesystem::path PathOf(const std::string& id) const { return folder_ / id; }

  const std::filesystem::path folder_;
  const int days_;
  std::map<std::string, Read> read_;

  std::mutex mutex_;  // of what follows
  std::condition_variable given_, done_, dirty_;
  std::deque<Job> jobs_;
  bool busy_ = false;
  bool ends_ = false;
  bool all_written_ = false;
  std::map<std::string, std::shared_ptr<DraftFile>> open_;  // that this program works on
  std::set<std::shared_ptr<DraftFile>> unsynced_;
  std::string trouble_;
  bool troubled_ = false;

  std::thread syncer_;
  std::thread writer_;
};

// $XDG_STATE_HOME/zendara/drafts, ~/.local/state/zendara/drafts without it.
std::filesystem::path DraftsFolder();

}  // namespace zendara
