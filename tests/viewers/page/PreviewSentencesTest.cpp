// What the console photo viewer has of its own beside the other viewers.
#include "tests/support/AmrFiles.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tests/viewers/page/PageFixture.h"
#include "tests/viewers/support/RecordPane.h"
#include "toolkit/Look.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class PreviewSentences : public PageFixture {
protected:
    /// Leaves the pictures to the store.
    void EmptyTheFolder() {
        for (const KX_DATA::PicViewItem& item : page.items) {
            const QString path = u"1/pics/%1.jpg"_s.arg(item.uuid);
            host.files.stored[item.uuid] = folder.Read(path);
            ASSERT_TRUE(QFile::remove(folder.Path(path)));
        }
    }
    [[nodiscard]] bool AreAllOnDisk() {
        return support::WaitFor([&] {
            for (const GalleryItem& item : Pane().State().items) {
                if (item.picState != kOnDisk) {
                    return false;
                }
            }
            return true;
        });
    }
};

} // namespace

// The list is handed over before there are places, and so before any item is visible.
TEST_F(PreviewSentences, TheFirstOfTheListIsFetchedBeforeTheOneThatIsShown) {
    EmptyTheFolder();
    page.items[1].fileText.clear();
    page.items[2].fileText.clear();
    page.index = 2;
    Open();
    ASSERT_TRUE(AreAllOnDisk());
    const auto started = Log().LinesOf({"StartDownload"});
    ASSERT_EQ(started.size(), 4U);
    EXPECT_THAT(started[0], testing::HasSubstr("uuid1"));
    EXPECT_THAT(started[1], testing::HasSubstr("uuid3"));
}

TEST_F(PreviewSentences, TheFolderIsAskedForByTheNameOfEachItemsProject) {
    host.global.otherProjects = {{7, u"二期"_s}};
    page.items.back().ppid = 7;
    Open();
    EXPECT_EQ(host.paths.lastProjectName, u"二期");
    EXPECT_THAT(Log().LinesOf({"GetProjectName"}),
                testing::Contains("GetProjectName(ppid=7)").Times(1));
}

TEST_F(PreviewSentences, TheRecordIsThatOfThePhotosOwnProject) {
    const support::RecordPane record(host);
    page.items[0].ppid = 7;
    Open();
    EXPECT_EQ(support::RecordPane::ContextOf(wrap.RichEditor()), u"K1,1,71,1,1,7");
    Press(Qt::Key_Right);
    EXPECT_EQ(support::RecordPane::ContextOf(wrap.RichEditor()), u"K2,2,72,1,1,1");
}

TEST_F(PreviewSentences, TheDividerStartsWithABottomHeightOf300) {
    const support::RecordPane record(host);
    Open();
    EXPECT_EQ(wrap.RichEditor().Widget()->height(), 300);
    EXPECT_EQ(wrap.UpDownView()->geometry(), wrap.Widget()->rect());
}

TEST_F(PreviewSentences, EnterAndEscapeInTheRecordCloseNothing) {
    const support::RecordPane record(host);
    Open();
    ASSERT_TRUE(support::WaitFor([&] { return wrap.RichEditor().IsEditorReady(); }));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(wrap.RichEditor().Editor()->Sheet(), key);
        QTest::keyClick(wrap.RichEditor().Widget(), key);
    }
    EXPECT_TRUE(wrap.Widget()->isVisible());
}

TEST_F(PreviewSentences, ItComesUpInTheMiddleOfWhatIsBelowIt) {
    mainWindow.Widget()->setGeometry(20, 10, 1600, 1000);
    Open();
    EXPECT_NEAR(wrap.Widget()->frameGeometry().center().x(),
                mainWindow.Widget()->frameGeometry().center().x(), 1);
}

TEST_F(PreviewSentences, ItsLeastSizeIsThatOfThePane) {
    Open();
    EXPECT_EQ(wrap.Widget()->minimumSize(), QSize(800, 630));
}

