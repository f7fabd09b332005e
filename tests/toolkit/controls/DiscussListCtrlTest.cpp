// The list of comments.
#include "toolkit/controls/DiscussListCtrl.h"
#include "tests/support/WaitFor.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using toolkit::DiscussRow;

constexpr int kId = 24064;

class DiscussListCtrlTest : public testing::Test {
protected:
    DiscussListCtrlTest() {
        window.resize(300, 400);
        id = toolkit::RegisterWindow(&window, [this](const toolkit::WindowEvent& event) {
            sent.emplace_back(event.number, int(event.first));
            return 1;
        });
        list.setGeometry(0, 0, 215, 300);
        window.show();
    }
    ~DiscussListCtrlTest() override { toolkit::UnregisterWindow(id); }

    static std::vector<DiscussRow> Rows(int count) {
        std::vector<DiscussRow> rows;
        for (int at = 0; at < count; ++at) {
            rows.push_back({u"张三：第%1条评论，二层梁底有裂缝，请尽快安排人员处理。"_s.arg(at),
                            u"2026-03-05 12:00:00"_s, at + 1});
        }
        return rows;
    }
    [[nodiscard]] QRect PlaceOf(int row) const {
        return list.visualRect(list.model()->index(row, 0));
    }
    [[nodiscard]] bool IsInSight(int row) const {
        return list.viewport()->rect().contains(PlaceOf(row));
    }
    void ClickRow(int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, PlaceOf(row).center());
    }
    /// The menu that a right click there opens; null: none.
    QMenu* MenuAt(const QPoint& place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                                list.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(list.viewport(), &event);
        return list.findChild<QMenu*>();
    }
    [[nodiscard]] QColor ColourAt(const QPoint& place) {
        return list.viewport()->grab().toImage().pixelColor(place);
    }

    QWidget window;
    toolkit::WindowId id = toolkit::kNoWindow;
    std::vector<std::pair<int, int>> sent;
    DiscussListCtrl list{&window, kId};
};

TEST_F(DiscussListCtrlTest, TheNewestCommentIsAtTheEndAndInSight) {
    list.InsertRows(Rows(50));
    EXPECT_TRUE(IsInSight(49));
    EXPECT_FALSE(IsInSight(0));
    list.verticalScrollBar()->setValue(0);
    EXPECT_EQ(list.InsertRow(u"李四：好"_s, u"2026-03-06 08:00:00"_s, 99), 50);
    EXPECT_TRUE(IsInSight(50));
    EXPECT_EQ(list.GetRowData(50), 99);
}

TEST_F(DiscussListCtrlTest, TextTakesAsManyLinesAsItNeedsAndItsTimeOneMore) {
    list.InsertRow(u"短"_s, u"t"_s, 1);
    list.InsertRow(QString(100, u'国'), u"t"_s, 2);
    list.InsertRow(u"一\n二\n三"_s, u"t"_s, 3);
    list.InsertRow(u"一\r\n二\r三"_s, u"t"_s, 4);
    const int line = list.fontMetrics().lineSpacing();
    const int one = PlaceOf(0).height();
    EXPECT_GE(one, 2 * line);
    EXPECT_LT(one, 4 * line);
    EXPECT_EQ(PlaceOf(2).height(), one + 2 * line);
    EXPECT_EQ(PlaceOf(3).height(), one + 2 * line);
    const int signs = 215 / list.fontMetrics().horizontalAdvance(u'国');
    EXPECT_GE(PlaceOf(1).height(), one + (100 / signs - 1) * line);
}

TEST_F(DiscussListCtrlTest, ACommentHasRoomAboveItsTextAndBelowItsTime) {
    list.InsertRow(u"短"_s, u"t"_s, 1);
    const int lines = 2 * list.fontMetrics().lineSpacing();
    EXPECT_GE(PlaceOf(0).height(), lines + 8);
}

