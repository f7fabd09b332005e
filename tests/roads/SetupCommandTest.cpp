// Setup files from the command line, on real data folders and with a real reader of drawings.
#include "host/app/SetupCommand.h"

#include "site/ICatalogue.h"
#include "site/IDrawings.h"
#include "site/IIntake.h"
#include "site/ISetup.h"
#include "site/OpenSite.h"
#include "tests/host/drawings/TestDrawings.h"
#include "tests/roads/SmallSite.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/TempFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <gtest/gtest.h>

namespace roads {
namespace {

using namespace Qt::StringLiterals;

const QByteArray kNewSetup =
    "[工程]\n名称,专业\n三期,安装\n[人员]\n姓名,角色\n王工,管理员\n"
    "[标识]\n名称,颜色\n裂缝,#FF0000\n[楼层]\n工程,楼层\n三期,1F\n三期,2F\n"
    "[轴网]\n工程,楼层,X轴,Y轴\n三期,全部,1-3,A-B\n";

class SetupCommand : public testing::Test {
protected:
    [[nodiscard]] QString Data(const QString& name = u"data"_s) const { return folder.Path(name); }
    [[nodiscard]] int Run(const QString& file, const QStringList& folders, bool isCheck = false) {
        return RunRequest({file, folders, isCheck, false, u"张伟"_s});
    }
    [[nodiscard]] int RunRequest(const host::SetupRequest& request) {
        said.clear();
        blamed.clear();
        QTextStream out(&said);
        QTextStream err(&blamed);
        return host::RunSetupCommand(request, {}, out, err);
    }
    /// With the grids of all projects.
    [[nodiscard]] static site::SetupState StateOf(const QString& place) {
        const site::OpenedSite opened = site::OpenSite(place, {5000, false});
        site::Projects ppids;
        for (const auto& project : opened.site->Setup().Read({}).projects) {
            ppids.push_back(project.ppid);
        }
        return opened.site->Setup().Read(ppids);
    }
    [[nodiscard]] static QStringList DrawingsOf(const QString& place, const QString& project) {
        const site::OpenedSite opened = site::OpenSite(place, {5000, false});
        QStringList names;
        for (const site::DrawingEntry& entry :
             opened.site->Drawings().List(opened.site->NewIntake()->FindProject(project))) {
            names << u"%1:%2"_s.arg(entry.name).arg(entry.pages);
        }
        return names;
    }

