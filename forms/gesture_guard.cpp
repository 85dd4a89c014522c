#include "forms/gesture_guard.h"

#include <cstdlib>

namespace veyra {
namespace {

bool IsWithin(GestureGuard::Time from, GestureGuard::Time to, GestureGuard::Time limit) {
  return to >= from && to - from < limit;
}

bool IsSecondOf(const GestureGuard::Click& first, const GestureGuard::Click& second,
                const GestureGuard::DoubleClick& limits) {
  return second.Button == first.Button && IsWithin(first.At, second.At, limits.Interval) &&
         std::abs(second.X - first.X) <= limits.Distance &&
         std::abs(second.Y - first.Y) <= limits.Distance;
}

}  // namespace

bool GestureGuard::KeyPressed(int key, Time at) {
  const auto [entry, is_new] = keys_.try_emplace(key);
  HeldKey& held = entry->second;
  if (is_new || !IsWithin(held.Heard, at, kHandPause)) {
    held.BegunIn = scene_;
  }
  held.Heard = at;
  return held.BegunIn == scene_;
}

/// A key that was pressed where nobody saw it was pressed for something else.
bool GestureGuard::KeyReleased(int key, Time at) {
  HeldKey& held = keys_[key];
  held.Heard = at;
  return held.BegunIn == scene_;
}

bool GestureGuard::ButtonPressed(const Click& click, const DoubleClick& limits) {
  if (last_click_ && last_click_->BegunIn != scene_ &&
      IsSecondOf(last_click_->Press, click, limits)) {
    kept_buttons_.insert(click.Button);
    return false;
  }
  kept_buttons_.erase(click.Button);
  last_click_ = OpeningClick{scene_, click};
  return true;
}

bool GestureGuard::ButtonReleased(int button) {
  return kept_buttons_.erase(button) == 0;
}

}  // namespace veyra
