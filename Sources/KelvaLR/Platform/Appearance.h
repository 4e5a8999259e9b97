#pragma once

#include <QObject>

namespace KelvaLR {

/// Port: how the desktop wants programs to look. Main thread; the first answers may be defaults until the
/// desktop has been asked.
class Appearance : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isDark() const = 0;
    [[nodiscard]] virtual bool isMotionReduced() const = 0;

Q_SIGNALS:
    void changed();
};

} // namespace KelvaLR
