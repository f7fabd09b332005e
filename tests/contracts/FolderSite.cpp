#include "tests/contracts/FolderSite.h"

#include "site/ICatalogue.h"
#include "site/IDrafts.h"
#include "tests/support/EngineFolder.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <gtest/gtest.h>

namespace contracts {

using namespace Qt::StringLiterals;

/// Another client of the same database, which does what it shouldn't.
class OtherConnection final {
public:
    explicit OtherConnection(const QString& path) {
        m_database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"contracts-other"_s);
        m_database.setDatabaseName(path);
        EXPECT_TRUE(m_database.open());
    }
    ~OtherConnection() {
        m_database.close();
        m_database = {};
        QSqlDatabase::removeDatabase(u"contracts-other"_s);
    }
    OtherConnection(const OtherConnection&) = delete;
    OtherConnection& operator=(const OtherConnection&) = delete;

    void BeginToWrite() { Run(u"BEGIN IMMEDIATE"_s); }

    void DropAllTables() {
        // Search tables first: they take tables of their own with them.
        std::vector<QString> names;
        QSqlQuery read(m_database);
        EXPECT_TRUE(read.exec(u"SELECT name FROM sqlite_master WHERE type = 'table'"
                              " AND name NOT LIKE 'sqlite%' ORDER BY sql LIKE '%VIRTUAL%' DESC"_s));
        while (read.next()) {
            names.push_back(read.value(0).toString());
        }
        read.finish();
        EXPECT_FALSE(names.empty());
        for (const QString& name : names) {
            Run(u"DROP TABLE IF EXISTS "_s + name);
        }
    }

private:
    void Run(const QString& sql) {
        QSqlQuery query(m_database);
        EXPECT_TRUE(query.exec(sql)) << sql.toStdString();
    }

    QSqlDatabase m_database;
};

FolderSite::FolderSite() {
    m_session.Desk()->SetMessageSink([](host::MessageLevel, const QString&) {});
    EXPECT_FALSE(m_session.Open(m_dir.filePath(u"site"_s), {20, true}).has_value());
    m_writer = std::make_unique<site::SiteWriter>(support::FolderOf(m_session));
    first = m_writer->AddProject(u"一号楼"_s, 2);
    second = m_writer->AddProject(u"二号楼"_s);
    m_workset = m_writer->AddWorkset(u"全部"_s, {first, second});
    m_writer->AddUser(u"li"_s, {5, 21, 22, 38});
    m_writer->AddUser(u"guest"_s, {});
    m_writer->AddMark(1, u"质量"_s, 0x0000ff);
    m_writer->AddMark(2, u"安全"_s, 0x00ff00);
    EXPECT_TRUE(m_session.SignIn(u"li"_s));
    EXPECT_TRUE(m_session.OpenProject(first));
    m_services.around.SetSession(&m_session);
    host::ServiceSet& all = m_services;
    on = {&all.picMng,
          &all.questionMng,
          &all.drawingMng,
          &all.qrCodeMng,
          &all.richTextMng,
          &all.richTextDrafts,
          &all.authMng,
          &all.actingUser,
          &all.globalData,
          &all.pathMng,
          &all.commonPathMng,
          &all.richPathTool,
          &all.cacheMng,
          nullptr,
          nullptr,
          &all.localCache,
          &all.sysMng,
          &all.hoopsMng,
          &all.downloadMng,
          &all.uploadMng,
          &all.backgroundMng,
          &all.docMng,
          &all.reportDataMng,
          &all.richEditorAuth,
          &all.recentMng,
          &all.stateTool,
          &all.silentProgress,
          &all.reportCtrl,
          &all.silentStrip,
          &all.soapError};
    on.project = all.cacheMng.GetCurrentProject();
    on.model = all.cacheMng.GetCurrentModel();
}

FolderSite::~FolderSite() {
    m_other.reset();
}

void FolderSite::AddComponent(const site::Component& component) {
    m_writer->AddComponent(component);
}

QString FolderSite::AddLabel(const QString& name) {
    return QString::number(m_writer->AddLabel(name));
}

void FolderSite::AddFloor(qint32 ppid, const QString& floor) {
    m_writer->AddFloor(ppid, floor);
}

