// IPDFDrawingMng: what people write about a checkpoint.
#include "tests/contracts/Contract.h"

namespace contracts {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A checkpoint on which nobody has said anything yet, and another one.
template <class Base> class OnAPoint : public Base {
protected:
    OnAPoint() {
        const qint32 drawing = this->site->AddDrawing(this->first, u"一层平面图"_s);
        point = this->Point(drawing, 7);
        otherPoint = this->Point(drawing, 8);
        foreignPoint = this->Point(this->site->AddDrawing(this->site->second, u"二层"_s), 1);
    }

    qint64 Write(const QString& text, qint32 to = 0) {
        KX_DATA::CheckpointComment comment;
        EXPECT_EQ(this->on.drawings->AddComment(to != 0 ? to : point, text, comment), kServiceOk);
        return comment.commentId;
    }
    [[nodiscard]] std::vector<QString> TextsOf(qint32 of) {
        std::vector<QString> texts;
        std::vector<KX_DATA::CheckpointComment> comments;
        EXPECT_EQ(this->on.drawings->GetComments(of, 0, KX_DATA::kCommentPageSize, comments),
                  kServiceOk);
        for (const KX_DATA::CheckpointComment& comment : comments) {
            texts.push_back(comment.text);
        }
        return texts;
    }

    qint32 point = 0;
    qint32 otherPoint = 0;
    qint32 foreignPoint = 0;
};

} // namespace

class Comments : public OnAPoint<Contract> {};
ON_EVERY_SITE(Comments);

TEST_P(Comments, OneThatIsWrittenTellsItsIdAndTimeAndIsReadAsItWasTold) {
    KX_DATA::CheckpointComment comment;
    ASSERT_EQ(on.drawings->AddComment(point, u"li：请复查"_s, comment), kServiceOk);
    EXPECT_NE(comment.exists, 0);
    EXPECT_GT(comment.commentId, 0);
    EXPECT_GT(comment.time, 0);
    std::vector<KX_DATA::CheckpointComment> comments(3);
    ASSERT_EQ(on.drawings->GetComments(point, 0, KX_DATA::kCommentPageSize, comments), kServiceOk);
    ASSERT_EQ(comments.size(), 1U);
    EXPECT_NE(comments[0].exists, 0);
    EXPECT_EQ(comments[0].commentId, comment.commentId);
    EXPECT_EQ(comments[0].time, comment.time);
    EXPECT_EQ(comments[0].text, u"li：请复查"_s);
    EXPECT_THAT(TextsOf(otherPoint), IsEmpty());
}

TEST_P(Comments, TextsComeBackAsTheyWereWritten) {
    const std::vector<QString> texts{
        u"li：第一行\n第二行\r\n  第三行 "_s, u"li：👷🏻‍♂️🚧"_s,
        u"li：<b>粗</b> &amp; <script>x</script> %1 %s"_s, u"li：'); DROP TABLE comment; --"_s,
        u"li："_s + QString(500, u'字')};
    for (const QString& text : texts) {
        Write(text);
    }
    EXPECT_EQ(TextsOf(point), texts);
}

TEST_P(Comments, PagesCountFromZeroInTheOrderOfWritingAndEndWithAnEmptyOne) {
    site->Fill([&] {
        for (int number = 0; number < 120; ++number) {
            Write(u"li：%1"_s.arg(number));
        }
    });
    std::vector<KX_DATA::CheckpointComment> comments;
    ASSERT_EQ(on.drawings->GetComments(point, 0, 50, comments), kServiceOk);
    ASSERT_EQ(comments.size(), 50U);
    EXPECT_EQ(comments.front().text, u"li：0"_s);
    ASSERT_EQ(on.drawings->GetComments(point, 2, 50, comments), kServiceOk);
    ASSERT_EQ(comments.size(), 20U);
    EXPECT_EQ(comments.back().text, u"li：119"_s);
    ASSERT_EQ(on.drawings->GetComments(point, 3, 50, comments), kServiceOk);
    EXPECT_TRUE(comments.empty());
}

