#include "sample/site/PictureStudio.h"

#include <QFile>
#include <QRegularExpression>

namespace sample {

using namespace Qt::StringLiterals;

namespace {
constexpr int kWorkers = 2;
}

PictureStudio::PictureStudio(const std::vector<PictureOrder>& toDraw, QString target)
    : m_orders(toDraw), m_folder(std::move(target)) {
    for (int worker = 0; worker < kWorkers; ++worker) {
        m_workers.emplace_back([this](const std::stop_token& stop) { Work(stop); });
    }
}

PictureStudio::~PictureStudio() {
    for (std::jthread& worker : m_workers) {
        worker.request_stop();
    }
}

QString PictureStudio::FilePath(size_t order) const {
    return u"%1/%2.jpg"_s.arg(m_folder).arg(order);
}

bool PictureStudio::IsDrawnName(const QString& name) {
    static const QRegularExpression numbered(u"\\A[0-9]+\\.jpg\\z"_s);
    return numbered.match(name).hasMatch();
}

bool PictureStudio::DrawOne(PictureArtist& artist, size_t index) const {
    const QByteArray bytes = artist.PaintJpeg(m_orders[index]);
    QFile file(FilePath(index));
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.flush();
}

void PictureStudio::Work(const std::stop_token& stop) {
    PictureArtist artist;
    while (!stop.stop_requested() && !m_failed) {
        const size_t index = m_next.fetch_add(1);
        if (index >= m_orders.size()) {
            return;
        }
        if (!DrawOne(artist, index)) {
            m_failed = true;
        }
        {
            const std::scoped_lock guard(m_lock);
            ++m_drawn;
        }
        m_changed.notify_all();
    }
}

int PictureStudio::WaitForNews(std::chrono::milliseconds time) {
    std::unique_lock guard(m_lock);
    m_changed.wait_for(guard, time, [this] { return m_drawn == m_orders.size() || m_failed; });
    return static_cast<int>(m_drawn);
}

} // namespace sample
