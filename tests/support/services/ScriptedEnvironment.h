// Rights, projects, marks and settings as a test sets them.
#pragma once

#include "services/IConvertProjStateTool.h"
#include "services/IKXAuthMng.h"
#include "services/IKXDocMng.h"
#include "services/IKXGlobalData.h"
#include "services/IKXLocalCacheData.h"
#include "services/IKXSysMng.h"
#include "services/IRecentSearchMng.h"
#include "services/IRichEditorAuth.h"
#include "tests/support/Script.h"

#include <set>

namespace support {

class ScriptedKXAuthMng final : public KX_DATA::IKXAuthMng, public KX_DATA::INRQAuthMng {
public:
    explicit ScriptedKXAuthMng(Script& script) : m_script(script) {}

    std::string userName = "engineer"; ///< code page 936
    std::set<qint32> rights{KX_DATA::kRightAddLabels, KX_DATA::kRightEdit, KX_DATA::kRightDelete,
                            KX_DATA::kRightShowHide};

    void GetUserName(std::string& name) override;
    bool HasRight(qint32 right) override;
    KX_DATA::LoginInfo GetLoginInfo() override;

private:
    Script& m_script;
};

class ScriptedKXGlobalData final : public KX_DATA::IKXGlobalData {
public:
    explicit ScriptedKXGlobalData(Script& script) : m_script(script) {}

    QString clientVersion;
    bool worksetMode = false;
    bool issueReminders = true;
    std::vector<KX_DATA::WorksetProject> projects;      ///< of the workset, or the open one alone
    std::vector<KX_DATA::WorksetProject> otherProjects; ///< have names and aren't open
    std::map<qint32, QString> groupNames;

    void GetClientVersionText(QString& text) override;
    void GetGroupName(QString& name, qint32 groupId) override;
    bool IsTNReminderEnabled() override;
    bool IsWorksetMode() override;
    void GetOpenProjectIds(std::vector<qint32>& ids) override;
    void GetWorksetProjects(std::vector<KX_DATA::WorksetProject>& list) override;
    const QString& GetProjectName(QString& name, qint32 ppid) override;

    /// Of an open project or another one; for the other doubles, which don't ask through a call.
    [[nodiscard]] QString NameOf(qint32 ppid) const;

private:
    Script& m_script;
};

class ScriptedKXLocalCacheData final : public KX_DATA::IKXLocalCacheData {
public:
    explicit ScriptedKXLocalCacheData(Script& script) : m_script(script) {}

    std::map<qint32, KX_DATA::MarkRecord> marks;

    bool GetMarkTable(std::map<qint32, KX_DATA::MarkRecord>& table) override;
    bool GetMarkInfo(qint32 markId, KX_DATA::MarkRecord& record) override;

private:
    Script& m_script;
};

class ScriptedKXSysMng final : public KX_DATA::IKXSysMng {
public:
    explicit ScriptedKXSysMng(Script& script) : m_script(script) {}

    void WriteActionLog(const QString& action) override;

private:
    Script& m_script;
};

class ScriptedKXDocMng final : public KX_DATA::IKXDocMng {
public:
    explicit ScriptedKXDocMng(Script& script) : m_script(script) {}

    std::vector<KX_DATA::LabelEntry> labels;

    qint32 GetLabels(qint32 kind, std::vector<KX_DATA::LabelEntry>& list) override;
    qint32 AddLabel(qint32 kind, const QString& label, qint32 value, const QString& parent,
                    QString& labelId) override;

private:
    Script& m_script;
};

class ScriptedRichEditorAuth final : public KX_DATA::IRichEditorAuth {
public:
    explicit ScriptedRichEditorAuth(Script& script) : m_script(script) {}

    bool enabled = false;
    bool readOnly = false;

    bool IsRichTextEnabled() override;
    bool IsRichTextReadOnly() override;

private:
    Script& m_script;
};

class ScriptedRecentSearchMng final : public KX_DATA::IRecentSearchMng {
public:
    explicit ScriptedRecentSearchMng(Script& script) : m_script(script) {}

    std::vector<QString> keywords; ///< newest first

    void SaveRecent(const std::vector<QString>& list) override;
    void GetRecent(std::vector<QString>& list) override;

private:
    Script& m_script;
};

class ScriptedConvertProjStateTool final : public KX_DATA::IConvertProjStateTool {
public:
    explicit ScriptedConvertProjStateTool(Script& script) : m_script(script) {}

    std::map<qint32, QString> states;

    void StateToText(QString& text, qint32 state) override;
    /// -1 for an unknown name.
    qint32 TextToState(const QString& text) override;

private:
    Script& m_script;
};

} // namespace support
