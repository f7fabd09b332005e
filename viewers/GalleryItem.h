// One element of a gallery's list.
#pragma once

#include "toolkit/media/KxMemDC.h"

#include <QRect>
#include <QSize>
#include <QString>

#include <memory>

/// Of a picture or a voice note.
enum DownloadState : qint32 {
    kNothingToFetch = 0, ///< voice notes without a uuid only
    kWaiting = 1,
    kDownloading = 2,
    kOnDisk = 3,
    kDownloadFailedState = 4,
};

struct GalleryItem {
    QString picUuid;
    QString picPath;        ///< full path of the local file
    qint32 picProgress = 0; ///< percent, 0 to 100
    qint32 picState = kWaiting;
    QString audioUuid; ///< empty: no voice note
    QString audioPath;
    qint32 audioProgress = 0; ///< stays 0: a note's percent goes to OnAudioProgress
    qint32 audioState = kWaiting;
    QRect thumbRect;         ///< device-independent pixels of the pane; valid for visible items
    QRect coverRect;         ///< part of the picture that fills `thumbRect`, upright image pixels
    bool unreadable = false; ///< the file is there but can't be decoded
    bool fileThere = true;   ///< of a picture on disk, when it was last looked at
    QSize picSize;           ///< upright, image pixels; empty until it is known
    std::shared_ptr<CKxMemDC> thumbDC; ///< rendering of the thumbnail; null until it is painted
};
