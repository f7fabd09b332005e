// The mark panel's tree on the screen.
#pragma once

#include <QTreeView>

namespace host {

/// Says why it is empty. Owned by its parent widget.
class MarkTreeView final : public QTreeView {
    Q_OBJECT

public:
    explicit MarkTreeView(QWidget* parent);

    /// Stands in the middle while the model has no rows.
    void SetHint(const QString& text);
    /// Widths of the columns; once the model is set.
    void ShareWidth();
    /// Gives the column of counts the width of this one, or what it has always.
    void FitCounts(const QString& longest);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_hint;
};

} // namespace host
