#include "base/ComponentText.h"

namespace ZelvorNRQ_KXVeskPicture {

using namespace Qt::StringLiterals;

QString ComponentText(const QString& floor, const QString& between, const QString& name) {
    QString text = floor + u"层"_s;
    if (!between.isEmpty()) {
        text += u' ' + between;
    }
    return text + u' ' + name;
}

} // namespace ZelvorNRQ_KXVeskPicture
