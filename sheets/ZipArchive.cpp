#include "sheets/ZipArchive.h"

#include <QByteArrayView>

#include <algorithm>
#include <zip.h>

namespace sheets {

namespace {

class ArchivePart final : public QIODevice {
public:
    ArchivePart(zip_file_t* file, ZipBudget& budget) : m_file(file), m_budget(budget) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    ~ArchivePart() override { zip_fclose(m_file); }
    ArchivePart(const ArchivePart&) = delete;
    ArchivePart& operator=(const ArchivePart&) = delete;

    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 got = zip_fread(m_file, data, zip_uint64_t(std::max<qint64>(most, 0)));
        m_budget.isDamaged = m_budget.isDamaged || got < 0;
        if (got > 0) {
            m_budget.left -= got;
            m_budget.isSpent = m_budget.isSpent || m_budget.left < 0;
            m_budget.isEndless = m_budget.isEndless || IsEndless({data, got});
        }
        return got <= 0 || m_budget.isSpent || m_budget.isEndless ? -1 : got;
    }
    qint64 writeData(const char* /*data*/, qint64 /*most*/) override { return -1; }

private:
    /// A reader of XML keeps all that comes before the next mark.
    bool IsEndless(QByteArrayView bytes) {
        constexpr qsizetype kMostBetweenMarks = 1024 * 1024;
        const qsizetype mark = bytes.lastIndexOf('<');
        m_sinceMark = mark < 0 ? m_sinceMark + bytes.size() : bytes.size() - mark;
        return m_sinceMark > kMostBetweenMarks;
    }

    zip_file_t* m_file;
    ZipBudget& m_budget;
    qsizetype m_sinceMark = 0;
};

} // namespace

ZipArchive::ZipArchive(const QByteArray& bytes, qint64 budget) : m_budget{budget} {
    zip_source_t* const source =
        zip_source_buffer_create(bytes.constData(), zip_uint64_t(bytes.size()), 0, nullptr);
    if (source != nullptr) {
        m_zip = zip_open_from_source(source, ZIP_RDONLY, nullptr);
        if (m_zip == nullptr) {
            zip_source_free(source);
        }
    }
}

ZipArchive::~ZipArchive() {
    if (m_zip != nullptr) {
        zip_discard(m_zip);
    }
}

std::unique_ptr<QIODevice> ZipArchive::Part(const QString& name) {
    zip_file_t* const file =
        m_zip != nullptr ? zip_fopen(m_zip, name.toUtf8().constData(), ZIP_FL_NOCASE) : nullptr;
    return file != nullptr ? std::make_unique<ArchivePart>(file, m_budget) : nullptr;
}

} // namespace sheets
