// Colours, faces and texts of the whole program.
#include "toolkit/Look.h"
#include "toolkit/Icons.h"
#include "toolkit/controls/Swatch.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTextDocument>
#include <QWindow>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;
using toolkit::Colors;

namespace {

double Luminance(const QColor& color) {
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double Contrast(const QColor& first, const QColor& second) {
    const double one = Luminance(first);
    const double two = Luminance(second);
    return (std::max(one, two) + 0.05) / (std::min(one, two) + 0.05);
}

bool HasColor(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color) {
                return true;
            }
        }
    }
    return false;
}

TEST(Look, TextReadsOnEveryGroundThatItStandsOn) {
    const QColor grounds[] = {
        Qt::white,        Colors::Pane(),  Colors::Window(),      Colors::Selection(),
        Colors::Header(), Colors::Hover(), Colors::AlternateRow()};
    for (const QColor& ground : grounds) {
        EXPECT_GE(Contrast(Colors::Text(), ground), 4.5) << ground.name().toStdString();
        EXPECT_GE(Contrast(Colors::TextAccent(), ground), 4.5) << ground.name().toStdString();
    }
    for (const QColor& text : {Colors::HintText(), Colors::ErrorText(), Colors::Link()}) {
        EXPECT_GE(Contrast(text, Qt::white), 4.5) << text.name().toStdString();
        EXPECT_GE(Contrast(text, Colors::Window()), 4.5) << text.name().toStdString();
    }
}

/// As desktops are that put pictures of their own on the buttons of dialogs.
class DesktopWithButtonIcons final : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

TEST(Look, ButtonsOfDialogsAreTheSameOnEveryDesktop) {
    auto* look = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(look, nullptr);
    look->setBaseStyle(new DesktopWithButtonIcons);
    const QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    EXPECT_TRUE(box.button(QDialogButtonBox::Ok)->icon().isNull());
    EXPECT_TRUE(box.button(QDialogButtonBox::Cancel)->icon().isNull());
    look->setBaseStyle(QStyleFactory::create(u"Fusion"_s));
}

TEST(Look, PaletteOfTheProgramReadsToo) {
    const QPalette palette = QApplication::palette();
    EXPECT_GE(
        Contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)),
        4.5);
    EXPECT_GE(Contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)),
              4.5);
    EXPECT_GE(Contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)), 4.5);
    EXPECT_GE(Contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)),
              4.5);
}

TEST(Look, MarksCarryBlackOrWhiteWhicheverReadsBetter) {
    for (const QRgb rgb :
         {0x000000U, 0xFFFFFFU, 0xFF0000U, 0x00FF00U, 0x0000FFU, 0xFFFF00U, 0x15428BU, 0x808080U}) {
        const QColor ground(rgb);
        const QColor text = toolkit::TextOn(ground);
        const QColor other = text == QColor(Qt::black) ? Qt::white : Qt::black;
        EXPECT_GE(Contrast(text, ground), Contrast(other, ground)) << ground.name().toStdString();
    }
}

TEST(Look, ColourNumbersAreBlueGreenRed) {
    EXPECT_EQ(toolkit::ColorFromBgr(0x8B4215), QColor(0x15, 0x42, 0x8B));
    EXPECT_EQ(toolkit::ColorFromBgr(0x0000FF), QColor(Qt::red));
    EXPECT_EQ(toolkit::ColorFromBgr(0), QColor(Qt::black));
}

TEST(Look, ControlsSpeakChinese) {
    const QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    EXPECT_EQ(box.button(QDialogButtonBox::Ok)->text(), u"确定"_s);
    EXPECT_EQ(box.button(QDialogButtonBox::Cancel)->text(), u"取消"_s);
}

TEST(Look, FaceIsTwelvePixelsAndWindowsNamesLeadToAnInstalledOne) {
    EXPECT_EQ(QApplication::font().pixelSize(), 12);
    EXPECT_EQ(toolkit::UiFont(18).pixelSize(), 18);
    const QString family = QFontInfo(toolkit::UiFont()).family();
    for (const QString& name : {u"宋体"_s, u"SimSun"_s, u"微软雅黑"_s, u"Microsoft YaHei"_s}) {
        EXPECT_EQ(QFontInfo(QFont(name, 12)).family(), family) << name.toStdString();
    }
}

TEST(Look, ATitleShowsAsItStandsWhateverItLooksLike) {
    QWidget window;
    for (const QString& title : {u"外墙"_s, u"外墙[*]渗漏"_s, u"[*][*]"_s}) {
        window.setWindowTitle(toolkit::PlainTitle(title));
        window.show();
        EXPECT_EQ(window.windowHandle()->title(), title);
    }
}

