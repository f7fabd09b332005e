#include "site/transfer/TransferSteps.h"

#include <chrono>

namespace site {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void ThrowBroken() {
    throw DataError(Fault::Other, u"文件传输中断，请检查网络后重试。"_s);
}

} // namespace

TransferSteps::TransferSteps(const TransferTerms& terms, qint64 total)
    : m_terms(terms), m_total(total), m_steps(terms.limits) {
    if (terms.rules.fault == TransferFault::AtStart) {
        ThrowBroken();
    }
}

void TransferSteps::RequireTime() {
    if (!m_steps.Next() || m_steps.Passed()) {
        const Fault passed = *m_steps.Passed();
        throw DataError(passed, passed == Fault::Cancelled ? u"文件传输已取消。"_s
                                                           : FaultText(passed, u"文件传输"_s));
    }
}

void TransferSteps::Next(qint64 bytes) {
    const bool half = bytes * 2 >= m_total;
    if (half && m_terms.rules.fault == TransferFault::InTheMiddle) {
        ThrowBroken();
    }
    const bool hangs = half && m_terms.rules.fault == TransferFault::NeverEnds;
    m_steps.Wait(std::chrono::milliseconds(hangs ? -1 : m_terms.rules.blockDelayMs));
    RequireTime();
    if (m_terms.onBytes) {
        m_terms.onBytes(bytes);
    }
}

void TransferSteps::End() {
    RequireTime();
}

} // namespace site
