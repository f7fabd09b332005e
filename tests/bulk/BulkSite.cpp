#include "tests/bulk/BulkSite.h"

#include "site/FloorOrder.h"
#include "site/LastChange.h"
#include "site/RectifyStates.h"
#include "site/sqlite/DataFolder.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/ListShape.h"
#include "site/sqlite/PlaceTally.h"
#include "site/sqlite/SearchIndex.h"
#include "site/sqlite/SearchText.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/bulk/BulkText.h"

#include <QStringList>

namespace bulk {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kMarks = 12;
constexpr qint32 kLabels = 60;
constexpr qint64 kFirstUpload = 1420070400; // 2015
constexpr qint64 kSpan = 10LL * 365 * 24 * 3600;
constexpr qint32 kRowsPerStep = 20000;

/// One run of the filling: one table after the other, the quick way round.
class BulkFiller {
public:
    BulkFiller(site::DataFolder& dataFolder, const BulkSize& bulkSize, const BulkProgress& watch)
        : m_folder(dataFolder), m_db(dataFolder.Db()), m_size(bulkSize), m_progress(watch),
          m_all(static_cast<qint64>(bulkSize.bimPhotos) + bulkSize.pdfPhotos + bulkSize.issues) {}

    void Run() {
        AddCatalogue();
        Fill(site::ShapeOf(site::ListKind::BimPhotos), m_size.bimPhotos, &BulkFiller::AddBimPhoto);
        AddCheckpoints();
        Fill(site::ShapeOf(site::ListKind::PdfPhotos), m_size.pdfPhotos, &BulkFiller::AddPdfPhoto);
        Fill(site::ShapeOf(site::ListKind::Issues), m_size.issues, &BulkFiller::AddIssue);
    }

private:
    using AddRow = void (BulkFiller::*)(qint32 number);

    /// The last change of a row, and who made it.
    struct Life {
        QString author;
        qint64 created = 0;
        QString updater;
        qint64 updated = 0;
        site::LastChange last{{}, 0, {}, 0};
    };

    void AddCatalogue();
    void AddCheckpoints();
    void Fill(const site::ListShape& shape, qint32 count, AddRow add);
    void AddBimPhoto(qint32 number);
    void AddPdfPhoto(qint32 number);
    void AddIssue(qint32 number);
    void AddWords(const site::ListShape& shape, qint32 ppid, qint64 id, const QStringList& texts);
    [[nodiscard]] QStringList DropIndexes(const site::ListShape& shape);
    [[nodiscard]] qint32 ProjectOf();
    [[nodiscard]] Life LifeOf(qint32 number, qint32 count);
    [[nodiscard]] qint32 StateOf() {
        return m_random.Below(10) < 6 ? site::kStateDone : m_random.Below(4);
    }

