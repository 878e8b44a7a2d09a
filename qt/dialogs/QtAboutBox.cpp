#include "qt/dialogs/QtAboutBox.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "qt/dialogs/QtDialogParts.h"
#include "qt/dialogs/QtDialogUnits.h"

namespace {

// A link to the document, or its bare name when it cannot be found.
QString DocumentLink(const QString& name, const QString& label) {
  const QString path = QtAboutBox::FindDocument(name);
  if (path.isEmpty()) return label.toHtmlEscaped();
  const QString url = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
  return QStringLiteral("<a href=\"%1\">%2</a>").arg(url.toHtmlEscaped(), label.toHtmlEscaped());
}

QLabel* CentredLabel(const QString& html, QWidget* parent) {
  auto* label = new QLabel(html, parent);
  label->setAlignment(Qt::AlignCenter);
  label->setTextFormat(Qt::RichText);
  return label;
}

}  // namespace

QString QtAboutBox::FindDocument(const QString& name) {
  const QString program = QCoreApplication::applicationDirPath();
  for (const QString& folder :
       {program, program + QStringLiteral("/.."), program + QStringLiteral("/../share/doc/vantrelle"),
        QStringLiteral(VANTRELLE_SOURCE_DIR)}) {
    const QFileInfo file(QDir(folder), name);
    if (file.isFile()) return file.canonicalFilePath();
  }
  return {};
}

QtAboutBox::QtAboutBox(QWidget* parent) : QDialog(parent) {
  setWindowTitle(QStringLiteral("About %1").arg(QString::fromLatin1(kProduct)));
  auto* column = new QVBoxLayout(this);
  SetMarginsDu(*column, *this, 14, 10);
  column->setSpacing(DialogUnitsY(*this, 5));
  const QIcon icon = QApplication::windowIcon();
  if (!icon.isNull()) {
    auto* picture = new QLabel(this);
    picture->setPixmap(icon.pixmap(48, 48));
    picture->setAlignment(Qt::AlignCenter);
    column->addWidget(picture);
  }
  column->addWidget(CentredLabel(QStringLiteral("<b style=\"font-size:large\">%1</b><br>%2")
                                     .arg(QString::fromLatin1(kProduct), QString::fromLatin1(kVersion)),
                                 this));
  QLabel* links =
      CentredLabel(DocumentLink(QStringLiteral("README.md"), QStringLiteral("README")) + QStringLiteral(" &middot; ") +
                       DocumentLink(QStringLiteral("LICENSE"), QStringLiteral("Licence")),
                   this);
  links->setTextInteractionFlags(Qt::TextBrowserInteraction);
  links->setOpenExternalLinks(true);
  column->addWidget(links);
  QPushButton* ok = MakeButton(*this, QStringLiteral("OK"), 50, 14);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  column->addLayout(CentredRow(*this, {ok}, 0));
  setMinimumWidth(DialogUnitsX(*this, 160));
}

void ShowAboutBox(QWidget* parent) {
  QtAboutBox box(parent);
  box.exec();
}