    support::TempFolder folder;
    QString said;
    QString blamed;
};

TEST_F(SetupCommand, ANewDataFolderGetsItsSiteAndNothingElse) {
    EXPECT_EQ(Run(folder.Write(u"a.txt"_s, kNewSetup), {Data()}), 0) << blamed.toStdString();
    EXPECT_EQ(said, u"新增工程“三期”\n新增人员“王工”：编辑、删除、显示与隐藏、新增标签、设置\n"
                    "新增标识“裂缝”：#FF0000\n新增楼层“三期 1F”\n新增楼层“三期 2F”\n"
                    "新增交点“三期 1F”：6 个\n新增交点“三期 2F”：6 个\n已修改 7 处。\n"_s);
    EXPECT_EQ(blamed, QString());
    const site::SetupState state = StateOf(Data());
    ASSERT_EQ(state.projects.size(), 1);
    EXPECT_EQ(state.projects[0].major, 3);
    EXPECT_EQ(state.grids[0].crossings.size(), 12);
    EXPECT_EQ(state.people.size(), 1);
}

TEST_F(SetupCommand, TakenAgainThereIsNothingToDo) {
    const QString file = folder.Write(u"a.txt"_s, kNewSetup);
    ASSERT_EQ(Run(file, {Data()}), 0);
    const site::SetupState before = StateOf(Data());
    EXPECT_EQ(Run(file, {Data()}), 0);
    EXPECT_EQ(said, u"已经是这样，没有要修改的内容。\n");
    EXPECT_EQ(StateOf(Data()), before);
}

TEST_F(SetupCommand, ACheckSaysTheSameAndWritesNothing) {
    const QString file = folder.Write(u"a.txt"_s, kNewSetup);
    EXPECT_EQ(Run(file, {Data()}, true), 0);
    EXPECT_TRUE(said.contains(u"新增标识“裂缝”：#FF0000\n"_s));
    EXPECT_TRUE(said.endsWith(u"检查通过，共 7 处；没有写入。\n"_s)) << said.toStdString();
    EXPECT_FALSE(QFileInfo::exists(Data()));
    static_cast<void>(MakeSmallSite(Data()));
    const site::SetupState before = StateOf(Data());
    EXPECT_EQ(Run(file, {Data()}, true), 0);
    EXPECT_EQ(StateOf(Data()), before);
}

TEST_F(SetupCommand, AllFaultsAreToldAndNothingIsTaken) {
    const QString file =
        folder.Write(u"a.txt"_s, kNewSetup + "[标签]\n名称\n墙\n墙\n[楼层]\n工程,楼层\n九期,1\n");
    EXPECT_EQ(Run(file, {Data()}), 1);
    EXPECT_EQ(blamed,
              u"标签 第 20 行：“墙”与第 19 行重复\n楼层 第 23 行：没有工程“九期”，现有“三期”\n"
              "没有修改：%1\n"_s.arg(Data()));
    EXPECT_EQ(said, QString());
    EXPECT_FALSE(QFileInfo::exists(Data()));
    static_cast<void>(MakeSmallSite(Data()));
    const site::SetupState before = StateOf(Data());
    EXPECT_EQ(Run(file, {Data()}), 1);
    EXPECT_EQ(StateOf(Data()), before);
}

TEST_F(SetupCommand, ManySitesOneAfterTheOtherAndAFaultInOneStopsNoOther) {
    folder.Write(u"b"_s, "no folder");
    const QString file = folder.Write(u"a.txt"_s, kNewSetup);
    EXPECT_EQ(Run(file, {Data(u"a"_s), Data(u"b"_s), Data(u"c"_s)}), 1);
    EXPECT_TRUE(said.contains(u"数据文件夹 %1：\n新增工程“三期”\n"_s.arg(Data(u"c"_s))))
        << said.toStdString();
    EXPECT_TRUE(blamed.endsWith(u"没有修改：%1\n"_s.arg(Data(u"b"_s)))) << blamed.toStdString();
    EXPECT_EQ(StateOf(Data(u"a"_s)).projects.size(), 1);
    EXPECT_EQ(StateOf(Data(u"c"_s)).projects.size(), 1);
}

TEST_F(SetupCommand, DrawingsBelongToIt) {
    folder.Write(u"图/一层.pdf"_s, drawingtest::PlainPdf(2));
    folder.Write(u"b.pdf"_s, drawingtest::PlainPdf(1));
    const QString file = folder.Write(
        u"a.txt"_s, kNewSetup + "[图纸]\n工程,文件,名称\n三期,图\\一层.pdf,\n三期,b.pdf,二层\n");
    EXPECT_EQ(Run(file, {Data()}), 0) << blamed.toStdString();
    EXPECT_EQ(DrawingsOf(Data(), u"三期"_s), QStringList({u"一层:2"_s, u"二层:1"_s}));
    EXPECT_EQ(Run(file, {Data()}), 0);
    EXPECT_EQ(said, u"已经是这样，没有要修改的内容。\n");
}

TEST_F(SetupCommand, ADrawingThatIsNoUseKeepsAllFromBeingTaken) {
    folder.Write(u"b.pdf"_s, drawingtest::EncryptedPdf());
    const QString file =
        folder.Write(u"a.txt"_s, kNewSetup + "[图纸]\n工程,文件\n三期,b.pdf\n三期,无.pdf\n");
    EXPECT_EQ(Run(file, {Data()}), 1);
    EXPECT_TRUE(blamed.contains(u"图纸 第 19 行：“b.pdf”：PDF 文件有密码保护"_s))
        << blamed.toStdString();
    EXPECT_TRUE(blamed.contains(u"图纸 第 20 行：“无.pdf”："_s)) << blamed.toStdString();
    EXPECT_FALSE(QFileInfo::exists(Data()));
}

/// A document that is as long as wanted, and can be read.
QByteArray LongPdf(qsizetype bytes) {
    const QByteArray plain = drawingtest::PlainPdf(1);
    return plain + "\n%" + QByteArray(bytes, 'x') + '\n' +
           plain.mid(plain.lastIndexOf("startxref"));
}

TEST_F(SetupCommand, ADiskThatIsFullAtTheDrawingUndoesAllOfIt) {
    constexpr qsizetype kMegabyte = 1024 * 1024;
    static_cast<void>(MakeSmallSite(Data()));
    folder.Write(u"长.pdf"_s, LongPdf(5 * kMegabyte));
    const QString file = folder.Write(u"a.txt"_s, kNewSetup + "[图纸]\n工程,文件\n三期,长.pdf\n");
    const site::SetupState before = StateOf(Data());
    {
        const support::FileSizeLimit disk(4 * kMegabyte);
        EXPECT_EQ(Run(file, {Data()}), 1);
    }
    EXPECT_EQ(said, QString());
    EXPECT_TRUE(blamed.startsWith(u"保存文件："_s)) << blamed.toStdString();
    EXPECT_EQ(StateOf(Data()), before);
    EXPECT_EQ(Run(file, {Data()}), 0) << blamed.toStdString();
    EXPECT_EQ(DrawingsOf(Data(), u"三期"_s), QStringList{u"长:1"_s});
}

TEST_F(SetupCommand, AFileThatIsNotThereIsAWrongWord) {
    EXPECT_EQ(Run(folder.Path(u"a.txt"_s), {Data()}), 2);
    EXPECT_EQ(blamed, u"没有这个设置文件：%1\n"_s.arg(folder.Path(u"a.txt"_s)));
    EXPECT_EQ(Run(folder.Path(), {Data()}), 2);
}

TEST_F(SetupCommand, TheSetupIsWrittenAndSetsUpAnotherSite) {
    static_cast<void>(MakeSmallSite(Data()));
    ASSERT_EQ(Run(folder.Write(u"a.txt"_s, kNewSetup), {Data()}), 0);
    const QString file = folder.Path(u"b.txt"_s);
    EXPECT_EQ(RunRequest({file, {Data()}, false, true, {}}), 0) << blamed.toStdString();
    EXPECT_EQ(said, u"已写入设置文件 %1\n"_s.arg(file));
    EXPECT_EQ(Run(file, {Data()}), 0);
    EXPECT_EQ(said, u"已经是这样，没有要修改的内容。\n") << blamed.toStdString();
    EXPECT_EQ(Run(file, {Data(u"other"_s)}), 0) << blamed.toStdString();
    EXPECT_EQ(StateOf(Data(u"other"_s)).grids.size(), StateOf(Data()).grids.size());
    EXPECT_EQ(RunRequest({folder.Path(u"b.xlsx"_s), {Data()}, false, true, {}}), 2);
    EXPECT_TRUE(blamed.contains(u".txt"_s)) << blamed.toStdString();
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"b.xlsx"_s)));
    EXPECT_EQ(RunRequest({folder.Path(u"gone/b.txt"_s), {Data()}, false, true, {}}), 1);
    EXPECT_TRUE(blamed.contains(u"不存在"_s)) << blamed.toStdString();
}

