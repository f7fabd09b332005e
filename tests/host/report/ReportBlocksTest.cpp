// What of a content goes into a report, and what is kept of the choice.
#include "host/report/ReportBlocks.h"
#include "tests/host/report/PageSamples.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace host {
namespace {

using namespace Qt::StringLiterals;

template <class Block> int CountOf(const ReportSheet& sheet) {
    return static_cast<int>(std::ranges::count_if(sheet.blocks, [](const ReportBlock& block) {
        return std::holds_alternative<Block>(block);
    }));
}

QStringList HeadingsOf(const ReportSheet& sheet) {
    QStringList headings;
    for (const ReportBlock& block : sheet.blocks) {
        if (const auto* heading = std::get_if<HeadingBlock>(&block)) {
            headings << heading->text;
        }
    }
    return headings;
}

ReportContent Full() {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 5);
    content.plan = QImage(40, 20, QImage::Format_RGB32);
    content.code = QImage(20, 20, QImage::Format_RGB32);
    content.sections[0].comments = {{u"张三"_s, u"2026-03-01"_s, u"请处理"_s}};
    content.sections[0].commentsTitle = u"评论"_s;
    content.sections[0].voices = {{u"照片1.jpg"_s, 12}, {u"照片2.jpg"_s, 0}};
    reporttest::AddRecord(content, u"<p>记录</p>"_s);
    return content;
}

ReportOptions Nothing() {
    ReportOptions options;
    options.withContents = options.withPlan = options.withTexts = options.withComments = false;
    options.withVoices = options.withRecord = options.withCode = false;
    return options;
}

TEST(ReportBlocks, AFullReportHasItsPartsInOrder) {
    const ReportSheet sheet = SheetOf(Full(), {}, {});
    EXPECT_EQ(HeadingsOf(sheet),
              QStringList({u"概况"_s, u"照片"_s, u"评论"_s, u"语音备注"_s, u"整改记录"_s}));
    EXPECT_TRUE(std::holds_alternative<TitleBlock>(sheet.blocks.front()));
    EXPECT_TRUE(std::holds_alternative<RecordBlock>(sheet.blocks.back()));
    EXPECT_EQ(CountOf<ImageBlock>(sheet), 2);
    EXPECT_EQ(CountOf<ContentsBlock>(sheet), 1);
    EXPECT_EQ(PhotoCountOf(sheet), 5);
    EXPECT_EQ(sheet.title, u"照片报告");
}

TEST(ReportBlocks, WhatIsNotChosenIsNotThere) {
    const ReportSheet sheet = SheetOf(Full(), Nothing(), {});
    EXPECT_EQ(HeadingsOf(sheet), QStringList({u"照片"_s}));
    EXPECT_EQ(CountOf<FactsBlock>(sheet) + CountOf<TableBlock>(sheet) + CountOf<ImageBlock>(sheet) +
                  CountOf<RecordBlock>(sheet) + CountOf<ContentsBlock>(sheet),
              0);
    for (const ReportBlock& block : sheet.blocks) {
        if (const auto* photos = std::get_if<PhotosBlock>(&block)) {
            EXPECT_TRUE(photos->photos[0].facts.empty());
            EXPECT_EQ(photos->photos[0].title.left(2), u"照片");
        }
    }
}

TEST(ReportBlocks, EachChoiceTakesItsOwnPartAway) {
    struct Part {
        bool ReportOptions::*choice;
        QString heading; ///< that goes with it; empty: none
    };
    const Part parts[] = {{&ReportOptions::withComments, u"评论"_s},
                          {&ReportOptions::withVoices, u"语音备注"_s},
                          {&ReportOptions::withRecord, u"整改记录"_s},
                          {&ReportOptions::withContents, {}},
                          {&ReportOptions::withPlan, {}},
                          {&ReportOptions::withCode, {}}};
    const ReportSheet all = SheetOf(Full(), {}, {});
    for (const Part& part : parts) {
        ReportOptions options;
        options.*part.choice = false;
        const ReportSheet sheet = SheetOf(Full(), options, {});
        EXPECT_LT(sheet.blocks.size(), all.blocks.size());
        QStringList left = HeadingsOf(all);
        left.removeAll(part.heading);
        EXPECT_EQ(HeadingsOf(sheet), left);
    }
}

TEST(ReportBlocks, AContentWithNothingIsATitle) {
    ReportContent empty;
    empty.kind = u"照片报告"_s;
    empty.sections.resize(3);
    const ReportSheet sheet = SheetOf(empty, {}, {});
    EXPECT_EQ(sheet.blocks.size(), 1U);
    EXPECT_EQ(PhotoCountOf(sheet), 0);
}

TEST(ReportBlocks, ARecordWithoutTextShowsItsFacts) {
    ReportContent content = reporttest::PhotosAt(u"a.jpg"_s, 1);
    reporttest::AddRecord(content, {});
    const ReportSheet sheet = SheetOf(content, {}, {});
    EXPECT_TRUE(HeadingsOf(sheet).contains(u"整改记录"_s));
    EXPECT_EQ(CountOf<RecordBlock>(sheet), 0);
}

