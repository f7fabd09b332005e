#include "host/ui/FileNames.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(FileNames, HaveNothingThatAFileSystemMightRefuse) {
    EXPECT_EQ(FileNameFrom(u"梁:板/柱\\墙*顶?底\"左<右>前|后\n中\x7f"_s, 60),
              u"梁_板_柱_墙_顶_底_左_右_前_后_中_"_s);
    EXPECT_EQ(FileNameFrom(u"报告/:*? 3层"_s, 60, u' '), u"报告 3层"_s);
}

TEST(FileNames, HaveNoDotsOrSpacesAtTheirEnds) {
    EXPECT_EQ(FileNameFrom(u" .. 1.2 . "_s, 60), u"1.2"_s);
    EXPECT_EQ(FileNameFrom(u" . "_s, 60), QString());
    EXPECT_EQ(FileNameFrom({}, 60), QString());
    EXPECT_EQ(FileNameFrom(u"梁 板"_s, 2), u"梁"_s) << "nor where they are cut";
}

TEST(FileNames, AreNotCutWithinACharacter) {
    const QString helmet = QString::fromUtf8("\xF0\x9F\xAA\x96"); // two units
    ASSERT_EQ(helmet.size(), 2);
    EXPECT_EQ(FileNameFrom(u"a"_s + helmet + helmet, 4), u"a"_s + helmet);
    EXPECT_EQ(FileNameFrom(u"a"_s + helmet + helmet, 5), u"a"_s + helmet + helmet);
    EXPECT_EQ(FileNameFrom(helmet, 1), QString());
    EXPECT_EQ(FileNameFrom(QString(300, u'裂'), 60), QString(60, u'裂'));
}

} // namespace
} // namespace host
