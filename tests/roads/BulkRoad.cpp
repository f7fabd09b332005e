#include "tests/roads/BulkRoad.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "host/ui/MessageBar.h"
#include "site/IBimPhotos.h"
#include "site/ICatalogue.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractButton>
#include <QAbstractItemView>

namespace roads {

using namespace Qt::StringLiterals;
using support::WaitFor;

namespace {

constexpr qint64 kEarlier = 1'600'000'000;

int RowNamed(const QString& name) {
    for (const QString& caption : {u"照片名称"_s, u"问题主题"_s}) {
        const int row = int(ConsoleColumnTexts(caption).indexOf(name));
        if (row >= 0) {
            return row;
        }
    }
    return -1;
}

} // namespace

void BulkRoad::SetUp() {
    PhotoRoad::SetUp();
    site::SiteWriter writer(support::FolderOf(session));
    const auto add = [&](const QString& name, qint32 markId, const QString& key) {
        site::NewBimPhoto photo;
        photo.ppid = site.firstProject;
        photo.fileName = name;
        photo.markId = markId;
        photo.positionKey = key;
        photo.uploader = u"李娜"_s;
        photo.uploadTime = kEarlier;
        return writer.FilePhoto(photo,
                                {{}, JpegBytes(qRgb(markId * 50, key.isEmpty() ? 0 : 99, 7))});
    };
    bare = add(u"散1.jpg"_s, 0, {});
    marked = add(u"散2.jpg"_s, 1, {});
    placed = add(u"散3.jpg"_s, 0, cornerKey);
    (void)writer.AddLabel(u"渗漏"_s);
    (void)writer.AddLabel(u"复查"_s);
}

void BulkRoad::OpenConsoleOf(Qt::Key key, int total) {
    ASSERT_TRUE(Press(key));
    ASSERT_TRUE(WaitFor([total] { return tour::ConsoleTotal() == total; }));
}

void BulkRoad::Tick(const QStringList& names) {
    for (const QString& name : names) {
        ASSERT_TRUE(WaitFor([&] { return tour::ClickConsoleCheck(RowNamed(name)); }))
            << name.toStdString();
    }
}

void BulkRoad::AskIn(QWidget* window) {
    ASSERT_TRUE(WaitFor([window] {
        return hands::PressKey(window, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    }));
}

QWidget* BulkRoad::Question() {
    return tour::FindWindow(u"bulkDialog"_s);
}

void BulkRoad::ChooseAll(const std::vector<std::pair<QString, QString>>& boxesAndEntries) {
    ASSERT_TRUE(WaitFor([] { return Question() != nullptr; }));
    for (const auto& [box, entry] : boxesAndEntries) {
        ChooseIn(*Question(), box, entry);
    }
}

void BulkRoad::Accept() {
    ClickOn(*Question(), u"bulkStart"_s);
    EXPECT_TRUE(WaitFor([] { return Question() == nullptr; }));
}

QString BulkRoad::RefusedBecause() {
    ClickOn(*Question(), u"bulkStart"_s);
    return Question() == nullptr ? QString()
                                 : tour::ReadText(tour::FindIn(Question(), u"noteLabel"_s));
}

QWidget* BulkRoad::Skipped() {
    return tour::FindWindow(u"importResult"_s);
}

QStringList BulkRoad::SkippedRows() {
    QStringList rows;
    const auto* table = qobject_cast<QAbstractItemView*>(tour::FindIn(Skipped(), u"importTable"_s));
    for (int row = 0; table != nullptr && row < table->model()->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->model()->columnCount(); ++column) {
            cells << table->model()->index(row, column).data().toString();
        }
        rows << cells.join(u'，');
    }
    return rows;
}

bool BulkRoad::IsTold(const QString& text) const {
    return WaitFor([&] { return Messages().contains(text); });
}

bool BulkRoad::ClickUndo() {
    return WaitFor([this] {
        auto* button = client->Window()->Messages().findChild<QAbstractButton*>(u"messageAction"_s);
        return button != nullptr && hands::Click(button);
    });
}

QString BulkRoad::LastAction() const {
    return session.Site().Catalogue().Actions(1).front().action;
}

KX_DATA::BimPicDetail BulkRoad::Photo(qint32 picId) const {
    KX_DATA::BimPicDetail detail;
    EXPECT_TRUE(session.Site().BimPhotos().Detail(site.firstProject, picId, detail));
    return detail;
}

QStringList BulkRoad::LabelsOf(qint32 picId) const {
    QStringList names;
    for (const KX_DATA::LabelEntry& label : Photo(picId).labels) {
        names << label.labelName;
    }
    return names;
}

void BulkRoad::SetRights(const std::vector<qint32>& rights) {
    site::SiteWriter(support::FolderOf(session)).AddUser(u"张伟"_s, rights);
}

} // namespace roads
