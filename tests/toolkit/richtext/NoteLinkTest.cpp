// Links: what is asked, what is refused, and what becomes of the text.
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"
#include "tests/toolkit/richtext/EditorFixture.h"
#include "toolkit/richtext/NoteLinkDialog.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using toolkit::FaultOfAddress;
using toolkit::WholeAddress;

struct LinkFields {
    QLineEdit& text;
    QLineEdit& address;
    QLabel& fault;
};

class NoteLinkTest : public support::EditorFixture {
protected:
    void Ask(const std::function<void(QWidget&, const LinkFields&)>& act) {
        const support::ModalVisit visit(u"noteLinkDialog"_s, [&](QWidget& window) {
            act(window, {*window.findChild<QLineEdit*>(u"linkText"_s),
                         *window.findChild<QLineEdit*>(u"linkAddress"_s),
                         *window.findChild<QLabel*>(u"linkFault"_s)});
        });
        Press("link");
        EXPECT_TRUE(support::WaitFor([&] { return visit.HasCome(); }));
        support::RunPendingEvents();
    }
    void Select(int from, int to) {
        QTextCursor cursor(Sheet().document());
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        Sheet().setTextCursor(cursor);
    }
    [[nodiscard]] QString AddressAtPlace(int position) {
        QTextCursor cursor(Sheet().document());
        cursor.setPosition(position + 1);
        return cursor.charFormat().anchorHref();
    }
};

} // namespace

TEST(NoteLinks, AnAddressWithoutASchemeIsOfTheWebOrOfMail) {
    EXPECT_EQ(WholeAddress(u" a.cn "_s), u"https://a.cn");
    EXPECT_EQ(WholeAddress(u"a.cn:8080/x"_s), u"https://a.cn:8080/x");
    EXPECT_EQ(WholeAddress(u"li@a.cn"_s), u"mailto:li@a.cn");
    EXPECT_EQ(WholeAddress(u"a.cn/@li"_s), u"https://a.cn/@li");
    for (const QString& whole :
         {u"http://a.cn"_s, u"mailto:li@a.cn"_s, u"file:///x"_s, u"javascript:x()"_s, QString()}) {
        EXPECT_EQ(WholeAddress(whole), whole);
    }
}

TEST(NoteLinks, WhatIsNoAddressOfTheWebOrOfMailHasAFault) {
    for (const QString& good : {QString(), u"http://a.cn"_s, u"https://a.cn/b?c=d#e"_s,
                                u"mailto:li@a.cn"_s, u"https://例子.中国/图"_s}) {
        EXPECT_EQ(FaultOfAddress(good), QString()) << good.toStdString();
    }
    EXPECT_TRUE(FaultOfAddress(u"file:///x"_s).startsWith(u"只能链接到"_s));
    EXPECT_TRUE(FaultOfAddress(u"javascript:x()"_s).startsWith(u"只能链接到"_s));
    for (const QString& broken : {u"https://"_s, u"https:///x"_s, u"mailto:"_s}) {
        EXPECT_FALSE(FaultOfAddress(broken).isEmpty()) << broken.toStdString();
    }
}

TEST_F(NoteLinkTest, ALinkHasTheTextThatWasGivenAndEnterAccepts) {
    New();
    Ask([](QWidget&, const LinkFields& fields) {
        EXPECT_TRUE(fields.address.hasFocus());
        EXPECT_GE(fields.address.width(), 400);
        fields.text.setText(u"甲站"_s);
        fields.address.setText(u"a.cn"_s);
        QTest::keyClick(&fields.address, Qt::Key_Return);
    });
    EXPECT_TRUE(Sheet().toPlainText().startsWith(u"甲站"_s));
    EXPECT_EQ(AddressAtPlace(0), u"https://a.cn");
    EXPECT_EQ(owner.focusWidget(), &Sheet());
}

