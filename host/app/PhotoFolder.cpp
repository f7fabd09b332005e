#include "host/app/PhotoFolder.h"

#include "host/import/FileExamination.h"
#include "host/import/FolderWalk.h"
#include "host/import/ImageSniff.h"

#include <QFileInfo>

namespace host {

using namespace Qt::StringLiterals;

namespace {

bool HasJpegEnding(const QString& path) {
    static const QStringList endings = {u"jpg"_s, u"jpeg"_s, u"jpe"_s, u"jfif"_s};
    return endings.contains(QFileInfo(path).suffix().toLower());
}

} // namespace

PhotoFolder::PhotoFolder(const QString& folder, Refused onRefused)
    : m_refused(std::move(onRefused)) {
    WalkFolder({folder}, [this](const QString& path) {
        if (HasJpegEnding(path)) {
            m_paths << path;
        }
        return true;
    });
}

std::optional<QByteArray> PhotoFolder::Next() {
    while (!m_paths.isEmpty()) {
        m_next %= m_paths.size();
        ExaminedFile file = ExamineFile(m_paths[m_next]);
        if (file.refusal.isEmpty() && SniffImage(file.bytes) != ImageKind::Jpeg) {
            file.refusal = u"内容不是 JPEG，虽然扩展名是 ."_s + QFileInfo(file.path).suffix();
        }
        if (file.refusal.isEmpty()) {
            ++m_next;
            return file.bytes;
        }
        m_refused(file.path, file.refusal);
        m_paths.removeAt(m_next);
    }
    return std::nullopt;
}

} // namespace host
