#include "scan/CScanDlg.h"

#include "platform/MessageBox.h"
#include "scan/CVolumeScanner.h"

namespace {

// "Scan Complete.", then what the user should know about the scan in one box;
// or, for a root that was not scanned, why not.
void TellOutcome(const ScanReport& report, platform::MessageBox& messages) {
  if (!report.Refusal().empty()) {
    messages.Show(report.Refusal(), platform::Buttons::Ok, platform::Icon::Information);
    return;
  }
  messages.Show(CScanDlg::kComplete, platform::Buttons::Ok, platform::Icon::Information);
  const std::string notes = report.Notes();
  if (!notes.empty()) messages.Show(notes, platform::Buttons::Ok, platform::Icon::Information);
}

}  // namespace

CScanDlg::CScanDlg(CVolumeScanner& scanner, platform::MessageBox& messages, WorkerDialogView& view)
    : CWorkerDlg({.timerId = kTimerId,
                  .progress = scanner.Progress(),
                  .work = [&scanner] { scanner.Run(); },
                  .finish =
                      [&scanner, &messages] {
                        if (!scanner.Progress().cancel) TellOutcome(scanner.Report(), messages);
                      }},
                 view) {}
