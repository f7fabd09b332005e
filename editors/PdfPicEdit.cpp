#include "editors/PdfPicEdit.h"

#include "base/PicNames.h"
#include "base/Status.h"

namespace ZelvorNRQ_KXVeskPicture {

PdfPicEdit EditOf(const KX_DATA::PdfPicRecord& record) {
    PdfPicEdit edit;
    edit.projectId = record.ppid;
    // An ending that is no picture's stays in the base and gets ".jpg" behind it; required as is.
    SplitPicName(record.fileName, edit.picName, edit.extension, true);
    edit.pic = record;
    return edit;
}

KX_DATA::PdfPicUpdate TakeUpdate(PdfPicEdit& edit, qint32 pointId) {
    // A name of blanks is one here, unlike in the editor of BIM photos; required as is.
    if (edit.picName.isEmpty()) {
        throw e_VeskPicMngStatus::NameMissing;
    }
    edit.pic.drawingId = pointId;
    KX_DATA::PdfPicUpdate update;
    update.pointId = pointId;
    update.description = edit.description;
    update.picId = edit.pic.picId;
    update.drawingId = edit.drawingId;
    update.fileName = edit.picName + edit.extension;
    update.status = edit.statusIndex;
    return update;
}

} // namespace ZelvorNRQ_KXVeskPicture
