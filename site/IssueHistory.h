// What was done to an issue, line by line.
#pragma once

#include <QString>

namespace site {

/// Numbers as they are stored.
enum class IssueDeed : int {
    Raised = 0,
    Subject = 1,
    Description = 2,
    Mark = 3,   ///< texts: names of the marks, the number of one that has none
    Status = 4, ///< "显示", "隐藏"
    Component = 5,
    QrCode = 6,
    PicsAdded = 7,   ///< new text: the names of the pictures; count: how many
    PicsRemoved = 8, ///< old text: the names of the pictures; count: how many
    RectifyText = 9,
    RectifyState = 10, ///< texts: names of the states
    RectifyPicsAdded = 11,
    RectifyPicsRemoved = 12,
};

/// One line: one thing that one save changed.
struct IssueChange {
    qint64 at = 0; ///< seconds since 1970
    QString person;
    IssueDeed deed = IssueDeed::Raised; ///< may be a number that this client doesn't know
    QString oldText;
    QString newText;
    int count = 0; ///< of pictures
};

} // namespace site