TEST(Look, TipsShowTheirTextAsItStands) {
    EXPECT_EQ(toolkit::PlainTip(u"外墙.jpg"_s), u"外墙.jpg"_s);
    const QString tagged = toolkit::PlainTip(u"<b>x</b>.jpg"_s);
    EXPECT_TRUE(tagged.contains(u"&lt;b&gt;x&lt;/b&gt;.jpg"_s));
    EXPECT_TRUE(Qt::mightBeRichText(toolkit::PlainTip(QString(200, u'长'))));
    EXPECT_TRUE(toolkit::PlainTip(QString(50, u'x') + u"\ny"_s).contains(u"<br/>"_s));
    EXPECT_EQ(toolkit::PlainTip(QString()), QString());
}

TEST(Look, FocusShowsHoweverItCame) {
    QWidget window;
    auto* box = new QCheckBox(u"不限"_s, &window);
    auto* button = new QPushButton(u"搜索"_s, &window);
    button->move(0, 40);
    window.resize(200, 100);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    box->setFocus(Qt::MouseFocusReason);
    EXPECT_TRUE(HasColor(box->grab().toImage(), Colors::TextAccent()));
    EXPECT_FALSE(HasColor(button->grab().toImage(), Colors::TextAccent()));
    button->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(HasColor(box->grab().toImage(), Colors::TextAccent()));
    EXPECT_TRUE(HasColor(button->grab().toImage(), Colors::TextAccent()));
}

TEST(Look, QtsOwnDialogsAndHeadersShowTheClientsIcons) {
    for (const QStyle::StandardPixmap picture :
         {QStyle::SP_MessageBoxQuestion, QStyle::SP_MessageBoxWarning, QStyle::SP_ArrowLeft,
          QStyle::SP_LineEditClearButton}) {
        const QIcon icon = QApplication::style()->standardIcon(picture);
        EXPECT_TRUE(HasColor(icon.pixmap(48).toImage(), Colors::TextAccent())) << picture;
    }
}

TEST(Look, EveryPictureOfQtsThatTheClientDrawsIsItsOwnIcon) {
    const std::vector<std::pair<QStyle::StandardPixmap, QString>> own = {
        {QStyle::SP_MessageBoxInformation, u"info"_s},
        {QStyle::SP_MessageBoxWarning, u"warning"_s},
        {QStyle::SP_MessageBoxCritical, u"error"_s},
        {QStyle::SP_MessageBoxQuestion, u"question"_s},
        {QStyle::SP_ArrowLeft, u"previous"_s},
        {QStyle::SP_ArrowRight, u"next"_s},
        {QStyle::SP_ArrowBack, u"previous"_s},
        {QStyle::SP_ArrowForward, u"next"_s},
        {QStyle::SP_LineEditClearButton, u"close"_s},
        {QStyle::SP_TitleBarCloseButton, u"close"_s},
        {QStyle::SP_DirIcon, u"folder"_s},
        {QStyle::SP_DirClosedIcon, u"folder"_s},
        {QStyle::SP_DirOpenIcon, u"folder"_s}};
    for (const auto& [picture, name] : own) {
        const QImage shown = QApplication::style()->standardIcon(picture).pixmap(32).toImage();
        EXPECT_EQ(shown, toolkit::Icon(name).pixmap(32).toImage()) << picture;
    }
}

TEST(Icons, EveryNameThatTheProgramUsesHasADrawing) {
    for (const char* name :
         {"edit",        "locate",   "preview", "download", "delete",   "first", "previous",
          "next",        "last",     "search",  "refresh",  "import",   "bin",   "restore",
          "user",        "project",  "console", "drawing",  "issue",    "log",   "plan",
          "warning",     "error",    "info",    "question", "close",    "show",  "hide",
          "calendar",    "settings", "folder",  "flag",     "play",     "stop",  "checkbox-off",
          "checkbox-on", "pin",      "fit",     "zoom-in",  "zoom-out", "chart"}) {
        const QIcon icon = toolkit::Icon(QLatin1String(name));
        ASSERT_FALSE(icon.isNull()) << name;
        const QImage image = icon.pixmap(16).toImage();
        int painted = 0;
        for (int index = 0; index < 256; ++index) {
            painted += image.pixelColor(index % 16, index / 16).alpha() > 100 ? 1 : 0;
        }
        EXPECT_GT(painted, 12) << name;
    }
    EXPECT_TRUE(toolkit::Icon(u"unknown"_s).isNull());
}

