#include "qt/RunningWindow.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include "qt/MprisService.h"
#include "qt/SessionBus.h"

namespace {

// A program that holds its window up answers at once; one that does not
// answer in this time is not worth waiting for.
constexpr int kAnswerWaitMs = 5000;

}  // namespace

bool RaiseRunningWindow(int holderPid) {
  if (holderPid <= 0 || !HasSessionBusAddress()) return false;
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected() || !bus.interface()) return false;
  const QString name = QString::fromLatin1(MprisService::kBusName);
  // The bus name must belong to the program that holds this catalogue, not
  // to a program of another catalogue.
  const auto owner = bus.interface()->servicePid(name);
  if (!owner.isValid() || static_cast<int>(owner.value()) != holderPid) return false;
  const QDBusMessage raise =
      QDBusMessage::createMethodCall(name, QString::fromLatin1(MprisService::kObjectPath),
                                     QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("Raise"));
  return bus.call(raise, QDBus::Block, kAnswerWaitMs).type() == QDBusMessage::ReplyMessage;
}
