// QR codes of issues.
#pragma once

#include "services/IssueRecords.h"

namespace KX_DATA {

class ITNQRCodeMng {
public:
    virtual ~ITNQRCodeMng() = default;

    /// Non-zero on success; an empty text means that the issue keeps the code that it has.
    virtual qint32 CreateQRCode(const QRCodeQuery& query, QString& text) = 0;
};

} // namespace KX_DATA