QString FolderSite::AddPosition(const site::NewPosition& position) {
    return m_writer->AddPosition(position);
}

qint32 FolderSite::AddDrawing(qint32 ppid, const QString& name) {
    const qint32 id = m_writer->AddDrawing(ppid, name);
    m_drawings[id] = ppid;
    return id;
}

qint32 FolderSite::AddCheckpoint(const site::NewCheckpoint& checkpoint, const QByteArray& voice) {
    const qint32 ppid = m_drawings.at(checkpoint.drawingId);
    const qint32 id = m_writer->AddCheckpoint(ppid, checkpoint);
    m_checkpoints[id] = ppid;
    if (!voice.isEmpty()) {
        m_writer->SetCheckpointVoice(ppid, id, {{}, voice});
    }
    return id;
}

qint32 FolderSite::AddPhoto(const site::NewBimPhoto& photo, const QByteArray& picture,
                            const QByteArray& voice) {
    return m_writer->FilePhoto(photo, {{}, picture}, {{}, voice});
}

qint32 FolderSite::AddPdfPhoto(const site::NewPdfPhoto& photo, const QByteArray& picture) {
    return m_writer->FilePdfPhoto(m_checkpoints.at(photo.checkpointId), photo, {{}, picture});
}

QString FolderSite::AddIssue(const site::NewIssue& issue, const QByteArray& voice) {
    const QString id = m_writer->FileIssue(issue, {{}, voice});
    m_issues[id] = issue.ppid;
    return id;
}

void FolderSite::AddIssuePic(const site::NewIssuePic& pic, const QByteArray& picture) {
    m_writer->FileIssuePic(m_issues.at(pic.questionId), pic, {{}, picture});
}

void FolderSite::Fill(const std::function<void()>& filing) {
    m_writer->BeginBatch();
    filing();
    m_writer->CommitBatch();
}

void FolderSite::SignIn(const QString& name) {
    EXPECT_TRUE(m_session.SignIn(name));
}

void FolderSite::OpenWorkset() {
    EXPECT_TRUE(m_session.OpenWorkset(m_workset));
}

void FolderSite::CloseProject() {
    m_session.CloseProject();
}

void FolderSite::SetDrawing(const KX_DATA::CurrentDrawing& drawing) {
    m_session.SetDrawing(drawing);
}

void FolderSite::Tick(const Ticks& ticks) {
    m_session.ShowPhotos({{ticks.group, {{ticks.markId, {{ticks.place, {ticks.picId}}}}}}});
    m_session.ShowIssues({{ticks.questionId, ticks.markId}});
}

void FolderSite::SetView(bool open) {
    m_services.around.view = open ? &m_view : nullptr;
}

std::vector<QString> FolderSite::Actions() {
    std::vector<QString> actions;
    for (const site::LoggedAction& entry : m_session.Site().Catalogue().Actions(100)) {
        actions.insert(actions.begin(), entry.action);
    }
    return actions;
}

std::vector<KX_DATA::RichTextDraft> FolderSite::Drafts() {
    std::vector<KX_DATA::RichTextDraft> drafts;
    for (const site::Draft& draft : m_session.Site().Drafts().Of(m_session.UserName())) {
        drafts.push_back(draft.text);
    }
    return drafts;
}

void FolderSite::FailTransfers() {
    m_session.Desk()->SetRules({0, site::TransferFault::AtStart});
}

void FolderSite::Enter(Trouble trouble, const std::vector<std::string>& /*operations*/) {
    const QString path = support::FolderOf(m_session).DatabasePath();
    switch (trouble) {
    case Trouble::Closed:
        m_writer.reset();
        m_session.Close();
        break;
    case Trouble::Broken:
        m_other = std::make_unique<OtherConnection>(path);
        m_other->DropAllTables();
        break;
    case Trouble::Locked:
        m_other = std::make_unique<OtherConnection>(path);
        m_other->BeginToWrite();
        break;
    case Trouble::ReadOnly:
        support::FolderOf(m_session).Db().Exec(u"PRAGMA query_only = 1"_s);
        break;
    case Trouble::Scripted:
        ADD_FAILURE() << "a real site isn't told to fail";
        break;
    }
}

} // namespace contracts
