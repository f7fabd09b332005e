// The windows of the BIM photo viewer: places, keys, what happens while they wait, the report.
#include "frame/KXVeskPictureImpl.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/bim/BimViewFixture.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class BimPicViewWindowTest : public BimViewFixture {};

/// Counts the paints of a control.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget* control) { control->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

} // namespace

TEST_F(BimPicViewWindowTest, ClosedWhileItsMessageIsOpenEndsQuietly) {
    ASSERT_TRUE(Open());
    host.script.FailNext("GetBimPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([] { Wrap().Widget()->close(); });
    Press(Qt::Key_Right);
    EXPECT_FALSE(Wrap().HasWindow());
}

TEST_F(BimPicViewWindowTest, ClosedWhileTheServiceIsAskedForADetailItEndsQuietly) {
    ASSERT_TRUE(Open());
    host.script.During("GetBimPicDetail", [] { Wrap().Widget()->close(); });
    Press(Qt::Key_Right);
    EXPECT_FALSE(Wrap().HasWindow());
    host.script.FailNext("GetBimPicDetail");
    EXPECT_FALSE(Open());
}

TEST_F(BimPicViewWindowTest, AnotherPlaceOpenedWhileADetailIsFetchedIsTheOneThatStays) {
    ASSERT_TRUE(Open());
    host.script.During("GetBimPicDetail", [this] {
        host.script.During("GetBimPicDetail", nullptr);
        host.pics.files.resize(1);
        EXPECT_TRUE(Open());
    });
    Press(Qt::Key_Right);
    EXPECT_EQ(Pane().Items().size(), 1U);
    EXPECT_EQ(Wrap().Widget()->windowTitle(), u"照片1.jpg   (1/1)");
    EXPECT_EQ(Texts().descText->text(), u"描述：描述1");
}

TEST_F(BimPicViewWindowTest, AListThatComesForAWindowThatWasMadeAnewIsNotShown) {
    ASSERT_TRUE(Open());
    host.script.During("GetPicFilesByPosition", [this] {
        host.script.During("GetPicFilesByPosition", nullptr);
        Wrap().DestroyViews();
        EXPECT_TRUE(Open());
    });
    EXPECT_FALSE(Pane().LoadPosition({1, u"1"_s, u"K"_s, 1}, -1));
}

TEST_F(BimPicViewWindowTest, TheWaitCursorShowsWhileTheServicesAreAskedAndNotInAMessage) {
    const auto waits = [] { return QGuiApplication::overrideCursor() != nullptr; };
    std::vector<bool> during;
    for (const char* call : {"GetPicFilesByPosition", "GetBimPicDetail"}) {
        host.script.During(call, [&] { during.push_back(waits()); });
    }
    host.script.FailNext("GetBimPicDetail");
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    prompts.Meanwhile([&] { during.push_back(waits()); });
    ASSERT_TRUE(Open());
    EXPECT_THAT(during, ElementsAre(true, true, false));
    EXPECT_FALSE(waits());
}

TEST_F(BimPicViewWindowTest, EnterAndEscapeDoNotCloseIt) {
    ASSERT_TRUE(Open());
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        Press(key);
        QTest::keyClick(Wrap().Widget(), Qt::Key(key));
    }
    EXPECT_TRUE(Wrap().Widget()->isVisible());
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(Log().CountOf("OutputBimReport"), 0) << "nor do they press the button";
}

TEST_F(BimPicViewWindowTest, ClosedItHoldsNothingOfItsPlaceAnyMore) {
    ASSERT_TRUE(Open(3));
    ASSERT_EQ(Current(), 2);
    Wrap().Widget()->close();
    EXPECT_TRUE(Pane().State().items.empty());
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(Pane().State().shownIndex, -1);
}

TEST_F(BimPicViewWindowTest, ItComesUpInTheMiddleOfTheClient) {
    mainWindow.Widget()->setGeometry(20, 10, 1600, 1000);
    ASSERT_TRUE(Open());
    const QRect screen = Wrap().Widget()->screen()->availableGeometry();
    QRect middle(QPoint(), Wrap().Widget()->size());
    middle.moveCenter(mainWindow.Widget()->frameGeometry().center());
    // As far as the screen has room for it.
    const int left = std::min(middle.left(), screen.right() - middle.width() + 1);
    const int top = std::min(middle.top(), screen.bottom() - middle.height() + 1);
    EXPECT_EQ(Wrap().Widget()->pos(), QPoint(left, top));
    EXPECT_NE(Wrap().Widget()->pos(), QPoint(0, 0));
}

