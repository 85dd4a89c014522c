#pragma once

#include <sqlite3.h>

#include <functional>
#include <map>
#include <stdexcept>
#include <utility>

namespace veyra {

/// What SQLite asks of the disk.
enum class DiskCall { Open, Read, Write, Flush, MapIndex };

/// Stands between SQLite and the disk for as long as it lives: `rule` is asked before each call for
/// a file that is opened meanwhile, and answers SQLITE_OK to let it pass or the failure to report.
class DiskShim {
 public:
  using Rule = std::function<int(DiskCall)>;

  explicit DiskShim(Rule rule) {
    Current() = this;
    rule_ = std::move(rule);
    disk_ = sqlite3_vfs_find(nullptr);
    shim_ = *disk_;
    shim_.zName = "disk_shim";
    shim_.xOpen = Open;
    if (sqlite3_vfs_register(&shim_, 1) != SQLITE_OK) {
      throw std::runtime_error("cannot stand before the disk");
    }
  }
  ~DiskShim() {
    sqlite3_vfs_unregister(&shim_);
    Current() = nullptr;
  }
  DiskShim(const DiskShim&) = delete;
  DiskShim& operator=(const DiskShim&) = delete;

 private:
  static DiskShim*& Current() {
    static DiskShim* current = nullptr;
    return current;
  }
  /// The shim's own methods for files of one way of locking.
  sqlite3_io_methods& ShimFor(const sqlite3_io_methods* disk) {
    sqlite3_io_methods& shimmed = shimmed_[disk];
    shimmed = *disk;
    shimmed.xRead = Read;
    shimmed.xWrite = Write;
    shimmed.xSync = Flush;
    if (disk->xShmMap != nullptr) {
      shimmed.xShmMap = MapIndex;
    }
    return shimmed;
  }

  static const sqlite3_io_methods& Disk(const sqlite3_file* file) {
    for (const auto& [disk, shimmed] : Current()->shimmed_) {
      if (file->pMethods == &shimmed) {
        return *disk;
      }
    }
    throw std::logic_error("a file that was not opened by the shim");
  }

  static int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out) {
    DiskShim& shim = *Current();
    if (const int refused = shim.rule_(DiskCall::Open); refused != SQLITE_OK) {
      file->pMethods = nullptr;
      return refused;
    }
    const int code = shim.disk_->xOpen(shim.disk_, name, file, flags, out);
    if (code == SQLITE_OK && file->pMethods != nullptr) {
      file->pMethods = &shim.ShimFor(file->pMethods);
    }
    return code;
  }

  static int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
    const int code = Current()->rule_(DiskCall::Read);
    return code != SQLITE_OK ? code : Disk(file).xRead(file, bytes, count, at);
  }
  static int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    const int code = Current()->rule_(DiskCall::Write);
    return code != SQLITE_OK ? code : Disk(file).xWrite(file, bytes, count, at);
  }
  static int Flush(sqlite3_file* file, int flags) {
    const int code = Current()->rule_(DiskCall::Flush);
    return code != SQLITE_OK ? code : Disk(file).xSync(file, flags);
  }
  static int MapIndex(sqlite3_file* file, int page, int size, int extend, void volatile** out) {
    const int code = Current()->rule_(DiskCall::MapIndex);
    return code != SQLITE_OK ? code : Disk(file).xShmMap(file, page, size, extend, out);
  }

  Rule rule_;
  sqlite3_vfs* disk_ = nullptr;
  sqlite3_vfs shim_{};
  std::map<const sqlite3_io_methods*, sqlite3_io_methods> shimmed_;
};

}  // namespace veyra
