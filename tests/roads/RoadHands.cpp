#include "tests/roads/RoadHands.h"

#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QPixmap>
#include <QSplitter>
#include <QTimer>

#include <gtest/gtest.h>

#include <cstdlib>

namespace roads {

using namespace Qt::StringLiterals;
using support::WaitFor;

namespace {

constexpr int kJpegLoss = 6; ///< of a colour channel
constexpr int kLookAgainMs = 2;
/// What stands beside and below the viewer's picture, device-independent pixels.
constexpr QSize kBesidePicture(125, 80);

bool IsNear(QRgb one, QRgb other) {
    return std::abs(qRed(one) - qRed(other)) <= kJpegLoss &&
           std::abs(qGreen(one) - qGreen(other)) <= kJpegLoss &&
           std::abs(qBlue(one) - qBlue(other)) <= kJpegLoss;
}

template <class Wanted> QPoint PlaceOf(const host::FloorPlanCanvas& plan, const Wanted& wanted) {
    for (const host::FlagBox& box : plan.FlagsLayout().boxes) {
        if (box.flag >= 0 && wanted(plan.Flags()[size_t(box.flag)].flag)) {
            return box.rect.center().toPoint();
        }
    }
    ADD_FAILURE() << "no such flag";
    return {-1, -1};
}

QPoint FlagPlace(const host::FloorPlanCanvas& plan, const QString& key, qint32 markId) {
    return PlaceOf(plan, [&](const host::MarkFlag& flag) {
        return flag.kind == host::MarkKind::Photos && flag.positionKey == key &&
               flag.markId == markId;
    });
}

bool IsIssueFlag(const host::MarkFlag& flag, qint32 markId) {
    return flag.kind == host::MarkKind::Issues && flag.markId == markId;
}

/// Null while it isn't open.
QMenu* FlagMenuInSight() {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    return menu != nullptr && menu->objectName() == u"flagMenu"_s ? menu : nullptr;
}

/// Clicks an entry, "menu/entry" below another, or ends a menu that doesn't have it.
void PickFrom(QMenu* menu, const QString& entry) {
    const QString first = entry.section(u'/', 0, 0);
    for (QAction* action : menu->actions()) {
        if (!action->isEnabled() || !action->text().startsWith(first)) {
            continue;
        }
        hands::ClickAt(menu, menu->actionGeometry(action).center());
        if (entry != first) {
            PickFrom(action->menu(), entry.section(u'/', 1));
        }
        return;
    }
    ADD_FAILURE() << "no such entry: " << entry.toStdString();
    menu->close();
}

/// Opens the menu of what lies there and chooses in it.
void ChooseAt(host::FloorPlanCanvas& plan, const QPoint& place, const QString& entry,
              const std::function<void()>& meanwhile) {
    // The menu holds the click that opens it.
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        QMenu* menu = FlagMenuInSight();
        if (menu == nullptr) {
            return;
        }
        look.stop();
        if (meanwhile) {
            meanwhile();
        }
        PickFrom(menu, entry);
    });
    look.start(kLookAgainMs);
    EXPECT_TRUE(WaitFor([&] { return hands::ClickAt(&plan, place, Qt::RightButton); }));
}

} // namespace

void ClickOn(const QWidget& window, const QString& name) {
    EXPECT_TRUE(WaitFor([&] { return hands::Click(tour::FindIn(&window, name)); }))
        << name.toStdString();
}

void ChooseIn(const QWidget& window, const QString& name, const QString& entry) {
    auto* combo = qobject_cast<QComboBox*>(tour::FindIn(&window, name));
    EXPECT_TRUE(WaitFor([&] { return hands::ChooseInCombo(combo, entry); })) << name.toStdString();
}

void Type(const QWidget& window, const QString& name, const QString& text) {
    EXPECT_TRUE(WaitFor([&] { return hands::TypeOver(tour::FindIn(&window, name), text); }))
        << name.toStdString();
}

void ClickRowIcon(int row, const QString& caption) {
    EXPECT_TRUE(WaitFor([&] {
        return hands::ClickCell(tour::ConsoleGrid(), row, tour::ConsoleColumn(caption));
    })) << caption.toStdString();
}

