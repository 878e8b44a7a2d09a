#pragma once
// Text between the logic (8-bit strings, UTF-8 on Linux) and Qt's widgets.
// Any thread.

#include <QString>
#include <string>

// UTF-8 text as it reads; a byte sequence that is not valid UTF-8 (a
// catalogue brought from elsewhere) is shown as Latin-1.
QString ToQString(const std::string& text);

std::string ToStdString(const QString& text);

// What an edit that was filled with `original` holds now: the original bytes
// when the user left the text as it was shown, so that text that is not
// UTF-8 comes back unchanged; otherwise the edit's text as UTF-8.
std::string EditedText(const QString& shown, const std::string& original);
