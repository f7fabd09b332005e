// Eyes of the walk through the client: finds windows and controls, reads them, saves pictures.
#pragma once

#include <QString>

#include <utility>

class QWidget;

namespace tour {

/// The visible window that bears an object name, or whose title begins with the text; the topmost
/// modal one first. Null without one. Thread: user interface.
[[nodiscard]] QWidget* FindWindow(const QString& nameOrTitle);
/// The visible widget with an object name in a window; null without window or widget.
[[nodiscard]] QWidget* FindIn(const QWidget* window, const QString& name);
/// The same as a certain kind of widget; null for another kind.
template <typename T> [[nodiscard]] T* Find(const QString& window, const QString& name) {
    return qobject_cast<T*>(FindIn(FindWindow(window), name));
}
/// The message box that is open; null without one.
[[nodiscard]] QWidget* OpenMessageBox();
/// Clicks one of its buttons by the text on it; texts compare without mnemonics.
bool AnswerMessageBox(const QString& button);
/// What the box says; empty without one.
[[nodiscard]] QString MessageBoxText();
/// All texts that a person can read in a label, combo, line edit, button or status bar.
[[nodiscard]] QString ReadText(const QWidget* widget);

/// A photo has arrived in a pane: at this share of its width and height, off the middle, where
/// words may stand, it hasn't the colour of its corner any more.
[[nodiscard]] bool ShowsPhoto(QWidget* pane, double xShare, double yShare);

/// A picture of the window as it stands on the screen: with the menus, lists and balloons that lie
/// over it. False if the file could not be written.
bool SavePicture(QWidget* window, const QString& path);

} // namespace tour