TEST_F(DiscussListCtrlTest, ACommentHigherThanTheListIsScrolledThrough) {
    list.InsertRow(QString(u"一行\n"_s).repeated(60), QString(), 1);
    QScrollBar* bar = list.verticalScrollBar();
    const int line = list.fontMetrics().lineSpacing();
    ASSERT_GE(bar->maximum(), 60 * line - list.viewport()->height());
    bar->setValue(bar->maximum() / 2);
    EXPECT_LT(PlaceOf(0).top(), 0);
    EXPECT_GT(PlaceOf(0).bottom(), list.viewport()->height());
}

TEST_F(DiscussListCtrlTest, TellsOfExactlyTheRowsThatCome) {
    std::vector<std::pair<int, int>> told;
    QObject::connect(
        list.model(), &QAbstractItemModel::rowsInserted,
        [&](const QModelIndex&, int first, int last) { told.emplace_back(first, last); });
    list.InsertRows(Rows(3));
    list.InsertRow(u"四"_s, QString(), 4);
    EXPECT_THAT(told, ElementsAre(std::pair(0, 2), std::pair(3, 3)));
}

TEST_F(DiscussListCtrlTest, TheContextMenuOpensWhereItWasAskedFor) {
    list.InsertRows(Rows(3));
    const QPoint place = PlaceOf(1).center();
    const QMenu* menu = MenuAt(place);
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->isVisible());
    EXPECT_TRUE(
        menu->geometry().adjusted(-2, -2, 2, 2).contains(list.viewport()->mapToGlobal(place)));
}

TEST_F(DiscussListCtrlTest, TabLeavesTheList) {
    QPushButton next(&window);
    next.show();
    QWidget::setTabOrder(&list, &next);
    list.InsertRows(Rows(3));
    window.activateWindow();
    list.setFocus();
    ClickRow(0);
    QTest::keyClick(&list, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &next);
}

TEST_F(DiscussListCtrlTest, MarkupIsShownAsItStands) {
    list.InsertRow(u"<b>一</b>"_s, QString(), 1);
    const int plain = PlaceOf(0).height();
    list.InsertRow(u"<br><br><br><img src='x'>"_s, QString(), 2);
    EXPECT_EQ(list.model()->index(0, 0).data().toString(), u"<b>一</b>");
    EXPECT_EQ(PlaceOf(1).height(), plain) << "no line feed, no picture";
}

TEST_F(DiscussListCtrlTest, NothingIsSelectedToBeginWithNorAfterARemoval) {
    list.InsertRows(Rows(3));
    EXPECT_EQ(list.GetCurSel(), -1);
    ClickRow(1);
    EXPECT_EQ(list.GetCurSel(), 1);
    list.RemoveRow(1);
    EXPECT_EQ(list.GetCurSel(), -1);
    EXPECT_EQ(list.GetRowCount(), 2);
    EXPECT_EQ(list.GetRowData(1), 3) << "the next one moves up";
    list.RemoveAll();
    EXPECT_EQ(list.GetRowCount(), 0);
}

TEST_F(DiscussListCtrlTest, RowsThatAreNotThereHaveNoDataAndCannotBeRemoved) {
    list.InsertRows(Rows(1));
    for (const int row : {-1, 1}) {
        EXPECT_EQ(list.GetRowData(row), 0);
        list.RemoveRow(row);
    }
    EXPECT_EQ(list.GetRowCount(), 1);
    EXPECT_EQ(list.FindRow(1), 0);
    EXPECT_EQ(list.FindRow(7), -1);
}

TEST_F(DiscussListCtrlTest, DeleteSendsTheWishToTheOwner) {
    list.InsertRows(Rows(3));
    ClickRow(1);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_THAT(sent, ElementsAre(std::pair(1112, kId)));
    EXPECT_EQ(list.GetRowCount(), 3) << "the owner removes";
    QTest::keyClick(&list, Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(sent.size(), 1U);
}

TEST_F(DiscussListCtrlTest, TheContextMenuSelectsItsCommentAndSendsTheWish) {
    list.InsertRows(Rows(3));
    QMenu* menu = MenuAt(PlaceOf(2).center());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().front()->text(), u"删除");
    EXPECT_EQ(list.GetCurSel(), 2);
    menu->actions().front()->trigger();
    EXPECT_THAT(sent, ElementsAre(std::pair(1112, kId)));
}

