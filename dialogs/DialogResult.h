#pragma once
// How a modal editing dialog was left: its default button (OK, or "Update")
// or Cancel.

enum DialogResult : int { kDialogOk = 1, kDialogCancel = 2 };
