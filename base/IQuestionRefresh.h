// Called after somebody changed an issue.
#pragma once

namespace ZelvorNRQ_KXVeskPicture {

/// Thread: user interface.
class IQuestionRefresh {
public:
    virtual ~IQuestionRefresh() = default;
    virtual void Refresh() = 0;
};

} // namespace ZelvorNRQ_KXVeskPicture
