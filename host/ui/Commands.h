// What a person can ask of the client by menu, toolbar and key.
#pragma once

#include <QKeySequence>
#include <QString>

#include <vector>

namespace host {

enum class Command {
    NewProject,
    Import,
    ImportDrawing,
    OpenFolder,
    Quit,
    BimConsole,
    PdfConsole,
    IssueConsole,
    RaiseIssue,
    OpenByCode,    ///< the issue of a QR code in a picture
    PlacePhotos,   ///< photos of the chosen intersection
    FloorIssues,   ///< issues of the shown floor
    DrawingPhotos, ///< photos of the current drawing
    ExportList,    ///< the console's, as a spreadsheet
    Bin,
    RecordVersions, ///< of the texts below the photos
    Drafts,         ///< of such texts that weren't saved
    Setup,          ///< of the site: people, marks, floors, ...
    Inbox,          ///< photos without a place or a mark
    FileTicked,     ///< the console's ticked rows, all at once
    PlanFace,
    DrawingFace,
    Refresh,
    ClearMessages,
    CatchUp,     ///< what others filed
    MarkAllRead, ///< of it
    Keys,
    About,
};

/// One line of a menu, possibly with a button on the toolbar.
struct CommandRow {
    Command command;
    QString menu; ///< title of the menu in which it stands
    QString text;
    QString icon; ///< may be empty
    QKeySequence key;
    QString tip;            ///< without the key
    QString toolText;       ///< empty: not on the toolbar
    bool afterLine = false; ///< a separating line stands before it, in menu and toolbar
};

/// All commands in the order of the menus.
[[nodiscard]] const std::vector<CommandRow>& CommandTable();
/// "tip（Ctrl+1）"; the tip alone without a key.
[[nodiscard]] QString TipWithKey(const CommandRow& row);
/// The keys of all commands and of the floor plan, for the help window; one a line.
[[nodiscard]] QString KeysText();

} // namespace host
