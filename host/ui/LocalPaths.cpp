#include "host/ui/LocalPaths.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace host {

QStringList LocalPaths(const QMimeData* data) {
    QStringList paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) {
            paths << url.toLocalFile();
        }
    }
    return paths;
}

bool MayDrop(const QDropEvent& event) {
    return QApplication::activeModalWidget() == nullptr && !LocalPaths(event.mimeData()).isEmpty();
}

} // namespace host
