#include "host/report/PrintPictures.h"

#include "host/report/ReportFile.h"
#include "host/report/ReportOptions.h"
#include "toolkit/media/PictureFile.h"

#include <QDir>
#include <QFileInfo>
#include <QImageWriter>

#include <algorithm>
#include <tuple>

namespace host {

using namespace Qt::StringLiterals;

bool PrintPictures::Wanted::operator<(const Wanted& other) const {
    return std::tuple(file, box.width(), box.height()) <
           std::tuple(other.file, other.box.width(), other.box.height());
}

PrintPictures::PrintPictures(int threads) {
    for (int number = 0; number < threads; ++number) {
        m_threads.emplace_back([this](const std::stop_token& stop) { Serve(stop); });
    }
}

PrintPictures::~PrintPictures() {
    SetReady({});
}

void PrintPictures::SetReady(std::function<void()> listener) {
    const std::lock_guard guard(m_lock);
    m_listener = std::move(listener);
}

PrintPictures::Wanted PrintPictures::WantedOf(const QString& file, const QSizeF& box) {
    return {file, (box * (kPrintDpi / kReportDpi)).toSize().expandedTo(QSize(1, 1))};
}

void PrintPictures::AskFirst(const Wanted& wanted) {
    std::erase_if(m_queue,
                  [&](const Wanted& queued) { return !(queued < wanted) && !(wanted < queued); });
    m_queue.push_front(wanted);
    m_changed.notify_all();
}

const PrintPicture* PrintPictures::Find(const QString& file, const QSizeF& box) {
    const std::lock_guard guard(m_lock);
    const Wanted wanted = WantedOf(file, box);
    if (const auto ready = m_ready.find(wanted); ready != m_ready.end()) {
        return &ready->second;
    }
    AskFirst(wanted);
    return nullptr;
}

void PrintPictures::Prepare(const QString& file, const QSizeF& box) {
    const std::lock_guard guard(m_lock);
    const Wanted wanted = WantedOf(file, box);
    if (!m_ready.contains(wanted)) {
        m_queue.push_back(wanted);
        m_changed.notify_all();
    }
}

PrintPicture PrintPictures::Wait(const QString& file, const QSizeF& box,
                                 const std::stop_token& stop) {
    std::unique_lock guard(m_lock);
    const Wanted wanted = WantedOf(file, box);
    const auto isReady = [&] { return m_ready.contains(wanted); };
    if (!isReady()) {
        AskFirst(wanted);
        if (!m_changed.wait(guard, stop, isReady)) {
            return {};
        }
    }
    const PrintPicture found = m_ready[wanted];
    if (found.isUnkept) {
        m_ready.erase(wanted);
        throw ReportFault(u"无法在临时文件夹“%1”中准备图片，磁盘可能已满。请清理磁盘后重试。"_s.arg(
            QDir::toNativeSeparators(m_folder.path())));
    }
    return found;
}

void PrintPictures::Serve(const std::stop_token& stop) {
    std::unique_lock guard(m_lock);
    while (m_changed.wait(guard, stop, [this] { return !m_queue.empty(); })) {
        const Wanted wanted = m_queue.front();
        m_queue.pop_front();
        if (m_ready.contains(wanted) || !m_making.insert(wanted).second) {
            continue;
        }
        const QString path = m_folder.filePath(u"%1.jpg"_s.arg(++m_made));
        guard.unlock();
        const PrintPicture made = Make(wanted, path);
        guard.lock();
        m_making.erase(wanted);
        m_ready[wanted] = made;
        m_changed.notify_all();
        if (m_listener) {
            m_listener();
        }
    }
}

PrintPicture PrintPictures::Make(const Wanted& wanted, const QString& path) {
    // Opening a pipe would wait for who writes into it.
    const QSize own =
        QFileInfo(wanted.file).isFile() ? toolkit::ReadPictureSize(wanted.file) : QSize();
    if (own.isEmpty()) {
        return {};
    }
    QSize size = own;
    if (own.width() > wanted.box.width() || own.height() > wanted.box.height()) {
        size = own.scaled(wanted.box, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    }
    const QImage image = toolkit::DecodePicture({wanted.file, {}, size, Qt::white});
    if (image.isNull()) {
        return {};
    }
    QImageWriter writer(path, "jpeg");
    writer.setQuality(kPrintQuality);
    return writer.write(image) ? PrintPicture{path, image.size()} : PrintPicture{{}, {}, true};
}

} // namespace host
