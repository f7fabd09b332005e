// PDF drawings from the command line, on a real data folder and with a real reader.
#include "host/app/DrawingCommand.h"

#include "site/IDrawings.h"
#include "site/OpenSite.h"
#include "tests/host/drawings/TestDrawings.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/TempFolder.h"

#include <QTextStream>

#include <gtest/gtest.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;

class DrawingCommand : public testing::Test {
protected:
    DrawingCommand()
        : m_small(MakeSmallSite(folder.Path(u"data"_s))),
          m_opened(site::OpenSite(folder.Path(u"data"_s), {5000, false})) {}
    [[nodiscard]] int Run(const QStringList& files, const QString& project = u"一期工程"_s) {
        said.clear();
        blamed.clear();
        QTextStream out(&said);
        QTextStream err(&blamed);
        return host::RunDrawingCommand(*m_opened.site, {files, project}, {}, out, err);
    }
    [[nodiscard]] QStringList Names() const {
        QStringList names;
        for (const site::DrawingEntry& entry :
             m_opened.site->Drawings().List(m_small.firstProject)) {
            names << entry.name;
        }
        return names;
    }

    support::TempFolder folder;
    QString said;
    QString blamed;

private:
    SmallSite m_small;
    site::OpenedSite m_opened;
};

TEST_F(DrawingCommand, FilesAreFiledUnderTheirNames) {
    const QStringList before = Names();
    EXPECT_EQ(Run({folder.Write(u"三 层.pdf"_s, drawingtest::PlainPdf(2)),
                   folder.Write(u"四层.v2.pdf"_s, drawingtest::PlainPdf(1))}),
              0);
    EXPECT_EQ(Names(), before + QStringList({u"三 层"_s, u"四层.v2"_s}));
    EXPECT_EQ(said, u"已导入图纸“三 层”\n已导入图纸“四层.v2”\n"_s);
    EXPECT_EQ(blamed, QString());
}

TEST_F(DrawingCommand, WhatIsNoUseIsNamedAndTheOthersAreFiled) {
    const QStringList before = Names();
    const QString bad = folder.Write(u"坏.pdf"_s, drawingtest::EncryptedPdf());
    const QString good = folder.Write(u"好.pdf"_s, drawingtest::PlainPdf(1));
    EXPECT_EQ(Run({bad, good, good}), 1);
    EXPECT_EQ(Names(), before + QStringList{u"好"_s});
    EXPECT_TRUE(blamed.contains(u"没有导入“%1”：PDF 文件有密码保护"_s.arg(bad)));
    EXPECT_TRUE(blamed.contains(u"没有导入“%1”："_s.arg(good))) << "the second time";
}

TEST_F(DrawingCommand, AnUnknownProjectIsToldWithThoseThatThereAre) {
    EXPECT_EQ(Run({folder.Write(u"好.pdf"_s, drawingtest::PlainPdf(1))}, u"三期"_s), 2);
    EXPECT_TRUE(blamed.contains(u"一期工程、二期工程"_s)) << blamed.toStdString();
}

} // namespace
} // namespace roads
