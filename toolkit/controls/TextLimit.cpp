#include "toolkit/controls/TextLimit.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>
#include <QVariant>

#include <algorithm>

namespace toolkit {

namespace {

constexpr const char* kMostCharacters = "mostCharacters";

/// A document counts one character more than it has.
int LengthOf(const QTextDocument& document) {
    return document.characterCount() - 1;
}

/// Takes out what was typed, pasted or dropped last: it stands before the cursor. A text that code
/// has set leaves the cursor at its start and loses its end.
void Shorten(QPlainTextEdit& box, int most) {
    const int excess = LengthOf(*box.document()) - most;
    if (excess <= 0) {
        return;
    }
    QTextCursor cursor = box.textCursor();
    const int end = cursor.position() >= excess ? cursor.position() : LengthOf(*box.document());
    int begin = end - excess;
    if (box.document()->characterAt(begin).isLowSurrogate()) {
        --begin;
    }
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    // One step of undo takes both back.
    cursor.joinPreviousEditBlock();
    cursor.removeSelectedText();
    cursor.endEditBlock();
}

} // namespace

void LimitText(QLineEdit& box, int characters) {
    box.setMaxLength(std::max(characters, int(box.text().size())));
}

void LimitText(QPlainTextEdit& box, int characters) {
    const bool isLimited = box.property(kMostCharacters).isValid();
    box.setProperty(kMostCharacters, std::max(characters, LengthOf(*box.document())));
    if (!isLimited) {
        QObject::connect(&box, &QPlainTextEdit::textChanged, &box,
                         [&box] { Shorten(box, box.property(kMostCharacters).toInt()); });
    }
}

} // namespace toolkit
