// Where the parts of a report stand on its pages.
#include "host/report/ReportPages.h"
#include "host/report/PagePaint.h"
#include "tests/host/report/PageSamples.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <set>

namespace host {
namespace {

using namespace Qt::StringLiterals;

/// Notes which photographs were drawn where.
class NotedInk final : public IPageInk {
public:
    void DrawPhoto(QPainter&, const PhotoPlace& place, const QString& file,
                   const QString& lack) override {
        rooms.push_back(place.room);
        files << file;
        lacks << lack;
    }
    std::vector<QRectF> rooms;
    QStringList files;
    QStringList lacks;
};

ReportPages PagesOf(const ReportContent& content, const ReportOptions& options = {}) {
    return LayoutReport(SheetOf(content, options, {}), true);
}

std::vector<QRectF> RoomsOf(const ReportPages& pages, size_t page) {
    std::vector<QRectF> rooms;
    for (const PageItem& item : pages.pages[page].items) {
        if (const auto* photo = std::get_if<PhotoItem>(&item)) {
            rooms.push_back(photo->place.room);
        }
    }
    return rooms;
}

/// Lines of text that stand on a page, from top to bottom as they were put there.
int LinesOn(const ReportPage& page) {
    int lines = 0;
    for (const PageItem& item : page.items) {
        if (const auto* text = std::get_if<TextItem>(&item)) {
            lines += text->endLine - text->firstLine;
        }
    }
    return lines;
}

/// All within the room of the text, and photographs apart from each other.
void ExpectInOrder(const ReportPages& pages) {
    for (size_t page = 0; page < pages.pages.size(); ++page) {
        const QRectF room = pages.shape.text.adjusted(-1, -1, 1, 1);
        const std::vector<QRectF> photos = RoomsOf(pages, page);
        for (size_t one = 0; one < photos.size(); ++one) {
            EXPECT_TRUE(room.contains(photos[one])) << "page " << page;
            for (size_t other = one + 1; other < photos.size(); ++other) {
                EXPECT_FALSE(photos[one].intersects(photos[other])) << "page " << page;
            }
        }
        for (const PageItem& item : pages.pages[page].items) {
            if (const auto* text = std::get_if<TextItem>(&item)) {
                EXPECT_LE(text->corner.y() + text->text.HeightOf(text->firstLine, text->endLine),
                          room.bottom());
                EXPECT_GE(text->corner.y(), room.top());
            }
        }
    }
}

TEST(ReportPages, PhotosOfEachSizeFillTheirPages) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 13);
    content.facts.clear();
    for (const bool isLandscape : {false, true}) {
        for (const auto& [size, most] : {std::pair(ReportPictures::Small, 6),
                                         std::pair(ReportPictures::Medium, isLandscape ? 2 : 3),
                                         std::pair(ReportPictures::OnePerPage, 1)}) {
            ReportOptions options;
            options.pictures = size;
            options.isLandscape = isLandscape;
            options.withContents = false;
            const ReportPages pages = PagesOf(content, options);
            ExpectInOrder(pages);
            size_t photos = 0;
            size_t fullest = 0;
            for (size_t page = 0; page < pages.pages.size(); ++page) {
                photos += RoomsOf(pages, page).size();
                fullest = std::max(fullest, RoomsOf(pages, page).size());
            }
            EXPECT_EQ(photos, 13U);
            EXPECT_EQ(fullest, static_cast<size_t>(most));
        }
    }
}

TEST(ReportPages, AHeadingStandsOnThePageOfWhatFollowsIt) {
    ReportOptions options;
    options.withTexts = false;
    for (int photos = 1; photos <= 12; ++photos) {
        ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, photos);
        content.sections.push_back(content.sections[0]);
        content.sections[1].title = u"第二部分"_s;
        const ReportPages pages = PagesOf(content, options);
        const auto& heading = pages.headings.back();
        ASSERT_EQ(heading.text, u"第二部分");
        bool isFollowed = false;
        for (const QRectF& room : RoomsOf(pages, static_cast<size_t>(heading.page))) {
            isFollowed = isFollowed || room.top() > heading.top;
        }
        EXPECT_TRUE(isFollowed) << photos;
    }
}

