// Another checkpoint for a photo: picked on a drawing in the host.
#include "tests/editors/pdf/PdfPicEditFixture.h"
#include "viewers/PdfPicViewWrap.h"

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;

class PdfPicPickTest : public PdfPicEditFixture {
protected:
    PdfPicPickTest() {
        Open();
        Log().Clear();
    }
};

TEST_F(PdfPicPickTest, EditorAndConsoleHideAndTheHostIsAskedForTheDrawing) {
    bool wasWaiting = false;
    host.script.During("SelectCheckpoint", [&] { wasWaiting = Facade().backToPdfEdit; });
    Click("pickButton");
    EXPECT_THAT(Log().LinesOf({"SelectCheckpoint"}), ElementsAre("SelectCheckpoint(drawing=500)"));
    EXPECT_TRUE(wasWaiting);
    EXPECT_FALSE(Window()->isVisible());
    EXPECT_FALSE(IsConsoleVisible());
}

TEST_F(PdfPicPickTest, ThePickedPlaceIsOnTopAndTheEditorComesBack) {
    const QString before = Point().itemText(0);
    const QString mark = Mark().currentText();
    Click("pickButton");
    Pick(201);
    EXPECT_FALSE(Facade().backToPdfEdit);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_FALSE(IsConsoleVisible());
    EXPECT_EQ(Entries(Point()), (QStringList{u"检查点21"_s, before}));
    EXPECT_EQ(Point().currentIndex(), 0);
    EXPECT_EQ(Entries(Drawing()), QStringList{u"一层平面"_s}) << "the drawing is the same";
    EXPECT_EQ(Mark().currentText(), mark) << "the mark doesn't follow";
    Click("okButton");
    EXPECT_EQ(Sent().pointId, 201);
    EXPECT_EQ(Sent().drawingId, 500);
}

TEST_F(PdfPicPickTest, ThePlaceThatIsInTheListKeepsItsEntry) {
    const qint32 own = Point().currentData().toInt();
    Click("pickButton");
    Pick(201);
    Click("pickButton");
    Pick(own);
    EXPECT_EQ(Point().count(), 2);
    EXPECT_EQ(Point().currentIndex(), 1);
    EXPECT_EQ(Point().currentData().toInt(), own);
    EXPECT_EQ(Editor().Fields().pointNumbers.size(), 2U);
}

TEST_F(PdfPicPickTest, APlaceOnAnotherDrawingStartsTheListOfPlacesAnew) {
    Click("pickButton");
    host.project.drawing = {600, u"二层平面"_s};
    Pick(201);
    EXPECT_EQ(Entries(Point()), QStringList{u"检查点21"_s});
    EXPECT_EQ(Entries(Drawing()), (QStringList{u"二层平面"_s, u"一层平面"_s}));
    EXPECT_EQ(Drawing().currentIndex(), 0);
    EXPECT_EQ(Editor().Fields().pointNumbers.size(), 1U);
    EXPECT_EQ(Editor().Fields().pic.drawingName, u"二层平面"_s);
    Click("pickButton");
    EXPECT_THAT(Log().LinesOf({"SelectCheckpoint"}),
                ElementsAre("SelectCheckpoint(drawing=500)", "SelectCheckpoint(drawing=600)"));
    Pick(201);
    Click("okButton");
    EXPECT_EQ(Sent().drawingId, 600);
}

TEST_F(PdfPicPickTest, APlaceThatCannotBeReadHasTheNumberZero) {
    Click("pickButton");
    host.script.FailNext("GetDrawing");
    Pick(201);
    EXPECT_EQ(Point().itemText(0), u"检查点0"_s);
    EXPECT_EQ(Point().currentData().toInt(), 201);
    Click("pickButton");
    Pick(777);
    EXPECT_EQ(Point().itemText(0), u"检查点0"_s) << "one that was removed meanwhile";
}

TEST_F(PdfPicPickTest, CancellingAfterAPickLeavesTheServiceAsItWas) {
    Click("pickButton");
    Pick(201);
    Click("cancelButton");
    EXPECT_EQ(Log().CountOf("UpdatePdfPic"), 0);
    EXPECT_TRUE(IsConsoleVisible());
}

TEST_F(PdfPicPickTest, OpeningTheConsoleEndsThePick) {
    Click("pickButton");
    Facade().ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
    EXPECT_FALSE(Facade().backToPdfEdit);
    EXPECT_TRUE(IsConsoleVisible());
    EXPECT_EQ(Log().CountOf("UpdatePdfPic"), 0);
    host.drawings.drawings[201].pics = {{1, 0, 0, u"u1"_s}};
    host.pics.checkpointPics[1].name = u"一.jpg"_s;
    Pick(201);
    EXPECT_FALSE(Window()->isVisible()) << "the viewer opened, not the editor";
}

TEST_F(PdfPicPickTest, AWindowThatEndedMeanwhileComesBackByNothing) {
    Click("pickButton");
    Editor().Destroy();
    Pick(201);
    EXPECT_FALSE(Facade().backToPdfEdit);
    EXPECT_FALSE(Editor().HasWindow());
}

TEST_F(PdfPicPickTest, BehindAnEditorThatEndedWhileItWaitedAClickOpensTheViewer) {
    host.drawings.drawings[201].pics = {{1, 0, 0, u"u1"_s}};
    host.pics.checkpointPics[1].name = u"一.jpg"_s;
    Click("pickButton");
    Console().CloseConsole();
    support::RunPendingEvents();
    ASSERT_FALSE(Editor().HasWindow());
    EXPECT_FALSE(Facade().backToPdfEdit);
    Pick(201);
    EXPECT_TRUE(CPdfPicViewWrap::Instance().HasWindow());
}

TEST_F(PdfPicPickTest, AnotherPhotoAfterwardsFindsTheWindowAndShowsItsOwn) {
    Click("pickButton");
    Facade().ShowPicMng(ZelvorNRQ_KXVeskPicture::kDrawingPhotos);
    Open(host.pics.pdfPics[1]);
    EXPECT_TRUE(Window()->isVisible());
    EXPECT_EQ(Name().text(), u"图片2"_s);
    EXPECT_EQ(Point().count(), 1);
    EXPECT_EQ(Drawing().count(), 1);
}

} // namespace
