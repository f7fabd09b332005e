// The commands of the editor of rich texts, as buttons and shortcuts.
#pragma once

#include "toolkit/richtext/NoteCommands.h"

#include <QToolBar>

#include <functional>
#include <vector>

class QAction;
class QComboBox;
class QFontComboBox;

namespace toolkit {

class NoteEdit;

/// Buttons show what holds where the cursor stands. What has no room is behind the button at the
/// end. The shortcuts work while the sheet has the keyboard. Thread: user interface. Owned by its
/// parent; the sheet must outlive it.
class NoteBar final : public QToolBar {
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
        QKeySequence keys;
    };

    QAction* Add(const Command& command, const Deed& deed);
    /// A command that holds or doesn't where the cursor stands.
    void AddSwitch(const Command& command, const Deed& deed, const std::function<bool()>& holds);
    void AddTextCommands();
    void AddParagraphCommands();
    void AddInsertions();
    void AddBoxes();
    void AddTableMenu();
    void ShowWhatHolds();
    void ChooseColor(bool ofText);
    void ChooseFiles(bool areAttached);
    void AskForLink();

    struct Switch {
        QAction* action;
        std::function<bool()> holds;
    };
    NoteEdit& m_sheet;
    std::vector<Switch> m_switches;
    QComboBox* m_heading = nullptr;
    QFontComboBox* m_face = nullptr;
    QComboBox* m_size = nullptr;
};

} // namespace toolkit
