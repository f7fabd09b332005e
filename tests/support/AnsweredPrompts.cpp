#include "tests/support/AnsweredPrompts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace support {

namespace {

QStringList YesOrNo(bool answer) {
    return answer ? QStringList{u"yes"_s} : QStringList{};
}

QStringList PathOrNone(const QString& path) {
    return path.isEmpty() ? QStringList{} : QStringList{path};
}

} // namespace

AnsweredPrompts::AnsweredPrompts(CallLog* log) : m_log(log), m_before(toolkit::SetPrompts(this)) {}

AnsweredPrompts::~AnsweredPrompts() {
    toolkit::SetPrompts(m_before);
    for (const Expectation& left : m_expected) {
        ADD_FAILURE() << "never came: " << left.prompt << "(" << left.text.toStdString() << ")";
    }
}

void AnsweredPrompts::Expect(const std::string& prompt, const QString& text,
                             const QStringList& answer) {
    m_expected.push_back({prompt, text, answer, nullptr});
}

void AnsweredPrompts::ExpectMessage(const QString& text) {
    Expect("ShowMessage", text);
}

void AnsweredPrompts::ExpectOkCancel(const QString& text, bool answer) {
    Expect("AskOkCancel", text, YesOrNo(answer));
}

void AnsweredPrompts::ExpectYesNo(const QString& text, bool answer) {
    Expect("AskYesNo", text, YesOrNo(answer));
}

void AnsweredPrompts::ExpectNoYes(const QString& text, bool answer) {
    Expect("AskNoYes", text, YesOrNo(answer));
}

void AnsweredPrompts::ExpectFolder(const QString& title, const QString& answer) {
    Expect("AskFolder", title, PathOrNone(answer));
}

void AnsweredPrompts::ExpectSaveFile(const QString& proposedName, const QString& answer) {
    Expect("AskSaveFile", proposedName, PathOrNone(answer));
}

void AnsweredPrompts::ExpectOpenFiles(const QString& filter, const QStringList& answer) {
    Expect("AskOpenFiles", filter, answer);
}

void AnsweredPrompts::ExpectOpenFolder(const QString& folder) {
    Expect("OpenFolder", folder);
}

void AnsweredPrompts::ExpectRevealFile(const QString& path) {
    Expect("RevealFile", path);
}

void AnsweredPrompts::Meanwhile(std::function<void()> action) {
    ASSERT_FALSE(m_expected.empty()) << "nothing is expected yet";
    m_expected.back().meanwhile = std::move(action);
}

QStringList AnsweredPrompts::Answer(toolkit::WindowId parent, const std::string& prompt,
                                    const QString& text) {
    m_parents.push_back(parent);
    if (m_log != nullptr) {
        m_log->Add(prompt + "(" + text.toStdString() + ")");
    }
    if (m_expected.empty() || m_expected.front().prompt != prompt ||
        m_expected.front().text != text) {
        ADD_FAILURE() << "unexpected: " << prompt << "(" << text.toStdString() << ")"
                      << (m_expected.empty() ? std::string()
                                             : ", expected " + m_expected.front().prompt + "(" +
                                                   m_expected.front().text.toStdString() + ")");
        return {};
    }
    // Taken out before anything runs meanwhile: that may open the next prompt.
    const Expectation met = std::move(m_expected.front());
    m_expected.pop_front();
    if (met.meanwhile) {
        met.meanwhile();
    }
    return met.answer;
}

void AnsweredPrompts::ShowMessage(toolkit::WindowId parent, const QString& text) {
    Answer(parent, "ShowMessage", text);
}

bool AnsweredPrompts::AskOkCancel(toolkit::WindowId parent, const QString& text) {
    return !Answer(parent, "AskOkCancel", text).isEmpty();
}

bool AnsweredPrompts::AskYesNo(toolkit::WindowId parent, const QString& text) {
    return !Answer(parent, "AskYesNo", text).isEmpty();
}

bool AnsweredPrompts::AskNoYes(toolkit::WindowId parent, const QString& text) {
    return !Answer(parent, "AskNoYes", text).isEmpty();
}

QString AnsweredPrompts::AskFolder(toolkit::WindowId parent, const QString& title) {
    return Answer(parent, "AskFolder", title).value(0);
}

QString AnsweredPrompts::AskSaveFile(const toolkit::SaveFileRequest& request) {
    m_lastFilter = request.filter;
    return Answer(request.parent, "AskSaveFile", request.proposedName).value(0);
}

QStringList AnsweredPrompts::AskOpenFiles(const toolkit::OpenFilesRequest& request) {
    m_lastFilter = request.filter;
    return Answer(request.parent, "AskOpenFiles", request.filter);
}

void AnsweredPrompts::OpenFolder(const QString& folder) {
    Answer(toolkit::kNoWindow, "OpenFolder", folder);
}

bool AnsweredPrompts::OpenFile(const QString& path) {
    OpenFolder(path);
    return hasPrograms;
}

void AnsweredPrompts::RevealFile(const QString& path) {
    Answer(toolkit::kNoWindow, "RevealFile", path);
}

} // namespace support
