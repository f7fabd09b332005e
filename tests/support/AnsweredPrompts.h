// Prompts that a test answers.
#pragma once

#include "tests/support/CallLog.h"
#include "toolkit/windows/Prompts.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace support {

/// While it lives, every prompt must come as it was expected, in order; an unexpected one, a wrong
/// text and an expectation left over at the end fail the test. Unexpected questions are declined.
class AnsweredPrompts final : public toolkit::IPrompts {
public:
    /// With a log the prompts stand among the calls: "ShowMessage(text)".
    explicit AnsweredPrompts(CallLog* log = nullptr);
    ~AnsweredPrompts() override;
    AnsweredPrompts(const AnsweredPrompts&) = delete;
    AnsweredPrompts& operator=(const AnsweredPrompts&) = delete;

    void ExpectMessage(const QString& text);
    void ExpectOkCancel(const QString& text, bool answer);
    void ExpectYesNo(const QString& text, bool answer);
    void ExpectNoYes(const QString& text, bool answer);
    /// Empty answer: cancelled, here and below.
    void ExpectFolder(const QString& title, const QString& answer);
    void ExpectSaveFile(const QString& proposedName, const QString& answer);
    void ExpectOpenFiles(const QString& filter, const QStringList& answer);
    void ExpectOpenFolder(const QString& folder);
    void ExpectRevealFile(const QString& path);
    /// Runs while the prompt expected last stands open.
    void Meanwhile(std::function<void()> action);

    /// The parents of all prompts so far.
    [[nodiscard]] const std::vector<toolkit::WindowId>& Parents() const { return m_parents; }
    /// Filter of the last dialog for saving or opening files.
    [[nodiscard]] const QString& LastFilter() const { return m_lastFilter; }
    [[nodiscard]] bool AllAnswered() const { return m_expected.empty(); }

    void ShowMessage(toolkit::WindowId parent, const QString& text) override;
    bool AskOkCancel(toolkit::WindowId parent, const QString& text) override;
    bool AskYesNo(toolkit::WindowId parent, const QString& text) override;
    bool AskNoYes(toolkit::WindowId parent, const QString& text) override;
    QString AskFolder(toolkit::WindowId parent, const QString& title) override;
    QString AskSaveFile(const toolkit::SaveFileRequest& request) override;
    QStringList AskOpenFiles(const toolkit::OpenFilesRequest& request) override;
    void OpenFolder(const QString& folder) override;
    /// Expected as a folder is.
    bool OpenFile(const QString& path) override;
    void RevealFile(const QString& path) override;

    bool hasPrograms = true; ///< for the files that are opened

private:
    /// Questions with two answers: no answer is the empty list, any other is yes.
    struct Expectation {
        std::string prompt;
        QString text;
        QStringList answer;
        std::function<void()> meanwhile;
    };
    void Expect(const std::string& prompt, const QString& text, const QStringList& answer = {});
    QStringList Answer(toolkit::WindowId parent, const std::string& prompt, const QString& text);

    CallLog* m_log;
    toolkit::IPrompts* m_before;
    std::deque<Expectation> m_expected;
    std::vector<toolkit::WindowId> m_parents;
    QString m_lastFilter;
};

} // namespace support
