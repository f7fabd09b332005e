// The JPEGs of a folder, in turn.
#pragma once

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <optional>

namespace host {

/// Files of other endings are passed over; those that can't be read are told once and left out.
/// Thread: any one.
class PhotoFolder final {
public:
    using Refused = std::function<void(const QString& path, const QString& reason)>;

    /// @param onRefused  is told, in Chinese, of each file that is left out.
    PhotoFolder(const QString& folder, Refused onRefused);

    [[nodiscard]] bool IsEmpty() const { return m_paths.isEmpty(); }
    /// The whole file as it is; behind the last comes the first again. Nothing once all are left
    /// out.
    [[nodiscard]] std::optional<QByteArray> Next();

private:
    QStringList m_paths;
    qsizetype m_next = 0;
    Refused m_refused;
};

} // namespace host
