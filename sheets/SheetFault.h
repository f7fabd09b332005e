// Why a spreadsheet couldn't be written.
#pragma once

#include <QString>

#include <exception>

namespace sheets {

/// With a sentence for the person: what failed, for which file, what to do next.
class SheetFault final : public std::exception {
public:
    explicit SheetFault(QString sentence) : m_text(std::move(sentence)) {}
    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] const char* what() const noexcept override { return "spreadsheet not written"; }

private:
    QString m_text;
};

/// The person has had enough.
class SheetCancelled final : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "spreadsheet cancelled"; }
};

} // namespace sheets
