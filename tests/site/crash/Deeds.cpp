#include "tests/site/crash/Deeds.h"

#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/IBlobs.h"
#include "site/IBulkFiling.h"
#include "site/IComments.h"
#include "site/IDrawings.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/IRichTexts.h"
#include "site/ISetup.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SiteWriter.h"
#include "site/sqlite/SqliteSite.h"

#include <QTemporaryFile>

#include <array>
#include <random>

namespace crashtest {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kProject = 1;
constexpr qint32 kLabels = 3;
constexpr int kMostPhotos = 6;
/// Late enough for the bin never to end an entry by its age.
constexpr qint64 kStart = 4'000'000'000;

/// What one deed works with.
class Deed {
public:
    Deed(site::DataFolder& folder, int number)
        : m_folder(folder), m_engine(folder), m_number(number), m_dice(unsigned(number)) {}

    void Do() {
        using Way = void (Deed::*)();
        constexpr std::array<Way, 20> kWays = {
            &Deed::SavePhoto,
            &Deed::HidePhotos,
            &Deed::DeletePhotos,
            &Deed::Restore,
            &Deed::SaveCheckpoint,
            &Deed::SavePdf,
            &Deed::DeletePdf,
            &Deed::HideOrDeleteIssue,
            &Deed::FilePhotos,
            &Deed::PurgeSeldom,
            &Deed::Comment,
            &Deed::ChangeDrawing,
            &Deed::FileOrRemoveDrawing,
            &Deed::SaveIssue,
            &Deed::SaveRectification,
            &Deed::Upload,
            &Deed::AddOrRemoveRectifyPics,
            &Deed::SaveRichText,
            &Deed::FileMany,
            &Deed::SaveSettings,
        };
        (this->*kWays[Below(int(kWays.size()))])();
    }

    void SavePhoto() {
        const std::vector<qint64> ids = Some(u"bim_photo"_s, 1);
        if (ids.empty()) {
            return;
        }
        KX_DATA::BimPicUpdate update;
        update.picId = qint32(ids.front());
        update.fileName = u"照片%1.jpg"_s.arg(m_number);
        update.description = u"第 %1 次保存"_s.arg(m_number);
        update.positionKey = Below(2) == 0 ? u"two"_s : u"low"_s;
        update.markId = Below(3);
        update.status = Below(2);
        for (qint32 label = 1; label <= kLabels; ++label) {
            if (Below(2) == 0) {
                update.labelIds.push_back(QString::number(label));
            }
        }
        static_cast<void>(m_engine.BimPhotos().Update(kProject, update, Signature()));
    }

    void HidePhotos() {
        m_engine.BimPhotos().SetStatus(kProject, Narrow(Some(u"bim_photo"_s, 3)), Below(2));
    }

    void DeletePhotos() {
        m_engine.Bin().DeleteBimPhotos({kProject}, Narrow(Some(u"bim_photo"_s, 3)), Signature());
    }

    void Restore() { m_engine.Bin().Restore(Some(u"bin"_s, 3)); }

    void PurgeSeldom() {
        if (Below(2) == 0) {
            m_engine.Bin().Purge(Some(u"bin"_s, 2));
        }
    }

    void SaveCheckpoint() {
        KX_DATA::CheckpointEdit edit;
        edit.checkpointId = 1;
        edit.description = u"第 %1 次保存"_s.arg(m_number);
        edit.markId = Below(3);
        edit.labelNames = {QString::number(1 + Below(kLabels))};
        static_cast<void>(m_engine.PdfPhotos().UpdateCheckpoint({kProject}, edit, Signature()));
    }

    void Comment() {
        site::IComments& comments = m_engine.Comments();
        const std::vector<qint64> ids = Some(u"comment"_s, 1);
        if (ids.empty() || Below(3) > 0) {
            static_cast<void>(
                comments.Add({kProject}, 1, u"li：第 %1 次"_s.arg(m_number), Signature()));
        } else {
            static_cast<void>(
                comments.Remove({kProject}, 1, ids.front(), Signature(), site::CommentsOf::Author));
        }
    }

