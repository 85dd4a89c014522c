#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <functional>

namespace veyra {

/// Lets the program go on as it does by itself, which comes to rest when there is nothing to do,
/// until `what` is so. Returns whether it came to be so within that time, in ms.
inline bool Comes(const std::function<bool()>& what, int patience = 20'000) {
  constexpr int kLook = 5;
  QElapsedTimer time;
  time.start();
  while (!what() && time.elapsed() < patience) {
    QEventLoop loop;
    QTimer::singleShot(kLook, &loop, &QEventLoop::quit);
    loop.exec();
  }
  return what();
}

}  // namespace veyra
