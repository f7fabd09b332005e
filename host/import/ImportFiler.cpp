#include "host/import/ImportFiler.h"

#include "site/DataError.h"
#include "site/IIntake.h"

namespace host {

using namespace Qt::StringLiterals;

ImportFiler::ImportFiler(site::ISite& site, ImportRequest target)
    : m_site(site), m_intake(site.NewIntake()), m_request(std::move(target)) {}

ImportLine ImportFiler::File(const ExaminedFile& file) {
    if (!file.refusal.isEmpty()) {
        return {file.path, ImportOutcome::Refused, file.refusal};
    }
    try {
        // Asked again: another file of this import may have had the same bytes.
        const bool isThere = file.isKnown || IsThere(file.md5);
        const qint32 id = isThere                       ? 0
                          : m_request.checkpointId != 0 ? FilePdfPhoto(file)
                                                        : FileBimPhoto(file);
        if (id == 0) {
            return {file.path, ImportOutcome::Duplicate, u"工程中已有相同的照片"_s};
        }
        return {file.path, ImportOutcome::Filed, file.displayName, file.note, id};
    } catch (const site::DataError& error) {
        const bool onlyThisFile = error.GetFault() == site::Fault::BadName;
        return {file.path, onlyThisFile ? ImportOutcome::Refused : ImportOutcome::Failed,
                error.Text()};
    }
}

bool ImportFiler::IsKnown(const QString& md5) const {
    try {
        return IsThere(md5);
    } catch (const site::DataError&) {
        return false;
    }
}

bool ImportFiler::IsThere(const QString& md5) const {
    return m_request.checkpointId != 0 ? m_intake->FindPdfPhotoByMd5(m_request.ppid, md5) != 0
                                       : m_intake->FindPhotoByMd5(m_request.ppid, md5) != 0;
}

template <typename Photo>
void ImportFiler::SetCommon(Photo& photo, const ExaminedFile& file) const {
    photo.fileName = file.displayName;
    photo.uploader = m_request.user;
    photo.uploadTime = m_site.Now();
    photo.facts = file.facts;
    photo.original = {{}, file.original};
    photo.originalName = file.originalName;
    // Somebody else may import the same folder at the same time.
    photo.onceMd5 = file.md5;
}

qint32 ImportFiler::FileBimPhoto(const ExaminedFile& file) {
    site::NewBimPhoto photo;
    photo.ppid = m_request.ppid;
    photo.positionKey = m_request.positionKey;
    photo.markId = m_request.markId;
    SetCommon(photo, file);
    return m_intake->FilePhoto(photo, {{}, file.bytes});
}

qint32 ImportFiler::FilePdfPhoto(const ExaminedFile& file) {
    site::NewPdfPhoto photo;
    photo.checkpointId = m_request.checkpointId;
    SetCommon(photo, file);
    return m_intake->FilePdfPhoto(m_request.ppid, photo, {{}, file.bytes});
}

} // namespace host
