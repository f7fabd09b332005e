#include "site/RectifyStates.h"

#include <array>

namespace site {

using namespace Qt::StringLiterals;

namespace {

const std::array<QString, kStateCount>& Names() {
    static const std::array<QString, kStateCount> names{u"未整改"_s, u"整改中"_s, u"已整改"_s,
                                                        u"无需整改"_s};
    return names;
}

} // namespace

std::vector<QString> StateNames() {
    std::vector<QString> names{u"全部"_s};
    names.insert(names.end(), Names().begin(), Names().end());
    return names;
}

QString StateName(qint32 state) {
    return state >= 0 && state < kStateCount ? Names()[static_cast<size_t>(state)] : QString();
}

qint32 StateFromName(const QString& name) {
    for (qint32 state = 0; state < kStateCount; ++state) {
        if (Names()[static_cast<size_t>(state)] == name) {
            return state;
        }
    }
    return kStateUnknown;
}

} // namespace site
