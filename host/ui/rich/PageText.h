// One page of a rich text as a source hands it out.
#pragma once

#include <QString>

namespace toolkit {
enum class NoteFault;
}

namespace host {

struct PageText {
    bool isThere = false;
    QString fault;  ///< why it isn't there; may be empty
    QString html;   ///< in the document form
    QString folder; ///< of its pictures
};

/// Why a page can't be shown, as part of a sentence; empty for one that is there.
[[nodiscard]] QString FaultOf(const PageText& page);
/// Why a text can't be read, as part of a sentence; empty without a fault.
[[nodiscard]] QString FaultText(toolkit::NoteFault fault);
/// "无法读取记录：原因。请稍后按 F5 重试。"
[[nodiscard]] QString FaultSentence(const QString& what, QString reason);
/// The folder with "/" at its end.
[[nodiscard]] QString PictureFolder(const QString& folder);

} // namespace host
