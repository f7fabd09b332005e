#include "host/import/ImportCommand.h"

#include "tests/host/import/ImportSite.h"
#include "tests/host/import/TestPictures.h"

#include <QTextStream>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using importtest::ImportSite;
using importtest::Picture;

struct Printed {
    int code = -1;
    QString out;
    QString err;
};

Printed RunCommand(ImportSite& site, const QStringList& words) {
    Printed printed;
    QTextStream out(&printed.out);
    QTextStream err(&printed.err);
    printed.code = host::RunImportCommand(*site.Engine(), words, out, err);
    return printed;
}

QStringList Words(const ImportSite& site, const QStringList& more = {}) {
    return QStringList{site.Pictures(), u"--project"_s, u"滨江花园"_s, u"--user"_s, u"张工"_s} +
           more;
}

TEST(ImportCommand, FilesAFolderAndPrintsTheCounts) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    site.Put(u"b.txt"_s, "text");
    const Printed printed = RunCommand(site, Words(site));
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(printed.err, QString());
    EXPECT_TRUE(
        printed.out.contains(u"b.txt：不是 JPEG、PNG、BMP、GIF、HEIC、TIFF 或 WebP 图片\n"_s));
    EXPECT_TRUE(printed.out.endsWith(u"导入 1 张照片，重复 0 张，跳过 1 个文件。\n"_s));
}

TEST(ImportCommand, TakesPlaceAndMarkByName) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    const QStringList place{u"--floor=3"_s, u"--x"_s, u"2"_s, u"--y=B"_s, u"--mark"_s, u"安全"_s};
    EXPECT_EQ(RunCommand(site, Words(site, place)).code, 0);
    ASSERT_EQ(site.Filed().size(), 1);
    EXPECT_EQ(site.Filed()[0].positionKey, u"key-2B"_s);
    EXPECT_EQ(site.Filed()[0].markId, 2);
}

TEST(ImportCommand, TakesAMarkByNumber) {
    ImportSite site;
    site.Put(u"a.jpg"_s, Picture("jpeg", 1));
    EXPECT_EQ(RunCommand(site, Words(site, {u"--mark"_s, u"1"_s})).code, 0);
    EXPECT_EQ(site.Filed()[0].markId, 1);
}

TEST(ImportCommand, UnknownNamesAreAnsweredWithWhatExists) {
    ImportSite site;
    const QString folder = site.Pictures();
    const struct {
        QStringList words;
        QString message;
    } cases[] = {
        {{folder, u"--project"_s, u"海外"_s, u"--user"_s, u"张工"_s},
         u"没有名为“海外”的工程。现有工程：滨江花园、科技大厦。\n"_s},
        {{folder, u"--project"_s, u"滨江花园"_s, u"--user"_s, u"王工"_s},
         u"没有名为“王工”的用户。现有用户：张工、李工。\n"_s},
        {{folder, u"--project"_s, u"滨江花园"_s, u"--user"_s, u"李工"_s},
         u"用户“李工”没有编辑的权限，不能导入照片。\n"_s},
        {{folder, u"--user"_s, u"张工"_s}, u"请写明工程。现有工程：滨江花园、科技大厦。\n"_s},
        {Words(site, {u"--mark"_s, u"装饰"_s}),
         u"没有名为“装饰”的标识。现有标识：质量、安全。\n"_s},
        {Words(site, {u"--floor"_s, u"9"_s, u"--x"_s, u"1"_s, u"--y"_s, u"A"_s}),
         u"没有名为“9”的楼层。现有楼层：3。\n"_s},
        {Words(site, {u"--floor"_s, u"3"_s, u"--x"_s, u"7"_s, u"--y"_s, u"A"_s}),
         u"没有名为“7”的X 轴。现有X 轴：1、2。\n"_s},
        {Words(site, {u"--floor"_s, u"3"_s, u"--x"_s, u"1"_s, u"--y"_s, u"F"_s}),
         u"没有名为“F”的Y 轴。现有Y 轴：A。\n"_s},
        {Words(site, {u"--floor"_s, u"3"_s}), u"请写明X 轴。现有X 轴：1、2。\n"_s},
        {Words(site, {u"--x"_s, u"1"_s}), u"请写明楼层。现有楼层：3。\n"_s},
        {{u"/nowhere/at/all"_s, u"--project"_s, u"滨江花园"_s, u"--user"_s, u"张工"_s},
         u"没有这个文件夹：/nowhere/at/all\n"_s},
    };
    for (const auto& [words, message] : cases) {
        const Printed printed = RunCommand(site, words);
        EXPECT_EQ(printed.code, 2) << message.toStdString();
        EXPECT_EQ(printed.err.toStdString(), message.toStdString());
    }
    EXPECT_TRUE(site.Filed().empty());
}

TEST(ImportCommand, WordsThatMakeNoSenseAreAnsweredWithTheUsage) {
    ImportSite site;
    EXPECT_TRUE(RunCommand(site, {}).err.startsWith(u"请写明要导入的文件夹。\n用法："_s));
    EXPECT_TRUE(RunCommand(site, Words(site, {u"--flor"_s, u"3"_s}))
                    .err.startsWith(u"不认识的选项：--flor"_s));
    const Printed cut = RunCommand(site, Words(site, {u"--mark"_s}));
    EXPECT_TRUE(cut.err.startsWith(u"选项 --mark 后面缺少内容"_s));
    EXPECT_EQ(cut.code, 2);
}

} // namespace
