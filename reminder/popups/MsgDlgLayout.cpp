#include "reminder/popups/MsgDlgLayout.h"

#include <array>

namespace reminder {

namespace {

constexpr int kIssueShift = 8;

// In dialog units: a quarter of a character's width, an eighth of its height.
constexpr QSize kSize{171, 185};
constexpr std::array<QRect, kMsgParts> kPlaces{{
    {18, 9, 139, 8},
    {18, 24, 139, 8},
    {18, 39, 139, 8},
    {18, 54, 139, 8},
    {18, 69, 139, 8},
    {18, 84, 139, 8},
    {45, 91, 102, 66},
    {62, 165, 50, 14},
}};

int Pixels(int units, int base, int parts) {
    return (units * base + parts / 2) / parts;
}

QSize Pixels(const QSize& units, const DialogBase& base) {
    return {Pixels(units.width(), base.width, 4), Pixels(units.height(), base.height, 8)};
}

} // namespace

QSize MsgDlgSize(const DialogBase& base) {
    return Pixels(kSize, base);
}

QRect PlaceOf(MsgPart part, bool isIssue, const DialogBase& base) {
    const QRect& units = kPlaces[size_t(part)];
    QRect place(QPoint(Pixels(units.x(), base.width, 4), Pixels(units.y(), base.height, 8)),
                Pixels(units.size(), base));
    if (isIssue && part == MsgPart::Second) {
        place.translate(0, kIssueShift);
    } else if (isIssue && part == MsgPart::Fourth) {
        place.translate(0, -kIssueShift);
    }
    return place;
}

} // namespace reminder
