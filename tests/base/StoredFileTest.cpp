#include "base/StoredFile.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <QDir>

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::IsFetched;
using ZelvorNRQ_KXVeskPicture::IsUuid;
using ZelvorNRQ_KXVeskPicture::kNoteEnding;
using ZelvorNRQ_KXVeskPicture::kPictureEnding;
using ZelvorNRQ_KXVeskPicture::StoredFilePath;

namespace {

/// Texts of records that are no names of stored files.
QStringList NoUuids() {
    return {QString(),
            u"."_s,
            u".."_s,
            u"../../secret"_s,
            u"..\\..\\secret"_s,
            u"/etc/secret"_s,
            u"a/b"_s,
            u"a\\b"_s,
            u"C:secret"_s,
            u"a.jpg"_s,
            u"a b"_s,
            u"a\nb"_s,
            u"a\u007fb"_s,
            u"照片"_s,
            u"ａ"_s,
            u"*"_s,
            QString(QChar(u'\0')),
            u"a"_s + QChar(u'\0') + u"b"_s,
            QString(129, u'a')};
}

} // namespace

TEST(StoredFile, LettersDigitsHyphensAndLowLinesNameAFile) {
    for (const QString& uuid : {u"u1"_s, u"7C9E6679-7425-40de-944b-e07fc1f90ae7"_s, u"a_b"_s,
                                u"zZ09"_s, QString(128, u'a')}) {
        EXPECT_TRUE(IsUuid(uuid)) << uuid.toStdString();
    }
    EXPECT_EQ(StoredFilePath(u"/pics/"_s, u"u1"_s, kPictureEnding), u"/pics/u1.jpg"_s);
    EXPECT_EQ(StoredFilePath(u"/pics/"_s, u"u1"_s, kNoteEnding), u"/pics/u1.amr"_s);
}

TEST(StoredFile, NoOtherTextBecomesPartOfAPath) {
    for (const QString& text : NoUuids()) {
        EXPECT_FALSE(IsUuid(text)) << text.toStdString();
        EXPECT_EQ(StoredFilePath(u"/pics/"_s, text, kPictureEnding), QString())
            << text.toStdString();
    }
}

TEST(StoredFile, AFileWithoutBytesAFolderAndNoFileWereNotFetched) {
    const support::TempFolder folder;
    EXPECT_TRUE(IsFetched(folder.Write(u"whole.jpg"_s, "x")));
    EXPECT_FALSE(IsFetched(folder.Write(u"empty.jpg"_s, "")));
    EXPECT_FALSE(IsFetched(folder.Path(u"none.jpg"_s)));
    EXPECT_FALSE(IsFetched(folder.Path()));
    EXPECT_FALSE(IsFetched(QString()));
}

TEST(StoredFile, TheNeighboursOfLettersAndDigitsNameNoFile) {
    for (const QChar inside : u"09AZaz-_"_s) {
        EXPECT_TRUE(IsUuid(QString(inside))) << int(inside.unicode());
    }
    for (const QChar beside : u"/:@[`{,.^"_s) {
        EXPECT_FALSE(IsUuid(QString(beside))) << int(beside.unicode());
    }
}
