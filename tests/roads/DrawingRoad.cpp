#include "tests/roads/DrawingRoad.h"

#include "hands/Choices.h"
#include "include/KXEvents.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/host/drawings/TestDrawings.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/WaitFor.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QtTest/QTest>

namespace roads {

using namespace Qt::StringLiterals;
using host::SheetStore;
using support::WaitFor;

namespace {

constexpr int kPoints = 2;

} // namespace

void DrawingRoad::Furnish() {
    PhotoRoad::Furnish();
    site::SiteWriter writer(support::FolderOf(session));
    drawing = writer.AddDrawing(site.firstProject, u"首层平面图"_s,
                                {{}, drawingtest::PlainPdf(2, kDrawingSheet)}, 2);
    site::NewCheckpoint point;
    point.drawingId = drawing;
    point.number = 3;
    point.markId = 1;
    point.x = 250;
    point.y = 250;
    withPhoto = writer.AddCheckpoint(site.firstProject, point);
    point.number = 4;
    point.x = 750;
    without = writer.AddCheckpoint(site.firstProject, point);
    site::NewPdfPhoto filed;
    filed.checkpointId = withPhoto;
    filed.fileName = u"墙面.jpg"_s;
    filed.uploader = u"张伟"_s;
    filed.uploadTime = 1'700'000'000;
    photo = writer.FilePdfPhoto(site.firstProject, filed, {{}, JpegBytes(qRgb(9, 9, 200))});
}

void DrawingRoad::SetUp() {
    PhotoRoad::SetUp();
    Press(Qt::Key_D);
    Choose(u"首层平面图"_s);
    ASSERT_TRUE(WaitFor([this] { return Store().Present() == SheetStore::State::Open; }));
    ASSERT_TRUE(WaitFor([this] { return int(Canvas().Flags().size()) == kPoints; }));
}

void DrawingRoad::Choose(const QString& name) const {
    ASSERT_TRUE(WaitFor([&] { return hands::ChooseInCombo(Choice(), name); }))
        << name.toStdString();
}

QPoint DrawingRoad::PixelOf(double x, double y) const {
    return host::ToPane(Canvas().View(), Canvas().size(),
                        {x * kDrawingSheet.width(), y * kDrawingSheet.height()})
        .toPoint();
}

void DrawingRoad::ClickOnSheet(double x, double y) const {
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, PixelOf(x, y));
}

bool DrawingRoad::ChooseInMenu(const QPoint& at, const QString& entry) const {
    bool isThere = false;
    QTimer::singleShot(0, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) {
            return;
        }
        for (QAction* action : menu->actions()) {
            isThere = isThere || (action->text() == entry && action->isEnabled());
        }
        menu->close();
        if (isThere) {
            for (QAction* action : menu->actions()) {
                if (action->text() == entry) {
                    action->trigger();
                    return;
                }
            }
        }
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, Canvas().mapToGlobal(at));
    QCoreApplication::sendEvent(&Canvas(), &event);
    return isThere;
}

QStringList DrawingRoad::Drawings() const {
    QStringList names;
    for (const site::DrawingEntry& entry : session.Site().Drawings().List(site.firstProject)) {
        names << entry.name;
    }
    return names;
}

void DrawingRoad::Locate(qint32 point) const {
    toolkit::PostWindowEvent(client->Window()->Id(), ZelvorNRQ_KXVeskPicture::WM_VESK_PDF_LOCATE, 3,
                             quintptr(point));
}

bool DrawingRoad::Says(const QString& part) const {
    return WaitFor([&] { return !Messages().filter(part).isEmpty(); });
}

} // namespace roads