TEST_F(BimPicViewWindowTest, AnotherTitleLaysOutAgain) {
    ASSERT_TRUE(Open());
    Pane().Widget()->resize(100, 100);
    Press(Qt::Key_Right);
    EXPECT_EQ(Pane().Widget()->geometry(), Wrap().Widget()->rect());
}

TEST_F(BimPicViewWindowTest, TheMarkIsDrawnAtOnce) {
    ASSERT_TRUE(Open());
    support::RunPendingEvents();
    const PaintCounter paints(Texts().markText);
    Press(Qt::Key_Right);
    EXPECT_EQ(paints.count, 1);
}

TEST_F(BimPicViewWindowTest, AStretchedPictureIsRenderedAgainASecondLater) {
    ASSERT_TRUE(Open());
    ASSERT_TRUE(support::WaitFor([] { return Pane().ShowsPicture(); }));
    Wrap().Widget()->resize(900, 700);
    support::RunPendingEvents();
    const PaintCounter paints(Pane().Widget());
    EXPECT_TRUE(support::WaitFor([&] { return paints.count > 0; }));
}

TEST_F(BimPicViewWindowTest, KeysOfTheGalleryWorkWhileTheReportButtonHasTheFocus) {
    ASSERT_TRUE(Open());
    Pane().ReportButton()->setFocus();
    QTest::keyClick(Pane().ReportButton(), Qt::Key_Right);
    EXPECT_EQ(Current(), 1);
}

TEST_F(BimPicViewWindowTest, ItsLeastSizeIsThatOfThePane) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Widget()->minimumSize(), QSize(800, 630));
    Wrap().Widget()->resize(800, 630);
    EXPECT_EQ(Pane().Widget()->size(), QSize(800, 630));
    EXPECT_EQ(Texts().markText->geometry(), QRect(5, 570, 80, 20));
    EXPECT_EQ(Pane().State().bigArea, QRect(0, 0, 675, 550));
    EXPECT_EQ(Pane().ReportButton()->geometry(), QRect(675, 5, 110, 25));
}

TEST_F(BimPicViewWindowTest, EveryControlStandsInItsPlace) {
    ASSERT_TRUE(Open());
    Wrap().Widget()->resize(1000, 700);
    // Lines grow up and down by what their face needs.
    const auto expectLine = [](const QWidget* line, int x, int y, int width) {
        const std::string name = line->objectName().toStdString();
        EXPECT_EQ(line->x(), x) << name;
        EXPECT_EQ(line->width(), width) << name;
        EXPECT_TRUE(line->geometry().contains(QRect(x, y, width, 14))) << name;
        EXPECT_NEAR(line->geometry().center().y(), y + 7, 1) << name;
    };
    expectLine(Texts().posText, 5, 670, 100);
    expectLine(Texts().uploaderText, 199, 645, 189);
    expectLine(Texts().uploadTimeText, 199, 670, 189);
    expectLine(Texts().updaterText, 398, 645, 189);
    expectLine(Texts().updateTimeText, 398, 670, 189);
    expectLine(Texts().labelText, 597, 645, 189);
    expectLine(Texts().descText, 597, 670, 189);
    expectLine(Pane().Note().Status(), 846, 650, 139);
    EXPECT_EQ(Texts().markText->geometry(), QRect(5, 640, 80, 20));
    EXPECT_EQ(Texts().separator->geometry(), QRect(0, 620, 1000, 2));
    EXPECT_EQ(Texts().noteGroup->geometry(), QRect(796, 625, 199, 70));
    EXPECT_EQ(Pane().Note().Button()->geometry(), QRect(801, 640, 42, 43));
    EXPECT_EQ(Pane().Note().Progress()->geometry(), QRect(846, 670, 139, 5));
    EXPECT_EQ(Pane().ReportButton()->geometry(), QRect(875, 5, 110, 25));
    EXPECT_EQ(Pane().State().bigArea, QRect(0, 0, 875, 620));
    EXPECT_EQ(Pane().State().stripArea, QRect(QPoint(875, 35), QPoint(994, 614)));
}

