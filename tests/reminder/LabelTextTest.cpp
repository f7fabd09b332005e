#include "reminder/popups/LabelText.h"

#include <gtest/gtest.h>

namespace reminder {

using namespace Qt::StringLiterals;

namespace {

/// As code page 936 counts: 1 for ASCII, 2 for all others here.
int Width(const QString& text) {
    int width = 0;
    for (const QChar c : text) {
        width += c.unicode() < 0x80 ? 1 : 2;
    }
    return width;
}

QString Line(const std::vector<QString>& labels) {
    return LabelLine(labels, Width);
}

} // namespace

TEST(LabelLine, WithoutLabelsIsEmpty) {
    EXPECT_EQ(Line({}), QString());
}

TEST(LabelLine, PutsSeparatorsBetweenThem) {
    EXPECT_EQ(Line({u"a"_s, u"b"_s, u"c"_s}), u"a;b;c"_s);
}

TEST(LabelLine, OneOf26AndAnotherOneEndBehindTheFirst) {
    const QString first(26, u'x');
    EXPECT_EQ(Line({first}), first);
    EXPECT_EQ(Line({first, u"b"_s}), first + u";..."_s);
}

TEST(LabelLine, OneOf27IsNotShownAtAll) {
    EXPECT_EQ(Line({QString(27, u'x')}), u"..."_s);
    EXPECT_EQ(Line({QString(27, u'x'), u"b"_s}), u"..."_s) << "and stops there";
}

TEST(LabelLine, DoubleByteCharactersCountTwoAtTheEdge) {
    const QString thirteen(13, u'缝');
    EXPECT_EQ(Line({thirteen}), thirteen);
    EXPECT_EQ(Line({QString(14, u'缝')}), u"..."_s);
    EXPECT_EQ(Line({QString(12, u'缝'), u"a"_s}), QString(12, u'缝') + u";a"_s) << "26 in all";
    EXPECT_EQ(Line({QString(12, u'缝'), u"漏"_s}), QString(12, u'缝') + u";..."_s) << "27 in all";
}

TEST(LabelLine, SeparatorsAtBothEndsAreTrimmedAndThoseInsideStay) {
    EXPECT_EQ(Line({u";a;b;"_s}), u"a;b"_s);
    EXPECT_EQ(Line({QString(), u"a"_s, QString()}), u"a"_s);
    EXPECT_EQ(Line({u"a"_s, QString(), u"b"_s}), u"a;;b"_s);
}

} // namespace reminder
