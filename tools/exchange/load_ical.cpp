#include "tools/exchange/load_ical.h"

#include <dlfcn.h>

#include "data/errors.h"

namespace veyra {
namespace {

constexpr const char* kModule = "/veyra-ical.so";

using Entry = const IcalCodec* (*)();

}  // namespace

const IcalCodec& LoadIcal(const std::string& app_folder) {
  const std::string file = app_folder + kModule;
  void* const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = module == nullptr ? nullptr : ::dlsym(module, kIcalEntry);
  if (entry == nullptr) {
    throw FileError(
        {file, Phrase::Tr("This part of the program cannot be loaded."),
         Phrase::Tr("Install the program again. CSV files can be exchanged without it.")});
  }
  return *reinterpret_cast<Entry>(entry)();
}

}  // namespace veyra
