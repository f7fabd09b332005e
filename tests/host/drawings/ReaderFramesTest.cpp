#include "host/drawings/ReaderFrames.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(ReaderFrames, AQuestionComesBackAsItWasAsked) {
    const auto open = ReadQuestion(FrameOf(ReaderQuestion{u"图纸/甲.pdf"_s, {}}));
    ASSERT_TRUE(open.has_value());
    EXPECT_EQ(open->path, u"图纸/甲.pdf"_s);
    const RenderRequest request{3, QSize(4000, 3000), QRect(-5, 7, 512, 256)};
    const auto render = ReadQuestion(FrameOf(ReaderQuestion{{}, request}));
    ASSERT_TRUE(render.has_value());
    EXPECT_TRUE(render->path.isEmpty());
    EXPECT_EQ(render->render, request);
}

TEST(ReaderFrames, AnAnswerComesBackWithItsPagesAndItsPicture) {
    ReaderAnswer answer;
    answer.pages = {QSizeF(2384, 3370), QSizeF(595.5, 842)};
    answer.image = QImage(3, 2, QImage::Format_RGB32);
    answer.image.fill(Qt::red);
    answer.image.setPixel(2, 1, qRgb(1, 2, 3));
    const auto back = ReadAnswer(FrameOf(answer));
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(back->fault, DrawingFault::None);
    EXPECT_EQ(back->pages, answer.pages);
    EXPECT_EQ(back->image, answer.image);
}

TEST(ReaderFrames, ALengthIsKnownAsSoonAsItsFourBytesAreThere) {
    const QByteArray frame = FrameOf(ReaderAnswer{});
    EXPECT_FALSE(FrameSize(frame.first(3)).has_value());
    EXPECT_EQ(FrameSize(frame.first(4)), frame.size());
}

TEST(ReaderFrames, WhatIsCutShortOrSaysMoreThanItHasIsNoFrame) {
    ReaderAnswer answer;
    answer.pages = {QSizeF(10, 10)};
    answer.image = QImage(4, 4, QImage::Format_RGB32);
    const QByteArray frame = FrameOf(answer);
    for (qsizetype length = 0; length < frame.size(); ++length) {
        EXPECT_FALSE(ReadAnswer(frame.first(length)).has_value()) << length;
    }
    EXPECT_FALSE(ReadAnswer(frame + 'x').has_value());
    QByteArray wide = frame;
    wide[4 + 1 + 4 + 16] = 0x7f; // the first byte of the picture's width
    EXPECT_FALSE(ReadAnswer(wide).has_value());
    QByteArray unknown = frame;
    unknown[4] = 99;
    EXPECT_FALSE(ReadAnswer(unknown).has_value());
    EXPECT_FALSE(ReadQuestion(FrameOf(ReaderQuestion{u"a"_s, {}}).chopped(1)).has_value());
}

} // namespace
} // namespace host
