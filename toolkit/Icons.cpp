#include "toolkit/Icons.h"

#include "toolkit/IconEngine.h"

#include <QFile>

#include <map>

using namespace Qt::StringLiterals;

namespace toolkit {

QIcon Icon(const QString& name) {
    // Icons share what they have drawn. Left to the process: pixmaps must not outlive the
    // application, and destructors at exit would come after it.
    static auto& known = *new std::map<QString, QIcon>();
    const auto found = known.find(name);
    if (found != known.end()) {
        return found->second;
    }
    QFile file(u":/toolkit/icons/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    // A copy of the characters: a literal of a module is gone once the module is unloaded.
    const QString key(name.constData(), name.size());
    return known.emplace(key, QIcon(new IconEngine(file.readAll()))).first->second;
}

} // namespace toolkit
