// The way to a file of a report: how far it is, whether it shall end, and its place taken at last.
#pragma once

#include <QByteArray>
#include <QString>

#include <exception>
#include <functional>
#include <stop_token>

namespace host {

/// Why a report couldn't be made; what() is Chinese in UTF-8: what failed, for which file, and what
/// to do. An empty text: the person cancelled it.
class ReportFault final : public std::exception {
public:
    explicit ReportFault(const QString& sentence) : m_text(sentence.toUtf8()) {}
    [[nodiscard]] const char* what() const noexcept override { return m_text.constData(); }
    [[nodiscard]] QString Text() const { return QString::fromUtf8(m_text); }

private:
    QByteArray m_text;
};

/// What goes with the making of a file.
struct ReportSteps {
    std::stop_token stop;
    /// Told steps done and their number, on the making thread; may be empty.
    std::function<void(int done, int total)> onStep;

    /// Throws an empty ReportFault if it shall end.
    void Next(int done, int total) const;
};

/// A file that stands beside its final name until it is whole. Thread: one.
class ReportFile final {
public:
    /// Throws ReportFault where nothing can be written.
    explicit ReportFile(const QString& finalPath);
    /// Leaves nothing behind but a committed file.
    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    /// To be written to by whoever makes it.
    [[nodiscard]] const QString& WorkPath() const { return m_workPath; }
    /// Another such name, for a second pass.
    [[nodiscard]] QString SecondPath() const { return m_workPath + QStringLiteral("2"); }
    /// Puts the file at `path`, WorkPath or SecondPath, in place of what bore the final name.
    /// Throws ReportFault, and what was there stays.
    void Commit(const QString& path);
    /// Nothing more can be written. What the system calls the reason isn't always Chinese.
    [[nodiscard]] ReportFault
    WriteFault(const QString& reason = QStringLiteral("写入失败，磁盘可能已满或已断开")) const;

private:
    const QString m_finalPath;
    QString m_workPath;
};

} // namespace host
