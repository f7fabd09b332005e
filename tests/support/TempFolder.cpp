#include "tests/support/TempFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace support {

TempFolder::TempFolder() {
    EXPECT_TRUE(m_folder.isValid()) << m_folder.errorString().toStdString();
}

QString TempFolder::Path() const {
    return m_folder.path();
}

QString TempFolder::Path(const QString& name) const {
    return m_folder.filePath(name);
}

QString TempFolder::Write(const QString& name, const QByteArray& contents) const {
    QString path = Path(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size())
        << "can't write " << path.toStdString();
    return path;
}

QByteArray TempFolder::Read(const QString& name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace support
