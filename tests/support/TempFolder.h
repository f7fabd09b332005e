// A folder of one test.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace support {

/// Empty at first, removed with all that is in it.
class TempFolder {
public:
    TempFolder();

    /// Without a separator at its end.
    [[nodiscard]] QString Path() const;
    /// Of a file or folder below, existing or not.
    [[nodiscard]] QString Path(const QString& name) const;
    /// Makes a file with the folders above it; gives its path.
    QString Write(const QString& name, const QByteArray& contents) const;
    /// Empty for a file that isn't there.
    [[nodiscard]] QByteArray Read(const QString& name) const;

private:
    QTemporaryDir m_folder;
};

} // namespace support
