// One page of the mark panel: photos or issues.
#pragma once

#include "host/ui/marks/MarkState.h"
#include "host/ui/marks/MarkTreeModel.h"

#include <QWidget>

#include <memory>

class QAction;

namespace Ui {
class MarkPage;
}

namespace host {

/// Display switch, days, filter and the tree with its ticks. Knows neither services nor views: what
/// the person changes is told by signals. Lives on the interface thread, owned by its parent
/// widget.
class MarkPage final : public QWidget {
    Q_OBJECT

public:
    MarkPage(MarkKind pageKind, QWidget* parent);
    ~MarkPage() override;

    [[nodiscard]] MarkKind Kind() const { return m_kind; }
    /// Sends no signal, as all functions here.
    void SetState(const MarkPageState& state);
    [[nodiscard]] MarkPageState State() const;
    /// Keeps ticks, expanded rows, the current row and the scroll position.
    void SetTree(MarkTree tree);
    void SetEntryReader(MarkTreeModel::ReadEntries reader);
    /// Says that there is nothing to list, and why; empty: nothing matches or nothing is there.
    void SetHint(const QString& text);
    /// The display switch for menus.
    [[nodiscard]] QAction* ShownAction() const { return m_shownAction; }
    [[nodiscard]] MarkTreeModel& Model() const { return *m_model; }

signals:
    void ShownChanged(bool on);
    void DaysChanged();
    void TicksChanged();
    /// The person wants to see a floor, or an issue on it.
    void FloorWanted(const QString& group);
    void IssueWanted(const QString& questionId);

private:
    using Place = std::pair<QString, qint32>; ///< group and mark; mark 0: the floor itself
    void ConnectControls();
    void ConnectTree();
    void OnDayEdited(bool isFrom);
    void ShowDays();
    void ShowCount();
    void Filter(const QString& text);
    void Activate(const QModelIndex& index);
    void ShowRowMenu(const QPoint& at);
    [[nodiscard]] std::set<Place> Expanded() const;
    void Expand(const std::set<Place>& places);
    [[nodiscard]] QModelIndex IndexOf(const Place& place) const;

    MarkKind m_kind;
    std::unique_ptr<Ui::MarkPage> m_form;
    MarkTreeModel* m_model = nullptr;
    QAction* m_shownAction = nullptr;
    MarkDays m_days;
    QString m_emptyHint;
};

} // namespace host
