// The dialog "登记问题".
#pragma once

#include "host/ui/issues/PictureList.h"
#include "host/ui/pick/PlanComponent.h"
#include "services/EnvRecords.h"

#include <QDialog>

#include <map>
#include <memory>
#include <optional>

namespace Ui {
class RaiseIssueDialog;
}

namespace host {

/// What a person typed and chose.
struct IssueDraft {
    QString subject;
    QString description;
    qint32 markId = 0; ///< 0: the site has none
    PlanComponent component;
    std::vector<CollectedPicture> pictures;
};

/// A new issue: subject, mark, component, description and pictures. It steps aside while a
/// component is picked and comes back with what was typed; it knows no services, and ends only when
/// its maker says that the issue is filed, or the person gives up. Modeless. Thread: user
/// interface.
class RaiseIssueDialog final : public QDialog {
    Q_OBJECT

public:
    static constexpr int kMostSubject = 50;
    static constexpr int kMostDescription = 255;

    RaiseIssueDialog(QWidget* parent, const std::map<qint32, KX_DATA::MarkRecord>& marks);
    ~RaiseIssueDialog() override;

    void SetComponent(const PlanComponent& component);
    /// It belongs to a project that isn't open any more.
    void TakeComponentBack();
    void AddPictures(const QStringList& paths);
    /// In red below the form; empty takes it away.
    void ShowFault(const QString& text);
    /// Something was typed, chosen or dropped.
    [[nodiscard]] bool IsBegun() const;
    void reject() override;

signals:
    void PickWanted();
    void FilingWanted(const host::IssueDraft& draft);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void FillMarkList(const std::map<qint32, KX_DATA::MarkRecord>& marks);
    void ConnectForm();
    void AskForPictures();
    void ShowCount();
    void File();
    void RefuseAt(QWidget* control, const QString& text);

    std::unique_ptr<Ui::RaiseIssueDialog> m_form;
    std::unique_ptr<PictureList> m_pictures;
    std::optional<PlanComponent> m_component;
};

} // namespace host