    /// Photos hang on the first checkpoint only: the others come and go.
    void ChangeDrawing() {
        site::IDrawings& drawings = m_engine.Drawings();
        const std::vector<qint64> points = Some(u"checkpoint"_s, 1);
        const site::DrawingPlace place{0, Below(1000), Below(1000)};
        if (Below(3) == 0) {
            static_cast<void>(
                drawings.Rename({kProject}, 1, u"图纸%1"_s.arg(m_number), Signature()));
        } else if (points.front() == 1) {
            static_cast<void>(drawings.AddCheckpoint({kProject}, 1, place, 0, Signature()));
        } else if (Below(2) == 0) {
            static_cast<void>(
                drawings.MoveCheckpoint({kProject}, qint32(points.front()), place, Signature()));
        } else {
            m_engine.Bin().DeleteCheckpoint({kProject}, qint32(points.front()), Signature());
        }
    }

    /// The first one stays: it has checkpoints.
    void FileOrRemoveDrawing() {
        const std::vector<qint64> drawings = Some(u"drawing"_s, 1);
        if (drawings.front() == 1) {
            site::SiteWriter(m_folder).AddDrawing(kProject, u"新图纸%1"_s.arg(m_number),
                                                  Content(u"sheet"_s), 1);
        } else {
            m_engine.Bin().DeleteDrawing({kProject}, qint32(drawings.front()), Signature());
        }
    }

    void SavePdf() {
        const std::vector<qint64> ids = Some(u"pdf_photo"_s, 1);
        if (ids.empty()) {
            return;
        }
        KX_DATA::PdfPicUpdate update;
        update.picId = qint32(ids.front());
        update.fileName = u"图纸照片%1.jpg"_s.arg(m_number);
        update.description = u"第 %1 次保存"_s.arg(m_number);
        update.status = Below(2);
        static_cast<void>(m_engine.PdfPhotos().Update(kProject, update, Signature()));
    }

    void DeletePdf() {
        m_engine.Bin().DeletePdfPhotos(kProject, Narrow(Some(u"pdf_photo"_s, 2)), Signature());
    }

    void HideOrDeleteIssue() {
        std::vector<QString> questions;
        for (const qint64 id : Some(u"issue"_s, 2)) {
            questions.push_back(m_folder.Db()
                                    .Value(u"SELECT question_id FROM issue WHERE id = ?"_s, {id})
                                    .toString());
        }
        if (Below(2) == 0) {
            m_engine.Issues().SetStatus(kProject, questions, Below(2), Signature());
        } else {
            m_engine.Bin().DeleteIssues({kProject}, questions, Signature());
        }
    }

    void SaveIssue() {
        KX_DATA::IssueUpdate update;
        update.questionId = SomeIssue();
        update.questionName = u"问题%1 第二次"_s.arg(m_number);
        update.description = u"第 %1 次保存"_s.arg(m_number);
        update.markId = Below(3);
        update.status = Below(2);
        if (Below(2) == 0) {
            update.componentHandle = Below(2) == 0 ? u"2A"_s : u"2B"_s;
            update.floor = u"2"_s;
            update.qrCode = u"code %1"_s.arg(m_number);
        }
        static_cast<void>(m_engine.Issues().Update(kProject, update, Signature()));
    }

    void SaveRectification() {
        static_cast<void>(m_engine.Issues().SaveRectification(
            {kProject}, {SomeIssue(), u"第 %1 次"_s.arg(m_number), Below(4), {}, 0, {}},
            Signature()));
    }

    void Upload() {
        QTemporaryFile file;
        file.open();
        file.write(Content(u"upload"_s).bytes);
        file.close();
        static_cast<void>(m_engine.Blobs().Upload(file.fileName(), {}));
    }

