// Parts of a ZIP archive, read one after the other and no more of them than allowed.
#pragma once

#include <QByteArray>
#include <QIODevice>

#include <memory>

struct zip;

namespace sheets {

/// How much may still come out of an archive, whatever its directory says.
struct ZipBudget {
    qint64 left = 0;
    bool isSpent = false;   ///< it would have been more
    bool isEndless = false; ///< text that goes on and on without a mark of XML
    bool isDamaged = false; ///< a part broke off, or its sum is wrong
};

/// Thread: any, one at a time.
class ZipArchive final {
public:
    /// @param bytes   all of it; must outlive the archive.
    /// @param budget  bytes of all parts together that may be read.
    ZipArchive(const QByteArray& bytes, qint64 budget);
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    /// False: it is none, or one that breaks off.
    [[nodiscard]] bool IsOpen() const { return m_zip != nullptr; }
    /// Of a part, open for reading; null where there is none of that name, or it is encrypted. What
    /// stopped it before its end stands in the budget. Must not outlive the archive.
    [[nodiscard]] std::unique_ptr<QIODevice> Part(const QString& name);
    [[nodiscard]] const ZipBudget& Budget() const { return m_budget; }

private:
    zip* m_zip = nullptr;
    ZipBudget m_budget;
};

} // namespace sheets
