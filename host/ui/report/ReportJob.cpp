#include "host/ui/report/ReportJob.h"

#include "host/report/PdfReport.h"
#include "host/report/WebReport.h"
#include "host/report/WordReport.h"
#include "toolkit/InterfaceThread.h"

#include <QPointer>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// A sentence; nothing: the file is there. Empty: cancelled.
std::optional<QString> MakeFile(const ReportJob::Order& order, PrintPictures& pictures,
                                const ReportSteps& steps) {
    try {
        ReportFile file(order.path);
        switch (order.form) {
        case ReportForm::Pdf:
            WritePdf(order.sheet, pictures, file, steps);
            break;
        case ReportForm::Word:
            WriteWord(order.sheet, pictures, file, steps);
            break;
        case ReportForm::Web:
            WriteWeb(order.sheet, pictures, file, steps);
            break;
        }
        return std::nullopt;
    } catch (const ReportFault& fault) {
        return fault.Text();
    } catch (const std::exception& fault) {
        return u"无法生成报告：%1。请减少内容后重试。"_s.arg(QString::fromLocal8Bit(fault.what()));
    }
}

} // namespace

ReportJob::ReportJob(Order reportOrder, PrintPictures& pictures, QObject* parent)
    : QObject(parent), m_path(reportOrder.path) {
    const QPointer<ReportJob> self(this);
    ReportSteps steps;
    steps.stop = m_stop.get_token();
    steps.onStep = [self](int done, int total) {
        toolkit::CallOnInterfaceThread([self, done, total] {
            if (self) {
                emit self->Stepped(done, total);
            }
        });
    };
    // Qt's texts want a thread of Qt's.
    m_thread.reset(QThread::create(
        [self, order = std::move(reportOrder), steps = std::move(steps), &pictures] {
            const auto fault = MakeFile(order, pictures, steps);
            toolkit::CallOnInterfaceThread([self, fault] {
                if (self) {
                    emit self->Ended(!fault, fault.value_or(QString()));
                }
            });
        }));
    m_thread->start();
}

ReportJob::~ReportJob() {
    m_stop.request_stop();
    m_thread->wait();
}

} // namespace host
