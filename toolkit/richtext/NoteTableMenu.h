// What is done with tables, as a menu.
#pragma once

#include <QMenu>

namespace toolkit {

class NoteEdit;
enum class TableDeed;

/// A new table by the field of squares or by two numbers, then what can be done to the table of the
/// cursor. Thread: user interface. Owned by its parent; the sheet must outlive it.
class NoteTableMenu final : public QMenu {
    Q_OBJECT

public:
    NoteTableMenu(NoteEdit& sheet, QWidget* parent);

private:
    void AddNew();
    void AddDeeds();
    void Insert(int rows, int columns);
    void AskForSize();
    void Change(TableDeed deed);

    NoteEdit& m_sheet;
};

} // namespace toolkit
