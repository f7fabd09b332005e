// A table that says why it is empty.
#pragma once

#include <QTableView>

namespace host {

/// Whole rows are chosen; rows are as high as the face needs. Owned by its parent widget.
class HintTable final : public QTableView {
    Q_OBJECT

public:
    explicit HintTable(QWidget* parent);

    /// Stands in the middle while the model has no rows.
    void SetHint(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_hint;
};

} // namespace host