TEST_F(PreviewSentences, EveryControlFollowsTheSizeOfTheWindow) {
    Open();
    wrap.Widget()->resize(1000, 700);
    const gallery::PhotoBlock& texts = Pane().Texts();
    EXPECT_EQ(Pane().State().bigArea, QRect(5, 5, 865, 610));
    EXPECT_EQ(Pane().State().stripArea, QRect(880, 5, 115, 610));
    EXPECT_EQ(texts.separator->geometry(), QRect(0, 621, 1000, 2));
    EXPECT_EQ(texts.markText->geometry(), QRect(5, 640, 80, 20));
    EXPECT_EQ(texts.noteGroup->geometry(), QRect(792, 625, 198, 70));
    EXPECT_EQ(texts.noteGroup->title(), u"语音");
    EXPECT_EQ(Pane().Note().Button()->pos(), QPoint(797, 640));
    EXPECT_EQ(Pane().Note().Progress()->geometry(), QRect(842, 670, 138, 5));
    const auto expectLine = [](const QWidget* line, const QRect& place) {
        const std::string name = line->objectName().toStdString();
        EXPECT_EQ(line->x(), place.x()) << name;
        EXPECT_EQ(line->width(), place.width()) << name;
        EXPECT_TRUE(line->geometry().contains(place)) << name;
    };
    expectLine(texts.posText, {5, 670, 198, 14});
    expectLine(texts.uploaderText, {203, 645, 188, 14});
    expectLine(texts.uploadTimeText, {203, 670, 188, 14});
    expectLine(texts.updaterText, {401, 645, 188, 14});
    expectLine(texts.updateTimeText, {401, 670, 188, 14});
    expectLine(texts.labelText, {599, 645, 188, 14});
    expectLine(texts.descText, {599, 670, 188, 14});
    expectLine(Pane().Note().Status(), {842, 650, 138, 14});
}

TEST_F(PreviewSentences, ItsOnlyButtonIsThatOfTheNote) {
    const support::RecordPane record(host);
    Open();
    const auto buttons = Pane().Widget()->findChildren<QAbstractButton*>();
    ASSERT_EQ(buttons.size(), 1);
    EXPECT_EQ(buttons[0], Pane().Note().Button());
}

TEST_F(PreviewSentences, AFirstMarkThatIsNotInTheTableLeavesItsFieldEmptyAndPale) {
    page.items[0].markId = 99;
    Open();
    EXPECT_EQ(Pane().Texts().markText->text(), u"");
    EXPECT_EQ(Pane().Texts().markText->BGColor(), toolkit::ColorFromBgr(0xfafafa));
}

TEST_F(PreviewSentences, ANoteThatIsStillToComeIsAwaited) {
    page.index = 1;
    page.items[1].fileText = u"late"_s;
    page.items[1].uuid = u"none"_s; // comes first, and fails
    host.files.stored[u"late"_s] = support::SilentAmr(100);
    Open();
    QTest::mouseClick(Pane().Note().Button(), Qt::LeftButton);
    EXPECT_FALSE(Pane().Note().IsPlaying());
    EXPECT_TRUE(support::WaitFor([&] { return Pane().Note().IsPlaying(); }));
}

TEST_F(PreviewSentences, ItIsAModalWindowThatIsGoneWhenItsRunReturns) {
    wrap.SetPage(page);
    QWidget* parent = nullptr;
    const support::ModalVisit visit(u"VeskPicViewWrap"_s, [&](QWidget& window) {
        parent = window.parentWidget();
        EXPECT_EQ(window.windowTitle(), u"照片1.jpg    1/(1-4)");
        window.close();
    });
    wrap.DoModal(mainWindow.Id());
    EXPECT_TRUE(visit.HasCome());
    EXPECT_EQ(parent, mainWindow.Widget());
    EXPECT_FALSE(wrap.HasWindow());
}