    /// What was uploaded last becomes pictures; without uploads pictures go.
    void AddOrRemoveRectifyPics() {
        const QString questionId = SomeIssue();
        std::vector<KX_DATA::QuestionPicRecord> pics;
        m_folder.Db().ForEach(u"SELECT u.uuid, f.md5 FROM upload u JOIN file f USING (uuid)"
                              " ORDER BY f.md5"_s,
                              {}, [&](const site::Statement& row) {
                                  KX_DATA::QuestionPicRecord pic;
                                  pic.picId = u"pic %1 of %2"_s.arg(pics.size()).arg(m_number);
                                  pic.fileName = pic.picId;
                                  pic.fileUuid = pic.thumbUuid = row.Text(0);
                                  pic.fileMd5 = pic.thumbMd5 = row.Text(1);
                                  pics.push_back(pic);
                              });
        if (!pics.empty()) {
            static_cast<void>(
                m_engine.Issues().AddRectifyPics({kProject}, questionId, pics, Signature()));
            return;
        }
        std::vector<QString> gone;
        m_folder.Db().ForEach(
            u"SELECT p.pic_id FROM issue_pic p JOIN issue i ON i.id = p.issue_id"
            " WHERE i.question_id = ? AND p.rectification = 1 ORDER BY p.id LIMIT 2"_s,
            {questionId}, [&](const site::Statement& row) { gone.push_back(row.Text(0)); });
        static_cast<void>(
            m_engine.Issues().DeleteRectifyPics({kProject}, questionId, gone, Signature()));
    }

    /// What was uploaded last comes into it. Records of checkpoints end in the bin.
    void SaveRichText() {
        const qint32 point = qint32(Some(u"checkpoint"_s, 1).front());
        const site::RichPlace place =
            Below(2) == 0 ? site::AtIntersection(kProject, u"two"_s, 1) : site::AtCheckpoint(point);
        const auto base = m_engine.RichTexts().Newest({kProject}, place);
        site::NewRichVersion version;
        version.base = base->text;
        version.docName = u"document"_s;
        version.state = Below(4);
        if (!base->files.empty()) {
            version.removed = {base->files.front().uuid};
        }
        m_folder.Db().ForEach(
            u"SELECT uuid FROM upload JOIN file USING (uuid) ORDER BY md5"_s, {},
            [&](const site::Statement& row) {
                version.added.push_back({u"page %1"_s.arg(m_number), {}, row.Text(0), 0, 1});
            });
        static_cast<void>(m_engine.RichTexts().Save({kProject}, place, version, Signature()));
    }

    /// One with a voice note, and one on the checkpoint in the same batch.
    void FilePhotos() {
        if (m_folder.Db().Value(u"SELECT count(*) FROM bim_photo"_s).toInt() >= kMostPhotos) {
            return;
        }
        site::SiteWriter writer(m_folder);
        writer.BeginBatch();
        site::NewBimPhoto photo;
        photo.ppid = kProject;
        photo.fileName = u"新照片%1.jpg"_s.arg(m_number);
        photo.positionKey = u"two"_s;
        photo.markId = 1;
        photo.uploader = u"li"_s;
        photo.uploadTime = kStart + m_number;
        photo.labelIds = {1};
        writer.FilePhoto(photo, Content(u"picture"_s), Content(u"voice"_s));
        site::NewPdfPhoto onPoint;
        onPoint.checkpointId = 1;
        onPoint.fileName = photo.fileName;
        onPoint.uploader = photo.uploader;
        onPoint.uploadTime = photo.uploadTime;
        writer.FilePdfPhoto(kProject, onPoint, Content(u"drawing picture"_s));
        writer.CommitBatch();
    }

    /// Photos or issues.
    void FileMany() {
        site::BulkWish wish;
        wish.markId = 1 + Below(2);
        wish.status = Below(2);
        if (Below(2) == 0) {
            static_cast<void>(
                m_engine.BulkFiling().FileIssues({kProject}, {SomeIssue()}, wish, Signature()));
            return;
        }
        wish.labelIds = {1 + Below(kLabels)};
        wish.replaceLabels = Below(2) == 0;
        static_cast<void>(m_engine.BulkFiling().FileBimPhotos(
            {kProject}, Narrow(Some(u"bim_photo"_s, 3)), wish, Signature()));
    }

    /// A label is renamed; somebody, and a floor with its crossings, are added.
    void SaveSettings() {
        const site::SetupState seen = m_engine.Setup().Read({kProject});
        site::SetupState wanted = seen;
        const QString name = QString::number(m_number);
        wanted.people.push_back({0, u"p"_s + name, {site::kRightSetup}, true});
        wanted.labels[size_t(Below(int(wanted.labels.size())))].name = u"标签"_s + name;
        site::SetupGrid& grid = wanted.grids.front();
        grid.floors.push_back({u"层"_s + name, {}});
        for (const QString& axis : {u"1"_s, u"2"_s, u"3"_s}) {
            grid.crossings.push_back({{}, u"层"_s + name, axis, u"A"_s, true});
        }
        const site::SetupOutcome saved = m_engine.Setup().Apply(seen, wanted, Signature());
        if (!saved.IsDone()) {
            qFatal("settings: %s",
                   qPrintable(saved.refusals.empty() ? QString() : saved.refusals.front()));
        }
    }

