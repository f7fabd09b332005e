#include "tests/support/ScriptedHost.h"

using namespace Qt::StringLiterals;

namespace support {

namespace {

ScriptedHost* g_current = nullptr;

} // namespace

ScriptedHost::ScriptedHost() : m_before(g_current) {
    g_current = this;
    project.project = KX_DATA::ProjectRecord{u"示例工程"_s, 1};
    global.projects = {{1, u"示例工程"_s}};
    pics.global = &global;
    questions.photos = &pics;
    paths.root = folder.Path();
    global.clientVersion = u"1.0"_s;
    marks.marks = {
        {1, {u"质量"_s, 0x0000FF}}, {2, {u"安全"_s, 0x00FFFF}}, {3, {u"进度"_s, 0x00FF00}}};
    states.states = {{0, u"待整改"_s}, {1, u"整改中"_s}, {2, u"已整改"_s}};
    pics.stateNames = {u"全部"_s, u"待整改"_s, u"整改中"_s, u"已整改"_s};
}

ScriptedHost::~ScriptedHost() {
    g_current = m_before;
}

ScriptedHost& ScriptedHost::Current() {
    if (g_current == nullptr) {
        qFatal("a service was asked for while no ScriptedHost lives");
    }
    return *g_current;
}

void ScriptedHost::OpenWorkset(const std::vector<KX_DATA::WorksetProject>& projects) {
    global.worksetMode = true;
    global.projects = projects;
}

} // namespace support
