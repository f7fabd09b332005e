#include "toolkit/windows/NativePrompts.h"

#include "toolkit/windows/Prompts.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QtTest/QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(WithExtension, AppendsTheExtensionWhereTheNameLacksIt) {
    EXPECT_EQ(toolkit::WithExtension(u"/a/b"_s, u"jpg"_s), u"/a/b.jpg"_s);
    EXPECT_EQ(toolkit::WithExtension(u"/a/b.png"_s, u"jpg"_s), u"/a/b.png.jpg"_s);
}

TEST(WithExtension, LeavesANameThatHasItInAnyCase) {
    EXPECT_EQ(toolkit::WithExtension(u"/a/b.JPG"_s, u"jpg"_s), u"/a/b.JPG"_s);
}

TEST(WithExtension, LeavesACancelledDialogAndAMissingExtensionAlone) {
    EXPECT_EQ(toolkit::WithExtension(QString(), u"jpg"_s), QString());
    EXPECT_EQ(toolkit::WithExtension(u"/a/b"_s, QString()), u"/a/b"_s);
}

namespace {

/// Presses a key in the box that comes.
void PressInTheBox(Qt::Key key) {
    auto* look = new QTimer;
    QObject::connect(look, &QTimer::timeout, [look, key] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            look->deleteLater();
            QTest::keyClick(box, key);
        }
    });
    look->start(5);
}

} // namespace

TEST(NativePrompts, EnterAgreesButToWhatCannotBeTakenBack) {
    toolkit::IPrompts& prompts = toolkit::Prompts();
    PressInTheBox(Qt::Key_Return);
    EXPECT_TRUE(prompts.AskYesNo(toolkit::kNoWindow, u"?"_s));
    PressInTheBox(Qt::Key_Return);
    EXPECT_FALSE(prompts.AskNoYes(toolkit::kNoWindow, u"?"_s));
    PressInTheBox(Qt::Key_Escape);
    EXPECT_FALSE(prompts.AskNoYes(toolkit::kNoWindow, u"?"_s));
}
