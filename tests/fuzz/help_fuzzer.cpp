#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "data/errors.h"
#include "help/archive_stream.h"
#include "help/chm_archive.h"
#include "help/html_text.h"

namespace {

void LookAtEverything(const veyra::ChmArchive& archive) {
  for (const std::string& page : archive.Pages()) {
    if (const auto html = archive.Page(page)) {
      veyra::PlainText(*html);
      veyra::PageTitle(*html);
    }
    archive.Object(page + "#anchor");
  }
  for (const int number : {0, 20, 30, 60, 80}) {
    archive.Topic(number);
  }
  archive.FirstPage();
  archive.Contents();
}

}  // namespace

/// What a help archive's reader hands over is shown, or refused with a report.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto objects =
      veyra::ObjectsOfStream(std::string_view(reinterpret_cast<const char*>(data), size));
  if (!objects) {
    return 0;
  }
  try {
    LookAtEverything(veyra::ChmArchive(std::move(*objects)));
  } catch (const veyra::Error&) {
    return 0;
  }
  return 0;
}
