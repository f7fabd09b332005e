#include "tests/richtext/RichFixture.h"

#include "tests/support/WaitFor.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QCryptographicHash>
#include <QTextCursor>

using namespace Qt::StringLiterals;

RichFixture::RichFixture() {
    QString pages;
    host.paths.GetRichFolder(pages);
    toolkit::SetEditorFolders({pages});
    OnServer().docName = u"doc"_s;
    OnServer().editorName = u"李四"_s;
    OnServer().versionText = u"v1"_s;
    OnServer().stateText = u"整改中"_s;
    OnServer().attachments = {Stored("<p>雨后渗水</p>", u".html"_s), Stored("pdf", u".pdf"_s, 2)};
    owner.resize(800, 300);
    ownerId = toolkit::RegisterWindow(&owner, [](const toolkit::WindowEvent&) { return 0; });
    host.Log().Clear();
}

RichFixture::~RichFixture() {
    pane.ClosePane();
    toolkit::SetEditorFolders({});
    support::RunPendingEvents();
}

KX_DATA::RichAttachment RichFixture::Stored(const QByteArray& bytes, const QString& ending,
                                            qint32 kind) {
    KX_DATA::RichAttachment file;
    file.md5 =
        QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
    file.name = file.md5 + ending;
    file.uuid = u"uuid-"_s + file.md5.left(6);
    file.size = qint32(bytes.size());
    file.kind = kind;
    host.files.stored[file.uuid] = bytes;
    return file;
}

RichContext RichFixture::Place(const QString& objectId) {
    RichContext context;
    context.objectId = objectId;
    context.subId = 7;
    context.ownerId = 1;
    context.objectType = 1;
    context.projectId = 1;
    return context;
}

void RichFixture::Open(const RichContext& context) {
    pane.Create(ownerId);
    pane.Widget()->setGeometry(owner.rect());
    owner.show();
    pane.Widget()->show();
    pane.GoTo(context);
    support::RunPendingEvents();
    ASSERT_TRUE(pane.IsEditorReady());
}

void RichFixture::Write(const QString& text) {
    pane.Editor()->Sheet()->moveCursor(QTextCursor::End);
    pane.Editor()->Sheet()->insertPlainText(text);
}

void RichFixture::Choose(const QString& state) {
    States().setCurrentIndex(States().findText(state));
}

QString RichFixture::Text() const {
    return pane.Editor()->Sheet()->toPlainText();
}

QComboBox& RichFixture::States() {
    return *pane.Widget()->findChild<QComboBox*>(u"stateCombo"_s);
}

RichFixture::Calls RichFixture::CallsOf() {
    return Log().LinesOf({"GetRichText", "SaveRichText", "UploadFile", "DownloadFile",
                          "Strip.ShowProgressBar", "Strip.CloseProgressBar", "ShowMessage",
                          "MainWindow"});
}
