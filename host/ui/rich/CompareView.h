// What differs between two versions, and the way from one change to the next.
#pragma once

#include "host/ui/rich/CompareDocument.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace host {

class CompareSheet;

/// A line with the summary and the keys F8 and Shift+F8, below it the text. Knows no versions: who
/// made it hands it compared lines. Thread: user interface. Owned by its parent.
class CompareView final : public QWidget {
    Q_OBJECT

public:
    explicit CompareView(QWidget* parent);

    void ShowLines(std::vector<toolkit::ComparedLine> lines, const CompareFolders& folders);
    /// Nothing is compared; why, or what to do.
    void ShowHint(const QString& hint);

private:
    void ShowPlace();

    QLabel* m_summary = nullptr;
    QLabel* m_place = nullptr;
    QPushButton* m_previous = nullptr;
    QPushButton* m_next = nullptr;
    CompareSheet* m_sheet = nullptr;
};

} // namespace host
