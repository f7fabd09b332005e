// Pages as no client of ours has written them, and what is pasted from anywhere.
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/media/PictureFile.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QDir>
#include <QLabel>
#include <QMimeData>
#include <QTextDocument>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using testing::SizeIs;

constexpr qsizetype kMegabyte = qsizetype(1024) * 1024;

class EditorPagesTest : public support::EditorFixture {
protected:
    void LoadBytes(const QByteArray& bytes) {
        editor.LoadEditor(u"doc"_s, {Page(bytes)}, {}, 0);
        support::RunPendingEvents();
    }
    void PasteHtml(const QString& html, const QString& text = u"文"_s) {
        auto* data = new QMimeData;
        data->setHtml(html);
        data->setText(text);
        Paste(data);
    }
    /// Nothing is told, whatever is asked.
    void ExpectUnsaved() {
        EXPECT_TRUE(Sheet().isReadOnly());
        EXPECT_TRUE(editor.SaveEditor());
        EXPECT_EQ(notes.told, 0);
    }
    [[nodiscard]] QStringList Stored() const { return QDir(pages).entryList(QDir::Files); }
};

} // namespace

TEST_F(EditorPagesTest, OneThatBreaksOffShowsWhatThereIs) {
    const QByteArray whole =
        u"<p>一</p><table><tr><td>甲</td><td>乙</td></tr></table><p>二</p>"_s.toUtf8();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        LoadBytes(whole.left(length));
        EXPECT_EQ(Notice(), QString());
    }
    LoadBytes(whole.left(whole.indexOf("</td><td>") + 11));
    EXPECT_TRUE(Sheet().toPlainText().contains(u"甲"_s));
}

TEST_F(EditorPagesTest, OneThatIsNoHtmlIsTextThatCanBeSaved) {
    LoadBytes("just a line");
    EXPECT_EQ(Sheet().toPlainText(), u"just a line");
    LoadBytes(support::JpegBytes(support::CornerMarked({400, 300})));
    EXPECT_EQ(Notice(), QString());
    LoadBytes(QByteArray::fromHex("fffe3c0070003e00004e"));
    EXPECT_EQ(Notice(), QString());
    EXPECT_TRUE(editor.SaveEditor());
    EXPECT_EQ(notes.told, 0);
}

TEST_F(EditorPagesTest, OneOfFiftyMegabytesIsToldAndNeverSaved) {
    LoadBytes(QByteArray(50 * kMegabyte, 'x'));
    EXPECT_TRUE(Notice().startsWith(u"文档过大或已损坏，无法显示。"_s));
    EXPECT_EQ(Sheet().toPlainText(), QString());
    ExpectUnsaved();
}

