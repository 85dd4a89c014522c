#include "tools/companion/command.h"

#include <ostream>

#include "tools/plain_text.h"

namespace veyra {

void Streams::Tell(const Phrase& line) const {
  Out << InWords(line) << '\n';
}

void Streams::TellNotice(const std::optional<veyra::Report>& notice) const {
  if (notice) {
    Out << PlainLines(InWords(ReportText(*notice, "\n"))) << '\n';
  }
}

void Streams::Report(const Phrase& line) const {
  Err << InWords(line) << '\n';
}

}  // namespace veyra
