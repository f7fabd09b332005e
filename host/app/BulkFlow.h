// Files many photos or issues at once: question, deed, summary.
#pragma once

#include "host/app/BulkUndo.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace host {

class BulkDialog;
class ConsoleWatch;
class FloorPlanCanvas;
class ImportResultWindow;
struct BulkAnswer;
struct BulkQuestion;

/// What is to be filed.
struct BulkRow {
    QString key;  ///< id of a photo or issue
    QString name; ///< for a person
    qint32 ppid = 0;
};

/// Asks for those that are ticked in the console, or chosen elsewhere; one question at a time. The
/// rights are asked for anew at each step. What it is made of must outlive it. Thread: user
/// interface.
class BulkFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        const ConsoleWatch& console;
    };

    explicit BulkFlow(const Parts& flowParts);
    ~BulkFlow() override;

    /// Why what is ticked can't be filed now; empty if it can.
    [[nodiscard]] QString WhyNot() const;
    /// Says why not, or opens the question over the console.
    void AskForTicked();
    /// The same for BIM photos of a list in another window.
    /// @param tipAt  a control there that a short word of the outcome points at.
    void AskForChosen(std::vector<BulkRow> rows, QWidget& over, QWidget& tipAt);
    /// A question that is open is given up: its places are those of the project before.
    void ProjectChanged();

signals:
    /// Something was filed, or taken back: what lists show is old.
    void Changed();

private:
    struct Asked {
        site::ListKind kind = site::ListKind::BimPhotos;
        std::vector<BulkRow> rows;
        QPointer<QWidget> tipAt;
    };
    void Ask(Asked asked, QWidget& over, bool isTicked);
    void ReadProjects(Asked& asked) const;
    [[nodiscard]] BulkQuestion QuestionFor(const Asked& asked, const BulkRights& rights) const;
    void ProposePlace(BulkQuestion& question) const;
    void File(const BulkAnswer& answer);
    [[nodiscard]] site::BulkOutcome Do(const BulkAnswer& answer);
    [[nodiscard]] site::BulkOutcome FileAll(const site::BulkWish& wish);
    void Tell(const site::BulkOutcome& outcome, const BulkRights& needed);
    /// Every one with its reason; takes the place of an earlier list.
    void ShowSkipped(const QString& summary, const std::vector<site::BulkSkipped>& skipped);

    const Parts m_parts;
    BulkUndo m_undo;
    Asked m_asked;
    QPointer<BulkDialog> m_dialog;
    QPointer<ImportResultWindow> m_result;
};

} // namespace host
