// Arguments of a call as they stand in the log.
#pragma once

#include <QString>

#include <string>
#include <vector>

namespace support {

inline std::string Text(const QString& value) {
    return value.toStdString();
}

inline std::string Text(const std::string& value) {
    return value;
}

inline std::string Text(bool value) {
    return value ? "true" : "false";
}

inline std::string Text(qint64 value) {
    return std::to_string(value);
}

inline std::string Text(quint64 value) {
    return std::to_string(value);
}

inline std::string Text(qint32 value) {
    return std::to_string(value);
}

/// "[1 2 3]"
template <class T> std::string Text(const std::vector<T>& values) {
    std::string text = "[";
    for (const T& value : values) {
        if (text.size() > 1) {
            text += ' ';
        }
        text += Text(value);
    }
    return text + "]";
}

/// "name=value"
template <class T> std::string Arg(const char* name, const T& value) {
    return std::string(name) + "=" + Text(value);
}

} // namespace support
