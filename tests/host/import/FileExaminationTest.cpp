#include "host/import/FileExamination.h"

#include "tests/host/import/ForeignPictures.h"
#include "tests/host/import/TestPictures.h"
#include "tests/support/TempFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;
using importtest::Picture;

host::ExaminedFile Examine(const QString& name, const QByteArray& bytes) {
    const support::TempFolder temp;
    return host::ExamineFile(temp.Write(name, bytes));
}

/// The check sum of a PNG chunk.
quint32 Crc(const QByteArray& bytes) {
    quint32 sum = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320U : 0);
        }
    }
    return ~sum;
}

/// A PNG whose header claims another size.
QByteArray PngOfSize(quint32 width, quint32 height) {
    QByteArray png = Picture("png", 1);
    for (int byte = 0; byte < 4; ++byte) {
        png[16 + byte] = static_cast<char>(width >> (24 - 8 * byte));
        png[20 + byte] = static_cast<char>(height >> (24 - 8 * byte));
    }
    const quint32 sum = Crc(png.mid(12, 17));
    for (int byte = 0; byte < 4; ++byte) {
        png[29 + byte] = static_cast<char>(sum >> (24 - 8 * byte));
    }
    return png;
}

/// A JPEG whose header claims another size.
QByteArray JpegOfSize(int width, int height) {
    QByteArray jpeg = Picture("jpeg", 1);
    const qsizetype frame = jpeg.indexOf("\xFF\xC0");
    jpeg[frame + 5] = static_cast<char>(height >> 8);
    jpeg[frame + 6] = static_cast<char>(height);
    jpeg[frame + 7] = static_cast<char>(width >> 8);
    jpeg[frame + 8] = static_cast<char>(width);
    return jpeg;
}

TEST(FileExamination, TakesTheFourKinds) {
    EXPECT_EQ(Examine(u"a.jpg"_s, Picture("jpeg", 1)).refusal, QString());
    EXPECT_EQ(Examine(u"a.PNG"_s, Picture("png", 1)).refusal, QString());
    EXPECT_EQ(Examine(u"a.bmp"_s, Picture("bmp", 1)).refusal, QString());
    EXPECT_EQ(Examine(u"a.gif"_s, importtest::Gif()).refusal, QString());
}

