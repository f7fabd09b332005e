#include "host/app/ModuleLoader.h"

#include "include/IKXVeskPicData.h"
#include "include/IKXVeskPicture.h"

#include <QDir>

namespace host {

using namespace Qt::StringLiterals;

std::optional<QString> ModuleLoader::Load(const QString& folder) {
    m_library.setFileName(QDir(folder).filePath(u"KXVeskPicture"_s));
    // All symbols at once: a service that the client lacks is found here, not in mid-work.
    m_library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!m_library.load()) {
        return u"照片模块 KXVeskPicture 无法加载：\n%1\n请重新安装客户端。"_s.arg(
            m_library.errorString());
    }
    const auto getPictures =
        reinterpret_cast<decltype(&GetKXVeskPicture)>(m_library.resolve("GetKXVeskPicture"));
    const auto getData =
        reinterpret_cast<decltype(&GetKXVeskPicData)>(m_library.resolve("GetKXVeskPicData"));
    m_pictures = getPictures == nullptr ? nullptr : getPictures();
    m_data = getData == nullptr ? nullptr : getData();
    if (m_pictures == nullptr || m_data == nullptr) {
        Release();
        return u"照片模块 KXVeskPicture 与此客户端不匹配。\n请重新安装客户端。"_s;
    }
    return std::nullopt;
}

void ModuleLoader::Release() {
    m_pictures = nullptr;
    m_data = nullptr;
}

} // namespace host
