// The commands of the editor of rich texts, as buttons and shortcuts.
#pragma once

#include "toolkit/richtext/NoteToolLine.h"

#include <QKeySequence>
#include <QList>

#include <functional>
#include <vector>

class QAction;
class QComboBox;
class QFontComboBox;

namespace toolkit {

class NoteEdit;

/// Buttons show what holds where the cursor stands. The shortcuts work while the sheet has the
/// keyboard; those that write do nothing in one that is read only. Alt+F10 leads from the sheet
/// into the line, Escape back. Thread: user interface. Owned by its parent; the sheet must outlive
/// it.
class NoteBar final : public NoteToolLine {
    Q_OBJECT

public:
    NoteBar(NoteEdit& sheet, QWidget* parent);

signals:
    void FindWanted();

private:
    using Deed = std::function<void()>;
    struct Command {
        QString name; ///< of the action
        QString icon;
        QString text;
        QList<QKeySequence> keys; ///< the first one is told first
    };

    enum class Kind { Writes, Looks };
    QAction* Add(const Command& command, const Deed& deed, Kind kind = Kind::Writes);
    /// A command that holds or doesn't where the cursor stands.
    void AddSwitch(const Command& command, const Deed& deed, const std::function<bool()>& holds);
    void AddTextCommands();
    void AddParagraphCommands();
    void AddInsertions();
    void AddBoxes();
    void AddSteps();
    void AddLooks();
    void AddWayIn();
    void ShowWhatHolds();
    void ShowSteps();
    void ChooseFiles(bool areAttached);
    void AskForLink();

    struct Switch {
        QAction* action;
        std::function<bool()> holds;
    };
    NoteEdit& m_sheet;
    std::vector<Switch> m_switches;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QComboBox* m_heading = nullptr;
    QFontComboBox* m_face = nullptr;
    QComboBox* m_size = nullptr;
};

} // namespace toolkit
