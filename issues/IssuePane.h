// What both pages of the issue viewer have in common.
#pragma once

#include "issues/ITNViewInner.h"
#include "issues/IssuePaneLayout.h"
#include "services/IssueRecords.h"
#include "toolkit/controls/StaticText.h"
#include "toolkit/controls/TitledGroup.h"
#include "viewers/IssueNote.h"
#include "viewers/NotePlayer.h"
#include "viewers/PicViewDlg.h"

#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

#include <functional>
#include <vector>

namespace issues {

/// Pictures of one record of an issue, one at a time, with who uploaded them; the record's voice
/// note, fetched when it is first played. A subclass knows the record.
///
/// Thread: user interface. A member of the window around it, as whose child it is created.
class IssuePane : public CPicViewDlg {
public:
    /// Another issue, or the same one read anew. Shows nothing.
    void SetQuestion(const KX_DATA::QuestionDetail& issue);
    /// What says whether changes are allowed; null: nothing does.
    ITNViewInner* viewInner = nullptr;
    /// Ends the note that plays and puts the controls back.
    void StopVoice();

    [[nodiscard]] const KX_DATA::QuestionDetail& Question() const { return question; }
    [[nodiscard]] virtual const std::vector<KX_DATA::QuestionPicRecord>& Pics() const = 0;
    [[nodiscard]] gallery::NotePlayer& Note() { return m_player; }
    /// As the record's, a DownloadState.
    [[nodiscard]] qint32 VoiceState() const { return m_note.State(); }
    [[nodiscard]] QPushButton* DeleteButton() const { return deleteButton; }
    [[nodiscard]] QPushButton* EditButton() const { return editButton; }

protected:
    IssuePane();

    /// A voice note, as its record tells of it.
    struct Voice {
        QString uuid;
        QString md5; ///< lower-case hexadecimal digits
        qint32 state = 0;
    };
    [[nodiscard]] virtual Voice VoiceOfRecord() const = 0;
    [[nodiscard]] virtual const IssuePaneLayout& LayoutOf(const QSize& page) = 0;
    /// Places what the subclass has beside that.
    virtual void PlaceRest() = 0;
    virtual void DeletePicture() = 0;
    virtual void Edit() = 0;

    /// The note of the record, whose file lies or will lie in the folder of the issue's project.
    void TakeVoice();
    /// Its button and text as the record says; a note that plays goes on.
    void ShowVoice();
    /// Whose folder that is.
    void ReadFolder(qint32 ppid, const QString& projectName);
    [[nodiscard]] const QString& Folder() const { return m_folder; }

    /// The gallery of the record's pictures, none of them if there are none.
    void BuildGallery(int index);
    /// The gallery is emptied, and built anew if there are pictures.
    void RebuildGallery(int index);
    void ShowPhotoTexts(int index);
    /// The picture that is shown; null: none is.
    [[nodiscard]] const KX_DATA::QuestionPicRecord* CurrentPic() const;
    /// The record is another one by then, or the window ended; asked after a call in which anything
    /// may have happened.
    [[nodiscard]] std::function<bool()> SameRecord() const;
    void CountRecord() { ++m_record; }

    void LayoutPane();
    /// A control of the page, made after those that lie below it.
    void Enable(QWidget* control, bool enabled) const;

    void OnCurPicChanged(int index) override { ShowPhotoTexts(index); }
    void OnAudioProgress(int value) override { m_note.OnAudioProgress(value); }
    void OnCreated() override;
    void OnDestroyed() override;
    void OnResized() override { LayoutPane(); }
    void OnWindowShown() override { ShowVoice(); }
    void OnWindowHidden() override { ShowVoice(); }
    void OnTimer(int timerId) override;

    KX_DATA::QuestionDetail question;
    QPointer<QPushButton> deleteButton;
    QPointer<QPushButton> editButton;

private:
    QString m_folder;
    int m_record = 0; ///< counts the records that were shown
    gallery::IssueNote m_note{*this};
    gallery::NotePlayer m_player;
    QPointer<CTitledGroup> m_photoGroup;
    QPointer<CTitledGroup> m_noteGroup;
    QPointer<CTitledGroup> m_infoGroup;
    QPointer<CStaticFilespec> m_uploaderText;
    QPointer<CStaticFilespec> m_uploadTimeText;
};

/// Takes out one picture: the one at this index if it has the id, else the first that has it; none
/// if none has.
void RemovePic(std::vector<KX_DATA::QuestionPicRecord>& pics, const QString& picId, int index);

/// A line of text of a page.
[[nodiscard]] CStaticFilespec* MakeLine(QWidget& page, const QString& name);
/// A box in which nobody writes.
[[nodiscard]] QPlainTextEdit* MakeReadOnlyBox(QWidget& page, const QString& name);
/// Its tip is the whole text.
void ShowInBox(QPlainTextEdit& box, const QString& text);

} // namespace issues
