#include "data/announced_store.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "data/access/access_store.h"
#include "data/forwarding_store.h"
#include "data/open_note.h"
#include "data/posix_file.h"

namespace veyra {

namespace {

/// A computer that knows the file by a link finds the note beside what the link leads to.
std::string Target(const std::string& file) {
  std::error_code error;
  const auto target = std::filesystem::canonical(file, error);
  return error ? file : target.string();
}

class AnnouncedStore : public ForwardingStore {
 public:
  explicit AnnouncedStore(std::unique_ptr<Store> store)
      : ForwardingStore(std::move(store)), file_(Target(FileName())) {
    ChangeNote([this](OpenNote& note) { note.Users.push_back(user_); });
  }

  ~AnnouncedStore() override {
    ChangeNote([this](OpenNote& note) { std::erase(note.Users, user_); });
  }

 private:
  /// Those of this computer who have ended without a word are left out.
  template <typename Change>
  void ChangeNote(const Change& change) {
    const OpenNoteLock lock(file_);
    OpenNote note = ReadOpenNote(file_).value_or(OpenNote());
    std::erase_if(note.Users, [](const OpenUser& user) { return !MayBeRunning(user); });
    change(note);
    if (note.Users.empty()) {
      RemoveOpenNote(file_);
      return;
    }
    try {
      WriteOpenNote(file_, note);
    } catch (const PosixFileError&) {
      // The note only helps other computers: what is booked here does not depend on it.
    }
  }

  std::string file_;
  OpenUser user_ = ThisUser();
};

}  // namespace

/// SQLite's store writes a note of its own.
std::unique_ptr<Store> OpenAnnounced(const std::filesystem::path& file, const WaitPolicy& policy) {
  auto store = OpenStore(file, StoreAccess::ReadWrite, policy);
  if (IsAccessStore(*store)) {
    store = std::make_unique<AnnouncedStore>(std::move(store));
  }
  return store;
}

}  // namespace veyra
