#include "toolkit/SelectionChange.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>

#include <utility>

namespace toolkit {

namespace {

/// Knows what a box showed before the person's present key, click or turn of the wheel: only such
/// an event ends in a choice, and what code changes comes before it.
class SelectionWatch final : public QObject {
public:
    explicit SelectionWatch(QComboBox* watchedBox) : QObject(watchedBox), box(watchedBox) {
        // The list's own filter, which ends in a choice, was installed earlier and so runs later.
        box->installEventFilter(this);
        box->view()->installEventFilter(this);
        box->view()->viewport()->installEventFilter(this);
    }

    /// Whether this choice differs from what was chosen before.
    bool TakeChoice(int index) { return std::exchange(before, index) != index; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::Wheel:
            before = box->currentIndex();
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QComboBox* box;
    int before = box->currentIndex();
};

} // namespace

void ConnectSelectionChange(QComboBox* box, QObject* context,
                            std::function<void(int index)> changed) {
    auto* watch = new SelectionWatch(box);
    QObject::connect(box, &QComboBox::activated, context,
                     [watch, changed = std::move(changed)](int index) {
                         if (watch->TakeChoice(index))
                             changed(index);
                     });
}

} // namespace toolkit
