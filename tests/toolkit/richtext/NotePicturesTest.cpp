// Pictures on the sheet: which are decoded, how large, and where they stand.
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/richtext/NoteStore.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using testing::SizeIs;

class DecodedPictures final : public toolkit::IDecodeWatch {
public:
    DecodedPictures() : m_before(toolkit::SetDecodeWatch(this)) {}
    ~DecodedPictures() override { toolkit::SetDecodeWatch(m_before); }
    DecodedPictures(const DecodedPictures&) = delete;
    DecodedPictures& operator=(const DecodedPictures&) = delete;

    void OnDecode(const toolkit::PictureRequest& request) override { requests.push_back(request); }

    std::vector<toolkit::PictureRequest> requests;

private:
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
