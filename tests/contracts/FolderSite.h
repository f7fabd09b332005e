// The host's services over a temporary data folder as a site.
#pragma once

#include "host/services/ServiceSet.h"
#include "host/session/HostSession.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/contracts/ContractSite.h"
#include "tests/support/Script.h"
#include "tests/support/services/ScriptedProject.h"

#include <QTemporaryDir>

#include <map>

namespace contracts {

class OtherConnection;

class FolderSite final : public ContractSite {
public:
    FolderSite();
    ~FolderSite() override;

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
    site::ISite* Engine() override { return &m_session.Site(); }
    void Fill(const std::function<void()>& filing) override;

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
    QTemporaryDir m_dir;
    host::HostSession m_session;
    std::unique_ptr<site::SiteWriter> m_writer;
    // Whose they are: the fixtures name drawings, points and issues alone.
    std::map<qint32, qint32> m_drawings;
    std::map<qint32, qint32> m_checkpoints;
    std::map<QString, qint32> m_issues;
    std::unique_ptr<OtherConnection> m_other;
    qint32 m_workset = 0;
    // A view is a window of the client; the services only hand it on.
    support::Script m_viewScript;
    support::ScriptedView m_view{m_viewScript};

    host::ServiceSet m_services;
};

} // namespace contracts
