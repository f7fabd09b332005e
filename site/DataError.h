// Failures of the data folder: what went wrong, and the sentence that a person reads.
#pragma once

#include <QString>

#include <stdexcept>

namespace site {

enum class Fault {
    NotWritable,
    Locked, ///< another process holds the database for longer than the busy timeout
    Newer,  ///< written by a later version of the client
    Damaged,
    NotASite, ///< a folder with other things in it
    DiskFull,
    BadName,   ///< a uuid or file name that must not reach the file system
    Missing,   ///< a file or record that should be there is not
    Refused,   ///< a constraint of the database
    TooSlow,   ///< past the deadline of the question
    Cancelled, ///< whoever asked has had enough
    Other,
};

/// Thrown inside site/; never leaves a service.
class DataError final : public std::runtime_error {
public:
    /// `text` is Chinese, complete, and says what to do; `detail` is for the log.
    DataError(Fault fault, QString text, const QString& detail = {});

    [[nodiscard]] Fault GetFault() const { return m_fault; }
    [[nodiscard]] const QString& Text() const { return m_text; }

private:
    Fault m_fault;
    QString m_text;
};

/// The sentence for a fault, in Chinese; `what` names the operation or file, may be empty.
[[nodiscard]] QString FaultText(Fault fault, const QString& what);

} // namespace site
