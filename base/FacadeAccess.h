// What dialogs may ask of the facade. They include this header and never the facade's own.
#pragma once

#include "include/IKXVeskPictureSink.h"
#include "include/KXWindow.h"

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

class IQuestionRefresh;

/// "No photo waits to be selected."
inline constexpr qint32 kNoPendingPic = -1;

/// The facade as the dialogs see it. Thread: user interface.
class IPictureFacade {
public:
    virtual ~IPictureFacade() = default;

    /// The host's sink; one that only writes the log while the host has set none.
    [[nodiscard]] virtual IKXVeskPictureSink& Sink() = 0;
    virtual qint32 ShowPicMng(qint32 kind) = 0;
    /// False: there is no viewer; it couldn't be opened, which the user has been told, or was
    /// closed at once.
    virtual bool OpenBimPicView(qint32 ppid, const QString& floor, const QString& positionKey,
                                qint32 markId) = 0;
    /// What the host calls ShowPdfPicView. False: there is no viewer, as above, or the drawing went
    /// to the editor that waits for one.
    virtual bool OpenPdfPicView(qint32 ppid, qint32 drawingId, const QString& drawingName,
                                KXWindow parent) = 0;
    /// The host's sink for the issue editor; one that only writes the log while there is none.
    [[nodiscard]] virtual IKXIssueEditSink& IssueEditSink() = 0;
    /// Rebuilds the marks of issues in the view.
    virtual void RefreshIssueMarks() = 0;
    /// Flies to an issue in the view and opens it; the user is told if the view doesn't show it.
    virtual void LocateIssue(qint32 ppid, const QString& questionId) = 0;
    /// Hands changes of issues on to the host.
    [[nodiscard]] virtual IQuestionRefresh& IssueRefresh() = 0;

    /// Gives the photo that the next viewer must select and forgets it.
    [[nodiscard]] qint32 TakePendingPic() {
        const qint32 taken = pendingPicId;
        pendingPicId = kNoPendingPic;
        return taken;
    }

    /// For a viewer of that kind that closes: brings the console back that was minimised for it.
    void BringConsoleBack(qint32 kind) {
        if (reopenConsole) {
            ShowPicMng(kind);
        }
    }

    /// The drawing photo editor waits hidden while the user picks another drawing in the host.
    bool backToPdfEdit = false;
    /// The console was minimised by a reverse lookup: the viewer that closes brings it back.
    bool reopenConsole = false;
    /// The photo that the next viewer to open must select.
    qint32 pendingPicId = kNoPendingPic;
};

/// The facade of this process.
[[nodiscard]] IPictureFacade& PictureFacade();
/// Named once by the facade itself; null when it ends.
void SetPictureFacade(IPictureFacade* facade);

} // namespace ZelvorNRQ_KXVeskPicture
