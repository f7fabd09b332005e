// Rectification states and their display names.
#pragma once

#include <QString>

namespace KX_DATA {

class IConvertProjStateTool {
public:
    virtual ~IConvertProjStateTool() = default;

    virtual void StateToText(QString& text, qint32 state) = 0;
    virtual qint32 TextToState(const QString& text) = 0;
};

} // namespace KX_DATA
