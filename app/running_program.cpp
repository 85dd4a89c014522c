#include "app/running_program.h"

#include <unistd.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocalSocket>
#include <QLockFile>
#include <filesystem>
#include <system_error>

namespace veyra {
namespace {

constexpr int kConnecting = 1'000;
constexpr const char* kRuntimeFolder = "XDG_RUNTIME_DIR";
constexpr const char* kToken = "XDG_ACTIVATION_TOKEN";
constexpr char kEndOfLine = '\n';

/// The socket of the user's program that has the folder open on this screen; empty when there is no
/// such folder. A screen is one, since nobody sees what comes to the front of another.
QString SocketName(const std::filesystem::path& data_folder) {
  std::error_code error;
  const auto folder = std::filesystem::canonical(data_folder, error);
  if (error || data_folder.empty()) {
    return {};
  }
  QCryptographicHash hash(QCryptographicHash::Sha256);
  for (const QByteArray& part :
       {QByteArray(folder.c_str()), qgetenv("WAYLAND_DISPLAY"), qgetenv("DISPLAY")}) {
    hash.addData(part);
    hash.addData(QByteArray(1, '\0'));
  }
  const QString place = qEnvironmentVariable(kRuntimeFolder, QDir::tempPath());
  return place + QStringLiteral("/veyra-calendar-%1-").arg(geteuid()) +
         QString::fromLatin1(hash.result().toHex().left(16));
}

/// In a folder that all users write to, another's socket would only wait to be asked.
bool IsOwn(const QString& socket) {
  const QFileInfo file(socket);
  return file.exists() && file.ownerId() == geteuid();
}

/// Asks the program that listens there to come to the front; returns whether it did.
bool HasCome(const QString& name) {
  if (!IsOwn(name)) {
    return false;
  }
  QLocalSocket socket;
  socket.connectToServer(name);
  if (!socket.waitForConnected(kConnecting)) {
    return false;
  }
  socket.write(qgetenv(kToken) + kEndOfLine);
  return socket.waitForBytesWritten(kConnecting) &&
         socket.waitForReadyRead(RunningProgram::kAnswer);
}

void BringToFront(QWindow& window) {
  window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
  window.raise();
  window.requestActivate();
}

QWindow* AnyShown() {
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    if (window->isVisible()) {
      return window;
    }
  }
  return nullptr;
}

}  // namespace

RunningProgram::RunningProgram() {
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server_, &QLocalServer::newConnection, this, &RunningProgram::Answer);
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* window) {
    if (window != nullptr) {
      last_used_ = window;
    }
  });
}

bool RunningProgram::Claim(const std::filesystem::path& data_folder) {
  const QString name = SocketName(data_folder);
  if (name.isEmpty()) {
    return true;
  }
  // Two that start at the same moment ask one after the other.
  QLockFile lock(name + QStringLiteral(".lock"));
  lock.tryLock(kAnswer);
  if (HasCome(name)) {
    return false;
  }
  QLocalServer::removeServer(name);
  server_.listen(name);
  return true;
}

void RunningProgram::Answer() {
  QLocalSocket* asker = server_.nextPendingConnection();
  connect(asker, &QLocalSocket::disconnected, asker, &QObject::deleteLater);
  connect(asker, &QLocalSocket::readyRead, this, [this, asker] {
    if (!asker->canReadLine()) {
      return;
    }
    qputenv(kToken, asker->readLine().trimmed());
    if (QWindow* window = last_used_ && last_used_->isVisible() ? last_used_.data() : AnyShown()) {
      BringToFront(*window);
    }
    asker->write(QByteArray(1, kEndOfLine));
    asker->flush();
  });
}

}  // namespace veyra
