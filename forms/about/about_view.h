#pragma once

namespace veyra {

/// What the about box's logic tells its screen. The screen reports gestures to frmAbout.
class AboutView {
 public:
  virtual ~AboutView() = default;

  /// Takes the window off the screen for good.
  virtual void CloseWindow() = 0;
};

}  // namespace veyra