TEST_P(Comments, OneOfBlanksAloneOrOfVeryManyCharactersIsRefused) {
    KX_DATA::CheckpointComment comment;
    comment.commentId = kUntouched;
    for (const QString& text : {QString(), u" \n\t　"_s, QString(4001, u'字')}) {
        EXPECT_NE(on.drawings->AddComment(point, text, comment), kServiceOk);
    }
    EXPECT_EQ(comment.commentId, kUntouched);
    EXPECT_THAT(TextsOf(point), IsEmpty());
    Write(QString(4000, u'字'));
    EXPECT_EQ(TextsOf(point).size(), 1U);
}

TEST_P(Comments, ACheckpointThatIsUnknownOrOfAnotherProjectHasNone) {
    for (const qint32 there : {kNobody, 0, foreignPoint}) {
        KX_DATA::CheckpointComment comment;
        comment.commentId = kUntouched;
        EXPECT_NE(on.drawings->AddComment(there, u"li：x"_s, comment), kServiceOk);
        EXPECT_EQ(comment.commentId, kUntouched);
        std::vector<KX_DATA::CheckpointComment> comments(2);
        EXPECT_NE(on.drawings->GetComments(there, 0, 50, comments), kServiceOk);
        EXPECT_EQ(comments.size(), 2U);
        EXPECT_FALSE(on.drawings->DeleteComment(there, 1));
    }
    site->OpenWorkset();
    Write(u"li：也可以"_s, foreignPoint);
    EXPECT_THAT(TextsOf(foreignPoint), ElementsAre(u"li：也可以"_s));
}

TEST_P(Comments, ADeletedOneIsGoneAndDeletingItAgainIsAFailure) {
    const qint64 one = Write(u"li：一"_s);
    const qint64 two = Write(u"li：二"_s);
    EXPECT_FALSE(on.drawings->DeleteComment(otherPoint, one)) << "it stands at the other point";
    EXPECT_TRUE(on.drawings->DeleteComment(point, one));
    EXPECT_THAT(TextsOf(point), ElementsAre(u"li：二"_s));
    EXPECT_FALSE(on.drawings->DeleteComment(point, one));
    EXPECT_TRUE(on.drawings->DeleteComment(point, two));
    EXPECT_GT(Write(u"li：三"_s), two) << "no id is given twice";
    EXPECT_FALSE(on.drawings->DeleteComment(point, two));
}

TEST_P(Comments, AnybodyWritesAndDeletesTheirOwnAndOthersOnlyWithTheRightToDelete) {
    const qint64 ofLi = Write(u"li：一"_s);
    site->SignIn(u"guest"_s);
    const qint64 ofGuest = Write(u"guest：二"_s);
    EXPECT_FALSE(on.drawings->DeleteComment(point, ofLi));
    EXPECT_THAT(TextsOf(point), ElementsAre(u"li：一"_s, u"guest：二"_s));
    EXPECT_TRUE(on.drawings->DeleteComment(point, ofGuest));
    const qint64 another = Write(u"guest：三"_s);
    site->SignIn(u"li"_s);
    EXPECT_TRUE(on.drawings->DeleteComment(point, another));
    EXPECT_THAT(TextsOf(point), ElementsAre(u"li：一"_s));
}

class CommentFailures : public OnAPoint<FailureContract> {};
WHERE_READING_FAILS(CommentFailures);

TEST_P(CommentFailures, ReadingTellsItAndLeavesTheListAlone) {
    Write(u"li：一"_s);
    Fail({"GetComments"});
    std::vector<KX_DATA::CheckpointComment> comments(2);
    EXPECT_NE(on.drawings->GetComments(point, 0, 50, comments), kServiceOk);
    EXPECT_EQ(comments.size(), 2U);
}

class CommentChangeFailures : public OnAPoint<FailureContract> {};
WHERE_WRITING_FAILS(CommentChangeFailures);

TEST_P(CommentChangeFailures, WritingAndDeletingTellItAndChangeNothing) {
    const qint64 one = Write(u"li：一"_s);
    Fail({"AddComment", "DeleteComment"});
    KX_DATA::CheckpointComment comment;
    comment.commentId = kUntouched;
    EXPECT_NE(on.drawings->AddComment(point, u"li：二"_s, comment), kServiceOk);
    EXPECT_EQ(comment.commentId, kUntouched);
    EXPECT_EQ(comment.exists, 0);
    EXPECT_FALSE(on.drawings->DeleteComment(point, one));
    if (StillReads()) {
        EXPECT_THAT(TextsOf(point), ElementsAre(u"li：一"_s));
    }
}

} // namespace contracts
