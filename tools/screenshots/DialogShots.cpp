#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QTemporaryDir>

#include "dialogs/CFileInfoDlg.h"
#include "playlists/CCopyDlg.h"
#include "playlists/CPlayListDlg.h"
#include "playlists/CopyCommands.h"
#include "qt/dialogs/QtAboutBox.h"
#include "qt/dialogs/QtFileInfoDialog.h"
#include "qt/dialogs/QtInputDialog.h"
#include "qt/dialogs/QtMessageBox.h"
#include "qt/dialogs/QtOptionsDialog.h"
#include "qt/dialogs/QtVolumeInfoDialog.h"
#include "qt/dialogs/QtWorkerDialog.h"
#include "scan/CScanDlg.h"
#include "scan/ScanCommands.h"
#include "tools/screenshots/Shots.h"

namespace {

std::unique_ptr<QWidget> FileInfo() {
  auto dialog = std::make_unique<QtFileInfoDialog>();
  CFileInfoDlg logic(*dialog);
  logic.fileName = "03 Night Harbour.mp3";
  logic.title = "Night Harbour";
  logic.artist = "The Quiet Owls";
  logic.album = "Low Tide";
  logic.comment = "Live take";
  logic.length = 270;
  logic.bitRate = 192;
  logic.sampleRate = 44100;
  logic.channels = 2;
  logic.rating = 4;
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
  auto dialog = std::make_unique<QFileDialog>(nullptr, ScanCommands::kPickerTitle,
                                              samples.path() + QStringLiteral("/Music"));
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  return dialog;
}

}  // namespace

void AddDialogShots(ShotList& shots) {
  shots.push_back({"file-info.png", FileInfo});
  shots.push_back({"volume-info.png", VolumeInfo});
  shots.push_back({"options.png", Options});
  shots.push_back({"input.png", Input});
  shots.push_back({"folder-picker.png", FolderPicker});
  shots.push_back({"scan-volume.png", Scan});
  shots.push_back({"copying-files.png", Copy});
  shots.push_back({"message-scan-complete.png", Message(CScanDlg::kComplete, platform::Buttons::Ok)});
  shots.push_back({"message-insert-cd.png",
                   Message("Please Insert CD into drive D:", platform::Buttons::RetryCancel)});
  shots.push_back({"message-clear-cache.png",
                   Message(CopyCommands::kClearCacheQuestion, platform::Buttons::OkCancel)});
  shots.push_back({"about.png", [] { return std::unique_ptr<QWidget>(new QtAboutBox); }});
}
