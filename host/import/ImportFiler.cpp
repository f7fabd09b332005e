#include "host/import/ImportFiler.h"

#include "site/DataError.h"
#include "site/IIntake.h"

namespace host {

using namespace Qt::StringLiterals;

ImportFiler::ImportFiler(site::ISite& site, ImportRequest target)
    : intake(site.NewIntake()), request(std::move(target)) {}

ImportLine ImportFiler::File(const ExaminedFile& file) {
    if (!file.refusal.isEmpty()) {
        return {file.path, ImportOutcome::kRefused, file.refusal};
    }
    try {
        if (intake->FindPhotoByMd5(request.ppid, file.md5) != 0) {
            return {file.path, ImportOutcome::kDuplicate, u"工程中已有相同的照片"_s};
        }
        site::NewBimPhoto photo;
        photo.ppid = request.ppid;
        photo.fileName = file.displayName;
        photo.positionKey = request.positionKey;
        photo.markId = request.markId;
        photo.uploader = request.user;
        photo.uploadTime = file.time;
        intake->FilePhoto(photo, {{}, file.bytes});
        return {file.path, ImportOutcome::kFiled, photo.fileName};
    } catch (const site::DataError& error) {
        const bool onlyThisFile = error.GetFault() == site::Fault::kBadName;
        return {file.path, onlyThisFile ? ImportOutcome::kRefused : ImportOutcome::kFailed,
                error.Text()};
    }
}

} // namespace host
