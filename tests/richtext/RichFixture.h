// The pane of rich texts on scripted services.
#pragma once

#include "richtext/RichEditorDlg.h"
#include "tests/console/ModuleFixture.h"

#include <QComboBox>
#include <QWidget>

/// The services have one document "doc" of 李四 in version "v1" with the state 整改中, a page, a
/// picture and an attachment. The pane lies in a window of its own; its folders are the services'.
class RichFixture : public ModuleFixture {
protected:
    RichFixture();
    ~RichFixture() override;

    /// A file of the document, which the service can deliver.
    KX_DATA::RichAttachment Stored(const QByteArray& bytes, const QString& ending, qint32 kind = 1);
    /// Of a position; may be written.
    [[nodiscard]] static RichContext Place(const QString& objectId = QStringLiteral("A-1"));
    /// Makes the pane, goes there and waits until the editor has loaded.
    void Open(const RichContext& context = Place());
    /// Types at the end of the text.
    void Write(const QString& text);
    void Choose(const QString& state);
    [[nodiscard]] QString Text() const;
    [[nodiscard]] QComboBox& States();
    [[nodiscard]] Calls CallsOf();
    [[nodiscard]] KX_DATA::RichTextMsg& OnServer() { return host.richTexts.message; }

    QWidget owner;
    toolkit::WindowId ownerId = toolkit::kNoWindow;
    CRichEditorDlg pane;
};
