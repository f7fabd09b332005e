// A numbered set of small images of one size.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QIcon>
#include <QSize>

#include <map>

namespace toolkit {

/// Images by index, drawn sharp at every scale.
class TOOLKIT_EXPORT ImageList {
public:
    explicit ImageList(QSize size = QSize(16, 16)) : m_size(size) {}

    void Set(int index, const QIcon& icon) { m_icons[index] = icon; }
    /// A null icon for an index that has none.
    [[nodiscard]] QIcon At(int index) const;
    /// Device-independent pixels.
    [[nodiscard]] QSize ImageSize() const { return m_size; }
    [[nodiscard]] bool IsEmpty() const { return m_icons.empty(); }

private:
    QSize m_size;
    std::map<int, QIcon> m_icons;
};

} // namespace toolkit