TEST(ReportPages, TheContentsLeadToTheirHeadings) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 9);
    reporttest::AddRecord(content, u"<p>记录</p>"_s);
    const ReportPages pages = PagesOf(content);
    ASSERT_EQ(pages.headings.size(), 3U);
    ASSERT_EQ(pages.links.size(), 3U);
    for (const PageLink& link : pages.links) {
        EXPECT_EQ(link.page, 0);
        EXPECT_TRUE(pages.shape.text.contains(link.place));
    }
    EXPECT_EQ(pages.headings[0].page, 0);
    EXPECT_GT(pages.headings[2].page, 1);
}

TEST(ReportPages, ContentsOfManyHeadingsGoOnOnTheNextPage) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 1);
    content.sections.resize(1);
    for (int number = 0; number < 120; ++number) {
        ReportSection section = content.sections[0];
        section.title = u"检查点 %1"_s.arg(number);
        content.sections.push_back(section);
    }
    const ReportPages pages = PagesOf(content);
    ExpectInOrder(pages);
    EXPECT_EQ(pages.links.size(), pages.headings.size());
    EXPECT_GT(pages.links.back().page, 1);
}

TEST(ReportPages, ATextThatNoPageHoldsGoesOn) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 1);
    const QString longText = QString(u"很长的描述。"_s).repeated(3000);
    content.sections[0].photos[0].facts.emplace_back(u"描述"_s, longText);
    content.sections[0].comments = {{u"张三"_s, u"2026-03-01"_s, longText}};
    content.sections[0].commentsTitle = u"评论"_s;
    const ReportPages pages = PagesOf(content);
    ExpectInOrder(pages);
    EXPECT_GT(pages.pages.size(), 6U);
    for (size_t page = 1; page + 1 < pages.pages.size(); ++page) {
        EXPECT_GT(LinesOn(pages.pages[page]), 3) << page;
    }
}

TEST(ReportPages, ATableRepeatsItsTitlesOnEachPage) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 0);
    for (int number = 0; number < 200; ++number) {
        content.sections[0].comments.push_back(
            {u"张三"_s, u"2026-03-01 09:00"_s, u"第%1条"_s.arg(number)});
    }
    content.sections[0].commentsTitle = u"评论"_s;
    const ReportPages pages = PagesOf(content);
    ExpectInOrder(pages);
    int shaded = 0;
    for (const ReportPage& page : pages.pages) {
        bool hasTitles = false;
        for (const PageItem& item : page.items) {
            const auto* box = std::get_if<BoxItem>(&item);
            hasTitles = hasTitles || (box != nullptr && box->fill == kShadeInk);
        }
        shaded += hasTitles ? 1 : 0;
    }
    EXPECT_EQ(shaded, static_cast<int>(pages.pages.size()));
    EXPECT_GT(shaded, 3);
}

