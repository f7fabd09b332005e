// What the editor of a drawing photo holds, and what of it is saved.
#pragma once

#include "services/PicRecords.h"

#include <QString>

#include <map>

namespace ZelvorNRQ_KXVeskPicture {

/// The fields of the editor, without its window. A plain value; copying copies everything.
struct PdfPicEdit {
    qint32 projectId = 0;
    QString picName; ///< without extension
    QString description;
    QString checkLabel;        ///< nothing sets it; required as is
    qint32 drawingId = 0;      ///< of the drawing that is shown
    qint32 statusIndex = 0;    ///< also the photo's status: 0 shown, 1 hidden
    KX_DATA::PdfPicRecord pic; ///< as received; its drawingId is the checkpoint's id
    /// Number of each checkpoint that the box of places holds, by its id; nothing reads it.
    std::map<qint32, qint32> pointNumbers;
    QString extension; ///< with its dot, in the spelling of the name
};

/// From a row of the console.
[[nodiscard]] PdfPicEdit EditOf(const KX_DATA::PdfPicRecord& record);

/// What goes to the service; takes the checkpoint into the fields, so that a second attempt sends
/// the same. Raises NameMissing for an empty name, with nothing changed.
/// @param pointId  the checkpoint that is selected.
[[nodiscard]] KX_DATA::PdfPicUpdate TakeUpdate(PdfPicEdit& edit, qint32 pointId);

} // namespace ZelvorNRQ_KXVeskPicture
