// The client's progress strip: what goes on in the background while people go on working.
#pragma once

#include <QString>

namespace KX_DATA {

/// Thread: user interface. None of its operations lets other events be handled.
class IKXProgressStrip {
public:
    virtual ~IKXProgressStrip() = default;

    /// `value` is 0.
    virtual void ShowProgressBar(const QString& text, qint32 value) = 0;
    /// Nothing while the strip isn't shown.
    virtual void SetShowInfo(const QString& text) = 0;
    virtual void CloseProgressBar() = 0;
};

} // namespace KX_DATA
