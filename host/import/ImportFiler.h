// Files examined pictures as photos of a project.
#pragma once

#include "host/import/FileExamination.h"
#include "host/import/ImportReport.h"
#include "site/IIntake.h"
#include "site/ISite.h"

namespace host {

/// Each picture is one transaction: a crash loses nothing that was reported as filed and leaves
/// nothing half filed. Thread: the site's.
class ImportFiler final {
public:
    ImportFiler(site::ISite& site, ImportRequest target);

    /// Never throws; Failed means that no further file needs to be tried.
    [[nodiscard]] ImportLine File(const ExaminedFile& file);
    /// Whether a photo was made of a file of this MD5. False too if the site can't say: then the
    /// filing will tell why.
    [[nodiscard]] bool IsKnown(const QString& md5) const;

private:
    [[nodiscard]] bool IsThere(const QString& md5) const;
    [[nodiscard]] qint32 FileBimPhoto(const ExaminedFile& file);
    [[nodiscard]] qint32 FilePdfPhoto(const ExaminedFile& file);

    template <typename Photo> void SetCommon(Photo& photo, const ExaminedFile& file) const;

    site::ISite& m_site;
    std::unique_ptr<site::IIntake> m_intake;
    ImportRequest m_request;
};

} // namespace host
