// What the editor of rich texts tells its owner of a document's files.
#pragma once

#include <QString>

#include <vector>

/// One file of the open document.
struct NoteFile {
    QString text1; ///< these four texts are not read
    QString text2;
    qint32 isAttachment = 0; ///< non-zero: attached, not part of the page
    QString text3;
    QString text4;
    QString storeName;     ///< without folder; what stands before the last "." is the file's MD5
    QString localPath;     ///< of the file on this machine; its last part is the file's own name
    qint32 isEmbedded = 0; ///< non-zero: embedded in the page
};

/// Thread: user interface. Not owned by the editor; must outlive its use there.
class IZvEditorNotify {
public:
    virtual ~IZvEditorNotify() = default;

    /// All files of a document that has changed since it was loaded.
    /// @param text  of the document, plain.
    virtual int OnFilesChanged(const QString& name, const std::vector<NoteFile>& files,
                               const QString& text) = 0;
    /// The person wants to see an attachment. @param folderKey  the document's name.
    virtual void OnOpenAttachment(const QString& folderKey, const QString& attachmentName,
                                  const QString& storeName) = 0;
};
