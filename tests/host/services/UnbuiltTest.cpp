#include "services/Factories.h"
#include "services/IPicReportCtrl.h"
#include "tests/host/services/ServiceSite.h"

namespace host {

using hosttest::ServiceSite;

TEST(UnbuiltOperations, AnswerWithTheirFailureValueAndInventNothing) {
    ServiceSite site;
    GetPicReportCtrl()->OutputBimReport(nullptr); // a log line and nothing else
}

} // namespace host
