#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "app/file_opener.h"
#include "data/errors.h"
#include "tests/fuzz/input_file.h"

namespace {

constexpr int kReadByLines = 2;

class NoDialogs : public veyra::Dialogs {
 public:
  veyra::Answer MsgBox(const veyra::Message&) override { return veyra::Answer::Ok; }
  std::string InputBox(const veyra::Phrase&, const veyra::Phrase&, const std::string&) override {
    return {};
  }
  std::unique_ptr<veyra::Progress> StartProgress(const veyra::Phrase&, veyra::EarlyEnd) override {
    return nullptr;
  }
};

}  // namespace

/// A path.txt of any content is read line by line, or refused with a report.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  veyra::WriteInputFile(data, size);
  NoDialogs dialogs;
  veyra::Files files("/nowhere", dialogs);
  std::string name = veyra::InputFile();
  const int handle = files.FileOpener(name, kReadByLines, 0, false);
  try {
    while (!files.AtEnd(handle)) {
      if (files.ReadLine(handle).size() > veyra::Files::kLongestLine) {
        std::abort();
      }
    }
  } catch (const veyra::FileError&) {
    return 0;
  }
  return 0;
}