TEST(FileExamination, HandsOverTheFileAsItIsWithItsMd5) {
    const QByteArray bytes = Picture("jpeg", 1) + "appended";
    const host::ExaminedFile file = Examine(u"a.jpg"_s, bytes);
    EXPECT_EQ(file.bytes, bytes);
    EXPECT_EQ(file.md5.toLatin1(),
              QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

TEST(FileExamination, TheContentDecidesNotTheName) {
    EXPECT_EQ(Examine(u"really-png.jpg"_s, Picture("png", 1)).refusal, QString());
    EXPECT_EQ(Examine(u"no-extension"_s, Picture("jpeg", 1)).refusal, QString());
}

TEST(FileExamination, ATextNamedJpgIsRefused) {
    const host::ExaminedFile file = Examine(u"a.jpg"_s, "hello");
    EXPECT_EQ(file.refusal, u"内容不是图片，虽然扩展名是 .jpg"_s);
    EXPECT_TRUE(file.bytes.isEmpty());
}

TEST(FileExamination, OtherFilesAreRefused) {
    EXPECT_EQ(Examine(u"plan.dwg"_s, "AC1032").refusal,
              u"不是 JPEG、PNG、BMP、GIF、HEIC、TIFF 或 WebP 图片"_s);
    EXPECT_EQ(Examine(u"notes.txt"_s, Picture("jpeg", 1)).refusal,
              u"扩展名 .txt 不是图片的扩展名"_s);
}

TEST(FileExamination, AnEmptyFileIsRefused) {
    EXPECT_EQ(Examine(u"a.jpg"_s, {}).refusal, u"文件是空的（0 字节）"_s);
}

TEST(FileExamination, ATruncatedJpegIsRefused) {
    const QByteArray whole = Picture("jpeg", 1, {400, 300});
    EXPECT_EQ(Examine(u"a.jpg"_s, whole.left(whole.size() * 9 / 10)).refusal,
              u"文件不完整，图片在中途断开"_s);
}

TEST(FileExamination, AJpegWithABrokenHeadIsRefused) {
    QByteArray broken = Picture("jpeg", 1);
    const qsizetype frame = broken.indexOf("\xFF\xC0");
    broken[frame + 1] = '\xFE';
    EXPECT_FALSE(Examine(u"a.jpg"_s, broken).refusal.isEmpty());
}

TEST(FileExamination, APngWithBrokenDataIsRefused) {
    QByteArray broken = Picture("png", 1, {200, 150});
    const qsizetype data = broken.indexOf("IDAT") + 4;
    for (qsizetype at = data + 20; at < data + 200; ++at) {
        broken[at] = static_cast<char>(broken[at] ^ 0x5A);
    }
    EXPECT_EQ(Examine(u"a.png"_s, broken).refusal, u"图片已损坏，无法解码"_s);
}

TEST(FileExamination, NineHundredMegapixelsAreRefusedWithTheLimit) {
    EXPECT_EQ(Examine(u"a.png"_s, PngOfSize(30000, 30000)).refusal,
              u"图片太大：30000×30000 像素，上限为 20000 万像素"_s);
    EXPECT_EQ(Examine(u"a.jpg"_s, JpegOfSize(30000, 30000)).refusal,
              u"图片太大：30000×30000 像素，上限为 20000 万像素"_s);
}

TEST(FileExamination, APhonesHundredAndEightMegapixelsAreTaken) {
    EXPECT_EQ(Examine(u"a.jpg"_s, JpegOfSize(12000, 9000)).refusal, QString());
}

TEST(FileExamination, ATextNamedHeicIsRefused) {
    EXPECT_EQ(Examine(u"IMG_1.HEIC"_s, "whatever").refusal, u"内容不是图片，虽然扩展名是 .heic"_s);
}

TEST(FileExamination, RawFilesOfCamerasAreRefusedThoughTheyBeginAsTiff) {
    EXPECT_EQ(Examine(u"a.dng"_s, importtest::Tiff(importtest::Corners())).refusal,
              u"扩展名 .dng 不是图片的扩展名"_s);
}

TEST(FileExamination, HiddenFilesAreRefused) {
    EXPECT_EQ(Examine(u".a.jpg"_s, Picture("jpeg", 1)).refusal, u"隐藏文件"_s);
}

TEST(FileExamination, AFolderIsNamedAsWhatItIs) {
    const support::TempFolder temp;
    QDir(temp.Path()).mkpath(u".trash"_s);
    EXPECT_EQ(host::ExamineFile(temp.Path(u".trash"_s)).refusal, u"隐藏文件夹，未进入"_s);
    QFile::link(temp.Path(), temp.Path(u"round"_s));
    EXPECT_EQ(host::ExamineFile(temp.Path(u"round"_s)).refusal, u"链接文件夹，未进入"_s);
}

TEST(FileExamination, ABrokenLinkIsRefused) {
    const support::TempFolder temp;
    QFile::link(u"/nowhere/at/all.jpg"_s, temp.Path(u"gone.jpg"_s));
    EXPECT_EQ(host::ExamineFile(temp.Path(u"gone.jpg"_s)).refusal, u"文件不存在"_s);
}

TEST(FileExamination, APipeIsRefusedWithoutWaitingForIt) {
    const support::TempFolder temp;
    const QString path = temp.Path(u"pipe.jpg"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_EQ(host::ExamineFile(path).refusal, u"不是普通文件"_s);
}

TEST(FileExamination, AnUnreadableFileIsRefused) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "root reads everything";
    }
    const support::TempFolder temp;
    const QString path = temp.Write(u"a.jpg"_s, Picture("jpeg", 1));
    QFile::setPermissions(path, {});
    EXPECT_TRUE(host::ExamineFile(path).refusal.startsWith(u"无法读取："_s));
}

TEST(FileExamination, TheTimeOfTheTakingComesFromThePhotoAlone) {
    const QByteArray photo =
        importtest::WithExif(Picture("jpeg", 1), {"2024:03:12 14:25:36", "+08:00", {}, {}, 0});
    EXPECT_EQ(Examine(u"a.jpg"_s, photo).facts.taken, 1710224736);
    for (const char* format : {"jpeg", "png"}) {
        EXPECT_TRUE(Examine(u"a.png"_s, Picture(format, 1)).facts.IsEmpty()) << format;
    }
}

TEST(FileExamination, DisplayNamesHoldNothingThatAPathUnderstands) {
    EXPECT_EQ(host::CleanDisplayName(u"C:\\photos/外墙.jpg"_s), u"C__photos_外墙.jpg"_s);
    EXPECT_EQ(host::CleanDisplayName(u"a\nb\t\u202Egpj.exe.jpg"_s), u"abgpj.exe.jpg"_s);
    EXPECT_EQ(host::CleanDisplayName(u" \r\n "_s), u"照片"_s);
    EXPECT_EQ(host::CleanDisplayName(u".."_s), u"照片"_s);
}

TEST(FileExamination, LongNamesKeepTheirExtension) {
    const QString name = host::CleanDisplayName(QString(300, u'墙') + u".jpeg"_s);
    EXPECT_EQ(name.size(), 200);
    EXPECT_TRUE(name.endsWith(u"墙.jpeg"_s));
}

} // namespace
