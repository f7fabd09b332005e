// Another client, in a process of its own, that files when it is told to.
#pragma once

#include <QProcess>
#include <QString>

namespace bench {

/// Of a clock that all processes of the machine share.
[[nodiscard]] qint64 SteadyNanoseconds();

class ToastPhone final {
public:
    explicit ToastPhone(const QString& folder);
    ~ToastPhone() { End(); }

    /// When the commit of a photo was over; 0: it failed.
    [[nodiscard]] qint64 FileOne();
    /// "photos" or "issues", in one commit; returns at once.
    [[nodiscard]] bool FileMany(int count, const QString& kind);
    void End();

private:
    QProcess m_process;
};

/// The other process. @return  exit code.
[[nodiscard]] int RunToastPhone(const QString& folder);

} // namespace bench
