#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tests/faults/apart.h"
#include "tests/faults/office.h"

namespace veyra::faults {

/// Knows what a calendar must hold after an action that broke off somewhere.
class Judge {
 public:
  Judge(const Action& action, const ReadyFolder& ready);

  /// How many changes the whole action makes.
  std::size_t Changes() const { return states_.size() - 1; }

  /// What is wrong with the calendar that a program of this outcome has left; empty when all is
  /// right. Everything that was reported as saved must be there once. Of a change that was not
  /// reported, nothing may be there when a failure was reported, unless its report says that it is
  /// not certain; one that was at work when the program was killed may be there whole. The file
  /// must be sound, and a start must find it so; a first start that broke off, it must complete.
  std::string FaultOf(const Outcome& outcome, const std::string& folder) const;

  /// The same of a power cut after so many changes were reported, and so many made: of those that
  /// were not reported the first may be there, none of which is missing before another.
  std::string FaultOfCut(std::size_t saved, std::size_t made, const std::string& folder) const;

 private:
  std::string FaultOfReports(const Outcome& outcome) const;
  std::size_t ReportedAsSaved(const Outcome& outcome) const;
  std::string FaultOfRows(const std::string& found, std::size_t saved,
                          bool may_have_one_more) const;
  std::string FaultOfStart(const std::string& folder) const;

  const Action& action_;
  std::vector<std::string> states_;
};

}  // namespace veyra::faults
