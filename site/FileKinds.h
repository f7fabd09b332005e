// What a stored file belongs to.
#pragma once

namespace site {

/// Numbers in the table of files; the owner is the row that the name speaks of.
enum class FileKind {
    kBimPhoto = 1,
    kPdfPhoto = 2,
    kPhotoVoice = 3, ///< owner: the BIM photo
    kCheckpointVoice = 4,
    kDrawing = 5,
    kIssueVoice = 6,
    kIssuePic = 7, ///< owner: the issue, as for its thumbnails
    kThumb = 8,
    kUploaded = 9, ///< not yet taken by anything
};

} // namespace site
