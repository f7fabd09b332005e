#include "host/app/ModuleLoader.h"

#include "include/IKXVeskPicData.h"
#include "include/IKXVeskPicture.h"

#include <QDir>

namespace host {

using namespace Qt::StringLiterals;

std::optional<QString> ModuleLoader::Load(const QString& folder) {
    library.setFileName(QDir(folder).filePath(u"KXVeskPicture"_s));
    // All symbols at once: a service that the client lacks is found here, not in mid-work.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (!library.load())
        return u"照片模块 KXVeskPicture 无法加载：\n%1\n请重新安装客户端。"_s.arg(
            library.errorString());
    const auto getPictures =
        reinterpret_cast<decltype(&GetKXVeskPicture)>(library.resolve("GetKXVeskPicture"));
    const auto getData =
        reinterpret_cast<decltype(&GetKXVeskPicData)>(library.resolve("GetKXVeskPicData"));
    pictures = getPictures == nullptr ? nullptr : getPictures();
    data = getData == nullptr ? nullptr : getData();
    if (pictures == nullptr || data == nullptr) {
        Release();
        return u"照片模块 KXVeskPicture 与此客户端不匹配。\n请重新安装客户端。"_s;
    }
    return std::nullopt;
}

void ModuleLoader::Release() {
    pictures = nullptr;
    data = nullptr;
}

} // namespace host
