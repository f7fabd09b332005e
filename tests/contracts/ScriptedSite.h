// The doubles of the services as a site.
#pragma once

#include "tests/contracts/ContractSite.h"
#include "tests/support/ScriptedHost.h"

namespace contracts {

/// Fills the records of a ScriptedHost as a test of a dialog would.
class ScriptedSite final : public ContractSite {
public:
    ScriptedSite();

    void AddComponent(const site::Component& component) override;
    QString AddLabel(const QString& name) override;
    void AddFloor(qint32 ppid, const QString& floor) override;
    QString AddPosition(const site::NewPosition& position) override;
    qint32 AddDrawing(qint32 ppid, const QString& name) override;
    qint32 AddCheckpoint(const site::NewCheckpoint& checkpoint, const QByteArray& voice) override;
    qint32 AddPhoto(const site::NewBimPhoto& photo, const QByteArray& picture,
                    const QByteArray& voice) override;
    qint32 AddPdfPhoto(const site::NewPdfPhoto& photo, const QByteArray& picture) override;
    QString AddIssue(const site::NewIssue& issue, const QByteArray& voice) override;
    void AddIssuePic(const site::NewIssuePic& pic, const QByteArray& picture) override;

    void SignIn(const QString& name) override;
    void OpenWorkset() override;
    void CloseProject() override;
    void SetDrawing(const KX_DATA::CurrentDrawing& drawing) override;
    void Tick(const Ticks& ticks) override;
    void SetView(bool open) override;
    std::vector<KX_DATA::RichTextDraft> Drafts() override;
    std::vector<QString> Actions() override;
    void FailTransfers() override;
    void Enter(Trouble trouble, const std::vector<std::string>& operations) override;

private:
    struct Drawing {
        qint32 ppid = 0;
        QString name;
    };
    struct Point {
        site::NewCheckpoint record;
        QString voice;
    };
    QString Store(const QByteArray& contents);
    /// In the order of their ids.
    [[nodiscard]] std::vector<KX_DATA::LabelEntry> Labels(const std::vector<qint32>& ids) const;

    support::ScriptedHost m_host;
    std::map<QString, bool> m_positionIsValid;
    std::map<qint32, Drawing> m_drawings;
    std::map<qint32, Point> m_points;
    std::map<QString, site::NewPosition> m_positions;
    qint32 m_lastId = 0;
};

} // namespace contracts
