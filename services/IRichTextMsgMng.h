// Rich text documents.
#pragma once

#include "services/RichTextRecords.h"

namespace KX_DATA {

class IRichTextMsgMng {
public:
    virtual ~IRichTextMsgMng() = default;

    virtual void Reserved1() = 0;
    virtual bool GetRichText(const RichTextKey& key, RichTextMsg& message,
                             std::vector<RichAttachment>& attachments) = 0;
    virtual bool SaveRichText(const QString& stateText, const RichTextMsg& message,
                              const RichTextKey& key, const std::vector<QString>& removedUuids,
                              const std::vector<RichAttachment>& added) = 0;
};

} // namespace KX_DATA