    site::DataFolder& m_folder;
    site::Database& m_db;
    BulkSize m_size;
    const BulkProgress& m_progress;
    qint64 m_all;
    qint64 m_done = 0;
    BulkRandom m_random{20240601};
};

void BulkFiller::AddCatalogue() {
    site::SiteWriter writer(m_folder);
    writer.BeginBatch();
    std::vector<qint32> ppids;
    for (qint32 i = 1; i <= m_size.projects; ++i) {
        ppids.push_back(writer.AddProject(u"第%1标段"_s.arg(i)));
        for (qint32 floor = -3; floor <= 29; ++floor) {
            writer.AddFloor(ppids.back(), QString::number(floor));
        }
    }
    writer.AddWorkset(u"全部标段"_s, ppids);
    writer.AddUser(u"bench"_s, {5, 21, 22, 38});
    for (qint32 mark = 1; mark <= kMarks; ++mark) {
        writer.AddMark(mark, u"标识%1"_s.arg(mark), 0x102030 * mark & 0xffffff);
    }
    for (qint32 label = 1; label <= kLabels; ++label) {
        writer.AddLabel(u"标签"_s + BulkWord(label));
    }
    writer.CommitBatch();
}

void BulkFiller::AddCheckpoints() {
    if (m_size.pdfPhotos == 0) {
        return;
    }
    site::SiteWriter writer(m_folder);
    writer.BeginBatch();
    for (qint32 ppid = 1; ppid <= m_size.projects; ++ppid) {
        for (qint32 drawing = 0; drawing < 20; ++drawing) {
            const qint32 id =
                writer.AddDrawing(ppid, BulkWord(ppid * 20 + drawing) + u"平面图%1"_s.arg(drawing));
            for (qint32 number = 1; number <= 50; ++number) {
                site::NewCheckpoint point;
                point.drawingId = id;
                point.number = number;
                point.markId = 1 + m_random.Skewed(kMarks);
                point.labelIds = {1 + m_random.Skewed(kLabels)};
                writer.AddCheckpoint(ppid, point);
            }
        }
    }
    writer.CommitBatch();
}

// Indexes are built behind the rows, and the tally is counted once.
QStringList BulkFiller::DropIndexes(const site::ListShape& shape) {
    QStringList names;
    QStringList statements;
    m_db.ForEach(u"SELECT type, name, sql FROM sqlite_master WHERE tbl_name = ? AND sql IS NOT NULL"
                 " AND type IN ('index', 'trigger')"_s,
                 {shape.table}, [&](const site::Statement& row) {
                     names << row.Text(0) + u' ' + row.Text(1);
                     statements << row.Text(2);
                 });
    for (const QString& name : names) {
        m_db.Exec(u"DROP "_s + name);
    }
    return statements;
}

void BulkFiller::Fill(const site::ListShape& shape, qint32 count, AddRow add) {
    if (count == 0) {
        return;
    }
    site::Transaction transaction(m_db);
    const QStringList statements = DropIndexes(shape);
    for (qint32 number = 1; number <= count; ++number) {
        (this->*add)(number);
        if (++m_done % kRowsPerStep == 0 && m_progress) {
            m_progress(m_done, m_all);
        }
    }
    for (const QString& statement : statements) {
        m_db.Exec(statement);
    }
    m_db.Exec(u"INSERT INTO %1 SELECT ppid, mark_id, state, count(*) FROM %2"
              " GROUP BY ppid, mark_id, state"_s.arg(shape.tally, shape.table));
    if (shape.kind == site::ListKind::BimPhotos) {
        for (const auto& fill : {site::PlaceTallyFillSql(), site::HiddenTallyFillSql()}) {
            for (const QString& statement : fill) {
                m_db.Exec(statement);
            }
        }
    }
    transaction.Commit();
}

qint32 BulkFiller::ProjectOf() {
    if (m_size.projects == 1 || m_random.Below(100) < m_size.bigShare) {
        return 1;
    }
    return 2 + m_random.Below(m_size.projects - 1);
}

BulkFiller::Life BulkFiller::LifeOf(qint32 number, qint32 count) {
    Life life;
    life.author = BulkPerson(m_random);
    life.created = kFirstUpload + number * (kSpan / count) + m_random.Below(86400);
    if (m_random.Below(10) < 3) {
        life.updater = BulkPerson(m_random);
        life.updated = life.created + 60 + m_random.Below(90 * 86400);
    }
    life.last = site::LastChange(life.author, life.created, life.updater, life.updated);
    return life;
}

void BulkFiller::AddWords(const site::ListShape& shape, qint32 ppid, qint64 id,
                          const QStringList& texts) {
    QVariantList values{site::SearchRowId(ppid, id)};
    QStringList marks{u"?"_s};
    for (const QString& text : texts) {
        values << site::SearchWords(text);
        marks << u"?"_s;
    }
    const QStringList fields(shape.searchFields.begin(), shape.searchFields.end());
    m_db.Exec(u"INSERT INTO %1 (rowid, %2) VALUES (%3)"_s.arg(
                  shape.searchTable, fields.join(u", "_s), marks.join(u", "_s)),
              values);
}

void BulkFiller::AddBimPhoto(qint32 number) {
    const qint32 ppid = ProjectOf();
    const Life life = LifeOf(number, m_size.bimPhotos);
    const QString name = BulkPhotoName(m_random, number);
    const QString description = BulkDescription(m_random);
    const QString floor = m_random.Below(50) == 0 ? QString() : BulkFloor(m_random);
    const QString axisX = floor.isEmpty() ? QString() : QString::number(1 + m_random.Below(20));
    const QString axisY = floor.isEmpty() ? QString() : QString(QChar(u'A' + m_random.Below(15)));
    const QString place = site::PositionText(axisX, axisY);
    const qint64 id = m_db.Insert(
        u"INSERT INTO bim_photo (ppid, name, description, floor, floor_sort, axis_x, axis_y,"
        " pos_text, position_key, mark_id, file_uuid, audio_uuid, state, status, uploader,"
        " uploaded, updater, updated, modifier, modified) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?,"
        " '', ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {ppid, name, description, floor, site::FloorSortKey(floor), axisX, axisY, place,
         floor.isEmpty() ? QString() : u"%1-%2-%3"_s.arg(ppid).arg(floor, place),
         1 + m_random.Skewed(kMarks), u"bulk-%1"_s.arg(number), StateOf(),
         m_random.Below(12) == 0 ? 1 : 0, life.author, life.created, life.updater, life.updated,
         life.last.person, life.last.time});
    const qint32 labels = m_random.Below(4);
    for (qint32 i = 0; i < labels; ++i) {
        m_db.Exec(u"INSERT INTO bim_label (label_id, ppid, photo_id) VALUES (?, ?, ?)"
                  " ON CONFLICT DO NOTHING"_s,
                  {1 + m_random.Skewed(kLabels), ppid, id});
    }
    AddWords(site::ShapeOf(site::ListKind::BimPhotos), ppid, id,
             {name, life.author, life.updater, description});
}

