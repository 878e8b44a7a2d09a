#pragma once
// Message boxes as QMessageBox. Show may be called from any thread: on the
// user-interface thread the box runs at once; from a worker it runs on the
// user-interface thread and the worker waits for the answer, so that thread
// must keep its event loop turning meanwhile (never block it on the worker).
// Construct and set the parent on the user-interface thread.

#include <QPointer>
#include <QWidget>

#include "platform/MessageBox.h"
#include "qt/dialogs/QueuedCalls.h"

class QMessageBox;

class QtMessageBox : public platform::MessageBox {
 public:
  static constexpr const char* kCaption = "Tandrelo Vantrelle";

  explicit QtMessageBox(QWidget* parent = nullptr);

  // The window the boxes belong to; may go away before this object.
  void SetParent(QWidget* parent);

  platform::Answer Show(const std::string& text, platform::Buttons buttons, platform::Icon icon) override;

  // Gives a box the text, buttons, icon and caption used here.
  static void Prepare(QMessageBox& box, const std::string& text, platform::Buttons buttons, platform::Icon icon);

 private:
  platform::Answer ShowHere(const std::string& text, platform::Buttons buttons, platform::Icon icon);

  QPointer<QWidget> parent_;
  QueuedCalls onItsThread_;  // the user-interface thread's, where this is made
};

// From now on a failed catalogue statement, which ends the program, is shown
// in a box with the error icon first; ShowCatalogueFailuresIn(nullptr) stops
// that (before the boxes go away).
void ShowCatalogueFailuresIn(QtMessageBox* messages);
