// What a host hands to the module, recording what the module does with it.
#pragma once

#include "include/IKXVeskPictureSink.h"
#include "include/KXFrameObs.h"
#include "tests/support/Reserved.h"
#include "tests/support/Script.h"

#include <vector>

namespace support {

class RecordingSink final : public WithReserved2<ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink> {
public:
    explicit RecordingSink(Script& script) : m_script(script) {}

    void RefreshBimMarks() override;
    void RefreshTNMarks() override;
    void RefreshPdfMarks() override;
    void SelectCheckpoint(qint32 drawingId) override;
    void SelectPictureMark(const QString& floor, qint32 markId, qint32 picId) override;

private:
    Script& m_script;
};

class RecordingIssueEditSink final
    : public WithReserved2<ZelvorNRQ_KXVeskPicture::IKXIssueEditSink> {
public:
    explicit RecordingIssueEditSink(Script& script) : m_script(script) {}

    void OnIssueEditVisible(qint32 visible) override;

private:
    Script& m_script;
};

class RecordingHub final : public WithReserved2<KXFRAME::IKXObserverHub> {
public:
    explicit RecordingHub(Script& script) : m_script(script) {}

    std::vector<KXFRAME::IBaseObs*> observers;

    void AddObserver(KXFRAME::IBaseObs* observer) override;

private:
    Script& m_script;
};

} // namespace support
