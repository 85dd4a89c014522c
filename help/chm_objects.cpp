#include "help/chm_objects.h"

#include <chm_lib.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace veyra {
namespace {

constexpr std::streamoff kPlaceOfFirstSection = 0x38;
constexpr std::streamoff kFileSizeInFirstSection = 8;

std::uint64_t NumberAt(std::ifstream& file, std::streamoff place) {
  std::array<unsigned char, 8> bytes{};
  file.seekg(place);
  file.read(reinterpret_cast<char*>(bytes.data()), bytes.size());
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i > 0; --i) number = number << 8U | bytes[i - 1];
  return number;
}

/// Whether the file is as long as its header says. The library does not look: of a file cut short
/// it delivers wrong bytes as good ones.
bool IsWhole(const std::string& file_name) {
  std::ifstream file(file_name, std::ios::binary);
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(file_name, failure);
  const std::uint64_t section = NumberAt(file, kPlaceOfFirstSection);
  if (failure || !file || section > size) return false;
  const std::uint64_t stated =
      NumberAt(file, static_cast<std::streamoff>(section) + kFileSizeInFirstSection);
  return file && stated <= size;
}

struct Reading {
  const std::function<void(const HelpObject&)>& Take;
  std::size_t BytesLeft = kMostArchiveBytes;
};

int ReadObject(chmFile* archive, chmUnitInfo* unit, void* context) {
  auto& reading = *static_cast<Reading*>(context);
  if (unit->length > reading.BytesLeft) return CHM_ENUMERATOR_FAILURE;
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

bool ForEachObject(const std::string& file_name,
                   const std::function<void(const HelpObject&)>& take) {
  if (!IsWhole(file_name)) return false;
  const std::unique_ptr<chmFile, decltype(&chm_close)> archive(chm_open(file_name.c_str()),
                                                               &chm_close);
  if (!archive) return false;
  Reading reading{take};
  const int what = CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_SPECIAL | CHM_ENUMERATE_FILES;
  return chm_enumerate(archive.get(), what, &ReadObject, &reading) != 0;
}

}  // namespace veyra
