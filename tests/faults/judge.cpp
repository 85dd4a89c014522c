#include "tests/faults/judge.h"

#include <algorithm>

#include "tests/faults/contents.h"

namespace veyra::faults {

namespace {

bool IsUncertain(const std::string& report) {
  return report.find("not certain") != std::string::npos ||
         report.find("not known") != std::string::npos ||
         report.find("saved all the same") != std::string::npos;
}

/// Whether a report of what failed afterwards says that the change before it is made.
bool SaysThatItIsMade(const std::string& report) {
  return report.find("The facility is deleted") != std::string::npos;
}

/// Takes the rows of the booking "Afterwards" out, and returns how many there were.
int TakeBookingAfterwards(std::string& contents) {
  std::string rest;
  int taken = 0;
  for (std::size_t at = 0; at < contents.size();) {
    const std::size_t end = contents.find('\n', at) + 1;
    const std::string line = contents.substr(at, end - at);
    if (line.find("|Afterwards|") == std::string::npos) {
      rest += line;
    } else {
      ++taken;
    }
    at = end;
  }
  contents = rest;
  return taken;
}

/// Nothing that throws is passed over: its report is the fault.
template <typename Work>
std::string Reporting(const Work& work) {
  try {
    return work();
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

}  // namespace

Judge::Judge(const Action& action, const ReadyFolder& ready)
    : action_(action), states_(StatesOf(action, ready)) {}

std::string Judge::FaultOf(const Outcome& outcome, const std::string& folder) const {
  const std::string calendar = folder + "/Calendar.mdb";
  return Reporting([&] {
    if (std::string fault = FaultOfReports(outcome); !fault.empty()) {
      return fault;
    }
    std::string found = Contents(calendar);
    const int afterwards = TakeBookingAfterwards(found);
    if (!IsUncertain(outcome.Afterwards) && afterwards != (outcome.Afterwards == "saved" ? 1 : 0)) {
      return "the booking afterwards is there " + std::to_string(afterwards) +
             " times, its report was: " + outcome.Afterwards;
    }
    const bool may_have_one_more =
        outcome.WasKilled || IsUncertain(outcome.Error) || SaysThatItIsMade(outcome.Error);
    const std::string fault =
        FaultOfRows(found, ReportedAsSaved(outcome), may_have_one_more) + Damage(calendar);
    return fault.empty() ? FaultOfStart(folder) : fault;
  });
}

std::string Judge::FaultOfCut(std::size_t saved, std::size_t made,
                              const std::string& folder) const {
  const std::string calendar = folder + "/Calendar.mdb";
  return Reporting([&] {
    const std::string found = Contents(calendar);
    const auto first = states_.begin() + static_cast<std::ptrdiff_t>(saved);
    const auto last = states_.begin() + static_cast<std::ptrdiff_t>(std::max(saved, made));
    const bool is_one_of_them = std::find(first, last, found) != last;
    const std::string rows = is_one_of_them ? "" : FaultOfRows(found, std::max(saved, made), true);
    const std::string fault = rows + Damage(calendar);
    return fault.empty() && action_.Calendar != Before::InUse ? FaultOfStart(folder) : fault;
  });
}

std::string Judge::FaultOfReports(const Outcome& outcome) const {
  if (outcome.Error.find("damaged") != std::string::npos) {
    return "a sound file is called damaged: " + outcome.Error;
  }
  return {};
}

/// Where no failure was reported all of it must be there, also a change of which it was not certain
/// until it was looked for. Bringing the calendar up to date is silent about failures: the next
/// start does it.
std::size_t Judge::ReportedAsSaved(const Outcome& outcome) const {
  const bool must_be_whole = action_.Calendar == Before::InUse && !outcome.WasKilled;
  return must_be_whole && outcome.Error.empty() ? Changes()
                                                : static_cast<std::size_t>(outcome.Saved);
}

std::string Judge::FaultOfRows(const std::string& found, std::size_t saved,
                               bool may_have_one_more) const {
  const bool has_one_more = found == states_[std::min(saved + 1, Changes())];
  if (found == states_[saved] || (has_one_more && may_have_one_more) ||
      action_.Calendar != Before::InUse) {
    return {};
  }
  return has_one_more ? "the change that was reported as failed was saved\n"
                      : std::to_string(saved) + " changes were reported as saved:\n" +
                            states_[saved] + "The file holds:\n" + found;
}

std::string Judge::FaultOfStart(const std::string& folder) const {
  Office(folder).Start();
  std::string started = Contents(folder + "/Calendar.mdb");
  TakeBookingAfterwards(started);
  return action_.Calendar == Before::InUse || started == states_.back()
             ? ""
             : "the next start makes this of it:\n" + started;
}

}  // namespace veyra::faults
