// Everything that can go wrong in the module, with its one fixed message.
#pragma once

#include <QString>

namespace ZelvorNRQ_KXVeskPicture {

/// Raised by value in dialog code, shown by the handler's guard.
enum class e_VeskPicMngStatus : qint32 {
    MarksFailed = 2,
    PicInfoFailed = 3,
    DeleteFailed = 4,
    ChangeStatusFailed = 5,
    PicDeleted = 6,
    FloorsFailed = 7,
    AxesFailed = 8,
    NameMissing = 9,
    StatusMissing = 10,
    FloorWrong = 11,
    AxisXWrong = 12,
    AxisYWrong = 13,
    UpdateFailed = 14,
    AddLabelFailed = 15,
    LabelEmpty = 16,
    LabelExists = 17,
    LabelsFailed = 18,
    AddressFailed = 19,
    NoPicInfo = 20,
    NothingToDelete = 21,
    CommentEmpty = 22,
    CommentFailed = 23,
    DeleteCommentFailed = 24,
    CheckpointFailed = 25,
    CommentsFailed = 26,
    DrawingFailed = 27,
    UpdateCheckpointFailed = 28,
    PicHidden = 29,
    DisplayOff = 30,
    UuidEmpty = 31,
    DownloadFailed = 32,
    PicLabelsFailed = 33,
};

/// The catalogue's message; "出现未知错误！" for every value without one of its own.
[[nodiscard]] QString GetStatusMessage(e_VeskPicMngStatus status);

} // namespace ZelvorNRQ_KXVeskPicture
