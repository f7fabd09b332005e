#include "toolkit/Look.h"

#include "toolkit/LookStyle.h"
#include "toolkit/windows/WindowPlace.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStringList>
#include <QTextDocument>
#include <QToolTip>
#include <QTranslator>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace toolkit {

namespace {

/// Simplified Chinese sans faces, best first.
const QStringList& ChineseFaces() {
    static const QStringList faces{u"WenQuanYi Micro Hei"_s, u"Noto Sans CJK SC"_s,
                                   u"Noto Sans SC"_s,        u"Source Han Sans SC"_s,
                                   u"WenQuanYi Zen Hei"_s,   u"Droid Sans Fallback"_s};
    return faces;
}

QStringList InstalledFaces() {
    QStringList installed;
    for (const QString& face : ChineseFaces()) {
        if (QFontDatabase::hasFamily(face)) {
            installed.append(face);
        }
    }
    return installed;
}

/// The faces' usual names, which records and callers bear, lead to what is installed.
void MapFaceNames(const QStringList& installed) {
    if (installed.isEmpty()) {
        return;
    }
    for (const QString& name : {u"宋体"_s, u"SimSun"_s, u"NSimSun"_s, u"黑体"_s, u"SimHei"_s,
                                u"微软雅黑"_s, u"Microsoft YaHei"_s, u"Microsoft YaHei UI"_s}) {
        if (!QFontDatabase::hasFamily(name)) {
            QFont::insertSubstitutions(name, installed);
        }
    }
}

QPalette LookPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, Colors::Window());
    palette.setColor(QPalette::WindowText, Colors::Text());
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, Colors::AlternateRow());
    palette.setColor(QPalette::Text, Colors::Text());
    palette.setColor(QPalette::Button, QColor(0xFB, 0xFC, 0xFD));
    palette.setColor(QPalette::ButtonText, Colors::Text());
    palette.setColor(QPalette::BrightText, Colors::ErrorText());
    palette.setColor(QPalette::Highlight, Colors::Selection());
    palette.setColor(QPalette::HighlightedText, Colors::Text());
    palette.setColor(QPalette::PlaceholderText, Colors::HintText());
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xF4));
    palette.setColor(QPalette::ToolTipText, Colors::Text());
    palette.setColor(QPalette::Link, Colors::Link());
    palette.setColor(QPalette::LinkVisited, Colors::Link());
    palette.setColor(QPalette::Light, Qt::white);
    palette.setColor(QPalette::Midlight, QColor(0xE4, 0xEB, 0xF2));
    palette.setColor(QPalette::Mid, Colors::Frame());
    palette.setColor(QPalette::Dark, QColor(0x8F, 0xA3, 0xB8));
    palette.setColor(QPalette::Shadow, QColor(0x5B, 0x6B, 0x7C));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Disabled, role, Colors::DisabledText());
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, Colors::Window());
    return palette;
}

void LoadChineseTexts(QApplication& app) {
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    auto* translator = new QTranslator(&app);
    if (translator->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        app.installTranslator(translator);
    } else {
        delete translator;
    }
}

/// Part of a colour channel in the relative luminance (WCAG 2.1).
double LinearChannel(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

QColor Colors::Pane() {
    return {0xFA, 0xFA, 0xFA};
}

QColor Colors::Text() {
    return {0x1E, 0x28, 0x34};
}

QColor Colors::TextAccent() {
    return {0x15, 0x42, 0x8B};
}

QColor Colors::Accent() {
    return {0x00, 0xB6, 0xF0};
}

QColor Colors::Hover() {
    return {0xA9, 0xDA, 0xF5};
}

QColor Colors::Frame() {
    return {0xB1, 0xC3, 0xD9};
}

QColor Colors::Error() {
    return {0xFF, 0x00, 0x00};
}

QColor Colors::ErrorText() {
    return {0xD3, 0x2F, 0x2F};
}

QColor Colors::Link() {
    return {0x00, 0x66, 0xCC};
}

QColor Colors::Selection() {
    return {0xC7, 0xEB, 0xF9};
}

QColor Colors::AlternateRow() {
    return {0xF6, 0xF9, 0xFC};
}

QColor Colors::HintText() {
    return {0x66, 0x70, 0x7C};
}

QColor Colors::DisabledText() {
    return {0x94, 0x9D, 0xA8};
}

QColor Colors::Window() {
    return {0xF2, 0xF5, 0xF8};
}

QColor Colors::Header() {
    return {0xE9, 0xEF, 0xF6};
}

QColor Colors::GridLine() {
    return {0xDD, 0xE5, 0xEE};
}

QColor ColorFromBgr(int bgr) {
    return {bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF};
}

QColor TextOn(const QColor& background) {
    const double luminance = 0.2126 * LinearChannel(background.redF()) +
                             0.7152 * LinearChannel(background.greenF()) +
                             0.0722 * LinearChannel(background.blueF());
    // Where black and white stand equally far off.
    constexpr double kMiddle = 0.179;
    return luminance > kMiddle ? QColor(Qt::black) : QColor(Qt::white);
}

QString PlainTip(const QString& text) {
    constexpr int kLongestLine = 40;
    if (text.size() <= kLongestLine && !Qt::mightBeRichText(text)) {
        return text;
    }
    // Qt wraps rich text only.
    const QString escaped = text.toHtmlEscaped().replace(u'\n', u"<br/>"_s);
    return u"<span>%1</span>"_s.arg(escaped);
}

QString PlainTitle(QString text) {
    return text.replace(u"[*]"_s, u"[*][*]"_s);
}

QFont UiFont(int pixelHeight) {
    static const QStringList faces = InstalledFaces();
    QFont font = QGuiApplication::font();
    if (!faces.isEmpty()) {
        font.setFamilies(faces);
    }
    font.setPixelSize(std::max(pixelHeight, 1));
    return font;
}

void ApplyLook(QApplication& app) {
    MapFaceNames(InstalledFaces());
    LoadChineseTexts(app);
    QApplication::setStyle(new LookStyle());
    QApplication::setPalette(LookPalette());
    QApplication::setFont(UiFont());
    QToolTip::setPalette(LookPalette());
    QToolTip::setFont(UiFont());
    KeepNewWindowsOnScreen(app);
}

} // namespace toolkit
