#include "tests/contracts/FolderSite.h"

#include "site/ICatalogue.h"
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
        database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"contracts-other"_s);
        database.setDatabaseName(path);
        EXPECT_TRUE(database.open());
    }
    ~OtherConnection() {
        database.close();
        database = {};
        QSqlDatabase::removeDatabase(u"contracts-other"_s);
    }
    OtherConnection(const OtherConnection&) = delete;
    OtherConnection& operator=(const OtherConnection&) = delete;

    void BeginToWrite() { Run(u"BEGIN IMMEDIATE"_s); }

    void DropAllTables() {
        // Search tables first: they take tables of their own with them.
        std::vector<QString> names;
        QSqlQuery read(database);
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
        QSqlQuery query(database);
        EXPECT_TRUE(query.exec(sql)) << sql.toStdString();
    }

    QSqlDatabase database;
};

FolderSite::FolderSite() {
    session.SetMessageSink([](host::MessageLevel, const QString&) {});
    EXPECT_FALSE(session.Open(dir.filePath(u"site"_s), {20, true}).has_value());
    writer = std::make_unique<site::SiteWriter>(support::FolderOf(session));
    first = writer->AddProject(u"一号楼"_s, 2);
    second = writer->AddProject(u"二号楼"_s);
    workset = writer->AddWorkset(u"全部"_s, {first, second});
    writer->AddUser(u"li"_s, {5, 21, 22, 38});
    writer->AddUser(u"guest"_s, {});
    writer->AddMark(1, u"质量"_s, 0x0000ff);
    writer->AddMark(2, u"安全"_s, 0x00ff00);
    EXPECT_TRUE(session.SignIn(u"li"_s));
    EXPECT_TRUE(session.OpenProject(first));
    on = {&picMng,     &questionMng,    &drawingMng, &qrCodeMng,     &richTextMng,    &authMng,
          &actingUser, &globalData,     &pathMng,    &commonPathMng, &richPathTool,   &cacheMng,
          nullptr,     nullptr,         &localCache, &sysMng,        &hoopsMng,       &downloadMng,
          &uploadMng,  &backgroundMng,  &docMng,     &reportDataMng, &richEditorAuth, &recentMng,
          &stateTool,  &silentProgress, &reportCtrl};
    on.project = cacheMng.GetCurrentProject();
    on.model = cacheMng.GetCurrentModel();
}

FolderSite::~FolderSite() {
    other.reset();
}

QString FolderSite::AddLabel(const QString& name) {
    return QString::number(writer->AddLabel(name));
}

void FolderSite::AddFloor(qint32 ppid, const QString& floor) {
    writer->AddFloor(ppid, floor);
}

QString FolderSite::AddPosition(const site::NewPosition& position) {
    return writer->AddPosition(position);
}

qint32 FolderSite::AddDrawing(qint32 ppid, const QString& name) {
    return writer->AddDrawing(ppid, name);
}

qint32 FolderSite::AddCheckpoint(const site::NewCheckpoint& checkpoint, const QByteArray& voice) {
    const qint32 id = writer->AddCheckpoint(checkpoint);
    if (!voice.isEmpty()) {
        writer->SetCheckpointVoice(id, {{}, voice});
    }
    return id;
}

qint32 FolderSite::AddPhoto(const site::NewBimPhoto& photo, const QByteArray& picture,
                            const QByteArray& voice) {
    return writer->FilePhoto(photo, {{}, picture}, {{}, voice});
}

qint32 FolderSite::AddPdfPhoto(const site::NewPdfPhoto& photo, const QByteArray& picture) {
    return writer->FilePdfPhoto(photo, {{}, picture});
}

QString FolderSite::AddIssue(const site::NewIssue& issue, const QByteArray& voice) {
    return writer->FileIssue(issue, {{}, voice});
}

void FolderSite::AddIssuePic(const site::NewIssuePic& pic, const QByteArray& picture) {
    writer->FileIssuePic(pic, {{}, picture});
}

void FolderSite::SignIn(const QString& name) {
    EXPECT_TRUE(session.SignIn(name));
}

void FolderSite::OpenWorkset() {
    EXPECT_TRUE(session.OpenWorkset(workset));
}

void FolderSite::CloseProject() {
    session.CloseProject();
}

void FolderSite::SetDrawing(const KX_DATA::CurrentDrawing& drawing) {
    session.SetDrawing(drawing);
}

void FolderSite::Tick(const KX_DATA::ShownPicMarks& pics, const KX_DATA::ShownIssueMarks& issues) {
    session.shownPicMarks = pics;
    session.shownIssueMarks = issues;
}

void FolderSite::SetView(bool open) {
    session.view = open ? &view : nullptr;
}

std::vector<QString> FolderSite::Actions() {
    std::vector<QString> actions;
    for (const site::LoggedAction& entry : session.Site().Catalogue().Actions(100)) {
        actions.insert(actions.begin(), entry.action);
    }
    return actions;
}

void FolderSite::FailTransfers() {
    session.SetTransfers({0, site::TransferFault::kAtStart});
}

void FolderSite::Enter(Trouble trouble, const std::vector<std::string>& /*operations*/) {
    const QString path = support::FolderOf(session).DatabasePath();
    switch (trouble) {
    case Trouble::Closed:
        writer.reset();
        session.Close();
        break;
    case Trouble::Broken:
        other = std::make_unique<OtherConnection>(path);
        other->DropAllTables();
        break;
    case Trouble::Locked:
        other = std::make_unique<OtherConnection>(path);
        other->BeginToWrite();
        break;
    case Trouble::ReadOnly:
        support::FolderOf(session).Db().Exec(u"PRAGMA query_only = 1"_s);
        break;
    case Trouble::Scripted:
        ADD_FAILURE() << "a real site isn't told to fail";
        break;
    }
}

} // namespace contracts
