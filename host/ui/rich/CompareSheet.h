// The sheet on which two versions are read as one text.
#pragma once

#include "host/ui/rich/CompareDocument.h"

#include <QTextBrowser>

#include <memory>
#include <set>

namespace host {

/// Shows a compared text with a bar beside each line that differs; opens its folds. Text can be
/// selected and is copied as plain text. Thread: user interface. Owned by its parent.
class CompareSheet final : public QTextBrowser {
    Q_OBJECT

public:
    explicit CompareSheet(QWidget* parent);

    void ShowLines(std::vector<toolkit::ComparedLine> lines, const CompareFolders& folders);
    /// Stands in the middle of an empty sheet.
    void ShowHint(const QString& hint);

    [[nodiscard]] int PlaceCount() const;
    /// Index of the place that was gone to; -1: none yet.
    [[nodiscard]] int CurrentPlace() const { return m_place; }
    /// Brings a place into sight. Beyond the ends nothing changes.
    void GoTo(int place);

signals:
    void PlaceChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    void OpenFold(const QUrl& address);
    void PaintBars(const QRect& clip);

    std::vector<toolkit::ComparedLine> m_lines;
    std::set<int> m_open;
    CompareDocument* m_page = nullptr; ///< a child
    QString m_hint;
    int m_place = -1;
};

} // namespace host