TEST_F(DiscussListCtrlTest, BesideTheCommentsThereIsNothingToDelete) {
    list.InsertRows(Rows(1));
    ClickRow(0);
    QMenu* menu = MenuAt({100, 290});
    ASSERT_NE(menu, nullptr);
    EXPECT_FALSE(menu->actions().front()->isEnabled());
    EXPECT_EQ(list.GetCurSel(), -1);
}

TEST_F(DiscussListCtrlTest, TheMenuKeyIsForTheCurrentComment) {
    list.InsertRows(Rows(3));
    ClickRow(1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), list.mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(list.viewport(), &event);
    const auto* menu = list.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->actions().front()->isEnabled());
    EXPECT_EQ(list.GetCurSel(), 1);
}

TEST_F(DiscussListCtrlTest, ArrowsWorkWithControlToo) {
    list.InsertRows(Rows(3));
    ClickRow(0);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(list.GetCurSel(), 1);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.GetCurSel(), 2);
    QTest::keyClick(&list, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(list.GetCurSel(), 0);
}

TEST_F(DiscussListCtrlTest, ADisabledListTakesNoWish) {
    list.InsertRows(Rows(3));
    list.setEnabled(false);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(DiscussListCtrlTest, ADisabledListCanStillBeRead) {
    list.InsertRows(Rows(3));
    list.setEnabled(false);
    const QImage image = list.viewport()->grab().toImage();
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            darkest = qMin(darkest, qGray(image.pixel(x, y)));
        }
    }
    EXPECT_LE(darkest, qGray(toolkit::Colors::HintText().rgb()) + 8);
}

TEST_F(DiscussListCtrlTest, TheOwnerMayEndTheListInItsAnswer) {
    auto* dying = new QWidget;
    auto* other = new DiscussListCtrl(dying, kId);
    const toolkit::WindowId owner =
        toolkit::RegisterWindow(dying, [&](const toolkit::WindowEvent&) {
            delete std::exchange(dying, nullptr);
            return 1;
        });
    other->InsertRows(Rows(2));
    dying->show();
    other->setCurrentIndex(other->model()->index(0, 0));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(other, &press);
    EXPECT_EQ(dying, nullptr);
    EXPECT_EQ(toolkit::WidgetOf(owner), nullptr);
}

TEST_F(DiscussListCtrlTest, AnEmptyListSaysWhatItIsToldUntilACommentComes) {
    const QImage blank = list.viewport()->grab().toImage();
    list.SetEmptyText(u"暂无评论"_s);
    const QImage said = list.viewport()->grab().toImage();
    EXPECT_NE(said, blank);
    list.InsertRows(Rows(1));
    EXPECT_EQ(ColourAt({107, 290}), blank.pixelColor(107, 290));
    list.RemoveAll();
    EXPECT_EQ(list.viewport()->grab().toImage(), said);
}

TEST_F(DiscussListCtrlTest, ANarrowerListBreaksItsTextsAnew) {
    list.InsertRow(QString(40, u'国'), QString(), 1);
    const int before = PlaceOf(0).height();
    list.resize(120, 300);
    EXPECT_GT(PlaceOf(0).height(), before);
    list.resize(215, 300);
    EXPECT_EQ(PlaceOf(0).height(), before);
}

TEST_F(DiscussListCtrlTest, ALowerListThatShowedItsEndStillDoes) {
    list.InsertRows(Rows(30));
    list.resize(215, 150);
    EXPECT_TRUE(IsInSight(29));
    list.verticalScrollBar()->setValue(0);
    list.resize(215, 200);
    EXPECT_TRUE(IsInSight(0)) << "who reads older ones goes on reading";
}

