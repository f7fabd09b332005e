#include "host/ui/DropHint.h"

#include "tests/support/WaitFor.h"

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class TakingWindow final : public QWidget {
public:
    bool takes = true;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->setAccepted(takes); }
};

/// A window over which files are held.
class HeldFiles : public testing::Test {
protected:
    HeldFiles() {
        window.resize(400, 300);
        window.show();
    }
    // Qt would send what comes next to a window that is gone.
    ~HeldFiles() override { Leave(); }
    void Leave() {
        QDragLeaveEvent leave;
        QApplication::sendEvent(&window, &leave);
    }
    void Make(DropHint::Drops drops) {
        const auto where = [this](const QStringList& paths, const QPoint& at) {
            return at.x() < 200 ? answer.arg(paths.size()) : QString();
        };
        hint = new DropHint(&window, where, drops);
        QObject::connect(hint, &DropHint::PathsDropped,
                         [this](const QStringList& paths) { dropped = paths; });
    }
    bool Send(QEvent::Type type, const QPoint& at = {5, 5}) {
        bool accepted = false;
        const auto send = [&](QDropEvent&& event) {
            event.setAccepted(false);
            QApplication::sendEvent(&window, &event);
            accepted = event.isAccepted();
        };
        if (type == QEvent::DragEnter) {
            send(QDragEnterEvent(at, Qt::CopyAction, &data, Qt::LeftButton, {}));
        } else if (type == QEvent::DragMove) {
            send(QDragMoveEvent(at, Qt::CopyAction, &data, Qt::LeftButton, {}));
        } else {
            send(QDropEvent(at, Qt::CopyAction, &data, Qt::LeftButton, {}));
        }
        return accepted;
    }
    [[nodiscard]] QLabel* Label() const { return window.findChild<QLabel*>(u"dropHint"_s); }
    void Hold(const QStringList& urls) {
        QList<QUrl> all;
        for (const QString& url : urls) {
            all << QUrl(url);
        }
        data.setUrls(all);
    }

    TakingWindow window;
    QMimeData data;
    DropHint* hint = nullptr;
    QString answer = u"松开后导入 %1 个"_s;
    QStringList dropped;
};

TEST_F(HeldFiles, AreToldWhereTheyGoAsLongAsTheyAreHeldThere) {
    Make(DropHint::Drops::OfWindow);
    Hold({u"file:///a/1.jpg"_s, u"file:///a/2.jpg"_s});
    Send(QEvent::DragEnter);
    ASSERT_NE(Label(), nullptr);
    EXPECT_TRUE(Label()->isVisible());
    EXPECT_EQ(hint->Text(), u"松开后导入 2 个"_s);
    EXPECT_TRUE(window.rect().contains(Label()->geometry()));
    EXPECT_GT(Label()->y(), window.height() / 2);
    Leave();
    EXPECT_EQ(Label(), nullptr);
}

TEST_F(HeldFiles, AnotherPlaceIsToldAsTheyMove) {
    Make(DropHint::Drops::OfWindow);
    Hold({u"file:///a/1.jpg"_s});
    Send(QEvent::DragEnter);
    answer = u"检查点 %1"_s;
    Send(QEvent::DragMove);
    EXPECT_EQ(hint->Text(), u"检查点 1"_s);
    Send(QEvent::DragMove, {300, 5});
    EXPECT_EQ(hint->Text(), QString());
}

TEST_F(HeldFiles, OfAnotherMachineAreToldNothing) {
    window.takes = false;
    Make(DropHint::Drops::Taken);
    Hold({u"https://example.org/a.jpg"_s});
    EXPECT_FALSE(Send(QEvent::DragEnter));
    EXPECT_EQ(hint->Text(), QString());
    EXPECT_FALSE(Send(QEvent::Drop));
    EXPECT_TRUE(dropped.isEmpty());
}

TEST_F(HeldFiles, AWindowThatKnowsNothingOfThemHasThemTaken) {
    window.takes = false;
    Make(DropHint::Drops::Taken);
    Hold({u"file:///a/1.jpg"_s});
    EXPECT_TRUE(Send(QEvent::DragEnter));
    EXPECT_TRUE(Send(QEvent::DragMove));
    EXPECT_TRUE(Send(QEvent::Drop));
    EXPECT_EQ(dropped, QStringList{u"/a/1.jpg"_s});
    EXPECT_EQ(Label(), nullptr);
}

TEST_F(HeldFiles, AWindowThatTakesThemItselfGetsThem) {
    Make(DropHint::Drops::OfWindow);
    Hold({u"file:///a/1.jpg"_s});
    Send(QEvent::DragEnter);
    Send(QEvent::Drop);
    EXPECT_EQ(hint->Text(), QString());
    EXPECT_TRUE(dropped.isEmpty());
}

TEST_F(HeldFiles, ALongTextStaysWithinTheWindow) {
    Make(DropHint::Drops::OfWindow);
    answer = QString(60, u'字');
    Hold({u"file:///a/1.jpg"_s});
    Send(QEvent::DragEnter);
    EXPECT_TRUE(window.rect().contains(Label()->geometry()));
    EXPECT_GT(Label()->height(), 2 * Label()->fontMetrics().height());
}

} // namespace
} // namespace host
