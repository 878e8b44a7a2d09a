#include "qt/dialogs/QtText.h"

#include <QStringDecoder>

QString ToQString(const std::string& text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString decoded = utf8.decode(bytes);
  if (!utf8.hasError()) return decoded;
  return QString::fromLatin1(bytes);
}

std::string ToStdString(const QString& text) { return text.toUtf8().toStdString(); }

std::string EditedText(const QString& shown, const std::string& original) {
  return shown == ToQString(original) ? original : ToStdString(shown);
}
