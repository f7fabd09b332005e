// When, with what and where photos were taken, and what they were made of.
#pragma once

#include "site/PhotoFacts.h"
#include "site/Records.h"

#include <vector>

namespace site {

/// Of a photo of the model or of a drawing: their ids share one range.
struct PhotoDetails {
    qint32 picId = 0;
    qint32 ppid = 0;
    bool isOfDrawing = false;
    QString name;
    QString uploader;
    qint64 filed = 0; ///< seconds since 1970
    QString uuid;     ///< of the picture that is shown
    PhotoFacts facts;
    QString originalName; ///< empty: what is shown is what came
    QString originalUuid; ///< of the file as it came; fetched as every other one
};

/// Facts are filed with their photo, and go to the bin and end with it. Operations throw DataError.
/// Thread: the site's.
class IPhotoFacts {
public:
    virtual ~IPhotoFacts() = default;

    /// In the order of the ids; those of none of the projects are passed over.
    [[nodiscard]] virtual std::vector<PhotoDetails> Of(const Projects& projects,
                                                       const std::vector<qint32>& picIds) = 0;
};

} // namespace site
