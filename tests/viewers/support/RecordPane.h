// The record below a viewer's pane, on scripted services.
#pragma once

#include "richtext/RichEditorDlg.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/WaitFor.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteStore.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"

#include <QComboBox>
#include <QCryptographicHash>
#include <QTextCursor>

namespace support {

/// The person has rich text, and each place the document "doc" of 李四 in version "v1" with the
/// state 整改中 and the text "雨后渗水". Made before the viewer, ends after it.
class RecordPane final {
public:
    explicit RecordPane(ScriptedHost& scripted) : m_host(scripted) {
        m_host.richAuth.enabled = true;
        QString pages;
        m_host.paths.GetRichFolder(pages);
        toolkit::SetEditorFolders({pages});
        const QByteArray page = "<p>雨后渗水</p>";
        KX_DATA::RichAttachment file;
        file.md5 =
            QString::fromLatin1(QCryptographicHash::hash(page, QCryptographicHash::Md5).toHex());
        file.name = file.md5 + QStringLiteral(".html");
        file.uuid = QStringLiteral("page");
        file.size = qint32(page.size());
        file.kind = 1;
        m_host.files.stored[file.uuid] = page;
        KX_DATA::RichTextMsg& message = m_host.richTexts.message;
        message.docName = QStringLiteral("doc");
        message.editorName = QStringLiteral("李四");
        message.versionText = QStringLiteral("v1");
        message.stateText = QStringLiteral("整改中");
        message.attachments = {file};
    }
    ~RecordPane() { toolkit::SetEditorFolders({}); }
    RecordPane(const RecordPane&) = delete;
    RecordPane& operator=(const RecordPane&) = delete;

    /// Another person saves.
    void SomebodyElseSaves() const {
        m_host.richTexts.message.versionText = QStringLiteral("v2");
        m_host.richTexts.message.editorName = QStringLiteral("王五");
    }
    static void Write(CRichEditorDlg& pane, const QString& text) {
        pane.Editor()->Sheet()->moveCursor(QTextCursor::End);
        pane.Editor()->Sheet()->insertPlainText(text);
    }
    [[nodiscard]] static QString Text(const CRichEditorDlg& pane) {
        return pane.Editor()->Sheet()->toPlainText();
    }
    /// "objectId,subId,ownerId,objectType,readOnly,projectId" of what the pane shows.
    [[nodiscard]] static QString ContextOf(const CRichEditorDlg& pane) {
        const RichContext& shown = pane.Context();
        return QStringLiteral("%1,%2,%3,%4,%5,%6")
            .arg(shown.objectId)
            .arg(shown.subId)
            .arg(shown.ownerId)
            .arg(shown.objectType)
            .arg(shown.readOnly)
            .arg(shown.projectId);
    }

private:
    ScriptedHost& m_host;
};

} // namespace support
