#include "toolkit/sound/DeviceFinder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMediaDevices>

namespace toolkit {

QAudioDevice DeviceQuestion::Answer(std::chrono::milliseconds atMost, const std::stop_token& stop) {
    std::unique_lock lock(m_lock);
    m_answered.wait_for(lock, stop, atMost, [this] { return m_answer.has_value(); });
    return m_answer.value_or(QAudioDevice());
}

void DeviceQuestion::SetAnswer(const QAudioDevice& device) {
    {
        const std::lock_guard lock(m_lock);
        m_answer = device;
    }
    m_answered.notify_all();
}

DeviceFinder::DeviceFinder() {
    moveToThread(&m_thread);
    m_thread.start();
}

DeviceFinder::~DeviceFinder() {
    m_thread.quit();
    m_thread.wait();
}

std::shared_ptr<DeviceQuestion> DeviceFinder::Ask() {
    auto question = std::make_shared<DeviceQuestion>();
    {
        const std::lock_guard lock(m_lock);
        m_questions.push_back(question);
    }
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    return question;
}

bool DeviceFinder::event(QEvent* event) {
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    std::shared_ptr<DeviceQuestion> question;
    {
        const std::lock_guard lock(m_lock);
        question = m_questions.front();
        m_questions.pop_front();
    }
    question->SetAnswer(QMediaDevices::defaultAudioOutput());
    return true;
}

} // namespace toolkit
