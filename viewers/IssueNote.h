// The voice note of an issue or a rectification.
#pragma once

#include "toolkit/windows/WindowObject.h"
#include "viewers/NotePlayer.h"

#include <QString>

namespace gallery {

/// Fetched when it is first played, and played only if its MD5 is the record's.
/// Thread: user interface. A member of the viewer, before its NotePlayer.
class IssueNote final {
public:
    /// @param window  the viewer: gets the events of the download; outlives the note.
    explicit IssueNote(toolkit::WindowObject& window) : m_window(window) {}

    /// Another record. Take its state from State() before the record is handed on.
    /// @param voiceMd5    lower-case hexadecimal digits.
    /// @param folder      of the local files, ending with its separator.
    /// @param serverText  first field of the download's record (see CPicViewDlg::ServerText).
    void SetRecord(const QString& voiceUuid, const QString& voiceMd5, qint32 voiceState,
                   const QString& folder, const QString& serverText);
    /// The record's `voiceState`, a DownloadState.
    [[nodiscard]] qint32 State() const { return m_voiceState; }

    /// For the viewer's NotePlayer.
    [[nodiscard]] NoteTerms Terms();
    /// The viewer's OnAudioProgress hands its value on.
    void OnAudioProgress(int value);

private:
    [[nodiscard]] QString Path() const;
    bool OnPress();
    [[nodiscard]] bool VerifyVoice() const;
    void StartVoiceDownload();

    toolkit::WindowObject& m_window;
    QString m_voiceUuid;
    QString m_voiceMd5;
    qint32 m_voiceState = 0;
    QString m_folder;
    QString m_serverText;
};

/// MD5 (RFC 1321) of a file in lower-case hexadecimal digits; that of no bytes if it can't be read.
[[nodiscard]] QString FileMd5(const QString& path);

} // namespace gallery