    void FileIssue() {
        site::SiteWriter writer(m_folder);
        site::NewIssue issue;
        issue.ppid = kProject;
        issue.questionId = u"question %1"_s.arg(m_number);
        issue.theme = u"问题%1"_s.arg(m_number);
        issue.floor = u"2"_s;
        issue.creator = u"li"_s;
        issue.createTime = kStart + m_number;
        issue.rectifyText = u"已整改"_s;
        issue.rectifier = u"li"_s;
        writer.FileIssue(issue, Content(u"issue voice"_s));
        for (const bool rectification : {false, true}) {
            writer.FileIssuePic(kProject,
                                {issue.questionId, rectification, u"a.jpg"_s, u"li"_s, kStart},
                                Content(rectification ? u"after"_s : u"before"_s),
                                Content(rectification ? u"small after"_s : u"small before"_s));
        }
    }

private:
    int Below(int limit) { return int(m_dice() % unsigned(limit)); }
    [[nodiscard]] site::Signature Signature() const { return {u"li"_s, kStart + m_number}; }
    [[nodiscard]] site::FileSource Content(const QString& what) const {
        return {{}, u"%1 of %2"_s.arg(what).arg(m_number).toUtf8()};
    }

    /// Empty where there is none.
    QString SomeIssue() {
        const std::vector<qint64> ids = Some(u"issue"_s, 1);
        return ids.empty()
                   ? QString()
                   : m_folder.Db()
                         .Value(u"SELECT question_id FROM issue WHERE id = ?"_s, {ids.front()})
                         .toString();
    }

    /// Up to so many rows of a table, each once.
    std::vector<qint64> Some(const QString& table, int most) {
        std::vector<qint64> ids;
        m_folder.Db().ForEach(u"SELECT id FROM %1 ORDER BY id"_s.arg(table), {},
                              [&](const site::Statement& row) { ids.push_back(row.Int64(0)); });
        while (int(ids.size()) > most) {
            ids.erase(ids.begin() + Below(int(ids.size())));
        }
        return ids;
    }
    static std::vector<qint32> Narrow(const std::vector<qint64>& ids) {
        std::vector<qint32> narrow;
        for (const qint64 id : ids) {
            narrow.push_back(qint32(id));
        }
        return narrow;
    }

    site::DataFolder& m_folder;
    site::SqliteSite m_engine;
    int m_number;
    std::mt19937 m_dice; ///< gives the same on every machine, unlike a distribution
};

} // namespace

void FillSite(site::DataFolder& folder) {
    site::SiteWriter writer(folder);
    writer.AddProject(u"一号楼"_s);
    writer.AddUser(u"li"_s, {});
    writer.AddMark(1, u"质量"_s, 0x0000FF);
    writer.AddMark(2, u"安全"_s, 0x00FF00);
    for (qint32 label = 1; label <= kLabels; ++label) {
        writer.AddLabel(u"标签%1"_s.arg(label));
    }
    writer.AddPosition({kProject, u"2"_s, u"A"_s, u"1"_s, u"two"_s, true});
    writer.AddPosition({kProject, u"-1"_s, u"B"_s, u"1"_s, u"low"_s, true});
    for (const QString& handle : {u"2A"_s, u"2B"_s}) {
        writer.AddComponent({kProject, handle, u"2"_s, u"two"_s, u"KZ "_s + handle, {}, {}, {}});
    }
    site::NewCheckpoint point;
    point.drawingId = writer.AddDrawing(kProject, u"首层"_s);
    point.number = 1;
    point.updateTime = kStart;
    writer.AddCheckpoint(kProject, point);
    for (int number = -4; number < 0; ++number) {
        Deed deed(folder, number);
        deed.FilePhotos();
        deed.FileIssue();
    }
}

void DoDeed(site::DataFolder& folder, int number) {
    Deed(folder, number).Do();
}

} // namespace crashtest
