#include "bench/BareDecode.h"

#include "bench/Stopwatch.h"

#include <QImageReader>

#include <atomic>
#include <thread>

namespace bench {

namespace {

void Decode(const DecodeOrder& order) {
    QImageReader reader(order.path);
    reader.setAutoTransform(true);
    reader.setScaledSize(order.size);
    QImage image = reader.read();
    if (!order.cut.isEmpty()) {
        image = image.copy(order.cut);
    }
}

} // namespace

double BareDecode(const DecodeOrder& order) {
    const Stopwatch timer;
    Decode(order);
    return timer.Milliseconds();
}

double BareDecodes(const std::vector<DecodeOrder>& orders) {
    std::atomic<size_t> next{0};
    const auto work = [&] {
        for (size_t i = next++; i < orders.size(); i = next++) {
            Decode(orders[i]);
        }
    };
    const Stopwatch timer;
    {
        std::vector<std::jthread> others;
        for (unsigned i = 1; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
            others.emplace_back(work);
        }
        work();
    }
    return timer.Milliseconds();
}

} // namespace bench
