#include "qt/PlaybackIcons.h"

#include <QApplication>
#include <QPushButton>
#include <QStyle>

QIcon PlaybackIcon(std::string_view label) {
  QStyle* style = QApplication::style();
  if (label == "|>") return style->standardIcon(QStyle::SP_MediaPlay);
  if (label == "[]") return style->standardIcon(QStyle::SP_MediaStop);
  if (label == "|>|>") return style->standardIcon(QStyle::SP_MediaSeekForward);
  return {};
}

void ShowPicture(QPushButton& button, std::string_view label) {
  button.setAccessibleName(QString::fromUtf8(label.data(), static_cast<qsizetype>(label.size())));
  button.setText({});
  button.setIcon(PlaybackIcon(label));
}
