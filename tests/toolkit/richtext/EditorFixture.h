// The editor of rich texts in a window, with an owner that notes what it is told.
#pragma once

#include "tests/support/AnsweredPrompts.h"
#include "tests/support/TempFolder.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/ZelvorEditorImpl.h"

#include <QTextImageFormat>
#include <QWidget>

#include <gtest/gtest.h>

class QMimeData;

namespace support {

class EditorNotes final : public IZvEditorNotify {
public:
    int OnFilesChanged(const QString& name, const std::vector<NoteFile>& changed,
                       const QString& text) override;
    /// Noted as "document|attachment|store name".
    void OnOpenAttachment(const QString& folderKey, const QString& attachment,
                          const QString& store) override;

    int told = 0;
    QString document;
    QString plain;
    std::vector<NoteFile> files;
    std::vector<std::string> opened;
};

class EditorFixture : public testing::Test {
protected:
    EditorFixture();
    ~EditorFixture() override;

    [[nodiscard]] toolkit::NoteEdit& Sheet() { return *editor.Sheet(); }
    /// Its name.
    QString New();
    /// A page in the folder, as another client saved it.
    QString Page(const QByteArray& bytes);
    void Load(const QString& html, qint32 readOnly = 0);
    void Press(const char* action);
    /// Empty while none is seen.
    [[nodiscard]] QString Notice();
    /// By Ctrl+V. Owns `data`.
    void Paste(QMimeData* data);
    [[nodiscard]] QString PictureFile(const QString& name, const QSize& size = {300, 200});
    [[nodiscard]] QTextImageFormat PictureAt(int position);

    TempFolder folder;
    QString pages = folder.Path(QStringLiteral("pages/"));
    AnsweredPrompts prompts;
    QWidget owner;
    toolkit::WindowId ownerId = toolkit::kNoWindow;
    int ready = 0;
    EditorNotes notes;
    CZelvorEditorImpl editor;
};

} // namespace support
