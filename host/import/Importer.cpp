#include "host/import/Importer.h"

#include "host/import/ImportFiler.h"
#include "host/import/ImportScanner.h"

namespace host {

ImportReport Importer::Run(const ImportRequest& request, const ImportProgress& progress) {
    ImportReport report;
    ImportFiler filer(m_site, request);
    ImportScanner scanner(request.roots);
    ImportStep step;
    const auto isKnown = [&](const QString& md5) { return filer.IsKnown(md5); };
    while (const std::optional<ExaminedFile> file = scanner.WaitForNext(isKnown)) {
        step.line = filer.File(*file);
        step.total = scanner.Total();
        ++step.done;
        report.Add(step.line);
        const bool goOn = !progress || progress(step);
        if (!report.fault.isEmpty()) {
            break;
        }
        if (!goOn) {
            report.cancelled = step.done < scanner.Total();
            break;
        }
    }
    return report;
}

} // namespace host
