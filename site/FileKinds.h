// What a stored file belongs to.
#pragma once

namespace site {

/// Numbers in the table of files; the owner is the row that the name speaks of.
enum class FileKind {
    BimPhoto = 1,
    PdfPhoto = 2,
    PhotoVoice = 3, ///< owner: the BIM photo
    CheckpointVoice = 4,
    Drawing = 5,
    IssueVoice = 6,
    IssuePic = 7, ///< owner: the issue, as for its thumbnails
    Thumb = 8,
    Uploaded = 9,  ///< not yet taken by anything
    RichText = 10, ///< of any version; owner: the record
    Original = 11, ///< what a photo's picture was made of; owner: the photo, of either kind
};

} // namespace site