QStringList ConsoleColumnTexts(const QString& caption) {
    QStringList texts;
    for (int row = 0; row < tour::ConsoleRows(); ++row) {
        texts << tour::ConsoleText(row, caption);
    }
    return texts;
}

int RowOfPhoto(const QString& fileName) {
    return int(ConsoleColumnTexts(u"照片名称"_s).indexOf(fileName));
}

int SelectedRow() {
    const QAbstractItemView* grid = tour::ConsoleGrid();
    return grid == nullptr ? -1 : grid->currentIndex().row();
}

host::MarkFlag PhotoFlag(const host::FloorPlanCanvas& plan, const QString& key, qint32 markId) {
    for (const host::PlacedFlag& placed : plan.Flags()) {
        if (placed.flag.kind == host::MarkKind::Photos && placed.flag.positionKey == key &&
            placed.flag.markId == markId) {
            return placed.flag;
        }
    }
    return {};
}

void ClickFlag(host::FloorPlanCanvas& plan, const QString& key, qint32 markId) {
    EXPECT_TRUE(WaitFor([&] { return hands::ClickAt(&plan, FlagPlace(plan, key, markId)); }));
}

void ChooseOfFlag(host::FloorPlanCanvas& plan, const QString& key, qint32 markId,
                  const QString& entry, const std::function<void()>& meanwhile) {
    ChooseAt(plan, FlagPlace(plan, key, markId), entry, meanwhile);
}

host::MarkFlag IssueFlag(const host::FloorPlanCanvas& plan, qint32 markId) {
    for (const host::PlacedFlag& placed : plan.Flags()) {
        if (IsIssueFlag(placed.flag, markId)) {
            return placed.flag;
        }
    }
    return {};
}

void ChooseOfIssueFlag(host::FloorPlanCanvas& plan, qint32 markId, const QString& entry) {
    ChooseAt(plan,
             PlaceOf(plan, [&](const host::MarkFlag& flag) { return IsIssueFlag(flag, markId); }),
             entry, {});
}

QWidget* Viewer() {
    return tour::FindWindow(tour::kPhotoViewer);
}

QString ViewerTitle() {
    return Viewer() == nullptr ? QString() : Viewer()->windowTitle();
}

QString ViewerText(const QString& name) {
    return tour::ReadText(tour::FindIn(Viewer(), name));
}

bool ViewerShows(QRgb color) {
    if (Viewer() == nullptr) {
        return false;
    }
    // Above its record, which the person may have.
    const auto* divider = Viewer()->findChild<QSplitter*>(u"upDownView"_s);
    const QWidget* pane = divider == nullptr ? Viewer() : divider->widget(0);
    const QSize picture = pane->size() - kBesidePicture;
    const QImage seen = Viewer()->grab().toImage();
    const QPointF middle = QPointF(picture.width(), picture.height()) / 2 * seen.devicePixelRatio();
    return IsNear(seen.pixel(middle.toPoint()), color);
}

void WaitForRecord() {
    EXPECT_TRUE(WaitFor([] {
        const auto* states = qobject_cast<QComboBox*>(tour::FindIn(Viewer(), u"stateCombo"_s));
        return states != nullptr && states->currentIndex() >= 0;
    }));
}

void CloseViewer() {
    EXPECT_TRUE(WaitFor([] { return hands::CloseWindow(Viewer()); }));
    EXPECT_EQ(Viewer(), nullptr);
}

QString BoxDuring(const std::function<void()>& action) {
    QString text;
    const support::ModalVisit visit(u"messageBox"_s, [&text](QWidget&) {
        text = tour::MessageBoxText();
        EXPECT_TRUE(WaitFor([] { return tour::AnswerMessageBox(u"确定"_s); }));
    });
    action();
    return text;
}

QStringList BoxesDuring(const std::function<void()>& action) {
    QStringList texts;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&texts] {
        const QString text = tour::MessageBoxText();
        if (!text.isEmpty() && tour::AnswerMessageBox(u"确定"_s)) {
            texts << text;
        }
    });
    look.start(kLookAgainMs);
    action();
    return texts;
}

QStringList OpenWindows() {
    QStringList names;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if ((window->isVisible() || window->isMinimized()) && window->windowType() != Qt::ToolTip) {
            names << window->objectName();
        }
    }
    names.sort();
    return names;
}

} // namespace roads
