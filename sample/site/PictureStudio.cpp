#include "sample/site/PictureStudio.h"

#include <QFile>
#include <QRegularExpression>

namespace sample {

using namespace Qt::StringLiterals;

namespace {
constexpr int kWorkers = 2;
}

PictureStudio::PictureStudio(const std::vector<PictureOrder>& toDraw, QString target)
    : orders(toDraw), folder(std::move(target)) {
    for (int worker = 0; worker < kWorkers; ++worker) {
        workers.emplace_back([this](const std::stop_token& stop) { Work(stop); });
    }
}

PictureStudio::~PictureStudio() {
    for (std::jthread& worker : workers) {
        worker.request_stop();
    }
}

QString PictureStudio::FilePath(size_t order) const {
    return u"%1/%2.jpg"_s.arg(folder).arg(order);
}

bool PictureStudio::IsDrawnName(const QString& name) {
    static const QRegularExpression numbered(u"\\A[0-9]+\\.jpg\\z"_s);
    return numbered.match(name).hasMatch();
}

bool PictureStudio::DrawOne(PictureArtist& artist, size_t index) const {
    const QByteArray bytes = artist.PaintJpeg(orders[index]);
    QFile file(FilePath(index));
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.flush();
}

void PictureStudio::Work(const std::stop_token& stop) {
    PictureArtist artist;
    while (!stop.stop_requested() && !failed) {
        const size_t index = next.fetch_add(1);
        if (index >= orders.size()) {
            return;
        }
        if (!DrawOne(artist, index)) {
            failed = true;
        }
        {
            const std::scoped_lock guard(lock);
            ++drawn;
        }
        changed.notify_all();
    }
}

int PictureStudio::WaitForNews(std::chrono::milliseconds time) {
    std::unique_lock guard(lock);
    changed.wait_for(guard, time, [this] { return drawn == orders.size() || failed; });
    return static_cast<int>(drawn);
}

} // namespace sample
