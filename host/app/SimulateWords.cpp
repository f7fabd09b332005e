#include "host/app/SimulateWords.h"

#include <cmath>

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString ReadRate(const QString& value, SimulateRequest& request) {
    if (value == u"max"_s) {
        request.perMinute = kFastest;
        return {};
    }
    bool isNumber = false;
    const double rate = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(rate) || rate <= 0) {
        return u"--rate 是每分钟的条数，要大于 0（可以是小数），或者 max（尽快），不能是“%1”。"_s
            .arg(value);
    }
    request.perMinute = rate;
    return {};
}

QString ReadCount(const QString& value, SimulateRequest& request) {
    bool isNumber = false;
    const int count = value.toInt(&isNumber);
    if (!isNumber || count < 1) {
        return u"--count 是总条数，要是大于 0 的整数，不能是“%1”。"_s.arg(value);
    }
    request.count = count;
    return {};
}

} // namespace

QString TakeSimulateOption(const QString& name, const QString& value, SimulateRequest& request) {
    static const QStringList known = {u"--project"_s, u"--rate"_s, u"--photos"_s, u"--count"_s};
    if (!known.contains(name)) {
        return u"不认识“%1”。"_s.arg(name);
    }
    if (value.isEmpty()) {
        return u"选项 %1 后面缺少内容。"_s.arg(name);
    }
    if (name == u"--rate"_s) {
        return ReadRate(value, request);
    }
    if (name == u"--count"_s) {
        return ReadCount(value, request);
    }
    (name == u"--project"_s ? request.project : request.photos) = value;
    return {};
}

QString LackOf(const SimulateRequest& request) {
    if (request.project.isEmpty()) {
        return u"请用 --project 写明工程。"_s;
    }
    if (request.perMinute == 0) {
        return u"请用 --rate 写明每分钟的条数。"_s;
    }
    return {};
}

} // namespace host
