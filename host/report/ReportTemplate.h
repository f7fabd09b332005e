// How the reports of a project are dressed.
#pragma once

#include <QImage>
#include <QString>

namespace host {

/// Kept for each project. Texts are plain; "" leaves a line out.
struct ReportTemplate {
    QString title; ///< "": what the content is called
    QImage logo;   ///< at most kMostLogoSide pixels a side, without transparency; null: none
    QString header;
    QString footer;

    bool operator==(const ReportTemplate& other) const = default;
};

inline constexpr int kMostLogoSide = 600;
inline constexpr qsizetype kMostTemplateText = 200; ///< of a line, UTF-16 units

/// Of a picture file, scaled down and laid on white. Null: it can't be read.
[[nodiscard]] QImage LogoOf(const QString& path);

/// Text of a setting. What isn't understood in one is left empty.
[[nodiscard]] QString ToSetting(const ReportTemplate& dress);
[[nodiscard]] ReportTemplate ReportTemplateOf(const QString& setting);

} // namespace host
