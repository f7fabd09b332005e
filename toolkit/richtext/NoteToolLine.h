// A line of commands that has room in any width and is reached by the keyboard.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QWidget>

#include <cstddef>
#include <vector>

class QAction;
class QComboBox;
class QMenu;
class QToolButton;

namespace toolkit {

/// How many of the entries, from the first one, are in sight.
/// @param widths  of the entries, pixels.
/// @param room    for all of them, or for some and the button behind which the others are.
/// @param more    width of that button.
[[nodiscard]] TOOLKIT_EXPORT size_t CountInSight(const std::vector<int>& widths, int room,
                                                 int more);

/// Commands, menus and boxes in one line. Those without room are in the menu of the last button: a
/// command as it is, a menu and a box each with its entries below it. For Tab the line is one stop;
/// the arrow keys, Home and End move within it, Down, Enter and the space bar open what opens.
/// Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT NoteToolLine : public QWidget {
    Q_OBJECT

public:
    explicit NoteToolLine(QWidget* parent);

    /// Gives the keyboard to the entry that had it last.
    void Enter();
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// Escape was pressed in the line.
    void Left();

protected:
    /// All become children or must outlive the line. Entries stand in the order of these calls.
    void AddCommand(QAction* action);
    /// @param button  its object's name; title and icon are the menu's.
    void AddMenu(QMenu* menu, const QString& button);
    /// Its accessible name is its title among the entries without room.
    void AddBox(QComboBox* box);
    void AddSeparator();

    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Entry {
        QWidget* widget = nullptr; ///< null: a line between entries
        QAction* hidden = nullptr; ///< what stands for it in the menu
        QComboBox* box = nullptr;  ///< null: none
        QRect lineAt;              ///< of one without a widget; empty: out of sight
    };

    void Add(Entry entry);
    [[nodiscard]] int WidthOf(const Entry& entry) const;
    void Arrange();
    void FillMore();
    [[nodiscard]] bool CanStop(const QWidget& widget) const;
    [[nodiscard]] std::vector<QWidget*> Stops() const;
    /// Tab comes by the entry that had the keyboard last, or by the first one if that can't have
    /// it.
    void ChooseStop();
    bool TakeKey(QWidget& at, int key);
    void Move(QWidget& from, int key);

    std::vector<Entry> m_entries;
    QToolButton* m_more = nullptr;
    QWidget* m_stop = nullptr; ///< the entry that Tab comes by
    QWidget* m_last = nullptr; ///< that had the keyboard
};

} // namespace toolkit
