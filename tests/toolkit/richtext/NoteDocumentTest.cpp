// A rich text in memory: its form, its pictures, its files.
#include "toolkit/richtext/NoteDocument.h"
#include "tests/support/TempFolder.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/richtext/NoteStore.h"

#include <QFontInfo>
#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextImageFormat>
#include <QUrl>

#include <gtest/gtest.h>

namespace toolkit {
namespace {

using namespace Qt::StringLiterals;

class NoteDocumentTest : public testing::Test {
protected:
    QString StoredPicture(const QSize& size) {
        return StoreBytes(support::JpegBytes(support::CornerMarked(size)), pages, u".jpg"_s)
            .value_or(QString());
    }
    QImage Shown(const QString& name) {
        return document.resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>();
    }

    support::TempFolder folder;
    QString pages = folder.Path(u"pages/"_s);
    NoteDocument document{pages, nullptr};
};

} // namespace

TEST_F(NoteDocumentTest, ALoadedTextIsUnmodifiedAndHasNothingToUndo) {
    EXPECT_EQ(document.Load(u"<p>一</p>"_s), NoteFault::None);
    EXPECT_FALSE(document.isModified());
    EXPECT_FALSE(document.isUndoAvailable());
    QTextCursor(&document).insertText(u"二"_s);
    EXPECT_TRUE(document.isModified());
    EXPECT_TRUE(document.isUndoAvailable());
}

TEST_F(NoteDocumentTest, OneThatCannotBeReadLeavesWhatWasThere) {
    ASSERT_EQ(document.Load(u"<p>一</p>"_s), NoteFault::None);
    EXPECT_EQ(document.Load(u"<b>"_s.repeated(10'000)), NoteFault::TooDeep);
    EXPECT_EQ(document.toPlainText(), u"一");
}

TEST_F(NoteDocumentTest, ItsFormLoadsAsTheSameText) {
    ASSERT_EQ(
        document.Load(u"<h1>题</h1><p>一  二</p><table border='1'><tr><td>甲</td></tr></table>"_s),
        NoteFault::None);
    NoteDocument again(pages, nullptr);
    ASSERT_EQ(again.Load(document.Html()), NoteFault::None);
    EXPECT_EQ(again.Html().toStdString(), document.Html().toStdString());
    EXPECT_FALSE(document.Html().contains(u"<style"_s));
}

TEST_F(NoteDocumentTest, PicturesComeFromTheFolderNoLargerThanAScreenNeedsThem) {
    EXPECT_EQ(Shown(StoredPicture({300, 200})).size(), QSize(300, 200));
    EXPECT_EQ(Shown(StoredPicture({4000, 1000})).size(), QSize(2000, 500));
}

TEST_F(NoteDocumentTest, WhatIsNoPictureOfTheFolderIsAFrameThatSaysSo) {
    const QImage missing = Shown(QString(32, u'0') + u".jpg"_s);
    EXPECT_FALSE(missing.isNull());
    EXPECT_EQ(Shown(folder.Write(u"x.jpg"_s, support::JpegBytes(support::CornerMarked({9, 9})))),
              missing)
        << "a path";
    EXPECT_EQ(Shown(u"http://localhost/a.jpg"_s), missing);
    EXPECT_EQ(Shown(StoreBytes("no picture", pages, u".jpg"_s).value()), missing);
}

TEST_F(NoteDocumentTest, ItsFilesAreEachPictureAndEachAttachmentOnce) {
    const QString one = StoredPicture({30, 20});
    const QString two = StoredPicture({40, 20});
    const NoteAttachment attachment{QString(32, u'a') + u".pdf"_s, u"报告 1.pdf"_s};
    ASSERT_EQ(
        document.Load(u"<img src='%1'/><a href='%3'>报告</a><table><tr><td><img src='%2'/></td>"
                      "</tr></table><img src='%1'/><a href='%3'>又</a>"_s.arg(
                          one, two, AddressOf(attachment))),
        NoteFault::None);
    const std::vector<NoteFile> files = document.Files();
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0].storeName, one);
    EXPECT_EQ(files[0].localPath, pages + one);
    EXPECT_EQ(files[0].isAttachment, 0);
    EXPECT_EQ(files[0].isEmbedded, 0);
    EXPECT_EQ(files[1].storeName, two);
    EXPECT_EQ(files[2].storeName, attachment.storeName);
    EXPECT_EQ(files[2].localPath.section(u'/', -1), u"报告 1.pdf");
    EXPECT_EQ(files[2].isAttachment, 1);
}

TEST_F(NoteDocumentTest, AnAttachmentKeepsItsNameAndNothingOfAFolder) {
    const QString store = QString(32, u'a') + u".pdf"_s;
    const QString name = u"报告/?#%&.pdf"_s;
    EXPECT_EQ(AttachmentOf(AddressOf({store, name}))->fileName, u"?#%&.pdf");
    EXPECT_EQ(AttachmentOf(u"attachment:"_s + store + u"/..%2F..%2Fetc%2Fpasswd"_s)->fileName,
              u"passwd");
    EXPECT_EQ(AttachmentOf(u"attachment:"_s + store + u"/..%5C..%5Cboot.ini"_s)->fileName,
              u"boot.ini");
    EXPECT_EQ(AttachmentOf(u"attachment:"_s + store)->fileName, store);
    EXPECT_EQ(AttachmentOf(u"attachment:"_s + store + u"/a%2F"_s)->fileName, store);
    EXPECT_FALSE(AttachmentOf(u"attachment:../x/y"_s));
    EXPECT_FALSE(AttachmentOf(u"https://x"_s));
}

TEST_F(NoteDocumentTest, APictureStandsAsLargeAsItIsButNoLargerThanThereIsRoom) {
    const QString name = StoredPicture({400, 200});
    const auto sizeIn = [&](const QSize& room) {
        const auto format = document.ImageFormat(name, room);
        return QSizeF(format->width(), format->height());
    };
    EXPECT_EQ(sizeIn({1000, 1000}), QSizeF(400, 200));
    EXPECT_EQ(sizeIn({100, 1000}), QSizeF(100, 50));
    EXPECT_EQ(sizeIn({1000, 20}), QSizeF(40, 20));
    EXPECT_FALSE(document.ImageFormat(StoreBytes("x", pages, u".jpg"_s).value(), {100, 100}));
    EXPECT_FALSE(document.ImageFormat(u"../x.jpg"_s, {100, 100}));
}

TEST_F(NoteDocumentTest, AnEmptyFirstParagraphStaysOneHoweverOftenItIsSaved) {
    for (const QString& html : {QString(), u"<p><br/></p><p>一</p>"_s, u"<hr><p>一</p>"_s}) {
        ASSERT_EQ(document.Load(html), NoteFault::None);
        const int paragraphs = document.blockCount();
        for (int times = 0; times < 3; ++times) {
            ASSERT_EQ(document.Load(document.Html()), NoteFault::None);
        }
        EXPECT_EQ(document.blockCount(), paragraphs) << html.toStdString();
    }
}

TEST_F(NoteDocumentTest, ATextThatIsWrittenOnARuleIsSavedBeforeIt) {
    ASSERT_EQ(document.Load(u"<p>一</p><hr><p>二</p>"_s), NoteFault::None);
    QTextBlock rule = document.findBlockByNumber(1);
    ASSERT_TRUE(rule.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth));
    QTextCursor(rule).insertText(u"线上"_s);
    const QString html = document.Html();
    EXPECT_EQ(document.blockCount(), 3) << "the document stays as it is";
    ASSERT_EQ(document.Load(html), NoteFault::None);
    EXPECT_EQ(document.toPlainText(), u"一\n线上\n\n二");
    EXPECT_EQ(html.count(u"<hr"_s), 1);
}

TEST_F(NoteDocumentTest, AnEmptyListIsTheSameListOnAZoomedSheet) {
    QTextCursor(&document).createList(QTextListFormat::ListDisc);
    const QString plain = document.Html();
    EXPECT_TRUE(plain.contains(u"<li"_s)) << plain.toStdString();
    QFont larger = document.defaultFont();
    larger.setPixelSize(2 * QFontInfo(larger).pixelSize());
    document.setDefaultFont(larger);
    EXPECT_EQ(document.Html(), plain) << document.Html().toStdString();
}

TEST_F(NoteDocumentTest, WhateverAnAttachmentIsCalledItsFileLiesInItsOwnFolder) {
    const QString store = QString(32, u'a') + u".pdf"_s;
    const QString own = pages + store + u".files/"_s;
    const auto pathOf = [&](const QString& name) {
        EXPECT_EQ(document.Load(u"<a href='%1'>a</a>"_s.arg(AddressOf({store, name}))),
                  NoteFault::None);
        return document.Files().at(0).localPath;
    };
    for (const QString& name : {u"CON"_s, u"NUL.pdf"_s, u"com1"_s, u"a:b.pdf"_s, u" 报告 .pdf"_s,
                                u".pdf"_s, u"..."_s, QString(255, u'梁')}) {
        EXPECT_EQ(pathOf(name), own + name) << "as it was attached";
    }
    for (const QString& name :
         {u"."_s, u".."_s, u"x/.."_s, u"x\\.."_s, u"x/"_s, u"a\nb"_s, u"a"_s + QChar(0) + u"b"_s}) {
        EXPECT_EQ(pathOf(name), own + store) << "no name of a file";
    }
    EXPECT_EQ(pathOf(u"../../x.pdf"_s), own + u"x.pdf"_s);
    EXPECT_EQ(pathOf(u"C:\\windows\\x.pdf"_s), own + u"x.pdf"_s);
}

} // namespace toolkit