TEST_F(BimPicViewWindowTest, TheNameOfTheMarkIsCentredOnItsColour) {
    host.pics.detailMarkName = u"质量"_s;
    host.pics.detailMarkColor = 0xFFFFFF;
    ASSERT_TRUE(Open());
    const QImage painted = Texts().markText->grab().toImage();
    QRect ink;
    for (int y = 0; y < painted.height(); ++y) {
        for (int x = 0; x < painted.width(); ++x) {
            if (qGray(painted.pixel(x, y)) < 128) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_NEAR(ink.center().x(), painted.width() / 2.0, 2);
    EXPECT_NEAR(ink.center().y(), painted.height() / 2.0, 2);
}

TEST_F(BimPicViewWindowTest, ALineThatIsTooLongEndsInDots) {
    ASSERT_TRUE(Open());
    CStaticFilespec& line = *Texts().labelText;
    const QString whole = u"标签："_s + QString(40, u'国') + QString(40, u'一');
    const auto drawn = [&](const QString& text) {
        line.setText(text);
        return line.grab().toImage();
    };
    EXPECT_EQ(drawn(whole),
              drawn(line.fontMetrics().elidedText(whole, Qt::ElideRight, line.width())));
}

TEST_F(BimPicViewWindowTest, TheReportBlocksTheClientUntilTheFirstTick) {
    QWidget* client = toolkit::WidgetOf(toolkit::MainWindow());
    ASSERT_NE(client, nullptr);
    ASSERT_TRUE(Open());
    QElapsedTimer blocked;
    blocked.start();
    Click(Pane().ReportButton());
    EXPECT_FALSE(client->isEnabled());
    EXPECT_TRUE(Wrap().Widget()->isEnabled()) << "the viewer itself can still be used";
    EXPECT_EQ(Log().CountOf("OutputBimReport"), 1);
    EXPECT_TRUE(support::WaitFor([&] { return client->isEnabled(); }));
    EXPECT_GE(blocked.elapsed(), 900);
}

TEST_F(BimPicViewWindowTest, TheClientStaysBlockedWhileAReportIsOpen) {
    QWidget* client = toolkit::WidgetOf(toolkit::MainWindow());
    QWidget report;
    report.setWindowTitle(u"输出报告"_s);
    report.show();
    ASSERT_TRUE(Open());
    Click(Pane().ReportButton());
    Wrap().OnTimer(1);
    EXPECT_FALSE(client->isEnabled());
    report.hide();
    Wrap().OnTimer(1);
    EXPECT_TRUE(client->isEnabled());
}

TEST_F(BimPicViewWindowTest, AViewerThatGoesLeavesNoBlockedClient) {
    QWidget* client = toolkit::WidgetOf(toolkit::MainWindow());
    ASSERT_TRUE(Open());
    Click(Pane().ReportButton());
    Wrap().Widget()->close();
    EXPECT_TRUE(client->isEnabled());
}

TEST_F(BimPicViewWindowTest, ItsFirstSizeIsTwelveHundredByEightHundred) {
    ASSERT_TRUE(Open());
    EXPECT_EQ(Wrap().Widget()->size(), QSize(1200, 800));
}

TEST_F(BimPicViewWindowTest, LaidOutAgainThePaneIsDrawnEvenAtItsOldPlace) {
    ASSERT_TRUE(Open());
    support::RunPendingEvents();
    const PaintCounter paints(Pane().Widget());
    Wrap().OnTitleChanged(u"?"_s);
    support::RunPendingEvents();
    EXPECT_GE(paints.count, 1);
}

TEST_F(BimPicViewWindowTest, EveryLineOfThePhotoIsFoundByItsName) {
    ASSERT_TRUE(Open());
    const gallery::PhotoBlock& texts = Texts();
    const std::vector<std::pair<QString, const QWidget*>> lines{
        {u"markText"_s, texts.markText},         {u"posText"_s, texts.posText},
        {u"uploaderText"_s, texts.uploaderText}, {u"uploadTimeText"_s, texts.uploadTimeText},
        {u"updaterText"_s, texts.updaterText},   {u"updateTimeText"_s, texts.updateTimeText},
        {u"labelText"_s, texts.labelText},       {u"descText"_s, texts.descText},
        {u"separator"_s, texts.separator},       {u"noteGroup"_s, texts.noteGroup}};
    for (const auto& [name, line] : lines) {
        EXPECT_EQ(Pane().Widget()->findChild<QWidget*>(name), line) << name.toStdString();
    }
}
