// Pictures on the sheet: which are decoded, how large, and where they stand.
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteStore.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <gmock/gmock.h>

#include <mutex>
#include <thread>

namespace {

using namespace Qt::StringLiterals;
using testing::SizeIs;

class DecodedPictures final : public toolkit::IDecodeWatch {
public:
    DecodedPictures() : m_before(toolkit::SetDecodeWatch(this)) {}
    ~DecodedPictures() override { toolkit::SetDecodeWatch(m_before); }
    DecodedPictures(const DecodedPictures&) = delete;
    DecodedPictures& operator=(const DecodedPictures&) = delete;

    void OnDecode(const toolkit::PictureRequest& request) override {
        const std::lock_guard lock(m_lock);
        (std::this_thread::get_id() == m_interface ? requests : beside).push_back(request);
    }
    [[nodiscard]] size_t CountBeside() {
        const std::lock_guard lock(m_lock);
        return beside.size();
    }

    std::vector<toolkit::PictureRequest> requests; ///< on the interface thread
    std::vector<toolkit::PictureRequest> beside;

private:
    const std::thread::id m_interface = std::this_thread::get_id();
    std::mutex m_lock;
    toolkit::IDecodeWatch* m_before;
};

class NotePicturesTest : public support::EditorFixture {
protected:
    QString Stored(const QImage& image) {
        return toolkit::StoreBytes(support::JpegBytes(image), pages, u".jpg"_s).value();
    }
    void Open(const QString& html) {
        Load(html);
        support::RunPendingEvents();
    }
    [[nodiscard]] QColor PixelAt(const QPoint& pixel) {
        return Sheet().viewport()->grab().toImage().pixelColor(pixel);
    }
    /// Of the only picture, at the document's beginning.
    [[nodiscard]] QSizeF Shown() {
        const QTextLayout& layout = *Sheet().document()->begin().layout();
        return {layout.lineAt(0).naturalTextWidth(), layout.lineAt(0).ascent()};
    }
};

} // namespace

TEST_F(NotePicturesTest, OnlyThoseInSightAreDecodedAsLargeAsTheyAreShown) {
    QString html;
    for (int i = 0; i < 40; ++i) {
        const QString name = Stored(support::OneColour({1200, 900}, QColor(i * 5, 0, 0)));
        html += u"<p><img src='%1' width='200' height='150'/></p>"_s.arg(name);
    }
    const DecodedPictures decoded;
    Open(html);
    static_cast<void>(Sheet().document()->pageCount());
    support::RunPendingEvents();
    ASSERT_FALSE(decoded.requests.empty());
    EXPECT_LT(decoded.requests.size(), 5U);
    EXPECT_EQ(decoded.requests.front().size, QSize(200, 150));
    const size_t first = decoded.requests.size();
    Sheet().viewport()->repaint();
    EXPECT_THAT(decoded.requests, SizeIs(first)) << "kept";
    Sheet().verticalScrollBar()->setValue(Sheet().verticalScrollBar()->maximum());
    Sheet().viewport()->repaint();
    EXPECT_GT(decoded.requests.size(), first);
    EXPECT_LT(decoded.requests.size(), first + 5);
}

TEST_F(NotePicturesTest, ItIsPaintedWhereItStandsAndUpright) {
    Open(u"<img src='%1' width='200' height='100'/>"_s.arg(
        Stored(support::CornerMarked({400, 200}))));
    const int margin = int(Sheet().document()->documentMargin());
    const auto seen = [&](int x, int y) { return PixelAt({margin + x, margin + y}); };
    EXPECT_TRUE(support::IsNear(seen(50, 25), support::kTopLeft));
    EXPECT_TRUE(support::IsNear(seen(150, 25), support::kTopRight));
    EXPECT_TRUE(support::IsNear(seen(50, 75), support::kBottomLeft));
    EXPECT_TRUE(support::IsNear(seen(150, 75), support::kBottomRight));
}

