#include "sample/Lettering.h"

#include <QStringList>

#include <algorithm>

namespace sample {

using namespace Qt::StringLiterals;

QFont SiteFont(int pixels, bool bold) {
    QFont font;
    font.setFamilies({u"WenQuanYi Micro Hei"_s, u"Noto Sans CJK SC"_s, u"WenQuanYi Zen Hei"_s,
                      u"Droid Sans Fallback"_s});
    font.setPixelSize(std::max(4, pixels));
    font.setBold(bold);
    return font;
}

} // namespace sample
