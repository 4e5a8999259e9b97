#pragma once

#include <QFile>

#include <cmath>

namespace KelvaLR {

/// The memory of this process in megabytes, shared pages by their share; not a number where the system cannot
/// say.
inline double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("Pss:")) {
                return line.simplified().split(' ').value(1).toDouble() * 1024 / 1e6;
            }
        }
    }
    return std::nan("");
}

} // namespace KelvaLR