TEST_F(DiscussListCtrlTest, ScreenReadersGetTextAndTime) {
    list.InsertRow(u"张三：好"_s, u"2026-03-05 12:00:00"_s, 1);
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&list);
    ASSERT_NE(reader, nullptr);
    ASSERT_EQ(reader->childCount(), 1);
    EXPECT_EQ(reader->child(0)->text(QAccessible::Name), u"张三：好\n2026-03-05 12:00:00");
}

TEST_F(DiscussListCtrlTest, OfThousandsTheNewestAreMeasuredFirstAndAllInTheEnd) {
    // Far narrower than signs mostly are.
    const QString narrow(300, u'i');
    list.InsertRow(narrow, QString(), 1);
    const int measured = PlaceOf(0).height();
    list.RemoveAll();
    std::vector<DiscussRow> rows = Rows(1000);
    rows.front().text = narrow;
    rows.back().text = narrow;
    list.InsertRows(std::move(rows));
    EXPECT_TRUE(IsInSight(999));
    EXPECT_EQ(PlaceOf(999).height(), measured);
    EXPECT_GT(PlaceOf(0).height(), measured) << "nobody waits for it";
    EXPECT_TRUE(support::WaitFor([&] { return PlaceOf(0).height() == measured; }));
    EXPECT_TRUE(IsInSight(999)) << "who was at the end is there";
    list.resize(120, 300);
    const int narrower = PlaceOf(999).height();
    EXPECT_GT(narrower, measured);
    EXPECT_TRUE(support::WaitFor([&] { return PlaceOf(0).height() == narrower; }));
}

TEST_F(DiscussListCtrlTest, WhatIsReadStaysInPlaceWhileTheOthersAreMeasured) {
    std::vector<DiscussRow> rows = Rows(1000);
    for (int at = 0; at < 400; ++at) {
        rows[size_t(at)].text = QString(300, u'i');
    }
    list.InsertRows(std::move(rows));
    list.verticalScrollBar()->setValue(PlaceOf(500).top() - PlaceOf(0).top() + 5);
    const int read = list.indexAt({50, 0}).row();
    const QRect place = PlaceOf(read);
    const int likely = PlaceOf(0).height();
    EXPECT_TRUE(support::WaitFor([&] { return PlaceOf(0).height() < likely; }));
    EXPECT_EQ(PlaceOf(read), place);
}

TEST_F(DiscussListCtrlTest, CommentsMayGoAndComeBeforeAllAreMeasured) {
    const QString narrow(300, u'i');
    std::vector<DiscussRow> rows = Rows(1000);
    rows[1].text = narrow;
    list.InsertRows(std::move(rows));
    const int likely = PlaceOf(1).height();
    list.RemoveRow(0);
    list.InsertRow(narrow, QString(), 2000);
    const int measured = PlaceOf(999).height();
    EXPECT_TRUE(support::WaitFor([&] { return PlaceOf(0).height() < likely; }));
    EXPECT_EQ(PlaceOf(0).height(), measured);
    list.InsertRows(Rows(1000));
    list.RemoveAll();
    list.InsertRow(narrow, QString(), 1);
    EXPECT_EQ(PlaceOf(0).height(), measured);
}

// Some tens of milliseconds without the sanitizers. Laid out anew for each of them it would be
// minutes.
TEST_F(DiscussListCtrlTest, FiveThousandCommentsComeAtOnce) {
    // The first one loads the face.
    list.InsertRows(Rows(1));
    list.RemoveAll();
    std::vector<DiscussRow> rows = Rows(5000);
    QElapsedTimer timer;
    timer.start();
    list.InsertRows(std::move(rows));
    list.viewport()->repaint();
    const qint64 taken = timer.elapsed();
    RecordProperty("milliseconds", int(taken));
    EXPECT_TRUE(IsInSight(4999));
    EXPECT_LT(taken, 500);
}

} // namespace
