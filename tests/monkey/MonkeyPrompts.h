// File dialogs answered by dice inside one folder; message boxes stay those of a person.
#pragma once

#include "toolkit/windows/Prompts.h"

#include <random>

namespace monkey {

/// While it lives. Never names a file outside of its folder, never opens the shell.
class MonkeyPrompts final : public toolkit::IPrompts {
public:
    MonkeyPrompts(quint64 seed, const QString& folder);
    ~MonkeyPrompts() override;
    MonkeyPrompts(const MonkeyPrompts&) = delete;
    MonkeyPrompts& operator=(const MonkeyPrompts&) = delete;

    void ShowMessage(toolkit::WindowId parent, const QString& text) override;
    bool AskOkCancel(toolkit::WindowId parent, const QString& text) override;
    bool AskYesNo(toolkit::WindowId parent, const QString& text) override;
    QString AskFolder(toolkit::WindowId parent, const QString& title) override;
    QString AskSaveFile(const toolkit::SaveFileRequest& request) override;
    QStringList AskOpenFiles(const toolkit::OpenFilesRequest& request) override;
    void OpenFolder(const QString& folder) override;
    void RevealFile(const QString& path) override;

private:
    [[nodiscard]] QString Folder();
    int Of(int sides) { return int(m_dice() % unsigned(sides)); }

    std::mt19937 m_dice;
    const QString m_folder;
    toolkit::IPrompts& m_native;
};

} // namespace monkey