TEST(ReportPages, TheRecordBeginsBelowItsFactsAndTakesItsPages) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 1);
    reporttest::AddRecord(content, QString(u"<p>一段记录</p>"_s).repeated(300));
    const ReportPages pages = PagesOf(content);
    ASSERT_NE(pages.record, nullptr);
    EXPECT_GT(pages.record->PageCount(), 4);
    const auto first = static_cast<size_t>(pages.headings.back().page);
    EXPECT_EQ(pages.pages.size(), first + static_cast<size_t>(pages.record->PageCount()));
    // Nothing of it lies on the lines above.
    QImage sheet(pages.shape.page.toSize(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    NotedInk ink;
    {
        QPainter painter(&sheet);
        painter.translate(pages.shape.text.topLeft());
        pages.record->Paint(painter, 0, ink);
    }
    for (int y = 0; y < static_cast<int>(pages.headings.back().top); ++y) {
        for (int x = 0; x < sheet.width(); x += 3) {
            ASSERT_EQ(sheet.pixelColor(x, y), QColor(Qt::white)) << x << "," << y;
        }
    }
}

TEST(ReportPages, PagesBeforeTheRecordAreTheSameWithoutIt) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 9);
    reporttest::AddRecord(content, QString(u"<p>一段记录</p>"_s).repeated(100));
    const ReportSheet sheet = SheetOf(content, {}, {});
    const ReportPages early = LayoutReport(sheet, false);
    const ReportPages whole = LayoutReport(sheet, true);
    EXPECT_EQ(early.record, nullptr);
    ASSERT_EQ(early.headings.size(), whole.headings.size());
    for (size_t heading = 0; heading < early.headings.size(); ++heading) {
        EXPECT_EQ(early.headings[heading].page, whole.headings[heading].page);
        EXPECT_EQ(early.headings[heading].top, whole.headings[heading].top);
    }
    EXPECT_EQ(early.pages.size(), static_cast<size_t>(early.headings.back().page) + 1);
}

TEST(ReportPages, PicturesOfARecordComeFromItsFolderAlone) {
    const support::TempFolder folder;
    const QString name = QString(32, u'a') + u".jpg"_s;
    (void)reporttest::WritePhoto(folder, name, Qt::red, {2000, 3000});
    (void)reporttest::WritePhoto(folder, u"other.jpg"_s, Qt::blue);
    ReportContent content;
    content.kind = u"照片报告"_s;
    reporttest::AddRecord(content,
                          u"<p><img src=\"%1\"></p><p><img src=\"other.jpg\"></p>"
                          "<p><img src=\"../%1\"></p><p><img src=\"%2\"></p>"_s.arg(
                              name, QString(32, u'b') + u".jpg"_s),
                          folder.Path() + u'/');
    const ReportPages pages = PagesOf(content);
    const auto photos = PhotosOf(pages);
    ASSERT_EQ(photos.size(), 1U);
    EXPECT_EQ(photos[0].file, folder.Path(name));
    EXPECT_LE(photos[0].room.height(), pages.shape.text.height());
    EXPECT_LE(photos[0].room.width(), pages.shape.text.width());
    EXPECT_NEAR(photos[0].room.width() / photos[0].room.height(), 2.0 / 3, 0.02);
}

TEST(ReportPages, APictureOfARecordWithOneLengthKeepsItsProportions) {
    const support::TempFolder folder;
    const QString name = QString(32, u'a') + u".jpg"_s;
    (void)reporttest::WritePhoto(folder, name, Qt::red, {2000, 3000});
    for (const QString& length : {u"height=\"300\""_s, u"width=\"200\""_s}) {
        ReportContent content;
        reporttest::AddRecord(content, u"<p><img src=\"%1\" %2></p>"_s.arg(name, length),
                              folder.Path() + u'/');
        const auto photos = PhotosOf(PagesOf(content));
        ASSERT_EQ(photos.size(), 1U);
        EXPECT_NEAR(photos[0].room.width(), 200, 1) << qUtf8Printable(length);
        EXPECT_NEAR(photos[0].room.height(), 300, 1);
    }
}

