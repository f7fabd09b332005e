// A thread of comments.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QListView>
#include <QString>
#include <QTimer>

#include <memory>
#include <vector>

namespace toolkit {

class DiscussModel;

/// Sent to the owner: a person wants the selected comment deleted. First parameter: the list's id.
inline constexpr int kDiscussDelete = 1112;

struct DiscussRow {
    QString text;
    QString time;
    qint64 data = 0; ///< the owner's, mostly the comment's id
};

} // namespace toolkit

/// Comments one below the other, the newest at the end and in sight: plain text over as many lines
/// as it needs, its time in a line of its own below. Nothing is selected to begin with. The Delete
/// key and "删除" of the context menu send kDiscussDelete to the registered window that the list
/// lies in. Arrows work with Ctrl as well, for windows that need the plain ones.
///
/// Of thousands of comments the newest are there at once; the others are measured in portions soon
/// after, which moves nothing that is in sight. Painted is what is in sight. Screen readers get
/// text and time of each. Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT DiscussListCtrl final : public QListView {
    Q_OBJECT
public:
    /// @param id  by which the owner knows the list.
    DiscussListCtrl(QWidget* parent, int id);
    ~DiscussListCtrl() override;

    /// Adds a comment at the end and scrolls it into view. Gives its row.
    int InsertRow(const QString& text, const QString& time, qint64 rowData);
    /// Adds all of them at once.
    void InsertRows(std::vector<toolkit::DiscussRow> rows);
    void RemoveAll();
    /// The next comments move up, nothing is selected. A row that isn't there changes nothing.
    void RemoveRow(int row);

    [[nodiscard]] int GetRowCount() const;
    /// The selected row; -1: none.
    [[nodiscard]] int GetCurSel() const;
    /// 0 for a row that isn't there.
    [[nodiscard]] qint64 GetRowData(int row) const;
    /// The row with that data; -1: none.
    [[nodiscard]] int FindRow(qint64 rowData) const;

    /// What stands in an empty list.
    void SetEmptyText(const QString& text);

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void AskToDelete();
    void Measure();
    void MeasureSome();
    void LayOutAnew();
    [[nodiscard]] bool IsAtEnd() const;

    std::unique_ptr<toolkit::DiscussModel> m_rows;
    QTimer m_portions;
    const int m_id;
    QString m_emptyText;
};
