#include "toolkit/ImageList.h"

namespace toolkit {

QIcon ImageList::At(int index) const {
    const auto found = m_icons.find(index);
    return found == m_icons.end() ? QIcon() : found->second;
}

} // namespace toolkit
