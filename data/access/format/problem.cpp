#include "data/access/format/problem.h"

namespace veyra::access {

namespace {

constexpr const char* kRepairAdvice =
    "Open it in Access and choose Compact and Repair, or go back to a copy of the file.";

}  // namespace

DamagedFile::DamagedFile() : DamagedFile("The database file is damaged.") {}

DamagedFile::DamagedFile(const std::string& cause) : FileProblem(cause, kRepairAdvice) {}

OutcomeUnknown::OutcomeUnknown(const FileProblem& cause)
    : FileProblem(cause.what(), cause.advice()) {}

StoreProblem::StoreProblem(Refusal what, std::string name)
    : FileProblem("The change cannot be made.", ""), what_(what), name_(std::move(name)) {}

}  // namespace veyra::access
