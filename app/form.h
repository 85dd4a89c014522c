#pragma once

#include <utility>

#include "forms/handler_guard.h"

namespace veyra {

/// A window and its logic, which come and go together.
template <class TWindow, class TLogic>
struct Form {
  /// `make_logic` makes the logic over the window, which gets `guard` and `window_arguments`.
  template <class MakeLogic, class... WindowArguments>
  explicit Form(const HandlerGuard& guard, const MakeLogic& make_logic,
                WindowArguments&&... window_arguments)
      : Window(guard, std::forward<WindowArguments>(window_arguments)...),
        Logic(make_logic(Window)) {
    Window.SetHandler(&Logic);
  }
  ~Form() { Window.SetHandler(nullptr); }
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  TWindow Window;
  TLogic Logic;
};

}  // namespace veyra
