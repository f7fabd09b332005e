// Failures of the data folder: what went wrong, and the sentence that a person reads.
#pragma once

#include <QString>

#include <stdexcept>

namespace site {

enum class Fault {
    kNotWritable,
    kLocked, ///< another process holds the database for longer than the busy timeout
    kNewer,  ///< written by a later version of the client
    kDamaged,
    kNotASite, ///< a folder with other things in it
    kDiskFull,
    kBadName,   ///< a uuid or file name that must not reach the file system
    kMissing,   ///< a file or record that should be there is not
    kRefused,   ///< a constraint of the database
    kTooSlow,   ///< past the deadline of the question
    kCancelled, ///< whoever asked has had enough
    kOther,
};

/// Thrown inside site/; never leaves a service.
class DataError final : public std::runtime_error {
public:
    /// `text` is Chinese, complete, and says what to do; `detail` is for the log.
    DataError(Fault fault, QString text, const QString& detail = {});

    [[nodiscard]] Fault GetFault() const { return fault; }
    [[nodiscard]] const QString& Text() const { return text; }

private:
    Fault fault;
    QString text;
};

/// The sentence for a fault, in Chinese; `what` names the operation or file, may be empty.
[[nodiscard]] QString FaultText(Fault fault, const QString& what);

} // namespace site
