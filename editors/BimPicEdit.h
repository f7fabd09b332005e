// What the editor of a BIM photo holds, and what of it may be saved.
#pragma once

#include "services/PicRecords.h"

#include <QString>

#include <vector>

namespace ZelvorNRQ_KXVeskPicture {

/// "Nothing is selected" of an index.
inline constexpr qint32 kNoEntry = -1;

/// Where the photo is, and which of the lists of places were fetched.
struct PicPlace {
    QString floorName;
    QString axisXName;
    QString axisYName;
    std::vector<QString> positionKeys; ///< of the Y box's entries, in their order
    bool floorsLoaded = false; ///< this list was fetched when it dropped down, as the two below
    bool axesXLoaded = false;
    bool axesYLoaded = false;
    bool keysFetched = false; ///< positionKeys are a service's answer, no longer the record's own
};

/// The fields of the editor, without its window. A plain value; copying copies everything.
struct BimPicEdit : PicPlace {
    bool showFlag = true; ///< the position exists in the model; nothing reads it
    qint32 projectId = 0;
    std::vector<qint32> markIds; ///< of the mark box's entries, in their order
    QString picName;             ///< without extension
    QString description;
    /// The labels that the photo carries: names from the record, ids once they were sent.
    std::vector<QString> labelNames;
    qint32 markId = 0;
    qint32 markIndex = kNoEntry;
    qint32 statusIndex = kNoEntry; ///< also the photo's status: 0 shown, 1 hidden
    qint32 axisYIndex = kNoEntry;
    qint32 picId = 0;
    QString newLabel;
    KX_DATA::BimPicRow sourceRecord; ///< as received; empty where a detail was received
    QString extension;               ///< with its dot, in the spelling of the name
};

/// From a row of the console.
[[nodiscard]] BimPicEdit EditOf(const KX_DATA::BimPicRow& row);
/// From the service's detail, with the caller's photo and project in it.
[[nodiscard]] BimPicEdit EditOf(const KX_DATA::BimPicDetail& detail);

[[nodiscard]] QString EditTitle(const BimPicEdit& edit);

/// The entry that shows `wanted`: the first of its name, else the first of all; kNoEntry of none.
[[nodiscard]] qint32 EntryFor(const std::vector<QString>& names, const QString& wanted);
/// The same of Y axes, where the last of the name counts.
[[nodiscard]] qint32 EntryFor(const std::vector<KX_DATA::AxisYEntry>& axes, const QString& wanted);

/// What goes to the service. Trims the name; takes the mark, which a markIndex without an entry
/// leaves as it is, and the ids of the checked labels into the fields, so that a second attempt
/// sends the same.
///
/// Raises NameMissing, StatusMissing, or AxisYWrong where no position key is selected or the
/// service gave an empty one; mark and labels are unchanged then. A photo without a place that
/// nobody gave one keeps its empty key.
[[nodiscard]] KX_DATA::BimPicUpdate TakeUpdate(BimPicEdit& edit,
                                               const std::vector<QString>& checkedIds);

} // namespace ZelvorNRQ_KXVeskPicture
