#include "tests/toolkit/richtext/EditorFixture.h"

#include "tests/support/WaitFor.h"
#include "tests/viewers/support/SamplePictures.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/windows/WindowRegistry.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QtTest/QTest>

namespace support {

using namespace Qt::StringLiterals;

int EditorNotes::OnFilesChanged(const QString& name, const std::vector<NoteFile>& changed,
                                const QString& text) {
    ++told;
    document = name;
    files = changed;
    plain = text;
    return 1;
}

void EditorNotes::OnOpenAttachment(const QString& folderKey, const QString& attachment,
                                   const QString& store) {
    opened.push_back(folderKey.toStdString() + "|" + attachment.toStdString() + "|" +
                     store.toStdString());
}

EditorFixture::EditorFixture() {
    toolkit::SetEditorFolders({pages});
    owner.resize(700, 400);
    ownerId = toolkit::RegisterWindow(&owner, [this](const toolkit::WindowEvent& event) {
        ready += event.number == kEditorReady ? 1 : 0;
        return qintptr(0);
    });
    editor.SetZvEditorNotify(&notes);
    editor.Create(ownerId);
    editor.Widget()->setGeometry(owner.rect());
    owner.show();
    editor.Widget()->show();
    RunPendingEvents();
}

EditorFixture::~EditorFixture() {
    editor.Destroy();
    toolkit::SetEditorFolders({});
}

QString EditorFixture::New() {
    QString name;
    editor.NewEditor(name, 0);
    Sheet().setFocus();
    return name;
}

QString EditorFixture::Page(const QByteArray& bytes) {
    return toolkit::StoreBytes(bytes, pages, u".html"_s).value();
}

void EditorFixture::Load(const QString& html, qint32 readOnly) {
    editor.LoadEditor(u"doc"_s, {Page(html.toUtf8())}, {}, readOnly);
    Sheet().setFocus();
}

void EditorFixture::Press(const char* action) {
    const QString name = QString::fromLatin1(action);
    QAction* ofSheet = Sheet().findChild<QAction*>(name);
    (ofSheet != nullptr ? ofSheet : editor.Widget()->findChild<QAction*>(name))->trigger();
}

QString EditorFixture::Notice() {
    const auto* notice = editor.Widget()->findChild<QLabel*>(u"noteNotice"_s);
    return notice->isVisible() ? notice->text() : QString();
}

void EditorFixture::Paste(QMimeData* data) {
    QGuiApplication::clipboard()->setMimeData(data);
    QTest::keyClick(&Sheet(), Qt::Key_V, Qt::ControlModifier);
}

QString EditorFixture::PictureFile(const QString& name, const QSize& size) {
    return folder.Write(name, JpegBytes(CornerMarked(size)));
}

QTextImageFormat EditorFixture::PictureAt(int position) {
    QTextCursor cursor(Sheet().document());
    cursor.setPosition(position + 1);
    return cursor.charFormat().toImageFormat();
}

} // namespace support
