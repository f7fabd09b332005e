#include "host/app/CommandLine.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

TEST(CommandLine, WithoutWordsTheClientOpensOnTheUsersFolderAndNoSampleIsNamed) {
    const CommandLine line = ParseCommandLine({});
    EXPECT_EQ(line.road, Road::Client);
    EXPECT_TRUE(line.dataFolder.isEmpty());
    EXPECT_TRUE(line.userName.isEmpty());
    EXPECT_EQ(line.sample, std::nullopt);
    EXPECT_TRUE(line.error.isEmpty());
}

TEST(CommandLine, OptionsTakeTheNextWordOrWhatFollowsTheEqualsSign) {
    const CommandLine line =
        ParseCommandLine({u"--data"_s, u"/tmp/a b"_s, u"--user=张伟"_s, u"--sample"_s, u"small"_s});
    EXPECT_EQ(line.dataFolder, u"/tmp/a b"_s);
    EXPECT_EQ(line.userName, u"张伟"_s);
    EXPECT_EQ(line.sample, sample::SampleSize::Small);
    EXPECT_TRUE(line.error.isEmpty());
}

TEST(CommandLine, AWalkIsAskedOfTheProgramThatDoesIt) {
    for (const QStringList& words :
         {QStringList{u"--tour"_s, u"out"_s}, {u"--tour=out"_s}, {u"--tour-scale"_s, u"2"_s}}) {
        EXPECT_TRUE(ParseCommandLine(words).error.contains(u"vesk-tour --tour"_s));
    }
    EXPECT_TRUE(HelpText().contains(u"vesk-tour --tour"_s));
}

TEST(CommandLine, TransfersMayBeSlowOrFailForDemonstrations) {
    EXPECT_EQ(ParseCommandLine({}).transfers.blockDelayMs, 0);
    EXPECT_GT(ParseCommandLine({u"--transfers=slow"_s}).transfers.blockDelayMs, 0);
    EXPECT_EQ(ParseCommandLine({u"--transfers"_s, u"fail"_s}).transfers.fault,
              site::TransferFault::InTheMiddle);
    EXPECT_EQ(ParseCommandLine({u"--transfers"_s, u"hang"_s}).transfers.fault,
              site::TransferFault::NeverEnds);
    EXPECT_TRUE(ParseCommandLine({u"--transfers"_s, u"lost"_s}).error.contains(u"lost"_s));
}

TEST(CommandLine, ImportKeepsItsOwnWordsInOrderAndGivesTheDataFolderToTheClient) {
    const CommandLine line = ParseCommandLine({u"import"_s, u"照片"_s, u"--project"_s, u"一期"_s,
                                               u"--data"_s, u"d"_s, u"--user"_s, u"李"_s});
    EXPECT_EQ(line.road, Road::Import);
    EXPECT_EQ(line.dataFolder, u"d"_s);
    EXPECT_EQ(line.importWords,
              QStringList({u"照片"_s, u"--project"_s, u"一期"_s, u"--user"_s, u"李"_s}));
    EXPECT_TRUE(line.error.isEmpty());
}

TEST(CommandLine, ASimulationHasItsOwnOptionsAndGivesTheDataFolderToTheClient) {
    const CommandLine line =
        ParseCommandLine({u"simulate"_s, u"--project"_s, u"一期"_s, u"--rate=0.5"_s, u"--photos"_s,
                          u"p"_s, u"--count=7"_s, u"--data"_s, u"d"_s, u"--sample=small"_s});
    EXPECT_EQ(line.error, QString());
    EXPECT_EQ(line.road, Road::Simulate);
    EXPECT_EQ(line.dataFolder, u"d"_s);
    EXPECT_EQ(line.sample, sample::SampleSize::Small);
    EXPECT_EQ(line.simulate.project, u"一期"_s);
    EXPECT_EQ(line.simulate.perMinute, 0.5);
    EXPECT_EQ(line.simulate.photos, u"p"_s);
    EXPECT_EQ(line.simulate.count, 7);
    const CommandLine fast =
        ParseCommandLine({u"simulate"_s, u"--rate"_s, u"max"_s, u"--project=一期"_s});
    EXPECT_EQ(fast.error, QString());
    EXPECT_EQ(fast.simulate.perMinute, kFastest);
    EXPECT_EQ(fast.simulate.count, 0);
}

