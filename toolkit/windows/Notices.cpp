#include "toolkit/windows/Notices.h"

#include <utility>

namespace toolkit {

namespace {

NoticeSink& Sink() {
    static NoticeSink sink;
    return sink;
}

} // namespace

NoticeSink SetNoticeSink(NoticeSink sink) {
    return std::exchange(Sink(), std::move(sink));
}

void ShowNotice(const QString& text) {
    if (Sink()) {
        Sink()(text);
    }
}

} // namespace toolkit
