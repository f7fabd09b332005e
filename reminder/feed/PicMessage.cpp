#include "reminder/feed/PicMessage.h"

#include <QByteArray>

#include <boost/property_tree/json_parser.hpp>
#include <boost/property_tree/ptree.hpp>

#include <algorithm>
#include <sstream>
#include <string>

namespace reminder {

namespace {

using boost::property_tree::ptree;
using KX_DATA::PicMsgRecord;

bool IsTooDeep(const QString& json) {
    int depth = 0;
    bool inText = false;
    for (qsizetype at = 0; at < json.size(); ++at) {
        const QChar c = json[at];
        if (inText) {
            at += c == u'\\' ? 1 : 0;
            inText = c != u'"';
        } else if (c == u'"') {
            inText = true;
        } else if (c == u'{' || c == u'[') {
            if (++depth > kDeepest) {
                return true;
            }
        } else if (c == u'}' || c == u']') {
            --depth;
        }
    }
    return false;
}

QString TextOf(const ptree& node) {
    return QString::fromStdString(node.data());
}

QString Text(const ptree& message, const char* key) {
    return TextOf(message.get_child(key));
}

qint32 Number(const ptree& message, const char* key) {
    return message.get<qint32>(key);
}

void ReadPicKeys(const ptree& message, PicMsgRecord& record) {
    record.markerId = Number(message, "markerId");
    record.picId = Number(message, "picId");
    record.intersectionId = Text(message, "intersectionId");
    record.labelText = Text(message, "labels");
    record.picName = Text(message, "name");
    record.pos = Text(message, "pos");
    record.userName = Text(message, "username");
    record.uuid = Text(message, "uuid");
    record.floor = Text(message, "floor");
    for (const auto& [key, label] : message.get_child("labels")) {
        record.labelNames.push_back(TextOf(label));
    }
}

void ReadIssueKeys(const ptree& message, PicMsgRecord& record) {
    record.markerId = Number(message, "markerId");
    record.userName = Text(message, "username");
    record.questionId = Text(message, "questionId");
    record.questionName = Text(message, "questionName");
    record.pos = Text(message, "pos");
    record.handle = Text(message, "handle");
    record.uuid = Text(message, "uuid");
    record.floor = Text(message, "floor");
    record.compName = Text(message, "compName");
}

using ReadKeys = void (*)(const ptree& message, PicMsgRecord& record);

bool ReadMessage(const QString& json, const std::vector<qint32>& openProjects, ReadKeys readKeys,
                 std::vector<PicMsgRecord>& records) {
    if (IsTooDeep(json)) {
        return false;
    }
    try {
        std::istringstream text(json.toUtf8().toStdString());
        ptree message;
        boost::property_tree::read_json(text, message);
        PicMsgRecord record;
        record.ppid = Number(message, "ppid");
        if (std::find(openProjects.begin(), openProjects.end(), record.ppid) ==
            openProjects.end()) {
            return false;
        }
        readKeys(message, record);
        records.push_back(std::move(record));
        return true;
    } catch (const boost::property_tree::ptree_error&) {
        // Nobody is told; required as is.
        return false;
    }
}

} // namespace

bool ReadPicMessage(const QString& json, const std::vector<qint32>& openProjects,
                    std::vector<PicMsgRecord>& records) {
    return ReadMessage(json, openProjects, ReadPicKeys, records);
}

bool ReadIssueMessage(const QString& json, const std::vector<qint32>& openProjects,
                      std::vector<PicMsgRecord>& records) {
    return ReadMessage(json, openProjects, ReadIssueKeys, records);
}

} // namespace reminder
