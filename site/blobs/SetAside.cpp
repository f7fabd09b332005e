#include "site/blobs/SetAside.h"

#include "site/blobs/FolderLook.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>

namespace site {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNamesTold = 5;

/// `path`, or where that is taken, the first of "path (2)", "path (3)" that isn't.
QString FreePath(const QString& path) {
    QString free = path;
    for (int number = 2; IsThere(free); ++number) {
        free = u"%1 (%2)"_s.arg(path, QString::number(number));
    }
    return free;
}

QString Names(const QStringList& names) {
    const QString some = names.mid(0, kNamesTold).join(u"、"_s);
    return names.size() > kNamesTold ? u"%1 等 %2 项"_s.arg(some, QString::number(names.size()))
                                     : some;
}

} // namespace

SetAside::SetAside(QString root, QString today)
    : m_root(std::move(root)), m_place(place::kSetAside + u'/' + today) {}

bool SetAside::Take(const QString& entry) {
    const QString from = m_root + u'/' + entry;
    if (!IsThere(from)) {
        return true;
    }
    const QString to = m_root + u'/' + m_place + u'/' + entry;
    std::error_code error = std::make_error_code(std::errc::permission_denied);
    if (!QFileInfo(m_root + u'/' + place::kSetAside).isSymLink() &&
        QDir().mkpath(QFileInfo(to).path())) {
        std::filesystem::rename(from.toStdU16String(), FreePath(to).toStdU16String(), error);
    }
    (error ? m_left : m_taken).append(entry);
    return !error;
}

QString SetAside::Story() const {
    QStringList sentences;
    if (!m_taken.isEmpty()) {
        sentences
            << u"数据文件夹里有不属于站点的内容（%1），没有删除，已移到 %2，请查看后自行处理。"_s
                   .arg(Names(m_taken), QDir::toNativeSeparators(m_root + u'/' + m_place));
    }
    if (!m_left.isEmpty()) {
        sentences << u"数据文件夹里有不属于站点的内容（%1），未能移走，仍在 %2 中，请自行移走。"_s
                         .arg(Names(m_left), QDir::toNativeSeparators(m_root));
    }
    return sentences.join(u'\n');
}

} // namespace site
