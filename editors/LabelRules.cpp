#include "editors/LabelRules.h"

#include <algorithm>

namespace ZelvorNRQ_KXVeskPicture {

namespace {

constexpr QChar kBlank = u' ';

} // namespace

bool HasBlank(const QString& text) {
    return text.contains(kBlank);
}

TypedText WithoutFirstBlank(const TypedText& typed) {
    const qsizetype blank = typed.text.indexOf(kBlank);
    TypedText rest = typed;
    if (blank < 0) {
        return rest;
    }
    rest.text.remove(blank, 1);
    if (blank < rest.cursor) {
        --rest.cursor;
    }
    return rest;
}

std::optional<e_VeskPicMngStatus> NewLabelFault(const QString& label,
                                                const std::vector<QString>& present) {
    if (label.isEmpty()) {
        return e_VeskPicMngStatus::LabelEmpty;
    }
    if (std::find(present.begin(), present.end(), label) != present.end()) {
        return e_VeskPicMngStatus::LabelExists;
    }
    return std::nullopt;
}

} // namespace ZelvorNRQ_KXVeskPicture
