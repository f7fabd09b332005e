#include "base/PicNames.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ZelvorNRQ_KXVeskPicture {

namespace {

/// Bytes that a base may take: file systems allow 255 for a name, and number, extension and the
/// temporary name of a copy need some.
constexpr qsizetype kMostBaseBytes = 220;

bool IsRefused(QChar character) {
    return character.unicode() < 0x20 || character.unicode() == 0x7F ||
           u"\\/:*?\"<>|"_s.contains(character);
}

} // namespace

bool IsPicExtension(const QString& extension) {
    static const QStringList known{u"jpg"_s, u"jpeg"_s, u"png"_s, u"bmp"_s, u"gif"_s};
    return known.contains(extension, Qt::CaseInsensitive);
}

void SplitPicName(const QString& name, QString& base, QString& extension, bool withDot) {
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString behind = dot < 0 ? QString() : name.mid(dot + 1);
    const bool known = IsPicExtension(behind);
    const QString before = known ? name.left(dot) : name;
    // The outs may be the name itself, which isn't read any more.
    base = before;
    extension = (withDot ? u"."_s : QString()) + (known ? behind : u"jpg"_s);
}

QString SafeFileName(const QString& name) {
    QString safe = name;
    std::replace_if(safe.begin(), safe.end(), IsRefused, QChar(u'_'));
    while (safe.toUtf8().size() > kMostBaseBytes) {
        safe.chop(safe.back().isLowSurrogate() ? 2 : 1);
    }
    const bool onlyDots =
        std::all_of(safe.cbegin(), safe.cend(), [](QChar character) { return character == u'.'; });
    return onlyDots ? u"_"_s : safe;
}

QString CopyTarget(const QString& folder, const QString& base, int number,
                   const QString& extension) {
    const QString counted = number == 0 ? QString() : u"(%1)"_s.arg(number);
    return folder + u'/' + SafeFileName(base) + counted + u'.' + extension;
}

} // namespace ZelvorNRQ_KXVeskPicture