TEST(ReportPages, AWideTableOfARecordIsMadeSmallerAndNotCut) {
    ReportContent content;
    content.kind = u"照片报告"_s;
    QString row;
    for (int cell = 0; cell < 30; ++cell) {
        row += u"<td>%1</td>"_s.arg(QString(8, u'W'));
    }
    reporttest::AddRecord(content, u"<table border=\"1\"><tr>%1</tr></table>"_s.arg(row));
    const ReportPages pages = PagesOf(content);
    QImage sheet(pages.shape.page.toSize(), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    NotedInk ink;
    {
        QPainter painter(&sheet);
        PaintPage(painter, pages, static_cast<int>(pages.pages.size()) - 1, 0, ink);
    }
    const int beyond = static_cast<int>(pages.shape.text.right()) + 3;
    for (int y = 0; y < sheet.height(); ++y) {
        ASSERT_EQ(sheet.pixelColor(beyond, y), QColor(Qt::white)) << y;
    }
}

TEST(ReportPages, ARecordTooDeepForItsFormSaysSo) {
    ReportContent content;
    content.kind = u"照片报告"_s;
    reporttest::AddRecord(content, QString(u"<div>"_s).repeated(500) + u"x"_s);
    const ReportPages pages = PagesOf(content);
    ASSERT_NE(pages.record, nullptr);
    EXPECT_EQ(pages.record->PlainText().trimmed(), kRecordTooLarge);
}

TEST(ReportPages, APhotoThatIsNotThereSaysWhy) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 2);
    content.sections[0].photos[1].file.clear();
    content.sections[0].photos[1].lack = u"图片没有下载成功"_s;
    const ReportPages pages = PagesOf(content);
    QImage sheet(pages.shape.page.toSize(), QImage::Format_RGB32);
    NotedInk ink;
    for (int page = 0; page < static_cast<int>(pages.pages.size()); ++page) {
        QPainter painter(&sheet);
        PaintPage(painter, pages, page, 2, ink);
    }
    EXPECT_EQ(ink.files, QStringList({u"a.jpg"_s, QString()}));
    EXPECT_EQ(ink.lacks.back(), u"图片没有下载成功");
    EXPECT_EQ(PhotosOf(pages).size(), 1U);
}

TEST(TextColumn, BreaksIntoLinesThatHoldTheWidth) {
    const TextColumn column(QString(u"工地照片"_s).repeated(50), TextLook::Body, 120);
    EXPECT_GT(column.LineCount(), 10);
    EXPECT_LE(column.NaturalWidth(), 121);
    EXPECT_DOUBLE_EQ(column.Height(),
                     column.HeightOf(0, 4) + column.HeightOf(4, column.LineCount()));
    EXPECT_EQ(column.EndIn(column.HeightOf(0, 3) + 1, 0), 3);
    EXPECT_EQ(column.EndIn(0, 2), 2);
    EXPECT_EQ(column.EndIn(1e9, 2), column.LineCount());
}

TEST(TextColumn, OddTextsHaveTheirLines) {
    EXPECT_EQ(TextColumn(u"甲\n乙\r\n丙"_s, TextLook::Body, 500).LineCount(), 3);
    EXPECT_EQ(TextColumn(u"甲\x01\x07乙"_s, TextLook::Body, 500).LineCount(), 1);
    EXPECT_LE(TextColumn(QString(), TextLook::Body, 500).LineCount(), 1);
    EXPECT_GT(TextColumn(QString(50'000, u'甲'), TextLook::Body, 500).LineCount(), 1000);
    EXPECT_GE(TextColumn(u"甲乙"_s, TextLook::Body, 0).LineCount(), 2);
}

TEST(PageInk, APictureKeepsItsProportionsAndIsNeverEnlarged) {
    const QRectF room(10, 20, 200, 100);
    const QRectF wide = IPageInk::PlaceIn({room, Qt::AlignLeft | Qt::AlignTop}, {4000, 1000});
    EXPECT_EQ(wide.topLeft(), room.topLeft());
    EXPECT_DOUBLE_EQ(wide.width() / wide.height(), 4);
    const QRectF tall = IPageInk::PlaceIn({room, Qt::AlignLeft | Qt::AlignBottom}, {1000, 4000});
    EXPECT_EQ(tall.bottomLeft(), room.bottomLeft());
    const QRectF small = IPageInk::PlaceIn({room}, {50, 25});
    EXPECT_LT(small.width(), 50);
    EXPECT_EQ(small.center(), room.center());
}

} // namespace
} // namespace host
