// Loads the picture module at run time.
#pragma once

#include <QLibrary>
#include <QString>

#include <optional>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
class IKXVeskPicData;
} // namespace ZelvorNRQ_KXVeskPicture

namespace host {

/// Knows the module from Load to Release. The library itself stays to the end of the process: texts
/// and records of it live on in Qt's tables and caches. Thread: user interface.
class ModuleLoader final {
public:
    /// @param folder  where the module lies: that of the program.
    /// @return        Chinese, complete, what is missing; nothing on success.
    [[nodiscard]] std::optional<QString> Load(const QString& folder);
    /// The client asks nothing of the module any more.
    void Release();

    /// Null unless loaded.
    [[nodiscard]] ZelvorNRQ_KXVeskPicture::IKXVeskPicture* Pictures() const { return m_pictures; }
    [[nodiscard]] ZelvorNRQ_KXVeskPicture::IKXVeskPicData* PictureData() const { return m_data; }

private:
    QLibrary m_library;
    ZelvorNRQ_KXVeskPicture::IKXVeskPicture* m_pictures = nullptr;
    ZelvorNRQ_KXVeskPicture::IKXVeskPicData* m_data = nullptr;
};

} // namespace host