TEST(ReportBlocks, PhotosStandInRowsOfTheGrid) {
    ReportOptions options;
    options.pictures = ReportPictures::Small;
    const ReportSheet portrait = SheetOf(Full(), options, {});
    EXPECT_EQ(CountOf<PhotosBlock>(portrait), 3); // 2 + 2 + 1
    options.isLandscape = true;
    EXPECT_EQ(CountOf<PhotosBlock>(SheetOf(Full(), options, {})), 2); // 3 + 2
    options.pictures = ReportPictures::OnePerPage;
    EXPECT_EQ(CountOf<PhotosBlock>(SheetOf(Full(), options, {})), 5);
}

TEST(ReportBlocks, TheTemplateDresses) {
    ReportTemplate dress;
    dress.title = u"质量月报"_s;
    dress.header = u"页眉"_s;
    dress.footer = u"页脚"_s;
    dress.logo = QImage(10, 10, QImage::Format_RGB32);
    const ReportSheet sheet = SheetOf(Full(), {}, dress);
    EXPECT_EQ(sheet.title, u"质量月报");
    EXPECT_EQ(sheet.header, u"页眉");
    EXPECT_EQ(sheet.footer, u"页脚");
    EXPECT_FALSE(std::get<TitleBlock>(sheet.blocks.front()).logo.isNull());
}

TEST(ReportOptions, ComeBackFromTheirSetting) {
    ReportOptions options = Nothing();
    options.paper = ReportPaper::A3;
    options.isLandscape = true;
    options.pictures = ReportPictures::OnePerPage;
    EXPECT_EQ(ReportOptionsOf(ToSetting(options)), options);
    options.withVoices = true;
    EXPECT_EQ(ReportOptionsOf(ToSetting(options)), options);
}

TEST(ReportOptions, OddSettingsAreTheUsualChoice) {
    for (const QString& odd : {u""_s, u"{"_s, u"[]"_s, u"{\"paper\":9,\"pictures\":-1}"_s,
                               u"{\"paper\":\"A3\",\"texts\":3}"_s}) {
        EXPECT_EQ(ReportOptionsOf(odd), ReportOptions()) << qUtf8Printable(odd);
    }
}

TEST(ReportOptions, AShapeHasRoomForItsTextOnEveryPaper) {
    for (const ReportPaper paper : {ReportPaper::A4, ReportPaper::A3}) {
        for (const bool isLandscape : {false, true}) {
            ReportOptions options;
            options.paper = paper;
            options.isLandscape = isLandscape;
            const PageShape shape = ShapeOf(options);
            EXPECT_EQ(shape.page.width() > shape.page.height(), isLandscape);
            EXPECT_TRUE(QRectF(QPointF(), shape.page).contains(shape.text));
            EXPECT_LT(shape.headerTop + kPageLine, shape.text.top());
            EXPECT_GT(shape.footerTop, shape.text.bottom());
            for (const auto size :
                 {ReportPictures::Small, ReportPictures::Medium, ReportPictures::OnePerPage}) {
                options.pictures = size;
                const PhotoGrid grid = GridOf(options);
                EXPECT_LE(grid.picture.width() * grid.columns, shape.text.width());
                EXPECT_LE(grid.picture.height() * grid.picturesOfPage / grid.columns,
                          shape.text.height());
            }
        }
    }
    // ISO 216: 210 by 297 millimetres.
    EXPECT_NEAR(ShapeOf({}).page.width(), OfMillimetres(210), 1);
    EXPECT_NEAR(ShapeOf({}).page.height(), OfMillimetres(297), 1);
}

TEST(ReportTemplate, ComesBackWithItsLogo) {
    ReportTemplate dress;
    dress.title = u"质量月报"_s;
    dress.footer = u"内部 \"资料\""_s;
    dress.logo = QImage(30, 20, QImage::Format_RGB32);
    dress.logo.fill(Qt::red);
    const ReportTemplate back = ReportTemplateOf(ToSetting(dress));
    EXPECT_EQ(back.title, dress.title);
    EXPECT_EQ(back.footer, dress.footer);
    ASSERT_EQ(back.logo.size(), dress.logo.size());
    EXPECT_EQ(back.logo.pixelColor(3, 3), QColor(Qt::red));
}

TEST(ReportTemplate, OddSettingsAreCut) {
    const QString longText(1000, u'长');
    const ReportTemplate dress =
        ReportTemplateOf(u"{\"title\":\"%1\",\"logo\":\"AAAA\",\"header\":4}"_s.arg(longText));
    EXPECT_EQ(dress.title.size(), kMostTemplateText);
    EXPECT_TRUE(dress.logo.isNull());
    EXPECT_TRUE(dress.header.isEmpty());
    EXPECT_EQ(ReportTemplateOf(u"nonsense"_s), ReportTemplate());
}

TEST(ReportTemplate, ALogoIsMadeSmallAndLaidOnWhite) {
    const support::TempFolder folder;
    QImage large(2000, 1000, QImage::Format_ARGB32);
    large.fill(Qt::transparent);
    ASSERT_TRUE(large.save(folder.Path(u"logo.png"_s)));
    const QImage logo = LogoOf(folder.Path(u"logo.png"_s));
    EXPECT_EQ(logo.size(), QSize(kMostLogoSide, kMostLogoSide / 2));
    EXPECT_EQ(logo.pixelColor(5, 5), QColor(Qt::white));
    folder.Write(u"text.png"_s, "no picture");
    EXPECT_TRUE(LogoOf(folder.Path(u"text.png"_s)).isNull());
    EXPECT_TRUE(LogoOf(folder.Path(u"none.png"_s)).isNull());
}

} // namespace
} // namespace host