void BulkFiller::AddPdfPhoto(qint32 number) {
    const qint32 ppid = ProjectOf();
    const Life life = LifeOf(number, m_size.pdfPhotos);
    const QString name = BulkPhotoName(m_random, number);
    const QString description = BulkDescription(m_random);
    const qint32 checkpoint = (ppid - 1) * 1000 + 1 + m_random.Skewed(1000);
    const qint64 id = m_db.Insert(
        u"INSERT INTO pdf_photo (ppid, checkpoint_id, drawing_id, drawing_name, checkpoint_no,"
        " name, description, mark_id, file_uuid, state, status, uploader, uploaded, updater,"
        " updated, modifier, modified) SELECT ?, c.id, d.id, d.name, c.number, ?, ?, c.mark_id, ?, "
        "?,"
        " ?, ?, ?, ?, ?, ?, ?"
        " FROM checkpoint c JOIN drawing d ON d.id = c.drawing_id WHERE c.id = ?"_s,
        {ppid, name, description, u"bulk-p%1"_s.arg(number), StateOf(),
         m_random.Below(12) == 0 ? 1 : 0, life.author, life.created, life.updater, life.updated,
         life.last.person, life.last.time, checkpoint});
    AddWords(site::ShapeOf(site::ListKind::PdfPhotos), ppid, id,
             {name, life.author, life.updater, description,
              m_db.Value(u"SELECT drawing_name FROM pdf_photo WHERE id = ?"_s, {id}).toString()});
}

void BulkFiller::AddIssue(qint32 number) {
    const qint32 ppid = ProjectOf();
    const Life life = LifeOf(number, m_size.issues);
    const QString theme =
        BulkWord(m_random.Skewed(100)) + BulkWord(m_random.Skewed(100)) + u"问题%1"_s.arg(number);
    const QString description = BulkDescription(m_random);
    const QString floor = BulkFloor(m_random);
    const qint64 id = m_db.Insert(
        u"INSERT INTO issue (question_id, ppid, theme, description, floor, floor_sort, pos_info,"
        " component_name, component_sub_name, component_handle, mark_id, qr_code, voice_uuid,"
        " state, status, creator, created, updater, updated, modifier, modified) VALUES (?, ?, ?, "
        "?, ?, ?, ?, ?,"
        " '', ?, ?, '', '', ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {u"issue-%1"_s.arg(number), ppid, theme, description, floor, site::FloorSortKey(floor),
         site::PositionText(QString::number(1 + m_random.Below(20)),
                            QString(QChar(u'A' + m_random.Below(9)))),
         BulkWord(m_random.Below(40)), u"h%1"_s.arg(m_random.Below(5000)),
         1 + m_random.Skewed(kMarks), StateOf(), m_random.Below(12) == 0 ? 1 : 0, life.author,
         life.created, life.updater, life.updated, life.last.person, life.last.time});
    AddWords(site::ShapeOf(site::ListKind::Issues), ppid, id,
             {theme, life.author, life.updater, description});
}

} // namespace

void FillBulkSite(site::DataFolder& folder, const BulkSize& size, const BulkProgress& progress) {
    BulkFiller(folder, size, progress).Run();
}

} // namespace bulk
