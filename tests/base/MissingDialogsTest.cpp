#include "base/MissingDialogs.h"

#include "base/PictureLog.h"
#include "tests/support/TempFolder.h"
#include "toolkit/Notices.h"

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
    for (int dialog = 0; dialog <= int(MissingDialog::ReminderFeed); ++dialog) {
        SetLogFilePath(folder.Path(u"%1.log"_s.arg(dialog)));
        EXPECT_FALSE(AnswerAsCancelled(MissingDialog(dialog)));
        QStringDecoder decode("GBK");
        const QString line = decode(folder.Read(u"%1.log"_s.arg(dialog)));
        EXPECT_TRUE(line.contains(u"此版本尚不提供："_s)) << line.toStdString();
        EXPECT_FALSE(line.trimmed().endsWith(u'：')) << line.toStdString();
        lines.insert(line.mid(line.indexOf(u'：')));
    }
    EXPECT_EQ(int(lines.size()), int(MissingDialog::ReminderFeed) + 1);
    SetLogFilePath(QString());
}

TEST(MissingDialogs, WhatAPersonAskedForIsToldAndWhatComesInByItselfIsNot) {
    const support::TempFolder folder;
    SetLogFilePath(folder.Path(u"log"_s));
    QStringList told;
    toolkit::SetNoticeSink([&](const QString& text) { told << text; });
    (void)AnswerAsCancelled(MissingDialog::ConsolePicViewer);
    (void)AnswerAsCancelled(MissingDialog::ReminderFeed);
    toolkit::SetNoticeSink({});
    (void)AnswerAsCancelled(MissingDialog::IssueViewer);
    EXPECT_EQ(told, QStringList{u"此版本尚不提供“照片预览”，请等待后续版本。"_s});
    SetLogFilePath(QString());
}

} // namespace
