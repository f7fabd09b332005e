// The picture to which the next step will lead is decoded before it is asked for.
#include "tests/viewers/gallery/GalleryFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "viewers/Decoders.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class GalleryLookAhead : public GalleryFixture {
protected:
    GalleryLookAhead() { Open(); }

    [[nodiscard]] QString PathOf(int index) const { return folder.Path(u"b%1.bmp"_s.arg(index)); }
    /// Files that differ in their pixels alone, not in their size.
    void Write(int index, const QColor& colour) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        support::OneColour({300, 200}, colour).save(&buffer, "bmp");
        folder.Write(u"b%1.bmp"_s.arg(index), bytes);
    }
    void ShowEight(int current) {
        QStringList paths;
        for (int i = 0; i < 8; ++i) {
            Write(i, ColourOf(i));
            paths << PathOf(i);
        }
        SetItems(support::FolderGallery::ItemsOf(paths), current);
        Settle();
    }
    /// The strip is complete, and the decoders have done what they were given.
    void Settle() {
        ASSERT_TRUE(support::WaitFor([this] {
            for (int i = State().visible.first; i <= State().visible.last; ++i) {
                if (!State().items[size_t(i)].thumbDC) {
                    return false;
                }
            }
            return true;
        }));
        toolkit::PictureRequest request;
        request.path = PathOf(0);
        request.size = {2, 2};
        const auto last = std::make_shared<gallery::DecodeJob>(request);
        gallery::DecodeInBackground(last, gallery::Urgency::Ahead);
        ASSERT_TRUE(support::WaitFor([&] { return last->IsDone(); }));
        gallery::JoinDecoders();
    }
    void Step(Qt::Key key) {
        QTest::keyClick(Pane(), key);
        Settle();
    }
    /// Whether a step shows the picture as it was before its file was secretly replaced.
    bool IsReadyFor(Qt::Key key, int index) {
        const QDateTime time = QFileInfo(PathOf(index)).lastModified();
        Write(index, Qt::black);
        QFile file(PathOf(index));
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
        file.close();
        QTest::keyClick(Pane(), key);
        EXPECT_EQ(State().currentIndex, index);
        return PixelAt(PictureMiddle()) == ColourOf(index);
    }
};

} // namespace

TEST_F(GalleryLookAhead, ItIsTheNextOneToBeginWith) {
    ShowEight(3);
    EXPECT_TRUE(IsReadyFor(Qt::Key_Right, 4));
}

TEST_F(GalleryLookAhead, NotTheOneBefore) {
    ShowEight(3);
    EXPECT_FALSE(IsReadyFor(Qt::Key_Left, 2));
}

TEST_F(GalleryLookAhead, ItIsTheOneBeforeForWhoStepsBack) {
    ShowEight(4);
    Step(Qt::Key_Left);
    EXPECT_TRUE(IsReadyFor(Qt::Key_Left, 2));
}

TEST_F(GalleryLookAhead, ItIsTheNextOneAgainForWhoTurnsAround) {
    ShowEight(4);
    Step(Qt::Key_Left);
    Step(Qt::Key_Left);
    Step(Qt::Key_Right);
    Step(Qt::Key_Right);
    EXPECT_TRUE(IsReadyFor(Qt::Key_Right, 5));
}

TEST_F(GalleryLookAhead, AReopenedGalleryBeginsForwardAgain) {
    ShowEight(4);
    Step(Qt::Key_Left);
    gallery->Destroy();
    Open();
    ShowEight(4);
    EXPECT_TRUE(IsReadyFor(Qt::Key_Right, 5));
}

TEST_F(GalleryLookAhead, AtTheEndThereIsNothingToDecode) {
    ShowEight(7);
    Step(Qt::Key_Left);
    EXPECT_TRUE(IsReadyFor(Qt::Key_Left, 5));
}
