// Labels of documents.
#pragma once

#include "services/PicRecords.h"

namespace KX_DATA {

inline constexpr qint32 kPhotoDocKind = 2;
inline constexpr qint32 kLabelsOk = 85;
inline constexpr qint32 kLabelAdded = 89;

class IKXDocMng {
public:
    virtual ~IKXDocMng() = default;

    /// kLabelsOk on success; `kind` is kPhotoDocKind, here and below.
    virtual qint32 GetLabels(qint32 kind, std::vector<LabelEntry>& labels) = 0;
    /// kLabelAdded on success; `value` is 2, `parent` "0".
    virtual qint32 AddLabel(qint32 kind, const QString& label, qint32 value, const QString& parent,
                            QString& labelId) = 0;
};

} // namespace KX_DATA
