// The module's public face: one facade and one data provider, obtained from two exported functions.
#pragma once

#include "include/IKXVeskPictureSink.h"
#include "include/KXFrameObs.h"
#include "include/KXWindow.h"

#include <QString>

#include <string>

namespace ZelvorNRQ_KXVeskPicture {

class IKXVeskPicData;

/// Kinds of the console.
inline constexpr qint32 kBimPhotos = 1;
inline constexpr qint32 kDrawingPhotos = 2;
inline constexpr qint32 kIssues = 3;

/// Asks for one photo in the view. The fields between picId and ppid are the host's.
struct ViewPicRequest {
    QString positionKey;
    qint32 picId = 0;
    QString floor;
    qint32 markId = 0;
    qint32 ppid = 0;
};

/// Everything that the host can ask of the module. Thread: user interface.
/// SetPicSink comes before any operation that notifies; without it the notification is dropped
/// with a line in the log. Failures are told in message boxes, nothing is thrown.
class IKXVeskPicture {
public:
    /// Opens the console for one kind. Always 1.
    virtual qint32 ShowPicMng(qint32 kind) = 0;
    /// Opens the console with limits that hold for one search; picId -1: no row is ticked.
    virtual qint32 ShowBimPicMngFor(qint32 unread, const QString& presetText, qint32 presetMarkId,
                                    qint32 presetPicId) = 0;
    virtual qint32 ShowIssueMngFor(qint32 unread, const QString& presetText, qint32 presetMarkId,
                                   const QString& presetText2) = 0;
    virtual qint32 ShowPdfPicMngFor(qint32 unread, qint32 presetMarkId, qint32 presetB) = 0;
    virtual void AttachObservers(KXFRAME::IKXObserverHub* hub) = 0;
    /// Opens the drawing photo viewer, or brings back the editor that waits for a drawing.
    virtual void ShowPdfPicView(qint32 ppid, qint32 drawingId, const QString& drawingName,
                                KXWindow parent) = 0;
    virtual void RefreshPicMarks() = 0;
    virtual void RefreshIssueMarks() = 0;
    /// A reminder message as JSON, 8-bit text in code page 936.
    virtual void OnPicMessage(KXWindow window, const std::string& json) = 0;
    virtual void ShowPicPopups(KXWindow owner) = 0;
    virtual void SetPicSink(IKXVeskPictureSink* sink) = 0;
    virtual void SetIssueEditSink(IKXIssueEditSink* sink) = 0;
    virtual void ViewBimPic(const ViewPicRequest& request) = 0;
    /// True if the photo could be read; the user may have cancelled all the same.
    virtual bool EditBimPic(qint32 ppid, qint32 picId) = 0;
    virtual bool EditIssue(const qint32* issueKey, QString questionId) = 0;
    /// 1 unless the photo couldn't be found.
    virtual qint32 SaveBimPicAs(qint32 ppid, qint32 picId, QString target) = 0;
    virtual bool DeleteBimPic(qint32 picId) = 0;
    virtual bool DeleteIssue(const QString& questionId) = 0;
    virtual void OnIssueMessage(KXWindow window, const std::string& json) = 0;
    virtual void ShowIssuePopups(KXWindow owner) = 0;
    virtual void LocateIssue(qint32 ppid, const QString& questionId) = 0;
    virtual void ShowIssueView() = 0;

protected:
    ~IKXVeskPicture() = default;
};

} // namespace ZelvorNRQ_KXVeskPicture

#if defined(_WIN32)
#define KX_MODULE_EXPORT extern "C" __declspec(dllexport)
#else
#define KX_MODULE_EXPORT extern "C" __attribute__((visibility("default")))
#endif

/// The facade; made on the first call, lives to the end of the process.
KX_MODULE_EXPORT ZelvorNRQ_KXVeskPicture::IKXVeskPicture* GetKXVeskPicture();
/// The data provider; made on the first call, lives to the end of the process.
KX_MODULE_EXPORT ZelvorNRQ_KXVeskPicture::IKXVeskPicData* GetKXVeskPicData();
