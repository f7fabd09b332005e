// What a person does and sees on a road through the client: flags, photo viewer, editor, boxes.
#pragma once

#include "host/ui/marks/MarkFlag.h"

#include <QColor>
#include <QStringList>

#include <functional>

class QWidget;

namespace host {
class FloorPlanCanvas;
}

namespace roads {

/// The hands fail the test where a person couldn't do it. Thread: user interface.

void ClickOn(const QWidget& window, const QString& name);
void ChooseIn(const QWidget& window, const QString& name, const QString& entry);
void Type(const QWidget& window, const QString& name, const QString& text);

/// Clicks the icon of a row of the console by the caption of its column.
void ClickRowIcon(int row, const QString& caption);
/// All texts of a column on the console's page.
[[nodiscard]] QStringList ConsoleColumnTexts(const QString& caption);
/// First row of the console with this name of a photo; -1: none.
[[nodiscard]] int RowOfPhoto(const QString& fileName);
/// Row that is selected; -1: none.
[[nodiscard]] int SelectedRow();

/// The flag of photos at a key of the shown floor; count 0: there is none.
[[nodiscard]] host::MarkFlag PhotoFlag(const host::FloorPlanCanvas& plan, const QString& key,
                                       qint32 markId);
/// Clicks the middle of a flag.
void ClickFlag(host::FloorPlanCanvas& plan, const QString& key, qint32 markId);
/// Opens a flag's menu by the right button and clicks the entry that begins with a text, after a
/// slash one of the menu below it; something may happen while the menu stands open.
void ChooseOfFlag(host::FloorPlanCanvas& plan, const QString& key, qint32 markId,
                  const QString& entry, const std::function<void()>& meanwhile = {});

/// The flag of issues of a mark on the shown floor; count 0: there is none.
[[nodiscard]] host::MarkFlag IssueFlag(const host::FloorPlanCanvas& plan, qint32 markId);
/// As ChooseOfFlag.
void ChooseOfIssueFlag(host::FloorPlanCanvas& plan, qint32 markId, const QString& entry);

/// The photo viewer's window; null while there is none.
[[nodiscard]] QWidget* Viewer();
[[nodiscard]] QString ViewerTitle();
/// A line of the viewer's texts by the control's name; empty without a viewer.
[[nodiscard]] QString ViewerText(const QString& name);
/// True once the middle of the viewer's picture has this colour, or one that JPEG made of it.
[[nodiscard]] bool ViewerShows(QRgb color);
/// Until the record below the pictures is read.
void WaitForRecord();
void CloseViewer();

/// Does what brings up a message box, reads the box and closes it by its button. A box that doesn't
/// come fails the test.
[[nodiscard]] QString BoxDuring(const std::function<void()>& action);
/// The same for an action that brings up several, one on another or one after another; in the order
/// in which they were answered.
[[nodiscard]] QStringList BoxesDuring(const std::function<void()>& action);
/// Object names of the windows in sight, minimised ones included.
[[nodiscard]] QStringList OpenWindows();

} // namespace roads
