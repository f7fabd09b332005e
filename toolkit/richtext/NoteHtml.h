// The document form of rich text: what of any HTML it allows.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QString>
#include <QStringView>

#include <functional>

namespace toolkit {

/// How a link to an attachment begins; the store name follows, then "/" and the name of the file as
/// it was attached, percent-encoded (RFC 3986).
inline const QString kAttachmentScheme = QStringLiteral("attachment:");

/// Name of a file beside a document: MD5 of its content in 32 lower-case hexadecimal digits, then
/// its ending with the dot, if it has one.
[[nodiscard]] TOOLKIT_EXPORT bool IsStoreName(QStringView name);

/// What a link of a document may lead to: the web, mail, an attachment.
[[nodiscard]] TOOLKIT_EXPORT bool IsLinkAllowed(const QString& address);

/// Gives what a document may call the file that stands under an address: the store name of a
/// picture or the address of an attachment; nothing for one that isn't brought into the document.
using KeepFile = std::function<QString(const QString& address)>;

enum class NoteFault {
    None,
    TooLarge, ///< more than kMostNoteCharacters, or more than kMostNoteCells
    TooDeep,  ///< elements more than kMostNoteDepth inside each other
};

/// UTF-16 units of HTML; pictures are files of their own.
inline constexpr qsizetype kMostNoteCharacters = qsizetype(32) * 1024 * 1024;
inline constexpr int kMostNoteDepth = 400;
/// Of all tables together.
inline constexpr size_t kMostNoteCells = 100'000;

/// In each other; of a table further in the content stays.
inline constexpr size_t kMostNestedTables = 6;

struct CleanedNote {
    QString html; ///< empty with a fault
    NoteFault fault = NoteFault::None;
};

/// Brings any HTML, also a damaged one, into the document form: text, its looks, headings, lists,
/// tables, rules, links and pictures. Nothing in it loads from elsewhere, runs, or speaks of other
/// than its own element: scripts, style sheets, forms and embedded documents go with what is in
/// them, of other unknown elements the content stays. Links lead to web pages, mail addresses and
/// attachments ("attachment:" and a store name); a picture is a store name. What `keepFile`
/// doesn't keep of both goes; of a picture its text instead stays, of an attachment its words.
///
/// A document that is in the form already comes out with the same content. The time is linear in
/// the length. Thread: any.
[[nodiscard]] TOOLKIT_EXPORT CleanedNote CleanNoteHtml(const QString& html,
                                                       const KeepFile& keepFile = {});

} // namespace toolkit
