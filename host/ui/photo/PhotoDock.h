// The dock "照片信息".
#pragma once

#include "host/ui/photo/PhotoInfo.h"

#include <QDockWidget>

class QLabel;
class QPushButton;
class QTableWidget;

namespace host {

/// Shows one photo; its values can be selected and copied, with Ctrl+C or by the menu. Tells what
/// the person wants of the file that the photo was made of. Knows no site. Thread: user interface.
/// Owned by the main window.
class PhotoDock final : public QDockWidget {
    Q_OBJECT

public:
    explicit PhotoDock(QWidget* parent);

    void ShowInfo(const PhotoInfo& info);
    /// Why there is nothing to show.
    void ShowSentence(const QString& text);
    /// As before the first one.
    void Empty();
    /// Whether somebody can see it: not hidden, and not behind another tab.
    [[nodiscard]] bool IsSeen() const;
    /// The first button works no longer, or again.
    void SetBusy(bool busy);

signals:
    void OpenOriginalWanted();
    void SaveOriginalWanted();
    /// It came into sight.
    void Seen();

private:
    QWidget* MakeTable(QWidget* inside);
    QWidget* MakeButtons(QWidget* inside);
    void Fill(const PhotoInfo& info, const QString& sentence);
    void CopySelected() const;
    void CopyAll() const;
    [[nodiscard]] QString RowText(int row) const;

    QLabel* m_title = nullptr;
    QTableWidget* m_table = nullptr;
    QWidget* m_buttons = nullptr;
};

} // namespace host
