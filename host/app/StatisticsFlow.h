// The statistics dock on the open projects, and from its bars into the console.
#pragma once

#include "host/app/Calmed.h"
#include "host/app/StatisticsReader.h"

#include <QObject>

#include <memory>

namespace ZelvorNRQ_KXVeskPicture {
class IKXVeskPicture;
}

namespace host {

class DrawingFlow;
class MainWindow;
class StatisticsDock;

/// Asks the site only while the dock is in sight, and then after each change of the data, calmly.
/// A bar opens the console on what it stands for. What it is made with must outlive it. Thread:
/// user interface.
class StatisticsFlow final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        HostSession& session;
        MainWindow& window;
        DrawingFlow& drawings;
        ZelvorNRQ_KXVeskPicture::IKXVeskPicture& pictures;
    };

    explicit StatisticsFlow(const Parts& parts);

    /// Another project is open, or none.
    void ProjectChanged();

private:
    [[nodiscard]] StatisticsDock& Dock() const;
    void Read();
    void Open(int row);
    void ShowInConsole(const CountedPart& part);

    const Parts m_parts;
    CountedChart m_shown;
    Calmed m_soon;
    std::shared_ptr<void> m_changes;
};

} // namespace host
