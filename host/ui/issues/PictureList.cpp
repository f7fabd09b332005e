#include "host/ui/issues/PictureList.h"

#include "host/ui/issues/PictureCheck.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/media/PictureFile.h"

#include <QAction>
#include <QFileInfo>
#include <QListWidget>
#include <QPixmap>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kThumbnail(96, 72);

} // namespace

QImage ReducedPicture(const QString& path, const QSize& size) {
    const QSize whole = toolkit::ReadPictureSize(path);
    if (whole.isEmpty()) {
        return {};
    }
    const bool fits = whole.width() <= size.width() && whole.height() <= size.height();
    const QSize wanted =
        fits ? whole : whole.scaled(size, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return toolkit::DecodePicture({path, {}, wanted});
}

PictureList::PictureList(QListWidget& list) : m_list(list) {
    m_list.setViewMode(QListView::IconMode);
    m_list.setIconSize(kThumbnail);
    m_list.setGridSize(kThumbnail + QSize(16, 16 + m_list.fontMetrics().height()));
    m_list.setMovement(QListView::Static);
    m_list.setResizeMode(QListView::Adjust);
    m_list.setTextElideMode(Qt::ElideMiddle);
    m_list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list.setUniformItemSizes(true);
    auto* remove = new QAction(toolkit::Icon(u"delete"_s), u"移除"_s, &m_list);
    remove->setShortcut(QKeySequence::Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    m_list.addAction(remove);
    m_list.setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(remove, &QAction::triggered, this, &PictureList::RemoveSelected);
    m_decoding.setInterval(0);
    connect(&m_decoding, &QTimer::timeout, this, &PictureList::DecodeNext);
}

QString PictureList::Add(const QStringList& paths) {
    QStringList lacks;
    for (const QString& path : paths) {
        const bool isThere = std::any_of(m_pictures.begin(), m_pictures.end(),
                                         [&](const auto& other) { return other.path == path; });
        if (isThere) {
            continue;
        }
        if (const QString lack = PictureLack(path); !lack.isEmpty()) {
            lacks << lack;
            continue;
        }
        m_pictures.push_back({path, {}});
        auto* item = new QListWidgetItem(toolkit::Icon(u"photo"_s), QFileInfo(path).fileName());
        item->setToolTip(toolkit::PlainTip(path));
        m_list.addItem(item);
        m_decoding.start();
    }
    emit Changed();
    return lacks.isEmpty() ? QString() : u"没有添加："_s + lacks.join(u"；"_s) + u"。"_s;
}

void PictureList::RemoveSelected() {
    for (int row = m_list.count() - 1; row >= 0; --row) {
        if (m_list.item(row)->isSelected()) {
            delete m_list.takeItem(row);
            m_pictures.erase(m_pictures.begin() + row);
        }
    }
    emit Changed();
}

void PictureList::DecodeNext() {
    const auto next = std::find_if(m_pictures.begin(), m_pictures.end(),
                                   [](const auto& picture) { return picture.reduced.isNull(); });
    if (next == m_pictures.end()) {
        m_decoding.stop();
        return;
    }
    next->reduced = ReducedPicture(next->path, kReduced);
    if (next->reduced.isNull()) {
        // It said that it was one; the person is told when the issue is filed.
        next->reduced = QImage(1, 1, QImage::Format_RGB32);
        next->reduced.fill(Qt::white);
        return;
    }
    const qreal ratio = m_list.devicePixelRatioF();
    QPixmap icon = QPixmap::fromImage(
        next->reduced.scaled(kThumbnail * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    icon.setDevicePixelRatio(ratio);
    m_list.item(int(next - m_pictures.begin()))->setIcon(QIcon(icon));
}

} // namespace host
