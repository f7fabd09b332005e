#include "host/drawings/DrawingExamination.h"

#include "tests/host/drawings/TestDrawings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class ExaminationTest : public testing::Test {
protected:
    [[nodiscard]] DrawingVerdict Examined(const QByteArray& bytes,
                                          const DrawingReader::Terms& terms = {}) {
        QFile file(QDir(m_folder.path()).filePath(u"甲.pdf"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        file.close();
        return ExamineDrawing(file.fileName(), terms);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(ExaminationTest, ADrawingThatCanBeShownIsFound) {
    const DrawingVerdict verdict = Examined(drawingtest::PlainPdf(7));
    EXPECT_EQ(verdict.fault, DrawingFault::None);
    EXPECT_EQ(verdict.pages.size(), 7U);
}

TEST_F(ExaminationTest, WhatOpensButCannotBeDrawnIsFoundToo) {
    const DrawingVerdict verdict = Examined(drawingtest::EndlessPdf(), {{}, 700});
    EXPECT_EQ(verdict.fault, DrawingFault::Stalled);
    EXPECT_TRUE(verdict.pages.empty());
}

TEST_F(ExaminationTest, WhatDoesNotOpenIsSaid) {
    EXPECT_EQ(Examined(drawingtest::EncryptedPdf()).fault, DrawingFault::Encrypted);
    EXPECT_EQ(Examined("hello").fault, DrawingFault::NotPdf);
    EXPECT_EQ(Examined(drawingtest::PlainPdf(1), {u"/nowhere/reader"_s}).fault,
              DrawingFault::NoReader);
}

} // namespace
} // namespace host
