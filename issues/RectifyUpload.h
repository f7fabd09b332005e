// Uploading the pictures of a rectification, on a thread of its own.
#pragma once

#include "services/IssueRecords.h"
#include "viewers/PickedImages.h"

#include <QString>

#include <functional>
#include <vector>

namespace issues {

/// What one upload works on: copies of its own.
struct UploadOrder {
    std::vector<ZelvorNRQ_KXVeskPicture::PickedFile> files;
    QString folder; ///< of the project's issue pictures, ends with its separator
    QString uploader;
};

/// Both run on the interface thread, not before StartUpload has returned.
struct UploadReport {
    /// The file of this number, from 1 on, is next.
    std::function<void(int number)> onFile;
    /// The upload is over: a record for each file that is stored, in their order. A file that
    /// failed is left out.
    std::function<void(std::vector<KX_DATA::QuestionPicRecord> stored)> onEnd;
};

/// Files with a record of theirs in the project; nothing refers to them yet. A picture that fails
/// is said in the log alone. Once begun an upload goes on to its end; at the end of the application
/// it stops before its next file, and nobody is told. Thread: user interface.
void StartUpload(UploadOrder order, UploadReport report);

/// Waits for the files that are on their way, and stops what comes after them.
void JoinUploads();

/// One file: the picture as it is and a reduced one are stored, and copies of both lie in the
/// folder. False: it isn't a picture, can't be read, or wasn't stored. Thread: any.
[[nodiscard]] bool UploadPicture(const ZelvorNRQ_KXVeskPicture::PickedFile& file,
                                 const QString& folder, const QString& uploader,
                                 KX_DATA::QuestionPicRecord& record);

} // namespace issues