TEST_F(NoteLinkTest, AnAddressThatIsNoneIsToldBesideItAndNothingChanges) {
    New();
    for (const QString& typed : {u"file:///tmp/run.sh"_s, u"javascript:x()"_s, u"https://"_s}) {
        Ask([&](QWidget& window, const LinkFields& fields) {
            fields.address.setText(typed);
            QTest::keyClick(&fields.address, Qt::Key_Return);
            EXPECT_TRUE(window.isVisible());
            EXPECT_TRUE(fields.fault.isVisible());
            EXPECT_FALSE(fields.fault.text().isEmpty()) << typed.toStdString();
            EXPECT_TRUE(fields.address.hasFocus());
            QTest::keyClicks(&fields.address, u"b"_s);
            EXPECT_TRUE(fields.fault.text().isEmpty()) << "it is being mended";
            QTest::keyClick(&window, Qt::Key_Escape);
        });
        EXPECT_EQ(Sheet().toPlainText(), QString());
        EXPECT_EQ(Notice(), QString());
    }
}

TEST_F(NoteLinkTest, WhatIsSelectedIsThePresetTextAndKeepsItsLooks) {
    Load(u"<p>一<b>二</b>三</p>"_s);
    Select(0, 2);
    Ask([](QWidget&, const LinkFields& fields) {
        EXPECT_EQ(fields.text.text(), u"一二");
        fields.address.setText(u"a.cn"_s);
        QTest::keyClick(&fields.address, Qt::Key_Return);
    });
    EXPECT_EQ(Sheet().toPlainText(), u"一二三");
    EXPECT_EQ(AddressAtPlace(1), u"https://a.cn");
    EXPECT_EQ(AddressAtPlace(2), QString());
    EXPECT_TRUE(Sheet().Note()->Html().contains(u"font-weight"_s));
}

TEST_F(NoteLinkTest, ALinkAtTheCursorIsChangedAsAWholeInOneStep) {
    Load(u"<p>前<a href='https://a.cn'>甲<b>乙</b>丙</a>后 <a href='https://a.cn'>丁</a></p>"_s);
    Select(3, 3);
    Ask([](QWidget&, const LinkFields& fields) {
        EXPECT_EQ(fields.text.text(), u"甲乙丙");
        EXPECT_EQ(fields.address.text(), u"https://a.cn");
        fields.text.setText(u"新"_s);
        fields.address.setText(u"b.cn"_s);
        QTest::keyClick(&fields.text, Qt::Key_Return);
    });
    EXPECT_EQ(Sheet().toPlainText(), u"前新后 丁");
    EXPECT_EQ(AddressAtPlace(1), u"https://b.cn");
    EXPECT_EQ(AddressAtPlace(4), u"https://a.cn");
    Sheet().undo();
    EXPECT_EQ(Sheet().toPlainText(), u"前甲乙丙后 丁");
}

TEST_F(NoteLinkTest, AnEmptyAddressTakesTheLinkAwayAndLeavesTheText) {
    Load(u"<p>前<a href='https://a.cn'>甲</a>后</p>"_s);
    Select(2, 2);
    const auto empty = [](QWidget&, const LinkFields& fields) {
        fields.address.clear();
        QTest::keyClick(&fields.address, Qt::Key_Return);
    };
    Ask(empty);
    EXPECT_EQ(Sheet().toPlainText(), u"前甲后");
    EXPECT_FALSE(Sheet().Note()->Html().contains(u"href"_s));
    EXPECT_FALSE(Sheet().Note()->Html().contains(u"color"_s));
    Ask(empty);
    EXPECT_EQ(Sheet().toPlainText(), u"前甲后") << "not even a blank";
}

TEST_F(NoteLinkTest, SeveralParagraphsAreLinkedAsTheyAre) {
    Load(u"<p>一</p><p>二</p>"_s);
    Select(0, 3);
    Ask([](QWidget&, const LinkFields& fields) {
        EXPECT_FALSE(fields.text.isEnabled());
        fields.address.setText(u"a.cn"_s);
        QTest::keyClick(&fields.address, Qt::Key_Return);
    });
    EXPECT_EQ(Sheet().toPlainText(), u"一\n二");
    EXPECT_EQ(AddressAtPlace(2), u"https://a.cn");
}

TEST_F(NoteLinkTest, AnotherDocumentThatCameMeanwhileHasNoLink) {
    New();
    Ask([this](QWidget&, const LinkFields& fields) {
        New();
        fields.address.setText(u"a.cn"_s);
        QTest::keyClick(&fields.address, Qt::Key_Return);
    });
    EXPECT_EQ(Sheet().toPlainText(), QString());
}
