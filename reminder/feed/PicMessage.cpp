#include "reminder/feed/PicMessage.h"

#include <QByteArrayView>
#include <QStringEncoder>
#include <QVarLengthArray>

#include <boost/property_tree/json_parser.hpp>
#include <boost/property_tree/ptree.hpp>

#include <algorithm>
#include <charconv>
#include <istream>
#include <streambuf>
#include <string>

namespace reminder {

namespace {

using boost::property_tree::ptree;
using boost::property_tree::ptree_bad_data;
using boost::property_tree::ptree_bad_path;
using KX_DATA::PicMsgRecord;

bool IsTooDeep(QByteArrayView json) {
    // Most have so few signs that they need no closer look.
    if (std::count(json.begin(), json.end(), '{') + std::count(json.begin(), json.end(), '[') <=
        kDeepest) {
        return false;
    }
    int depth = 0;
    bool inText = false;
    for (qsizetype at = 0; at < json.size(); ++at) {
        const char c = json[at];
        if (inText) {
            at += c == '\\' ? 1 : 0;
            inText = c != '"';
        } else if (c == '"') {
            inText = true;
        } else if (c == '{' || c == '[') {
            if (++depth > kDeepest) {
                return true;
            }
        } else if (c == '}' || c == ']') {
            --depth;
        }
    }
    return false;
}

/// UTF-8 of a text as a stream reads it; that of most messages needs no memory of its own.
class Utf8Source final : public std::streambuf {
public:
    explicit Utf8Source(const QString& text) {
        QStringEncoder encoder(QStringEncoder::Utf8);
        m_bytes.resize(encoder.requiredSpace(text.size()));
        setg(m_bytes.data(), m_bytes.data(), encoder.appendToBuffer(m_bytes.data(), text));
    }
    [[nodiscard]] QByteArrayView Bytes() const { return {eback(), egptr()}; }

private:
    static constexpr qsizetype kUsual = 4096;
    QVarLengthArray<char, kUsual> m_bytes;
};

QString TextOf(const ptree& node) {
    return QString::fromStdString(node.data());
}

/// Of a key that comes twice the first. A child by its path makes three texts of it.
const ptree& Child(const ptree& message, const char* key) {
    for (const auto& [name, child] : message) {
        if (name == key) {
            return child;
        }
    }
    throw ptree_bad_path("a key is missing", ptree::path_type(key));
}

QString Text(const ptree& message, const char* key) {
    return TextOf(Child(message, key));
}

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// What a stream would read of it, which takes much longer: blanks around, one sign, digits.
qint32 Number(const ptree& message, const char* key) {
    const std::string& text = Child(message, key).data();
    const char* from = text.data();
    const char* to = from + text.size();
    while (from < to && IsBlank(*from)) {
        ++from;
    }
    while (from < to && IsBlank(to[-1])) {
        --to;
    }
    if (to - from > 1 && *from == '+' && from[1] != '-') {
        ++from;
    }
    qint32 number = 0;
    const auto [end, error] = std::from_chars(from, to, number);
    if (error != std::errc() || end != to) {
        throw ptree_bad_data("no integer", text);
    }
    return number;
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
    for (const auto& [key, label] : Child(message, "labels")) {
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
    Utf8Source source(json);
    if (IsTooDeep(source.Bytes())) {
        return false;
    }
    try {
        std::istream text(&source);
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
