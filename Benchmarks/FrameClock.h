#pragma once

#include <QQuickWindow>

#include <chrono>
#include <functional>

namespace KelvaLR {

/// What one change of a window cost, in milliseconds.
struct FrameCost
{
    double untilShown = 0; ///< from the change to its frame on the screen, with the toolkit's own pauses
    double work = 0;       ///< the processor time of the main thread, whatever else the machine does
};

/// Watches a window whose frames are made on the main thread, as the software renderer does.
class FrameClock
{
public:
    explicit FrameClock(QQuickWindow &window);

    /// Makes a change and turns the event loop until the next frame, which is asked for in any case. Ends the
    /// program when none comes within a minute.
    FrameCost show(const std::function<void()> &change);

    /// Turns the event loop for this long.
    /// @return the milliseconds of work that the main thread did meanwhile
    static double pause(std::chrono::milliseconds duration);

private:
    QQuickWindow &m_window;
};

/// The median, the 95th percentile and the largest of some milliseconds, as text.
[[nodiscard]] QString summary(QList<double> milliseconds);

} // namespace KelvaLR
