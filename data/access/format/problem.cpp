#include "data/access/format/problem.h"

namespace veyra::access {

namespace {

Phrase RepairAdvice() {
  return Phrase::Tr(
      "Open it in Access and choose Compact and Repair, or go back to a copy of the file.");
}

}  // namespace

DamagedFile::DamagedFile() : DamagedFile(Phrase::Tr("The database file is damaged.")) {}

DamagedFile::DamagedFile(const Phrase& cause) : FileProblem(cause, RepairAdvice()) {}

OutcomeUnknown::OutcomeUnknown(const FileProblem& cause)
    : FileProblem(cause.cause(), cause.advice()) {}

StoreProblem::StoreProblem(Refusal what, std::string name)
    : FileProblem(Phrase::Tr("The change cannot be made."), ""),
      what_(what),
      name_(std::move(name)) {}

}  // namespace veyra::access
