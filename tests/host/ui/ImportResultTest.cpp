#include "host/ui/HintTable.h"
#include "host/ui/ImportResultWindow.h"
#include "tests/support/AnsweredPrompts.h"
#include "tests/support/CallLog.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

constexpr int kFiles = 20000;

std::vector<ImportResultRow> ManyRows() {
    std::vector<ImportResultRow> rows;
    for (int number = 0; number < kFiles; ++number) {
        rows.push_back({u"/现场/照片 %1.txt"_s.arg(number), u"跳过"_s, u"内容不是图片"_s});
    }
    return rows;
}

class ImportResult : public testing::Test {
protected:
    void SetUp() override { window.show(); }
    [[nodiscard]] HintTable* Table() const {
        return window.findChild<HintTable*>(u"importTable"_s);
    }
    void Click(const QString& name) {
        QTest::mouseClick(window.findChild<QPushButton*>(name), Qt::LeftButton);
    }
    static QString Read(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }

    support::CallLog log;
    support::AnsweredPrompts prompts{&log};
    support::TempFolder folder;
    ImportResultWindow window{nullptr, u"导入 0 张照片，跳过 20000 个文件。"_s, ManyRows()};
};

TEST_F(ImportResult, ListsEveryFileWithItsReason) {
    EXPECT_EQ(Table()->model()->rowCount(), kFiles);
    EXPECT_EQ(Table()->model()->index(kFiles - 1, ImportResultModel::kFile).data().toString(),
              u"/现场/照片 19999.txt"_s);
    EXPECT_EQ(Table()->model()->index(kFiles - 1, ImportResultModel::kReason).data().toString(),
              u"内容不是图片"_s);
    EXPECT_EQ(window.findChild<QLabel*>(u"importSummary"_s)->text(),
              u"导入 0 张照片，跳过 20000 个文件。"_s);
}

TEST_F(ImportResult, CopiesAllWhenNothingIsChosenAndElseTheChosenRows) {
    Click(u"importCopy"_s);
    const QString all = QApplication::clipboard()->text();
    EXPECT_EQ(all.count(u'\n'), kFiles + 1) << "with the captions";
    EXPECT_EQ(all.count(u"\t跳过\t内容不是图片\n"_s), kFiles);
    Table()->selectRow(2);
    QTest::keyClick(Table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(),
              u"文件\t结果\t原因\n/现场/照片 2.txt\t跳过\t内容不是图片\n"_s);
}

TEST_F(ImportResult, OfOtherThingsItSaysWhatTheyAre) {
    const QString path = folder.Path(u"批量归档结果.txt"_s);
    ImportResultWindow other(nullptr, u"已归档 1 张照片，1 张跳过。"_s,
                             {{u"a.jpg"_s, u"跳过"_s, u"已被删除"_s}},
                             {u"批量归档结果"_s, u"名称"_s, u"跳过的照片"_s});
    EXPECT_EQ(other.windowTitle(), u"批量归档结果"_s);
    EXPECT_EQ(other.findChild<HintTable*>()->accessibleName(), u"跳过的照片"_s);
    prompts.ExpectSaveFile(u"批量归档结果.txt"_s, path);
    other.findChild<QPushButton*>(u"importSave"_s)->click();
    EXPECT_EQ(Read(path), u"名称\t结果\t原因\na.jpg\t跳过\t已被删除\n"_s);
}

TEST_F(ImportResult, SavesAllOfIt) {
    const QString path = folder.Path(u"导入结果.txt"_s);
    prompts.ExpectSaveFile(u"导入结果.txt"_s, path);
    Click(u"importSave"_s);
    QString expected = u"文件\t结果\t原因\n"_s;
    for (const ImportResultRow& row : ManyRows()) {
        expected += row.path + u'\t' + row.outcome + u'\t' + row.reason + u'\n';
    }
    EXPECT_TRUE(Read(path) == expected) << "not one line is cut";
}

TEST_F(ImportResult, AFileThatCannotBeWrittenIsTold) {
    prompts.ExpectSaveFile(u"导入结果.txt"_s, u"/nowhere/at/all.txt"_s);
    prompts.ExpectMessage(
        u"没有保存：无法写入 /nowhere/at/all.txt，请检查文件夹权限和磁盘空间，或换一个位置。"_s);
    Click(u"importSave"_s);
}

TEST_F(ImportResult, AFullDiskIsToldAndWhatStoodThereStays) {
    const QString path = folder.Write(u"导入结果.txt"_s, "an older one");
    // So short that it reaches the disk at the end only.
    ImportResultWindow shortOne(nullptr, {}, {{u"/现场/照片.txt"_s, u"跳过"_s, u"不是图片"_s}});
    prompts.ExpectSaveFile(u"导入结果.txt"_s, path);
    prompts.ExpectMessage(
        u"没有保存：无法写入 %1，请检查文件夹权限和磁盘空间，或换一个位置。"_s.arg(path));
    {
        const support::FileSizeLimit full(8);
        shortOne.findChild<QPushButton*>(u"importSave"_s)->click();
    }
    EXPECT_EQ(folder.Read(u"导入结果.txt"_s), "an older one");
}

TEST_F(ImportResult, AWindowThatGoesWhileItAsksStillSavesWhatItShowed) {
    const QString path = folder.Path(u"导入结果.txt"_s);
    auto* replaced = new ImportResultWindow(nullptr, u"导入 1 张照片。"_s, ManyRows());
    replaced->show();
    prompts.ExpectSaveFile(u"导入结果.txt"_s, path);
    prompts.Meanwhile([replaced] { delete replaced; });
    replaced->findChild<QPushButton*>(u"importSave"_s)->click();
    EXPECT_EQ(Read(path).count(u'\n'), kFiles + 1);
}

TEST_F(ImportResult, ACancelledSavingSavesNothing) {
    prompts.ExpectSaveFile(u"导入结果.txt"_s, {});
    Click(u"importSave"_s);
}

TEST(ImportResultText, ACellBeginsNoOtherColumnOrLine) {
    const ImportResultModel model({{u"a\tb"_s, u"跳过"_s, u"one\ntwo"_s}}, nullptr);
    EXPECT_EQ(model.TextOf({}), u"文件\t结果\t原因\na b\t跳过\tone two\n"_s);
}

} // namespace
} // namespace host
