// The dock that lists what others filed since one last looked.
#pragma once

#include "host/ui/catchup/CatchUpModel.h"

#include <QDockWidget>

class QLabel;
class QListView;
class QToolButton;

namespace host {

/// Owns the rows; tells what the person wants of them. Lives on the interface thread, owned by the
/// main window.
class CatchUpDock final : public QDockWidget {
    Q_OBJECT

public:
    explicit CatchUpDock(QWidget* parent);

    [[nodiscard]] CatchUpModel& Model() const { return *m_model; }
    /// @param unread  0: none.
    void ShowUnread(const QString& unread);
    /// The list takes the keys; without rows nothing does.
    void TakeFocus();

signals:
    /// Clicked, or chosen by the keyboard.
    void ItemWanted(int row);
    void AllReadWanted();

private:
    void ShowHint();

    CatchUpModel* m_model = nullptr;
    QListView* m_list = nullptr;
    QLabel* m_hint = nullptr;
    QLabel* m_count = nullptr;
    QToolButton* m_markAll = nullptr;
};

} // namespace host
