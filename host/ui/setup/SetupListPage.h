// A page of the settings: one list with its buttons.
#pragma once

#include "host/ui/setup/SetupListModel.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QHBoxLayout;

namespace host {

class HintTable;

/// Rows are added, removed, ordered, edited in place, pasted. Doesn't know the site: who may remove
/// is asked of the window. Owned by its parent widget. Thread: user interface.
class SetupListPage final : public QWidget {
    Q_OBJECT

public:
    /// What of a page is its own.
    struct Looks {
        QString name; ///< of its objects, as "marks"
        QString title;
        QString what;  ///< "标识"
        QString about; ///< a sentence or two above the list
    };

    SetupListPage(QWidget* parent, const Looks& looks, SetupListModel* listModel);

    [[nodiscard]] SetupListModel& Model() const { return *m_model; }
    [[nodiscard]] HintTable& Table() const { return *m_table; }
    /// -1: none.
    [[nodiscard]] int CurrentRow() const;
    void SelectRow(int row);
    /// One more button, on the left below the list.
    void AddButton(QPushButton* button);
    /// Ends typing into a cell; what stands there is taken.
    void EndTyping();

signals:
    /// The person wants this row gone.
    void RemovalWanted(int row);
    void PasteWanted();
    /// Another row is the current one, or the rows have changed.
    void RowChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeTable();
    void Add();
    void Move(bool up);
    void EnableButtons();

    SetupListModel* m_model = nullptr;
    HintTable* m_table = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPushButton* m_paste = nullptr;
    QHBoxLayout* m_buttons = nullptr;
};

} // namespace host
