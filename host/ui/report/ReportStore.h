// What the window of a report keeps for the next one.
#pragma once

#include "host/report/ReportOptions.h"
#include "host/report/ReportTemplate.h"

namespace host {

/// Thread: user interface.
class IReportStore {
public:
    virtual ~IReportStore() = default;

    /// Of the person.
    [[nodiscard]] virtual ReportOptions Options() = 0;
    virtual void KeepOptions(const ReportOptions& options) = 0;
    /// Of the project.
    [[nodiscard]] virtual ReportTemplate Template(qint32 ppid) = 0;
    /// An empty text: it is kept; else why not, a sentence.
    [[nodiscard]] virtual QString KeepTemplate(qint32 ppid, const ReportTemplate& dress) = 0;
};

} // namespace host
