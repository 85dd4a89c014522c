#include "help/chm_objects.h"

#include <chm_lib.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace veyra {
namespace {

constexpr off_t kPlaceOfFirstSection = 0x38;
constexpr off_t kFileSizeInFirstSection = 8;

/// The archive that is being read. The library opens it by a name, and hands nothing on to `open`
/// that could tell of it.
int g_archive = -1;

std::optional<std::uint64_t> NumberAt(int archive, off_t place) {
  std::array<unsigned char, 8> bytes{};
  if (pread(archive, bytes.data(), bytes.size(), place) != ssize_t{bytes.size()}) {
    return std::nullopt;
  }
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i > 0; --i) {
    number = number << 8U | bytes[i - 1];
  }
  return number;
}

/// Whether the file is as long as its header says. The library does not look: of a file cut short
/// it delivers wrong bytes as good ones.
bool IsWhole(int archive) {
  const off_t end = lseek(archive, 0, SEEK_END);
  const auto size = static_cast<std::uint64_t>(std::max<off_t>(end, 0));
  const auto section = NumberAt(archive, kPlaceOfFirstSection);
  if (!section || *section > size) {
    return false;
  }
  const auto stated = NumberAt(archive, static_cast<off_t>(*section) + kFileSizeInFirstSection);
  return stated && *stated <= size;
}

struct Reading {
  const std::function<void(const HelpObject&)>& Take;
  std::size_t BytesLeft = kMostArchiveBytes;
};

int ReadObject(chmFile* archive, chmUnitInfo* unit, void* context) {
  auto& reading = *static_cast<Reading*>(context);
  if (unit->length > reading.BytesLeft) {
    return CHM_ENUMERATOR_FAILURE;
  }
  HelpObject object{unit->path, std::string(unit->length, '\0')};
  const auto length = static_cast<LONGINT64>(unit->length);
  auto* bytes = reinterpret_cast<unsigned char*>(object.Bytes.data());
  if (length > 0 && chm_retrieve_object(archive, unit, bytes, 0, length) != length) {
    return CHM_ENUMERATOR_FAILURE;
  }
  reading.BytesLeft -= object.Bytes.size();
  reading.Take(object);
  return CHM_ENUMERATOR_CONTINUE;
}

}  // namespace

bool ForEachObject(int archive, const std::function<void(const HelpObject&)>& take) {
  if (!IsWhole(archive)) {
    return false;
  }
  g_archive = archive;
  const std::unique_ptr<chmFile, decltype(&chm_close)> file(chm_open(""), &chm_close);
  if (!file) {
    return false;
  }
  Reading reading{take};
  const int what = CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_SPECIAL | CHM_ENUMERATE_FILES;
  return chm_enumerate(file.get(), what, &ReadObject, &reading) != 0;
}

}  // namespace veyra

// In place of the C library's: whatever the library behind an archive opens, it is given the
// archive that is open already, for no other can be opened any more.
extern "C" {

int open(const char*, int, ...) {
  return veyra::g_archive;
}

int open64(const char*, int, ...) {
  return veyra::g_archive;
}

}  // extern "C"
