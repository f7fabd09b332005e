#include "tests/support/RecordingSinks.h"

#include "tests/support/ArgText.h"

namespace support {

void RecordingSink::RefreshBimMarks() {
    m_script.Call("RefreshBimMarks");
}

void RecordingSink::RefreshTNMarks() {
    m_script.Call("RefreshTNMarks");
}

void RecordingSink::RefreshPdfMarks() {
    m_script.Call("RefreshPdfMarks");
}

void RecordingSink::SelectCheckpoint(qint32 drawingId) {
    m_script.Call("SelectCheckpoint", {Arg("drawing", drawingId)});
}

void RecordingSink::SelectPictureMark(const QString& floor, qint32 markId, qint32 picId) {
    m_script.Call("SelectPictureMark",
                  {Arg("floor", floor), Arg("mark", markId), Arg("id", picId)});
}

void RecordingIssueEditSink::OnIssueEditVisible(qint32 visible) {
    m_script.Call("OnIssueEditVisible", {Arg("visible", visible)});
}

void RecordingHub::AddObserver(KXFRAME::IBaseObs* observer) {
    m_script.Call("AddObserver", {Arg("name", observer->GetObsName())});
    observers.push_back(observer);
}

} // namespace support