TEST_F(EditorPagesTest, NestingWithoutEndIsToldAndPastedAsItsText) {
    for (const QString& element : {u"<div>"_s, u"<table><tr><td>"_s, u"<ul><li>"_s}) {
        LoadBytes(element.repeated(100'000).toUtf8());
        EXPECT_TRUE(Notice().startsWith(u"文档过大或已损坏，无法显示。"_s));
        ExpectUnsaved();
        New();
        PasteHtml(element.repeated(100'000) + u"深"_s, u"深"_s);
        EXPECT_EQ(Sheet().toPlainText(), u"深");
    }
}

TEST_F(EditorPagesTest, ATableOfMoreCellsThanAnybodyReadsIsToldAndPastedAsItsText) {
    const QString table = u"<table>"_s + u"<tr><td colspan=1000>a</td></tr>"_s.repeated(500);
    LoadBytes(table.toUtf8());
    EXPECT_TRUE(Notice().startsWith(u"文档过大或已损坏，无法显示。"_s));
    ExpectUnsaved();
    New();
    PasteHtml(table, u"a"_s);
    EXPECT_EQ(Sheet().toPlainText(), u"a");
}

TEST_F(EditorPagesTest, APictureOfAHundredMegabytesWithinTheTextIsLeftOut) {
    New();
    PasteHtml(
        u"<p>前<img src='data:image/png;base64,%1'>后</p>"_s.arg(QString(100 * kMegabyte, u'A')),
        u"前后"_s);
    EXPECT_EQ(Sheet().toPlainText(), u"前后");
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(EditorPagesTest, PicturesFromElsewhereAreNeitherFetchedNorShownNorSaved) {
    const QString elsewhere =
        folder.Write(u"x.png"_s, support::PngBytes(support::OneColour({9, 9}, Qt::red)));
    class Decodings final : public toolkit::IDecodeWatch {
    public:
        void OnDecode(const toolkit::PictureRequest& request) override { paths << request.path; }
        QStringList paths;
    } decodings;
    toolkit::IDecodeWatch* before = toolkit::SetDecodeWatch(&decodings);
    for (const QString& address :
         {u"http://localhost/a.png"_s, u"//localhost/a.png"_s, u"ftp://localhost/a.png"_s,
          u"file://"_s + elsewhere, elsewhere, u"../x.png"_s, u":/x.png"_s, u"qrc:/x.png"_s}) {
        LoadBytes(u"<p>字<img src='%1' width='20' height='20'></p>"_s.arg(address).toUtf8());
        Sheet().grab();
        EXPECT_EQ(Sheet().toPlainText(), u"字") << address.toStdString();
        EXPECT_FALSE(Sheet().Note()->Html().contains(u"<img"_s)) << address.toStdString();
        New();
        PasteHtml(u"<p>字<img src='%1'></p>"_s.arg(address), u"字"_s);
        EXPECT_THAT(Sheet().Note()->Files(), IsEmpty()) << address.toStdString();
    }
    toolkit::SetDecodeWatch(before);
    EXPECT_THAT(decodings.paths, IsEmpty());
}

TEST_F(EditorPagesTest, ScriptsGoWhenAPageIsLoadedAndWhenTextIsPasted) {
    const QString html =
        u"<p onclick='run()'>前<script>run()</script></p><svg onload='run()'><a>run</a></svg>"
        "<a href='javascript:run()'>后</a><iframe srcdoc='run'>run</iframe>"_s;
    LoadBytes(html.toUtf8());
    EXPECT_FALSE(Sheet().Note()->Html().contains(u"run"_s));
    EXPECT_TRUE(Sheet().toPlainText().contains(u"后"_s));
    New();
    PasteHtml(html);
    EXPECT_FALSE(Sheet().Note()->Html().contains(u"run"_s));
    EXPECT_TRUE(Sheet().toPlainText().contains(u"前"_s));
}

TEST_F(EditorPagesTest, AFileWithTheLongestChineseNameIsAttachedUnderIt) {
    New();
    const QString name = QString(83, u'梁') + u".pdf"_s; // 253 bytes, of 255
    Sheet().InsertAsAttachments({folder.Write(name, "pdf")});
    EXPECT_EQ(Notice(), QString());
    ASSERT_THAT(Sheet().Note()->Files(), SizeIs(1));
    const QString path = Sheet().Note()->Files()[0].localPath;
    EXPECT_EQ(path.section(u'/', -1), name);
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(EditorPagesTest, TheWindowMayCloseWhileALongPageIsStillLaidOut) {
    const QByteArray page = (u"<p>"_s + u"梁"_s.repeated(200) + u"</p>"_s).repeated(2000).toUtf8();
    editor.LoadEditor(u"doc"_s, {Page(page)}, {}, 0);
    editor.Destroy();
    support::RunPendingEvents();
    EXPECT_EQ(editor.Sheet(), nullptr);
    editor.Create(ownerId);
    editor.Widget()->show();
    editor.LoadEditor(u"doc"_s, {Page(page)}, {}, 0);
    editor.LoadEditor(u"doc"_s, {Page("<p>b</p>")}, {}, 0);
    EXPECT_TRUE(support::WaitFor([&] {
        return editor.Widget()->findChild<QLabel*>(u"noteCount"_s)->text() == u"字数 1";
    })) << "of the later one";
    EXPECT_EQ(Sheet().toPlainText(), u"b");
}

TEST_F(EditorPagesTest, TheOwnersWindowMayDieWhileALongPageIsStillLaidOut) {
    auto other = std::make_unique<QWidget>();
    CZelvorEditorImpl second;
    second.Create(toolkit::RegisterWindow(other.get(), [](const auto&) { return qintptr(0); }));
    second.LoadEditor(u"doc"_s, {Page(QByteArray("<p>a</p>").repeated(20'000))}, {}, 0);
    other.reset();
    support::RunPendingEvents();
    EXPECT_EQ(second.Sheet(), nullptr);
    EXPECT_TRUE(second.SaveEditor());
}