TEST(Icons, StateGivesTheColour) {
    const QIcon icon = toolkit::Icon(u"stop"_s);
    const auto middle = [&](QIcon::Mode mode) {
        return icon.pixmap(QSize(16, 16), 1.0, mode).toImage().pixelColor(8, 8);
    };
    EXPECT_EQ(middle(QIcon::Normal), Colors::TextAccent());
    EXPECT_EQ(middle(QIcon::Selected), Colors::TextAccent());
    EXPECT_EQ(middle(QIcon::Active), Colors::Accent());
    EXPECT_EQ(middle(QIcon::Disabled), QColor(0xA7, 0xB0, 0xBB));
}

TEST(Icons, DrawnSharpAtTwiceTheScale) {
    const QPixmap pixmap = toolkit::Icon(u"edit"_s).pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(pixmap.size(), QSize(32, 32));
    EXPECT_EQ(pixmap.devicePixelRatio(), 2.0);
    EXPECT_NE(pixmap.toImage(), toolkit::Icon(u"edit"_s)
                                    .pixmap(QSize(16, 16), 1.0)
                                    .toImage()
                                    .scaled(32, 32, Qt::KeepAspectRatio));
}

TEST(Look, ColoursAreTheseNumbers) {
    EXPECT_EQ(Colors::TextAccent(), QColor(0x15, 0x42, 0x8B));
    EXPECT_EQ(Colors::Accent(), QColor(0x00, 0xB6, 0xF0));
    EXPECT_EQ(Colors::Hover(), QColor(0xA9, 0xDA, 0xF5));
    EXPECT_EQ(Colors::Frame(), QColor(0xB1, 0xC3, 0xD9));
    EXPECT_EQ(Colors::Error(), QColor(0xFF, 0x00, 0x00));
}

TEST(Look, EveryRoleOfThePaletteHasItsColour) {
    const QPalette palette = QApplication::palette();
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText,
          QPalette::ToolTipText}) {
        EXPECT_EQ(palette.color(role), Colors::Text()) << role;
    }
    EXPECT_EQ(palette.color(QPalette::Window), Colors::Window());
    EXPECT_EQ(palette.color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(palette.color(QPalette::AlternateBase), Colors::AlternateRow());
    EXPECT_EQ(palette.color(QPalette::Highlight), Colors::Selection());
    EXPECT_EQ(palette.color(QPalette::BrightText), Colors::ErrorText());
    EXPECT_EQ(palette.color(QPalette::Link), Colors::Link());
    EXPECT_EQ(palette.color(QPalette::LinkVisited), Colors::Link());
}

TEST(Look, ATipOfMoreThanFortyCharactersWraps) {
    EXPECT_EQ(toolkit::PlainTip(QString(40, u'长')), QString(40, u'长'));
    EXPECT_EQ(toolkit::PlainTip(QString(41, u'长')),
              u"<span>"_s + QString(41, u'长') + u"</span>"_s);
}

TEST(Look, ListsAndDatesShowThatTheyHaveTheKeyboard) {
    QWidget window;
    auto* combo = new QComboBox(&window);
    auto* date = new QDateEdit(&window);
    date->move(0, 40);
    window.resize(200, 100);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    combo->setFocus(Qt::MouseFocusReason);
    EXPECT_TRUE(HasColor(combo->grab().toImage(), Colors::TextAccent()));
    EXPECT_FALSE(HasColor(date->grab().toImage(), Colors::TextAccent()));
    date->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(HasColor(combo->grab().toImage(), Colors::TextAccent()));
    EXPECT_TRUE(HasColor(date->grab().toImage(), Colors::TextAccent()));
}

TEST(Look, ASwatchIsFramedWithinItsArea) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    toolkit::SwatchIcon(Qt::red).paint(&painter, QRect(2, 2, 12, 12));
    painter.end();
    const QColor frame = QColor(Qt::red).darker(140);
    for (const QPoint& corner : {QPoint(2, 2), QPoint(13, 2), QPoint(2, 13), QPoint(13, 13)}) {
        EXPECT_EQ(image.pixel(corner), frame.rgb());
    }
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(12, 12), QColor(Qt::red));
    for (const QPoint& beside : {QPoint(1, 1), QPoint(14, 14), QPoint(14, 8), QPoint(8, 14)}) {
        EXPECT_EQ(image.pixelColor(beside), QColor(Qt::white));
    }
}

} // namespace
