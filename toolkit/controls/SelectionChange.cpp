#include "toolkit/controls/SelectionChange.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>

#include <utility>

namespace toolkit {

namespace {

/// An entry as a person knows it. A list that is filled anew as it drops down gives the same entry
/// another place.
struct Entry {
    QString text;
    int number = 0; ///< among those of one text
    bool operator==(const Entry&) const = default;
};

Entry EntryOf(const QComboBox& box, int index) {
    Entry entry{box.itemText(index), 0};
    for (int at = 0; at < index; ++at) {
        entry.number += box.itemText(at) == entry.text ? 1 : 0;
    }
    return entry;
}

/// Knows what a box showed before the person's present key, click or turn of the wheel: only such
/// an event ends in a choice, and what code changes comes before it.
class SelectionWatch final : public QObject {
public:
    explicit SelectionWatch(QComboBox* watchedBox) : QObject(watchedBox), m_box(watchedBox) {
        // The list's own filter, which ends in a choice, was installed earlier and so runs later.
        m_box->installEventFilter(this);
        m_box->view()->installEventFilter(this);
        m_box->view()->viewport()->installEventFilter(this);
    }

    /// Whether this choice differs from what was chosen before.
    bool TakeChoice(int index) {
        const Entry chosen = EntryOf(*m_box, index);
        return std::exchange(m_before, chosen) != chosen;
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::Wheel:
            m_before = EntryOf(*m_box, m_box->currentIndex());
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QComboBox* m_box;
    Entry m_before = EntryOf(*m_box, m_box->currentIndex());
};

} // namespace

void ConnectSelectionChange(QComboBox* box, QObject* context,
                            std::function<void(int index)> changed) {
    auto* watch = new SelectionWatch(box);
    QObject::connect(box, &QComboBox::activated, context,
                     [watch, changed = std::move(changed)](int index) {
                         if (watch->TakeChoice(index)) {
                             changed(index);
                         }
                     });
}

} // namespace toolkit
