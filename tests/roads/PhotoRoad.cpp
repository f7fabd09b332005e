#include "tests/roads/PhotoRoad.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/MainWindow.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/HastyClock.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"

#include <QAbstractItemView>
#include <QDir>
#include <QImage>

namespace roads {

using namespace Qt::StringLiterals;
using support::WaitFor;
using tour::ConsoleTotal;

namespace {

constexpr qint64 kLater = 1'700'000'100;
constexpr int kLookForBoxesMs = 100;
/// Longer than a test waits for the box that it expects.
constexpr int kPatienceMs = 30'000;

qint32 AddPhoto(site::SiteWriter& writer, site::NewBimPhoto photo, QRgb color, int seconds) {
    photo.uploader = u"张伟"_s;
    photo.uploadTime = kLater + seconds;
    return writer.FilePhoto(photo, {QString(), JpegBytes(color)});
}

QModelIndex RowWith(const QAbstractItemModel& model, const QString& name,
                    const QModelIndex& above = {}) {
    for (int row = 0; row < model.rowCount(above); ++row) {
        const QModelIndex index = model.index(row, 0, above);
        if (index.data().toString() == name) {
            return index;
        }
    }
    return {};
}

} // namespace

void PhotoRoad::SetUp() {
    // The module's workers may look at the clock until the program ends.
    static support::HastyClock clock;
    toolkit::SetClock(&clock);
    QObject::connect(&m_looking, &QTimer::timeout, [this] { LookForBoxes(); });
    m_looking.start(kLookForBoxesMs);
    ClientOnAFolder::SetUp();
    // The module lives as long as the program: a console that is opened while it is there is no
    // longer waited for by viewers.
    OpenConsole();
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return hands::CloseWindow(tour::Console()); }));
}

void PhotoRoad::LookForBoxes() {
    QWidget* open = tour::OpenMessageBox();
    if (open != m_box) {
        m_box = open;
        m_boxSince.start();
    } else if (open != nullptr && m_boxSince.hasExpired(kPatienceMs)) {
        ADD_FAILURE() << "not expected: " << tour::MessageBoxText().toStdString();
        open->close();
    }
}

void PhotoRoad::TearDown() {
    m_looking.stop();
    End();
    toolkit::SetClock(nullptr);
}

void PhotoRoad::End() {
    if (client) {
        client->Stop();
    }
    client.reset();
    session.Close();
    support::RunPendingEvents();
}

void PhotoRoad::Furnish() {
    site::SiteWriter writer(support::FolderOf(session));
    writer.AddMark(2, u"安全"_s, 0x00FF00);
    cornerKey = writer.FindPosition(site.firstProject, u"-1"_s, u"1"_s, u"A"_s);
    upstairsKey = writer.FindPosition(site.firstProject, u"1"_s, u"1"_s, u"A"_s);
    site::NewBimPhoto photo;
    photo.ppid = site.firstProject;
    photo.fileName = u"楼上.jpg"_s;
    photo.positionKey = upstairsKey;
    photo.markId = 2;
    upstairsPhoto = AddPhoto(writer, photo, kUpstairsColor, 0);
    photo.fileName = u"转角.jpg"_s;
    photo.positionKey = cornerKey;
    photo.markId = 1;
    cornerPhoto = AddPhoto(writer, photo, kCornerColor, 1);
}

void PhotoRoad::OpenConsole() {
    ASSERT_TRUE(Press(Qt::Key_1));
    ASSERT_TRUE(WaitFor([] { return ConsoleTotal() == 7; }));
}

void PhotoRoad::LookUp(const QString& fileName) {
    const int row = RowOfPhoto(fileName);
    ASSERT_GE(row, 0) << fileName.toStdString();
    ClickRowIcon(row, u"反查"_s);
}

int PhotoRoad::PanelCount(const QString& floorCaption, const QString& markName) const {
    const auto* tree = qobject_cast<QAbstractItemView*>(
        tour::FindIn(tour::FindIn(client->Window(), u"photoMarks"_s), u"tree"_s));
    if (tree == nullptr) {
        return -1;
    }
    const QModelIndex floor = RowWith(*tree->model(), floorCaption);
    const QModelIndex mark =
        floor.isValid() ? RowWith(*tree->model(), markName, floor) : QModelIndex();
    return mark.siblingAtColumn(1).data().toString().toInt();
}

void PhotoRoad::ToggleFloor(const QString& floorCaption) {
    auto* tree = qobject_cast<QAbstractItemView*>(
        tour::FindIn(tour::FindIn(client->Window(), u"photoMarks"_s), u"tree"_s));
    ASSERT_NE(tree, nullptr);
    const QModelIndex floor = RowWith(*tree->model(), floorCaption);
    ASSERT_TRUE(floor.isValid()) << floorCaption.toStdString();
    ASSERT_TRUE(WaitFor([&] { return hands::ClickCell(tree, floor.row(), 0); }));
    ASSERT_TRUE(WaitFor([&] { return hands::PressKey(tree, Qt::Key_Space); }));
}

void PhotoRoad::ClickInPanel(const QString& button) {
    const QWidget* page = tour::FindIn(client->Window(), u"photoMarks"_s);
    ASSERT_NE(page, nullptr);
    ClickOn(*page, button);
}

OtherClient PhotoRoad::Other() const {
    return OtherClient(folder.Path(u"data"_s));
}

QStringList PhotoRoad::Cached() const {
    QStringList paths;
    const QDir cache(folder.Path(u"data/cache/%1/pics"_s.arg(site.firstProject)));
    for (const QString& name : cache.entryList(QDir::Files | QDir::Hidden)) {
        paths << cache.filePath(name);
    }
    return paths;
}

void PhotoRoad::ExpectNothingHalf() const {
    for (const QString& path : Cached()) {
        EXPECT_TRUE(path.endsWith(u".jpg"_s)) << path.toStdString();
        EXPECT_FALSE(QImage(path).isNull()) << path.toStdString();
    }
}

} // namespace roads