TEST_F(SetupCommand, ASiteThatSomebodyMaySetUpIsChangedByThemAlone) {
    static_cast<void>(MakeSmallSite(Data()));
    const site::SetupState before = StateOf(Data());
    const QString file = folder.Write(u"a.txt"_s, kNewSetup);
    const host::SetupRequest nobody{file, {Data()}, false, false, {}};
    EXPECT_EQ(RunRequest(nobody), 1);
    EXPECT_EQ(blamed,
              u"请用 --user 写明由谁修改。能修改设置的人：张伟。\n没有修改：%1\n"_s.arg(Data()));
    const host::SetupRequest other{file, {Data()}, false, false, u"李娜"_s};
    EXPECT_EQ(RunRequest(other), 1);
    EXPECT_TRUE(blamed.startsWith(u"“李娜”没有设置的权限。能修改设置的人：张伟。\n"_s))
        << blamed.toStdString();
    EXPECT_EQ(StateOf(Data()), before);
    EXPECT_EQ(Run(file, {Data()}), 0) << blamed.toStdString();
    const site::OpenedSite opened = site::OpenSite(Data(), {5000, false});
    EXPECT_EQ(opened.site->Catalogue().Actions(1).front().person, u"张伟"_s);
}

TEST_F(SetupCommand, TheProgramDoesItFromItsWords) {
    const QString program = QDir(QCoreApplication::applicationDirPath()).filePath(u"vesk-client"_s);
    const QString file = folder.Write(u"a.txt"_s, kNewSetup);
    const QByteArray output = support::OutputOf(
        program, {u"setup"_s, file, u"--data"_s, Data(u"a"_s), u"--data="_s + Data(u"b"_s)});
    EXPECT_EQ(output.count("已修改 7 处。\n"), 2) << output.constData();
    const QString written = folder.Path(u"c.txt"_s);
    support::OutputOf(program, {u"setup"_s, u"--write"_s, written, u"--data"_s, Data(u"b"_s)});
    EXPECT_TRUE(folder.Read(u"c.txt"_s).contains("三期,1F、2F,1、2、3,A、B\r\n"));
}

} // namespace
} // namespace roads
