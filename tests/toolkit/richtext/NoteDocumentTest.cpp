// A rich text in memory: its form, its pictures, its files.
#include "toolkit/richtext/NoteDocument.h"
#include "tests/support/TempFolder.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/richtext/NoteStore.h"

#include <QImage>
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

TEST_F(NoteDocumentTest, APictureStandsAsWideAsItIsButNoWiderThanThereIsRoom) {
    const QString name = StoredPicture({400, 200});
    EXPECT_EQ(document.ImageFormat(name, 1000)->width(), 400);
    EXPECT_EQ(document.ImageFormat(name, 100)->width(), 100);
    EXPECT_EQ(document.ImageFormat(name, 100)->height(), 50);
    EXPECT_FALSE(document.ImageFormat(StoreBytes("x", pages, u".jpg"_s).value(), 100));
    EXPECT_FALSE(document.ImageFormat(u"../x.jpg"_s, 100));
}

} // namespace toolkit
