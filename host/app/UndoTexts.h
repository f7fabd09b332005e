// How the undoing of a deed reads.
#pragma once

#include "host/services/DoneDeed.h"

#include <QString>

#include <vector>

namespace host {

/// "删除 3 张照片": of what and how many, as the record of actions has it too.
[[nodiscard]] QString DeedName(DeedKind kind, site::BinKind what, size_t count);
/// The message with the offer: "已删除 3 张照片。"
[[nodiscard]] QString DoneText(const DoneDeed& deed);
/// What the offer does, with the names of the first few.
[[nodiscard]] QString UndoTip(const DoneDeed& deed);
/// Some that couldn't be brought back, by name: `gone` of a deed, of which `back` came back.
[[nodiscard]] QString GoneText(const DoneDeed& deed, const std::vector<DeedItem>& gone,
                               size_t back);
/// Nothing was there to be undone: others have the status already.
[[nodiscard]] QString NothingLeftText(const DoneDeed& deed);
/// How the message of a fault begins.
[[nodiscard]] QString UndoFaultHead(const DoneDeed& deed);
/// The right of IKXAuthMng.h that the deed takes, and its undoing too; 0: none.
[[nodiscard]] qint32 RightFor(DeedKind kind, site::BinKind what);
[[nodiscard]] QString NoRightText(const DoneDeed& deed);

} // namespace host
