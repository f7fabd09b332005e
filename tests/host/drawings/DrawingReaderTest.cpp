#include "host/drawings/DrawingReader.h"

#include "tests/host/drawings/TestDrawings.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using drawingtest::BusyPdf;
using drawingtest::EncryptedPdf;
using drawingtest::EndlessPdf;
using drawingtest::PlainPdf;
using support::WaitFor;

class ReaderTest : public testing::Test {
protected:
    void Make(const DrawingReader::Terms& terms = {}) {
        reader = std::make_unique<DrawingReader>(terms);
        QObject::connect(reader.get(), &DrawingReader::Opened, reader.get(),
                         [this](const SheetPages& opened) { pages = opened; });
        QObject::connect(reader.get(), &DrawingReader::Rendered, reader.get(),
                         [this](const RenderRequest& of, const QImage& rendered) {
                             request = of;
                             image = rendered;
                         });
        QObject::connect(reader.get(), &DrawingReader::Failed, reader.get(),
                         [this](DrawingFault of) { faults.push_back(of); });
    }
    [[nodiscard]] QString FileOf(const QByteArray& bytes, const QString& name = u"图 纸.pdf"_s) {
        QFile file(QDir(folder.path()).filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    /// The fault with which opening ends; None: it is open.
    [[nodiscard]] DrawingFault Opening(const QString& path) {
        faults.clear();
        pages.clear();
        reader->Open(path);
        EXPECT_TRUE(WaitFor([this] { return !reader->IsBusy(); }));
        EXPECT_EQ(reader->IsOpen(), faults.empty());
        return faults.empty() ? DrawingFault::None : faults.front();
    }
    [[nodiscard]] bool Rendering(const RenderRequest& of) {
        image = {};
        faults.clear();
        reader->Render(of);
        EXPECT_TRUE(WaitFor([this] { return !reader->IsBusy(); }));
        return !image.isNull();
    }
    /// A reader that does what the name says at its second question.
    [[nodiscard]] DrawingReader::Terms Odd(const QString& name, int patienceMs = 20'000) {
        const QString program = QDir(folder.path()).filePath(name);
        QFile::remove(program);
        EXPECT_TRUE(QFile::link(
            QDir(QCoreApplication::applicationDirPath()).filePath(u"drawing_odd_reader"_s),
            program));
        return {program, patienceMs};
    }
    static constexpr RenderRequest kWhole{0, QSize(400, 200), QRect(0, 0, 400, 200)};

    QTemporaryDir folder;
    std::unique_ptr<DrawingReader> reader;
    SheetPages pages;
    RenderRequest request;
    QImage image;
    std::vector<DrawingFault> faults;
};

TEST_F(ReaderTest, ADocumentIsOpenedWithTheSizesOfItsPages) {
    Make();
    EXPECT_EQ(Opening(FileOf(PlainPdf(3, {2384, 3370}))), DrawingFault::None);
    EXPECT_EQ(pages, (SheetPages{{2384, 3370}, {2384, 3370}, {2384, 3370}}));
}

TEST_F(ReaderTest, AnyPartOfAPageIsRenderedAtAnySizeOnWhite) {
    Make();
    ASSERT_EQ(Opening(FileOf(PlainPdf(1))), DrawingFault::None);
    ASSERT_TRUE(Rendering(kWhole));
    EXPECT_EQ(request, kWhole);
    EXPECT_EQ(image.size(), QSize(400, 200));
    EXPECT_EQ(image.pixel(300, 50), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(100, 150), qRgb(0, 0, 0)) << "the lower left quarter";
    const RenderRequest corner{0, QSize(4000, 2000), QRect(1990, 990, 20, 20)};
    ASSERT_TRUE(Rendering(corner));
    EXPECT_EQ(image.size(), QSize(20, 20));
    EXPECT_EQ(image.pixel(2, 17), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(17, 17), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(2, 2), qRgb(255, 255, 255));
}

TEST_F(ReaderTest, PartsFitTogetherAlsoOnTurnedAndCroppedPages) {
    Make();
    for (const QByteArray& entries :
         {QByteArray(), QByteArray("/Rotate 90"), QByteArray("/Rotate 180"),
          QByteArray("/CropBox [100 50 300 250]"),
          QByteArray("/Rotate 270 /CropBox [100 50 300 250]"), QByteArray("/UserUnit 2")}) {
        ASSERT_EQ(Opening(FileOf(BusyPdf(entries))), DrawingFault::None);
        const QSize full = (pages.front() * 4).toSize();
        ASSERT_TRUE(Rendering({0, full, QRect(QPoint(), full)}));
        const QImage whole = image;
        const QRect part(full.width() / 2 - 40, full.height() / 2 - 30, 301, 203);
        ASSERT_TRUE(Rendering({0, full, part}));
        int different = 0;
        for (int y = 0; y < part.height(); ++y) {
            for (int x = 0; x < part.width(); ++x) {
                const int one = qGray(image.pixel(x, y));
                const int other = qGray(whole.pixel(part.x() + x, part.y() + y));
                different += std::abs(one - other) > 64 ? 1 : 0;
            }
        }
        EXPECT_LT(different, part.width() * part.height() / 1000) << entries.constData();
    }
}

TEST_F(ReaderTest, APartThatCannotBeRenderedLeavesTheDocumentOpen) {
    Make();
    ASSERT_EQ(Opening(FileOf(PlainPdf(1))), DrawingFault::None);
    for (const RenderRequest& odd :
         {RenderRequest{1, kWhole.full, kWhole.clip}, RenderRequest{-1, kWhole.full, kWhole.clip},
          RenderRequest{0, kWhole.full, QRect()}, RenderRequest{0, QSize(), kWhole.clip},
          RenderRequest{0, QSize(90'000, 90'000), QRect(0, 0, 90'000, 90'000)}}) {
        EXPECT_FALSE(Rendering(odd));
        EXPECT_EQ(faults, std::vector{DrawingFault::Damaged});
    }
    EXPECT_TRUE(Rendering(kWhole));
}

TEST_F(ReaderTest, EachFileThatIsNoUseIsToldApart) {
    Make();
    const QString there = FileOf(PlainPdf(1));
    EXPECT_EQ(Opening(there + u"x"_s), DrawingFault::Missing);
    EXPECT_EQ(Opening(folder.path()), DrawingFault::Missing) << "a folder";
    EXPECT_EQ(Opening(FileOf("\xff\xd8\xff", u"照片.pdf"_s)), DrawingFault::NotPdf);
    EXPECT_EQ(Opening(FileOf({}, u"空.pdf"_s)), DrawingFault::NotPdf);
    EXPECT_EQ(Opening(FileOf("%PDF-1.7\n nothing else")), DrawingFault::Damaged);
    EXPECT_EQ(Opening(FileOf(PlainPdf(1).first(60))), DrawingFault::Damaged) << "cut off";
    EXPECT_EQ(Opening(FileOf(EncryptedPdf())), DrawingFault::Encrypted);
    EXPECT_EQ(Opening(FileOf(PlainPdf(kMostSheets + 1))), DrawingFault::TooManyPages);
    EXPECT_EQ(Opening(FileOf(PlainPdf(1000))), DrawingFault::TooManyPages);
    EXPECT_EQ(Opening(FileOf(PlainPdf(1, {14'400, 100}))), DrawingFault::PageTooLarge);
    EXPECT_EQ(Opening(FileOf(PlainPdf(1, {100, 14'400}))), DrawingFault::PageTooLarge);
    EXPECT_EQ(Opening(FileOf(PlainPdf(kMostSheets, {kLongestSide, 10}))), DrawingFault::None);
    EXPECT_EQ(Opening(there), DrawingFault::None) << "by the same reader";
}

TEST_F(ReaderTest, AnEmptyDocumentIsNoDrawing) {
    Make();
    const DrawingFault fault = Opening(FileOf(PlainPdf(0)));
    EXPECT_TRUE(fault == DrawingFault::NoPages || fault == DrawingFault::Damaged);
}

TEST_F(ReaderTest, ADocumentThatStallsIsGivenUpAndTheNextOneOpens) {
    Make({{}, 700});
    ASSERT_EQ(Opening(FileOf(EndlessPdf())), DrawingFault::None);
    EXPECT_FALSE(Rendering(kWhole));
    EXPECT_EQ(faults, std::vector{DrawingFault::Stalled});
    EXPECT_FALSE(reader->IsOpen());
    EXPECT_EQ(Opening(FileOf(PlainPdf(1))), DrawingFault::None);
    EXPECT_TRUE(Rendering(kWhole));
}

TEST_F(ReaderTest, AReaderThatEndsIsToldOnceAndTheNextDocumentGetsAnother) {
    for (const QString& odd : {u"crash"_s, u"quit"_s, u"garbage"_s, u"huge"_s, u"twice"_s}) {
        Make(Odd(odd));
        for (int time = 0; time < 2; ++time) {
            ASSERT_EQ(Opening(u"any"_s), DrawingFault::None) << odd.toStdString();
            EXPECT_FALSE(Rendering(kWhole));
            EXPECT_EQ(faults, std::vector{DrawingFault::Crashed}) << odd.toStdString();
            EXPECT_FALSE(reader->IsOpen());
            support::RunPendingEvents();
            EXPECT_EQ(faults.size(), 1U) << "once";
        }
    }
}

TEST_F(ReaderTest, HalfAnAnswerIsAStall) {
    Make(Odd(u"half"_s, 300));
    ASSERT_EQ(Opening(u"any"_s), DrawingFault::None);
    EXPECT_FALSE(Rendering(kWhole));
    EXPECT_EQ(faults, std::vector{DrawingFault::Stalled});
}

TEST_F(ReaderTest, WithoutAReaderThatIsSaid) {
    Make({QDir(folder.path()).filePath(u"nowhere"_s)});
    EXPECT_EQ(Opening(FileOf(PlainPdf(1))), DrawingFault::NoReader);
}

TEST_F(ReaderTest, AnotherDocumentInTheMiddleOfAQuestionEndsThatOneSilently) {
    Make();
    ASSERT_EQ(Opening(FileOf(EndlessPdf())), DrawingFault::None);
    reader->Render(kWhole);
    EXPECT_EQ(Opening(FileOf(PlainPdf(2), u"乙.pdf"_s)), DrawingFault::None);
    EXPECT_EQ(pages.size(), 2U);
    EXPECT_TRUE(image.isNull());
    EXPECT_TRUE(Rendering(kWhole));
}

TEST_F(ReaderTest, ClosedInTheMiddleOfAQuestionItSaysNothingMore) {
    Make();
    ASSERT_EQ(Opening(FileOf(EndlessPdf())), DrawingFault::None);
    reader->Render(kWhole);
    reader->Close();
    support::RunPendingEvents();
    EXPECT_TRUE(faults.empty());
    EXPECT_FALSE(reader->IsBusy());
}

TEST(DrawingFaultText, EveryFaultHasASentenceOfItsOwn) {
    QStringList texts;
    for (int fault = int(DrawingFault::Missing); fault <= int(DrawingFault::NoReader); ++fault) {
        texts << DrawingFaultText(DrawingFault(fault));
        EXPECT_TRUE(texts.last().endsWith(u'。')) << fault;
    }
    EXPECT_EQ(texts.removeDuplicates(), 0);
    EXPECT_TRUE(DrawingFaultText(DrawingFault::None).isEmpty());
}

} // namespace
} // namespace host
