#include "tests/data/sqlite/faulty_disk.h"

#include <new>
#include <utility>

namespace veyra {

namespace {

FaultyDisk::Answer g_answer;  // SQLite's interface hands no context to the methods of a file.
sqlite3_vfs* g_real = nullptr;

/// SQLite makes room for it, and for the real file right behind it.
struct File {
  sqlite3_file Base;
  std::string* Name;

  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File& Of(sqlite3_file* file) {
  return *reinterpret_cast<File*>(file);
}

int Ask(sqlite3_file* file, FaultyDisk::Call call) {
  return g_answer(*Of(file).Name, call);
}

#define VEYRA_REAL(file, method, ...) \
  Of(file).Real()->pMethods->method(Of(file).Real() __VA_OPT__(, ) __VA_ARGS__)

int Close(sqlite3_file* file) {
  const int code = VEYRA_REAL(file, xClose);
  delete Of(file).Name;
  return code;
}

int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
  const int code = Ask(file, FaultyDisk::Call::Read);
  return code != SQLITE_OK ? code : VEYRA_REAL(file, xRead, bytes, count, at);
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
  const int code = Ask(file, FaultyDisk::Call::Write);
  return code != SQLITE_OK ? code : VEYRA_REAL(file, xWrite, bytes, count, at);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  const int code = Ask(file, FaultyDisk::Call::Cut);
  return code != SQLITE_OK ? code : VEYRA_REAL(file, xTruncate, size);
}

int Sync(sqlite3_file* file, int flags) {
  const int code = Ask(file, FaultyDisk::Call::Flush);
  return code != SQLITE_OK ? code : VEYRA_REAL(file, xSync, flags);
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
  return VEYRA_REAL(file, xFileSize, size);
}
int Lock(sqlite3_file* file, int kind) {
  return VEYRA_REAL(file, xLock, kind);
}
int Unlock(sqlite3_file* file, int kind) {
  return VEYRA_REAL(file, xUnlock, kind);
}
int CheckReservedLock(sqlite3_file* file, int* is_reserved) {
  return VEYRA_REAL(file, xCheckReservedLock, is_reserved);
}
int FileControl(sqlite3_file* file, int what, void* argument) {
  return VEYRA_REAL(file, xFileControl, what, argument);
}
int SectorSize(sqlite3_file* file) {
  return VEYRA_REAL(file, xSectorSize);
}
int DeviceCharacteristics(sqlite3_file* file) {
  return VEYRA_REAL(file, xDeviceCharacteristics);
}
int ShmMap(sqlite3_file* file, int region, int size, int extend, void volatile** memory) {
  return VEYRA_REAL(file, xShmMap, region, size, extend, memory);
}
int ShmLock(sqlite3_file* file, int offset, int count, int flags) {
  return VEYRA_REAL(file, xShmLock, offset, count, flags);
}
void ShmBarrier(sqlite3_file* file) {
  VEYRA_REAL(file, xShmBarrier);
}
int ShmUnmap(sqlite3_file* file, int remove) {
  return VEYRA_REAL(file, xShmUnmap, remove);
}

#undef VEYRA_REAL

const sqlite3_io_methods kMethods{
    .iVersion = 2,
    .xClose = Close,
    .xRead = Read,
    .xWrite = Write,
    .xTruncate = Truncate,
    .xSync = Sync,
    .xFileSize = FileSize,
    .xLock = Lock,
    .xUnlock = Unlock,
    .xCheckReservedLock = CheckReservedLock,
    .xFileControl = FileControl,
    .xSectorSize = SectorSize,
    .xDeviceCharacteristics = DeviceCharacteristics,
    .xShmMap = ShmMap,
    .xShmLock = ShmLock,
    .xShmBarrier = ShmBarrier,
    .xShmUnmap = ShmUnmap,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out_flags) {
  const int code = g_real->xOpen(g_real, name, Of(file).Real(), flags, out_flags);
  file->pMethods = code == SQLITE_OK ? &kMethods : nullptr;
  Of(file).Name = code == SQLITE_OK ? new std::string(name == nullptr ? "" : name) : nullptr;
  return code;
}

int Delete(sqlite3_vfs*, const char* name, int flush_folder) {
  const int code = g_answer(name, FaultyDisk::Call::Remove);
  return code != SQLITE_OK ? code : g_real->xDelete(g_real, name, flush_folder);
}

}  // namespace

FaultyDisk::FaultyDisk(Answer answer) {
  g_answer = std::move(answer);
  g_real = sqlite3_vfs_find(nullptr);
  disk_ = *g_real;
  disk_.pNext = nullptr;
  disk_.szOsFile = static_cast<int>(sizeof(File)) + g_real->szOsFile;
  disk_.zName = "faulty";
  disk_.xOpen = Open;
  disk_.xDelete = Delete;
  sqlite3_vfs_register(&disk_, 1);
}

FaultyDisk::~FaultyDisk() {
  sqlite3_vfs_unregister(&disk_);
  sqlite3_vfs_register(g_real, 1);
}

}  // namespace veyra
