#include "base/MissingDialogs.h"

#include "base/PictureLog.h"
#include "tests/support/TempFolder.h"
#include "toolkit/windows/Notices.h"

#include <QStringDecoder>
#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

using ZelvorNRQ_KXVeskPicture::AnswerAsCancelled;
using ZelvorNRQ_KXVeskPicture::MissingDialog;
using ZelvorNRQ_KXVeskPicture::SetLogFilePath;

TEST(MissingDialogs, EachAnswersAsCancelledAndNamesItselfInTheLog) {
    const support::TempFolder folder;
    std::set<QString> lines;
    for (int dialog = 0; dialog <= int(MissingDialog::Report); ++dialog) {
        SetLogFilePath(folder.Path(u"%1.log"_s.arg(dialog)));
        EXPECT_FALSE(AnswerAsCancelled(MissingDialog(dialog)));
        QStringDecoder decode("GBK");
        const QString line = decode(folder.Read(u"%1.log"_s.arg(dialog)));
        EXPECT_TRUE(line.contains(u"此版本尚不提供："_s)) << line.toStdString();
        EXPECT_FALSE(line.trimmed().endsWith(u'：')) << line.toStdString();
        lines.insert(line.mid(line.indexOf(u'：')));
    }
    EXPECT_EQ(int(lines.size()), int(MissingDialog::Report) + 1);
    SetLogFilePath(QString());
}

TEST(MissingDialogs, EachIsToldByItsName) {
    const support::TempFolder folder;
    SetLogFilePath(folder.Path(u"log"_s));
    QStringList told;
    toolkit::SetNoticeSink([&](const QString& text) { told << text; });
    for (const auto& [dialog, name] : {std::pair(MissingDialog::Report, u"输出报告"_s)}) {
        told.clear();
        EXPECT_FALSE(AnswerAsCancelled(dialog));
        EXPECT_EQ(told, QStringList{u"此版本尚不提供“%1”，请等待后续版本。"_s.arg(name)});
    }
    toolkit::SetNoticeSink({});
    QStringDecoder decode("GBK");
    const QString log = decode(folder.Read(u"log"_s));
    EXPECT_TRUE(log.endsWith(u"此版本尚不提供：输出报告\r\n"_s)) << log.toStdString();
    SetLogFilePath(QString());
}

TEST(MissingDialogs, WithoutASinkNobodyIsTold) {
    const support::TempFolder folder;
    SetLogFilePath(folder.Path(u"log"_s));
    QStringList told;
    toolkit::SetNoticeSink([&](const QString& text) { told << text; });
    (void)AnswerAsCancelled(MissingDialog::Report);
    toolkit::SetNoticeSink({});
    (void)AnswerAsCancelled(MissingDialog::Report);
    EXPECT_EQ(told, QStringList{u"此版本尚不提供“输出报告”，请等待后续版本。"_s});
    SetLogFilePath(QString());
}

} // namespace
