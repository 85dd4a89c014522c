#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>

namespace veyra {

/// Tells the presses that the operator means from those that only go on with what he began before a
/// window or a box came or went: the repeats of a key that is still held down, and the second press
/// of a double click. It is told of every press and release, in their order, and answers whether
/// the windows may have it.
///
/// A held key is one gesture until it is released and no press follows within kHandPause: some
/// platforms send a repeat as a release and a press. The press that begins a gesture is always
/// meant, and so are its repeats as long as no window comes or goes.
///
/// Times are milliseconds of one clock; they may begin anywhere and be in the past.
class GestureGuard {
 public:
  using Time = std::int64_t;

  /// A press of a key belongs to the gesture of which something was heard less than this, in ms,
  /// before it. A release may go unheard, to no window at all.
  static constexpr Time kHandPause = 80;

  /// A press of a mouse button, in pixels of the screen.
  struct Click {
    int Button = 0;
    int X = 0;
    int Y = 0;
    Time At = 0;
  };

  /// Two presses make a double click when they are less than `Interval` ms and no more than
  /// `Distance` pixels, either way, apart.
  struct DoubleClick {
    Time Interval = 0;
    int Distance = 0;
  };

  /// A window or a box has come to the screen or left it.
  void WindowsChanged() { ++scene_; }

  /// Whether the windows may have it. `key` is any number that tells the keys apart. To tell of
  /// one press twice, with the same time, does no harm.
  bool KeyPressed(int key, Time at);
  bool KeyReleased(int key, Time at);

  /// Whether the windows may have it; the release of a press that they may not have they may not
  /// have either. To tell of one press twice does no harm.
  bool ButtonPressed(const Click& click, const DoubleClick& limits);
  bool ButtonReleased(int button);

 private:
  using Scene = std::int64_t;  ///< Counts the comings and goings.

  static constexpr Scene kUnknownScene = -1;

  struct HeldKey {
    Scene BegunIn = kUnknownScene;
    Time Heard = 0;
  };

  struct OpeningClick {
    Scene BegunIn = kUnknownScene;
    Click Press;
  };

  Scene scene_ = 0;
  std::map<int, HeldKey> keys_;
  std::optional<OpeningClick> last_click_;
  std::set<int> kept_buttons_;  ///< Pressed, and kept from the windows.
};

}  // namespace veyra
