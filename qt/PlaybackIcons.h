#pragma once
// The pictures that the playback buttons show instead of their labels
// ("|>" play, "[]" stop, "|>|>" skip forward). User-interface thread only.

#include <QIcon>
#include <string_view>

class QPushButton;

// The picture for a playback label, or a null icon for any other label.
QIcon PlaybackIcon(std::string_view label);
// Gives the button the label's picture in place of its text; the label
// stays its accessible name.
void ShowPicture(QPushButton& button, std::string_view label);
