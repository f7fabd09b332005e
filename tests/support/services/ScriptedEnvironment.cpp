#include "tests/support/services/ScriptedEnvironment.h"

#include "tests/support/ArgText.h"

namespace support {

void ScriptedKXAuthMng::GetUserName(std::string& name) {
    if (m_script.Call("GetUserName")) {
        name = userName;
    }
}

bool ScriptedKXAuthMng::HasRight(qint32 right) {
    return m_script.Call("HasRight", {Arg("right", right)}) && rights.contains(right);
}

KX_DATA::LoginInfo ScriptedKXAuthMng::GetLoginInfo() {
    return m_script.Call("GetLoginInfo") ? KX_DATA::LoginInfo{userName} : KX_DATA::LoginInfo{};
}

void ScriptedKXGlobalData::GetClientVersionText(QString& text) {
    if (m_script.Call("GetClientVersionText")) {
        text = clientVersion;
    }
}

void ScriptedKXGlobalData::GetGroupName(QString& name, qint32 groupId) {
    if (m_script.Call("GetGroupName", {Arg("group", groupId)})) {
        name = groupNames.contains(groupId) ? groupNames.at(groupId) : QString();
    }
}

bool ScriptedKXGlobalData::IsTNReminderEnabled() {
    return m_script.Call("IsTNReminderEnabled") && issueReminders;
}

bool ScriptedKXGlobalData::IsWorksetMode() {
    return m_script.Call("IsWorksetMode") && worksetMode;
}

void ScriptedKXGlobalData::GetOpenProjectIds(std::vector<qint32>& ids) {
    ids.clear();
    if (!m_script.Call("GetOpenProjectIds")) {
        return;
    }
    for (const KX_DATA::WorksetProject& project : projects) {
        ids.push_back(project.ppid);
    }
}

void ScriptedKXGlobalData::GetWorksetProjects(std::vector<KX_DATA::WorksetProject>& list) {
    list = m_script.Call("GetWorksetProjects") ? projects : decltype(projects)();
}

const QString& ScriptedKXGlobalData::GetProjectName(QString& name, qint32 ppid) {
    name.clear();
    if (m_script.Call("GetProjectName", {Arg("ppid", ppid)})) {
        name = NameOf(ppid);
    }
    return name;
}

QString ScriptedKXGlobalData::NameOf(qint32 ppid) const {
    QString name;
    for (const auto* list : {&projects, &otherProjects}) {
        for (const KX_DATA::WorksetProject& project : *list) {
            if (project.ppid == ppid) {
                name = project.name;
            }
        }
    }
    return name;
}

bool ScriptedKXLocalCacheData::GetMarkTable(std::map<qint32, KX_DATA::MarkRecord>& table) {
    if (!m_script.Call("GetMarkTable")) {
        return false;
    }
    table = marks;
    return true;
}

bool ScriptedKXLocalCacheData::GetMarkInfo(qint32 markId, KX_DATA::MarkRecord& record) {
    const bool succeeds = m_script.Call("GetMarkInfo", {Arg("mark", markId)});
    const auto found = marks.find(markId);
    if (!succeeds || found == marks.end()) {
        return false;
    }
    record = found->second;
    return true;
}

void ScriptedKXSysMng::WriteActionLog(const QString& action) {
    m_script.Call("WriteActionLog", {Text(action)});
}

qint32 ScriptedKXDocMng::GetLabels(qint32 kind, std::vector<KX_DATA::LabelEntry>& list) {
    if (!m_script.Call("GetLabels", {Arg("kind", kind)}) || kind != KX_DATA::kPhotoDocKind) {
        return 0;
    }
    list = labels;
    return KX_DATA::kLabelsOk;
}

qint32 ScriptedKXDocMng::AddLabel(qint32 kind, const QString& label, qint32 value,
                                  const QString& parent, QString& labelId) {
    if (!m_script.Call("AddLabel", {Arg("kind", kind), Arg("label", label), Arg("value", value),
                                    Arg("parent", parent)}) ||
        kind != KX_DATA::kPhotoDocKind || label.isEmpty()) {
        return 0;
    }
    for (const KX_DATA::LabelEntry& known : labels) {
        if (known.labelName == label) {
            labelId = known.labelId;
            return KX_DATA::kLabelAdded;
        }
    }
    labelId = QString::number(labels.size() + 1);
    labels.push_back({labelId, label});
    return KX_DATA::kLabelAdded;
}

bool ScriptedRichEditorAuth::IsRichTextEnabled() {
    return m_script.Call("IsRichTextEnabled") && enabled;
}

bool ScriptedRichEditorAuth::IsRichTextReadOnly() {
    return m_script.Call("IsRichTextReadOnly") && readOnly;
}

void ScriptedRecentSearchMng::SaveRecent(const std::vector<QString>& list) {
    if (m_script.Call("SaveRecent", {Text(list)})) {
        keywords = list;
    }
}

void ScriptedRecentSearchMng::GetRecent(std::vector<QString>& list) {
    list = m_script.Call("GetRecent") ? keywords : decltype(keywords)();
}

void ScriptedConvertProjStateTool::StateToText(QString& text, qint32 state) {
    if (m_script.Call("StateToText", {Arg("state", state)})) {
        text = states.contains(state) ? states.at(state) : QString();
    }
}

qint32 ScriptedConvertProjStateTool::TextToState(const QString& text) {
    if (m_script.Call("TextToState", {Arg("text", text)})) {
        for (const auto& [state, name] : states) {
            if (name == text) {
                return state;
            }
        }
    }
    return -1;
}

} // namespace support
