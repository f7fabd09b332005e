#include "toolkit/media/AmrReader.h"

#include "tests/support/AmrFiles.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <vector>

using namespace Qt::StringLiterals;
using toolkit::AmrBand;
using toolkit::AmrReader;

namespace {

/// A frame of a type, its speech filled with one byte.
QByteArray Frame(int type, int size, char fill = '\x55') {
    return QByteArray(1, char(type << 3 | 0x04)) + QByteArray(size - 1, fill);
}

class AmrFile : public testing::Test {
protected:
    AmrReader Opened(const QByteArray& contents) {
        return AmrReader(folder.Write(u"note.amr"_s, contents));
    }
    quint64 FramesOf(const QByteArray& contents) { return Opened(contents).CountRest(); }

    support::TempFolder folder;
};

} // namespace

TEST_F(AmrFile, ANarrowFrameIsAsLongAsItsTypeSays) {
    const int sizes[] = {13, 14, 16, 18, 20, 21, 27, 32, 6};
    QByteArray file("#!AMR\n");
    for (int type = 0; type < 9; ++type) {
        file += Frame(type, sizes[type]);
    }
    file += Frame(15, 1);
    AmrReader reader = Opened(file);
    EXPECT_EQ(reader.Band(), AmrBand::Narrow);
    for (int type = 0; type < 9; ++type) {
        EXPECT_EQ(reader.Next().size(), size_t(sizes[type])) << type;
    }
    EXPECT_EQ(reader.Next().size(), 1U);
    EXPECT_TRUE(reader.Next().empty());
}

TEST_F(AmrFile, AWideFrameIsAsLongAsItsTypeSays) {
    const int sizes[] = {18, 24, 33, 37, 41, 47, 51, 59, 61, 6};
    QByteArray file("#!AMR-WB\n");
    for (int type = 0; type < 10; ++type) {
        file += Frame(type, sizes[type]);
    }
    file += Frame(14, 1) + Frame(15, 1);
    AmrReader reader = Opened(file);
    EXPECT_EQ(reader.Band(), AmrBand::Wide);
    for (int type = 0; type < 10; ++type) {
        EXPECT_EQ(reader.Next().size(), size_t(sizes[type])) << type;
    }
    EXPECT_EQ(reader.CountRest(), 2U);
}

TEST_F(AmrFile, AMissingFileHasNoFrames) {
    AmrReader reader(folder.Path(u"none.amr"_s));
    EXPECT_EQ(reader.Band(), AmrBand::None);
    EXPECT_EQ(reader.CountRest(), 0U);
}

TEST_F(AmrFile, WhatIsNoAmrHasNoFrames) {
    for (const QByteArray& contents :
         {QByteArray(), QByteArray("#!A"), QByteArray("#!AMR"), QByteArray("#!AMR-W\n\x7C"),
          QByteArray("#!AMR_MC1.0\n\0\0\0\1\x7C", 17), QByteArray("ID3 a song"),
          QByteArray(1000, '\x7C')}) {
        AmrReader reader = Opened(contents);
        EXPECT_EQ(reader.Band(), AmrBand::None) << contents.left(12).toStdString();
        EXPECT_EQ(reader.CountRest(), 0U) << contents.left(12).toStdString();
    }
}

TEST_F(AmrFile, AFileWithoutFramesHasABandOnly) {
    AmrReader reader = Opened("#!AMR\n");
    EXPECT_EQ(reader.Band(), AmrBand::Narrow);
    EXPECT_TRUE(reader.Next().empty());
}

TEST_F(AmrFile, AFolderAndAPipeHaveNoFrames) {
    EXPECT_EQ(AmrReader(folder.Path()).CountRest(), 0U);
    const QString pipe = folder.Path(u"pipe.amr"_s);
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(AmrReader(pipe).CountRest(), 0U);
}

TEST_F(AmrFile, ATruncatedFrameAtTheEndIsLeftOut) {
    const QByteArray whole = "#!AMR\n" + Frame(7, 32) + Frame(7, 32);
    EXPECT_EQ(FramesOf(whole), 2U);
    EXPECT_EQ(FramesOf(whole.chopped(1)), 1U);
    EXPECT_EQ(FramesOf(whole.chopped(31)), 1U);
    EXPECT_EQ(FramesOf(whole.chopped(32)), 1U);
    EXPECT_EQ(FramesOf(whole.chopped(33)), 0U);
}

TEST_F(AmrFile, TheFramesEndAtATypeThatSpeechDoesNotHave) {
    for (int type = 9; type < 15; ++type) {
        EXPECT_EQ(FramesOf("#!AMR\n" + Frame(0, 13) + Frame(type, 9) + Frame(0, 13)), 1U) << type;
    }
    for (int type = 10; type < 14; ++type) {
        EXPECT_EQ(FramesOf("#!AMR-WB\n" + Frame(0, 18) + Frame(type, 9) + Frame(0, 18)), 1U)
            << type;
    }
    AmrReader reader = Opened("#!AMR\n" + Frame(9, 9) + Frame(0, 13));
    EXPECT_TRUE(reader.Next().empty());
    EXPECT_TRUE(reader.Next().empty()) << "nothing is given behind the end";
}

TEST_F(AmrFile, FramesAreWholeAcrossTheBlocksInWhichTheFileIsRead) {
    QByteArray file("#!AMR\n");
    for (int i = 0; i < 9000; ++i) {
        file += Frame(7, 32, char(i % 251));
    }
    AmrReader reader = Opened(file);
    for (int i = 0; i < 9000; ++i) {
        const auto frame = reader.Next();
        ASSERT_EQ(frame.size(), 32U) << i;
        ASSERT_EQ(frame[1], i % 251) << i;
        ASSERT_EQ(frame[31], i % 251) << i;
    }
    EXPECT_TRUE(reader.Next().empty());
}

TEST_F(AmrFile, CountingGivesWhatIsLeft) {
    AmrReader reader = Opened(support::SilentAmr(10));
    EXPECT_FALSE(reader.Next().empty());
    EXPECT_EQ(reader.CountRest(), 9U);
    EXPECT_EQ(reader.CountRest(), 0U);
}
