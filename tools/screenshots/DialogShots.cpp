#include <QDir>
#include <QFileDialog>
#include <QLinearGradient>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QTemporaryDir>
#include <fstream>

#include "dialogs/CFileInfoDlg.h"
#include "platform/LinuxDriveTable.h"
#include "platform/LinuxFileSystem.h"
#include "playlists/CCopyDlg.h"
#include "playlists/CPlayListDlg.h"
#include "playlists/CopyCommands.h"
#include "qt/dialogs/QtAboutBox.h"
#include "qt/dialogs/QtCoverLoader.h"
#include "qt/dialogs/QtFileInfoDialog.h"
#include "qt/dialogs/QtInputDialog.h"
#include "qt/dialogs/QtMessageBox.h"
#include "qt/dialogs/QtOptionsDialog.h"
#include "qt/dialogs/QtVolumeInfoDialog.h"
#include "qt/dialogs/QtWorkerDialog.h"
#include "scan/CScanDlg.h"
#include "scan/ScanCommands.h"
#include "tools/screenshots/Shots.h"
#include "ui/CLibraryTree.h"

namespace {

// An album folder holding a track and its cover.jpg, painted here.
struct SampleAlbum {
  QTemporaryDir folder;
  platform::LinuxDriveTable drives{folder.path().toStdString()};
  platform::LinuxFileSystem files{drives};
  std::string track = folder.path().toStdString() + "/03 Night Harbour.flac";

  SampleAlbum() {
    QImage cover(300, 300, QImage::Format_RGB32);
    QPainter painter(&cover);
    QLinearGradient sea(0, 0, 0, 300);
    sea.setColorAt(0, QColor(32, 64, 112));
    sea.setColorAt(1, QColor(224, 160, 96));
    painter.fillRect(cover.rect(), sea);
    painter.setBrush(QColor(250, 236, 200));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPoint(150, 190), 46, 46);
    painter.setPen(Qt::white);
    painter.setFont(QFont(QStringLiteral("Sans"), 26, QFont::Bold));
    painter.drawText(QRect(0, 24, 300, 60), Qt::AlignCenter, QStringLiteral("LOW TIDE"));
    painter.end();
    cover.save(folder.path() + QStringLiteral("/cover.jpg"), "JPEG");
    std::ofstream(track) << "not audio: the cover comes from the folder";
  }
};

std::unique_ptr<QWidget> FileInfo() {
  static SampleAlbum album;
  auto covers = std::make_unique<QtCoverLoader>(album.files);
  auto dialog = std::make_unique<QtFileInfoDialog>(nullptr, covers.get());
  covers.release()->setParent(dialog.get());  // goes after the dialog's cover view
  CFileInfoDlg logic(*dialog);
  logic.fileName = "03 Night Harbour.flac";
  logic.title = "Night Harbour";
  logic.artist = "The Quiet Owls";
  logic.album = "Low Tide";
  logic.comment = "Live take";
  logic.length = 270;
  logic.bitRate = 905;
  logic.sampleRate = 44100;
  logic.channels = 2;
  logic.rating = 4;
  logic.type = 4;  // FLAC
  logic.fileId = 1;
  logic.coverPath = album.track;
  dialog->Load(logic.OpeningForm());
  return dialog;
}

std::unique_ptr<QWidget> VolumeInfo() {
  auto dialog = std::make_unique<QtVolumeInfoDialog>();
  dialog->Load({"Jazz Collection 1", "JAZZ_01", "Ripped in spring"});
  return dialog;
}

std::unique_ptr<QWidget> Options() {
  auto dialog = std::make_unique<QtOptionsDialog>();
  dialog->Load({"C:\\QORCache", {"D:\\", "E:\\"}, 1, true});
  return dialog;
}

std::unique_ptr<QWidget> Input() {
  auto dialog = std::make_unique<QtInputDialog>();
  dialog->SetCaption(CPlayListDlg::kSaveCaption);
  dialog->SetPrompt(CPlayListDlg::kSavePrompt);
  dialog->SetEditText("Evening mix");
  dialog->SetOkLabel(CPlayListDlg::kSaveButton);
  return dialog;
}

std::unique_ptr<QWidget> Scan() {
  auto dialog = std::make_unique<QtWorkerDialog>(CScanDlg::kCaption);
  dialog->SetStatusText("C:\\Music\\The Quiet Owls\\Low Tide\\");
  dialog->SetProgressPos(40);
  return dialog;
}

std::unique_ptr<QWidget> Copy() {
  auto dialog = std::make_unique<QtWorkerDialog>(CCopyDlg::kCaption);
  dialog->SetStatusText("E:\\Low Tide\\03 Night Harbour.mp3");
  dialog->SetProgressPos(66);
  return dialog;
}

std::function<std::unique_ptr<QWidget>()> Message(std::string text, platform::Buttons buttons) {
  return [text, buttons] {
    auto box = std::make_unique<QMessageBox>();
    QtMessageBox::Prepare(*box, text, buttons, platform::Icon::Information);
    return std::unique_ptr<QWidget>(std::move(box));
  };
}

// Qt's own folder dialog as the picker shows it, over a folder of samples.
std::unique_ptr<QWidget> FolderPicker() {
  static QTemporaryDir samples;
  for (const char* name : {"Music/Jazz", "Music/Low Tide", "Music/Quiet Owls", "QORCache"})
    QDir(samples.path()).mkpath(QString::fromLatin1(name));
  auto dialog =
      std::make_unique<QFileDialog>(nullptr, ScanCommands::kPickerTitle, samples.path() + QStringLiteral("/Music"));
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  return dialog;
}

}  // namespace

// A context menu as it pops up, its entries those the logic offers.
std::unique_ptr<QWidget> Menu(const char* title, std::span<const platform::MenuEntry> entries) {
  auto menu = std::make_unique<QMenu>();
  menu->setWindowTitle(QString::fromUtf8(title));
  for (const platform::MenuEntry& entry : entries) menu->addAction(QString::fromUtf8(entry.text));
  menu->setActiveAction(menu->actions().value(static_cast<int>(entries.size()) - 2));
  return menu;
}

void AddDialogShots(ShotList& shots) {
  shots.push_back({"play-list-menu.png", [] { return Menu("Play List", CPlayListDlg::kMenu); }});
  shots.push_back({"tree-play-list-menu.png", [] { return Menu("Play list", CLibraryTree::kPlayListMenu); }});
  shots.push_back({"file-info.png", FileInfo});
  shots.push_back({"volume-info.png", VolumeInfo});
  shots.push_back({"options.png", Options});
  shots.push_back({"input.png", Input});
  shots.push_back({"folder-picker.png", FolderPicker});
  shots.push_back({"scan-volume.png", Scan});
  shots.push_back({"copying-files.png", Copy});
  shots.push_back({"message-scan-complete.png", Message(CScanDlg::kComplete, platform::Buttons::Ok)});
  shots.push_back({"message-insert-cd.png", Message("Please Insert CD into drive D:", platform::Buttons::RetryCancel)});
  shots.push_back({"message-clear-cache.png", Message(CopyCommands::kClearCacheQuestion, platform::Buttons::OkCancel)});
  shots.push_back({"about.png", [] { return std::unique_ptr<QWidget>(new QtAboutBox); }});
}