TEST(CommandLine, ASetupFileMayBeForManyDataFolders) {
    const CommandLine line =
        ParseCommandLine({u"setup"_s, u"a.xlsx"_s, u"--data"_s, u"甲"_s, u"--data=乙"_s,
                          u"--check"_s, u"--user"_s, u"王强"_s});
    EXPECT_EQ(line.error, QString());
    EXPECT_EQ(line.road, Road::Setup);
    EXPECT_EQ(line.setup.file, u"a.xlsx");
    EXPECT_EQ(line.setup.dataFolders, QStringList({u"甲"_s, u"乙"_s}));
    EXPECT_TRUE(line.setup.isCheck);
    EXPECT_EQ(line.setup.user, u"王强");
    EXPECT_FALSE(line.setup.isWritten);
    const CommandLine written = ParseCommandLine({u"setup"_s, u"--write"_s, u"b.txt"_s});
    EXPECT_EQ(written.error, QString());
    EXPECT_EQ(written.setup.file, u"b.txt");
    EXPECT_TRUE(written.setup.isWritten);
    EXPECT_TRUE(written.setup.dataFolders.isEmpty());
    EXPECT_EQ(ParseCommandLine({u"setup"_s, u"-h"_s}).road, Road::Help);
}

TEST(CommandLine, OfASetupEachWrongWordIsNamed) {
    const auto error = [](const QStringList& words) {
        return ParseCommandLine(QStringList{u"setup"_s} + words).error;
    };
    EXPECT_TRUE(error({}).startsWith(u"请写明设置文件"_s));
    EXPECT_TRUE(error({u"--check"_s}).startsWith(u"请写明设置文件"_s));
    EXPECT_EQ(error({u"a"_s, u"b"_s}), u"不认识“b”。");
    EXPECT_EQ(error({u"a"_s, u"--check=1"_s}), u"不认识“--check=1”。");
    EXPECT_EQ(error({u"a"_s, u"--floor=1"_s}), u"不认识“--floor=1”。");
    EXPECT_EQ(error({u"a"_s, u"--data"_s}), u"选项 --data 后面缺少内容。");
    EXPECT_TRUE(error({u"--write"_s, u"a"_s, u"--check"_s}).startsWith(u"--write "_s));
    EXPECT_TRUE(
        error({u"--write"_s, u"a"_s, u"--data=1"_s, u"--data=2"_s}).startsWith(u"--write "_s));
}

TEST(CommandLine, OfASimulationEachWrongWordIsNamed) {
    const QStringList right = {u"simulate"_s, u"--project"_s, u"一期"_s, u"--rate"_s, u"12"_s};
    ASSERT_EQ(ParseCommandLine(right).error, QString());
    for (const QString& wrong : {u"0"_s, u"-1"_s, u"schnell"_s, u"1,5"_s, u"inf"_s, u"nan"_s}) {
        const QString error = ParseCommandLine(right + QStringList{u"--rate="_s + wrong}).error;
        EXPECT_TRUE(error.startsWith(u"--rate "_s) && error.contains(wrong)) << wrong.toStdString();
    }
    for (const QString& wrong : {u"0"_s, u"-1"_s, u"1.5"_s, u"viele"_s, u"99999999999"_s}) {
        const QString error = ParseCommandLine(right + QStringList{u"--count"_s, wrong}).error;
        EXPECT_TRUE(error.startsWith(u"--count "_s) && error.contains(wrong))
            << wrong.toStdString();
    }
    for (const QString& option :
         {u"--project"_s, u"--rate"_s, u"--photos"_s, u"--count"_s, u"--data"_s, u"--sample"_s}) {
        EXPECT_EQ(ParseCommandLine(right + QStringList{option}).error,
                  u"选项 %1 后面缺少内容。"_s.arg(option));
    }
    for (const QString& unknown : {u"照片"_s, u"--user=张"_s, u"--rat=1"_s}) {
        EXPECT_EQ(ParseCommandLine(right + QStringList{unknown}).error,
                  u"不认识“%1”。"_s.arg(unknown.section(u'=', 0, 0)));
    }
    EXPECT_TRUE(ParseCommandLine({u"simulate"_s, u"--rate=1"_s}).error.contains(u"--project"_s));
    EXPECT_TRUE(ParseCommandLine({u"simulate"_s, u"--project=x"_s}).error.contains(u"--rate"_s));
    EXPECT_TRUE(
        ParseCommandLine({u"simulate"_s, u"--project=x"_s, u"--rate=1"_s, u"--sample=riesig"_s})
            .error.contains(u"riesig"_s));
}