TEST_F(NotePicturesTest, WithoutASizeItStandsAsInItsFileWithOneSideInProportion) {
    const QString name = Stored(support::CornerMarked({300, 100}));
    for (const auto& [said, size] : {std::pair(u""_s, QSizeF(300, 100)),
                                     {u"width='150'"_s, QSizeF(150, 50)},
                                     {u"height='20'"_s, QSizeF(60, 20)},
                                     {u"width='30' height='40'"_s, QSizeF(30, 40)},
                                     {u"width='-5' height='0'"_s, QSizeF(300, 100)}}) {
        const DecodedPictures decoded;
        Load(u"<img src='%1' %2/>"_s.arg(name, said));
        static_cast<void>(Sheet().document()->pageCount());
        EXPECT_EQ(Shown(), size) << said.toStdString();
        EXPECT_TRUE(decoded.requests.empty()) << "a place needs no pixels";
    }
}

TEST_F(NotePicturesTest, OneThatIsMissingIsAFrameAndShowsOnceItIsThere) {
    const QByteArray bytes = support::JpegBytes(support::OneColour({80, 60}, Qt::red));
    const QString name =
        toolkit::StoreBytes(bytes, folder.Path(u"elsewhere/"_s), u".jpg"_s).value();
    Open(u"<img src='%1' width='80' height='60'/>"_s.arg(name));
    const int margin = int(Sheet().document()->documentMargin());
    EXPECT_FALSE(support::IsNear(PixelAt({margin + 40, margin + 50}), Qt::red));
    ASSERT_EQ(toolkit::StoreBytes(bytes, pages, u".jpg"_s), name);
    EXPECT_TRUE(support::IsNear(PixelAt({margin + 40, margin + 50}), Qt::red));
}

TEST_F(NotePicturesTest, ALargeOneIsGreyUntilItIsDecodedBesideTheInterface) {
    const QString name = Stored(support::OneColour({2400, 1800}, Qt::red));
    DecodedPictures decoded;
    Open(u"<img src='%1' width='200' height='150'/>"_s.arg(name));
    const int margin = int(Sheet().document()->documentMargin());
    const QPoint middle(margin + 100, margin + 75);
    EXPECT_TRUE(support::WaitFor([&] { return support::IsNear(PixelAt(middle), Qt::red); }));
    EXPECT_TRUE(decoded.requests.empty());
    EXPECT_EQ(decoded.CountBeside(), 1U) << "asked for once, however often it was painted";
}

TEST_F(NotePicturesTest, WhileALargeOneIsDecodedAnewTheOneBeforeIsShown) {
    const QString name = Stored(support::OneColour({2400, 1800}, Qt::red));
    DecodedPictures decoded;
    Open(u"<img src='%1' width='100' height='75'/>"_s.arg(name));
    const int margin = int(Sheet().document()->documentMargin());
    const QPoint middle(margin + 50, margin + 37);
    ASSERT_TRUE(support::WaitFor([&] { return support::IsNear(PixelAt(middle), Qt::red); }));
    Sheet().Zoom(12);
    EXPECT_TRUE(support::IsNear(PixelAt(middle), Qt::red));
    EXPECT_TRUE(support::WaitFor([&] { return decoded.CountBeside() == 2; }));
}

TEST_F(NotePicturesTest, OnPaperAndInPicturesALargeOneIsThereAtOnce) {
    const QString name = Stored(support::OneColour({2400, 1800}, Qt::red));
    toolkit::NoteDocument document(pages, nullptr);
    document.Load(u"<img src='%1' width='200' height='150'/>"_s.arg(name));
    QImage paper(400, 300, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    document.drawContents(&painter);
    painter.end();
    EXPECT_TRUE(support::IsNear(paper.pixelColor(100, 75), Qt::red));
}

TEST_F(NotePicturesTest, ADocumentMayEndWhileItsLargePicturesAreDecoded) {
    QString html;
    for (int i = 0; i < 12; ++i) {
        html += u"<img src='%1' width='40' height='30'/>"_s.arg(
            Stored(support::OneColour({2400, 1800}, QColor(i, 0, 0))));
    }
    for (int times = 0; times < 5; ++times) {
        Load(html);
        Sheet().viewport()->grab();
    }
    New();
    support::RunPendingEvents();
    EXPECT_EQ(Sheet().toPlainText(), QString());
}
