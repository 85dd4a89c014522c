#pragma once

#include <QElapsedTimer>
#include <cstdint>
#include <memory>

#include "logic/dialogs.h"

namespace veyra {

class QtProgressBox;

/// A box over the window in use that counts the steps of a long action. While it is on the screen
/// no other window takes input; before that, in the first half second, no event is looked at.
class QtProgress : public Progress {
 public:
  QtProgress(const Phrase& text, EarlyEnd early_end);
  ~QtProgress() override;

  bool Report(std::int64_t done, std::int64_t total) override;

 private:
  void Show();

  Phrase text_;
  EarlyEnd early_end_;
  QElapsedTimer since_start_;
  QElapsedTimer since_look_;
  std::unique_ptr<QtProgressBox> box_;
  bool ended_ = false;
};

}  // namespace veyra