TEST(CommandLine, TheSimulationHasHelpToo) {
    EXPECT_EQ(ParseCommandLine({u"simulate"_s, u"--help"_s}).road, Road::Help);
    for (const QString& word : {u"simulate"_s, u"--rate"_s, u"--photos"_s, u"--count"_s}) {
        EXPECT_TRUE(HelpText().contains(word)) << word.toStdString();
    }
}

TEST(CommandLine, HelpWinsOverWhatFollowsIt) {
    EXPECT_EQ(ParseCommandLine({u"--help"_s, u"--nonsense"_s}).road, Road::Help);
    EXPECT_EQ(ParseCommandLine({u"-h"_s}).road, Road::Help);
}

TEST(CommandLine, TheImportHasHelpTooAndOpensNoFolderForIt) {
    EXPECT_EQ(ParseCommandLine({u"import"_s, u"--help"_s}).road, Road::Help);
    EXPECT_EQ(ParseCommandLine({u"import"_s, u"照片"_s, u"-h"_s}).road, Road::Help);
}

TEST(CommandLine, AnUnknownWordIsNamedInTheError) {
    EXPECT_TRUE(ParseCommandLine({u"--dta"_s, u"x"_s}).error.contains(u"--dta"_s));
}

TEST(CommandLine, AnOptionWithoutItsValueIsAnError) {
    for (const QString& option : {u"--data"_s, u"--user"_s, u"--sample"_s}) {
        EXPECT_TRUE(ParseCommandLine({option}).error.contains(option)) << qPrintable(option);
        EXPECT_TRUE(ParseCommandLine({option, u"--user"_s}).error.contains(option));
    }
    EXPECT_FALSE(ParseCommandLine({u"import"_s, u"--data"_s}).error.isEmpty());
}

TEST(CommandLine, ASizeThatDoesntExistIsAnError) {
    EXPECT_TRUE(ParseCommandLine({u"--sample"_s, u"huge"_s}).error.contains(u"huge"_s));
}

TEST(CommandLine, DrawingsAreImportedIntoAProject) {
    const CommandLine line = ParseCommandLine({u"import-drawing"_s, u"甲.pdf"_s, u"--project"_s,
                                               u"一期"_s, u"乙.pdf"_s, u"--data=/tmp/x"_s});
    EXPECT_EQ(line.road, Road::ImportDrawing);
    EXPECT_EQ(line.error, QString());
    EXPECT_EQ(line.drawings, (QStringList{u"甲.pdf"_s, u"乙.pdf"_s}));
    EXPECT_EQ(line.drawingProject, u"一期"_s);
    EXPECT_EQ(line.dataFolder, u"/tmp/x"_s);
}

TEST(CommandLine, DrawingsWithoutFileOrProjectOrWithAnUnknownWordAreRefused) {
    for (const QStringList& words :
         {QStringList{u"import-drawing"_s},
          {u"import-drawing"_s, u"甲.pdf"_s},
          {u"import-drawing"_s, u"--project"_s, u"一期"_s},
          {u"import-drawing"_s, u"甲.pdf"_s, u"--project"_s},
          {u"import-drawing"_s, u"甲.pdf"_s, u"--project"_s, u"一期"_s, u"--odd"_s}}) {
        EXPECT_NE(ParseCommandLine(words).error, QString()) << words.join(u' ').toStdString();
    }
    EXPECT_EQ(ParseCommandLine({u"import-drawing"_s, u"--help"_s}).road, Road::Help);
}

} // namespace
} // namespace host
