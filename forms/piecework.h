#pragma once

#include <chrono>

namespace veyra {

/// A screen behind which something is done piece by piece, so that it goes on answering meanwhile.
class PieceworkView {
 public:
  virtual ~PieceworkView() = default;

  /// Asks for the next piece again and again, whenever there is nothing else to be done, or for no
  /// more of them.
  virtual void KeepWorking(bool working) = 0;
};

/// How long a piece takes: short enough that nobody feels it in what he types.
inline constexpr std::chrono::milliseconds kPiece{12};

/// Does a piece of the work, and has the screen ask for the next one as long as anything is left.
/// Throws what the work throws: then no more is asked for.
template <typename Work>
void DoPiece(Work& work, PieceworkView& view) {
  try {
    view.KeepWorking(work.WorkOn(kPiece));
  } catch (...) {
    view.KeepWorking(false);
    throw;
  }
}

}  // namespace veyra
